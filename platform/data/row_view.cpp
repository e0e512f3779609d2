#include "platform/data/row_view.h"

#include <algorithm>
#include <utility>

namespace quor {
namespace {

using Test = CompiledFilter::Test;

FieldIndex::Bucket* bucket_of(FieldIndex& index, const CompiledFilter::Clause& clause, FieldType type) {
  if (clause.test == Test::kIsNull) return index.null_bucket();
  return index.bucket(type == FieldType::kText ? index_key(clause.text) : index_key(clause.number));
}

}  // namespace

// ---- RowList

std::size_t RowList::lower_bound(RowNumber row) const {
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), row,
                                      [](RowNumber entry, RowNumber r) { return (entry & ~kRemoved) < r; });
  return static_cast<std::size_t>(found - entries_.begin());
}

bool RowList::contains(RowNumber row) const {
  const std::size_t at = lower_bound(row);
  return at < entries_.size() && entries_[at] == row;
}

RowNumber RowList::after(RowNumber row) {
  std::size_t at = walked_;
  if (at >= entries_.size() || number(at) != row) {
    at = lower_bound(row);
    if (at < entries_.size() && number(at) > row) --at;  // wraps below the first; the sum below brings it back
  }
  at = std::max(at + 1, begin_);
  while (at < entries_.size() && removed(at)) ++at;
  if (at >= entries_.size()) return kNoRow;
  walked_ = at;
  return number(at);
}

RowNumber RowList::before(RowNumber row) {
  std::size_t at = walked_;
  if (at >= entries_.size() || number(at) != row) at = lower_bound(row);
  while (at > begin_ && removed(at - 1)) --at;
  if (at <= begin_) return kNoRow;
  walked_ = at - 1;
  return number(walked_);
}

void RowList::assign(std::vector<RowNumber> rows) {
  entries_ = std::move(rows);
  begin_ = 0;
  count_ = entries_.size();
  walked_ = 0;
}

void RowList::add(RowNumber row) {
  const std::size_t at = lower_bound(row);
  if (at == entries_.size() || number(at) != row) {
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(at), row);
  } else if (removed(at)) {
    entries_[at] = row;
  } else {
    return;
  }
  ++count_;
  begin_ = std::min(begin_, at);
}

void RowList::remove(RowNumber row) {
  const std::size_t at = lower_bound(row);
  if (at == entries_.size() || entries_[at] != row) return;
  entries_[at] |= kRemoved;
  --count_;
  while (!entries_.empty() && removed(entries_.size() - 1)) entries_.pop_back();
  begin_ = std::min(begin_, entries_.size());
  while (begin_ < entries_.size() && removed(begin_)) ++begin_;
  const std::size_t marked = entries_.size() - count_;
  if (marked > 16 && marked > count_ / 2) drop_removed();
}

void RowList::drop_removed() {
  std::erase_if(entries_, [](RowNumber entry) { return (entry & kRemoved) != 0; });
  begin_ = 0;
  walked_ = 0;
}

// ---- RowView

RowView::RowView(CompiledFilter filter, RecordStore& store) : filter_(std::move(filter)), store_(&store) { rebuild(); }

RowList& RowView::rows() {
  if (version_ == store_->version()) return rows_;
  const auto changes = store_->changes_since(version_);
  if (!changes) {
    rebuild();
    return rows_;
  }
  for (const RowNumber row : *changes) {
    if (store_->alive(row) && filter_.passes(store_->columns(), row)) {
      rows_.add(row);
    } else {
      rows_.remove(row);
    }
  }
  store_->count_tested(changes->size());
  version_ = store_->version();
  return rows_;
}

bool RowView::passes(const EditedRow& row) { return filter_.passes(row.columns, 0); }

void RowView::rebuild() {
  std::vector<RowNumber> rows;
  if (take_candidates(rows)) {
    store_->count_tested(rows.size());
    std::erase_if(rows, [this](RowNumber row) { return !filter_.passes(store_->columns(), row); });
    rows_.assign(std::move(rows));
  } else {
    scan();
  }
  version_ = store_->version();
}

void RowView::scan() {
  std::vector<RowNumber> rows;
  for (RowNumber row = store_->first_alive(); row != kNoRow; row = store_->alive_after(row)) {
    if (filter_.passes(store_->columns(), row)) rows.push_back(row);
  }
  store_->count_tested(store_->alive_count());
  rows_.assign(std::move(rows));
}

bool RowView::take_candidates(std::vector<RowNumber>& candidates) {
  const auto* clauses = filter_.and_list();
  if (clauses == nullptr) return false;
  FieldIndex* best_index = nullptr;
  FieldIndex::Bucket* best = nullptr;
  for (const CompiledFilter::Clause& clause : *clauses) {
    if (clause.test != Test::kEqual && clause.test != Test::kIsNull) continue;
    FieldIndex* index = store_->index(clause.field);
    if (index == nullptr) return false;
    FieldIndex::Bucket* bucket = bucket_of(*index, clause, store_->columns()[clause.field].info.type);
    if (best_index != nullptr && bucket != nullptr && bucket->count >= best->count) continue;
    best_index = index;
    best = bucket;
    if (best == nullptr) break;  // nothing passes
  }
  if (best_index == nullptr) return false;
  best_index->collect(best, candidates);
  return true;
}

}  // namespace quor
