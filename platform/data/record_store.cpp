#include "platform/data/record_store.h"

#include <algorithm>
#include <utility>

#include "platform/data/case_folding.h"
#include "platform/data/error.h"

namespace quor {
namespace {

constexpr std::size_t kIndexFrom = 16;   // rows; below, a scan is cheaper than an index
constexpr std::size_t kLogSlack = 1024;  // log entries kept however few rows there are

}  // namespace

// ---- fields

void RecordStore::append_field(FieldInfo info) {
  for (const ColumnData& column : columns_) {
    if (compare_folded(column.info.name, info.name) == 0) {
      throw Error(ErrorKind::kTypeMismatch, "Laukas „" + info.name + "“ jau yra.");
    }
  }
  columns_.emplace_back(std::move(info));
}

void RecordStore::open() {
  if (columns_.empty()) throw Error(ErrorKind::kNoSuchField, "Įrašų rinkinys neturi laukų.");
  open_ = true;
}

void RecordStore::open_with(std::vector<ColumnData> columns) {
  for (ColumnData& column : columns) {
    append_field(column.info);
    const std::size_t rows = columns.front().size();
    if (column.size() != rows || !values_fit_type(column)) {
      throw Error(ErrorKind::kTypeMismatch, "Lauko „" + column.info.name + "“ reikšmės netinka įrašų rinkiniui.");
    }
    if (rows > kMaxRows) throw Error(ErrorKind::kTooMany, "Per daug įrašų: " + std::to_string(rows) + ".");
  }
  open();
  columns_ = std::move(columns);
  states_.assign(columns_.front().size(), RowState::kUnchanged);
  recount_alive();
}

// ---- rows

RowNumber RecordStore::alive_after(RowNumber row) const {
  if (alive_count_ == 0) return kNoRow;
  for (RowNumber next = std::max(row + 1, alive_begin_); next < alive_end_; ++next) {
    if (alive(next)) return next;
  }
  return kNoRow;
}

RowNumber RecordStore::alive_before(RowNumber row) const {
  if (alive_count_ == 0) return kNoRow;
  for (RowNumber next = std::min(row, alive_end_); next > alive_begin_; --next) {
    if (alive(next - 1)) return next - 1;
  }
  return kNoRow;
}

void RecordStore::recount_alive() {
  alive_count_ = 0;
  for (RowNumber row = 0; row < row_count(); ++row) {
    if (!alive(row)) continue;
    if (alive_count_++ == 0) alive_begin_ = row;
    alive_end_ = row + 1;
  }
}

// Both ends move inward past the tombstones now, so that a loop that erases from an end stays linear.
void RecordStore::leave_alive(RowNumber row, RowState state) {
  states_[row] = state;
  if (--alive_count_ == 0) return;
  while (!alive(alive_begin_)) ++alive_begin_;
  while (!alive(alive_end_ - 1)) --alive_end_;
}

// ---- committed changes

RowNumber RecordStore::append(const EditedRow& edited) {
  const RowNumber row = row_count();
  if (row == kMaxRows) throw Error(ErrorKind::kTooMany, "Per daug įrašų.");
  for (std::size_t field = 0; field < columns_.size(); ++field) columns_[field].append_cell(edited.columns[field], 0);
  states_.push_back(RowState::kAdded);
  touched_.push_back(row);
  if (alive_count_++ == 0) alive_begin_ = row;
  alive_end_ = row + 1;
  index_row(row);
  log_change(row);
  return row;
}

void RecordStore::modify(RowNumber row, const EditedRow& edited) {
  if (states_[row] == RowState::kUnchanged) {
    save_base(row);
    states_[row] = RowState::kModified;
    touched_.push_back(row);
  }
  for (std::size_t field = 0; field < columns_.size(); ++field) {
    if (!edited.assigned[field]) continue;
    FieldIndex* index = field < indexes_.size() ? indexes_[field].get() : nullptr;
    if (index != nullptr) index->remove(columns_[field], row);
    columns_[field].copy_cell(row, edited.columns[field], 0);
    if (index != nullptr) index->add(columns_[field], row);
  }
  log_change(row);
}

void RecordStore::erase(RowNumber row) {
  unindex_row(row);
  if (states_[row] == RowState::kUnchanged) touched_.push_back(row);
  leave_alive(row, states_[row] == RowState::kAdded ? kGone : RowState::kDeleted);
  log_change(row);
}

// ---- the batch

void RecordStore::save_base(RowNumber row) {
  if (base_columns_.empty()) {
    for (const ColumnData& column : columns_) base_columns_.emplace_back(column.info);
  }
  base_.emplace(row, base_columns_.front().size());
  for (std::size_t field = 0; field < columns_.size(); ++field) {
    base_columns_[field].append_cell(columns_[field], row);
  }
}

void RecordStore::restore_base(RowNumber row) {
  const auto found = base_.find(row);
  if (found == base_.end()) return;  // deleted as it was
  for (std::size_t field = 0; field < columns_.size(); ++field) {
    columns_[field].copy_cell(row, base_columns_[field], found->second);
  }
}

bool RecordStore::has_changes() const {
  return std::any_of(touched_.begin(), touched_.end(), [this](RowNumber row) { return states_[row] != kGone; });
}

std::vector<RowNumber> RecordStore::changed_rows() const {
  std::vector<RowNumber> rows;
  std::copy_if(touched_.begin(), touched_.end(), std::back_inserter(rows),
               [this](RowNumber row) { return states_[row] != kGone; });
  std::sort(rows.begin(), rows.end());
  return rows;
}

Variant RecordStore::base_value(RowNumber row, std::size_t field) const {
  if (states_[row] == RowState::kAdded) return kNull;
  const auto found = base_.find(row);
  return found == base_.end() ? columns_[field].value(row) : base_columns_[field].value(found->second);
}

void RecordStore::accept() {
  for (const RowNumber row : touched_) {
    if (alive(row)) {
      states_[row] = RowState::kUnchanged;
    } else {
      drop_for_good(row);
    }
  }
  end_batch();
}

void RecordStore::cancel() {
  for (const RowNumber row : touched_) {
    const bool added = states_[row] == RowState::kAdded || states_[row] == kGone;
    if (added) {
      drop_for_good(row);
    } else {
      restore_base(row);
      states_[row] = RowState::kUnchanged;
    }
  }
  end_batch();
  recount_alive();
  indexes_.clear();
  // Any row may have changed: no older version can be caught up with.
  log_start_ += log_.size() + 1;
  log_.clear();
}

void RecordStore::drop_for_good(RowNumber row) {
  states_[row] = kGone;
  for (ColumnData& column : columns_) {
    if (column.info.type == FieldType::kRecordSet) column.set_null(row);
  }
}

std::vector<std::shared_ptr<Recordset>> RecordStore::child_sets() const {
  std::vector<std::shared_ptr<Recordset>> children;
  for (const ColumnData& column : columns_) {
    if (column.info.type != FieldType::kRecordSet) continue;
    const auto& references = std::get<std::vector<std::shared_ptr<Recordset>>>(column.values);
    for (RowNumber row = 0; row < row_count(); ++row) {
      if (alive(row) && !column.nulls[row] && references[row]) children.push_back(references[row]);
    }
  }
  std::sort(children.begin(), children.end());
  children.erase(std::unique(children.begin(), children.end()), children.end());
  return children;
}

void RecordStore::end_batch() {
  touched_.clear();
  base_columns_.clear();
  base_.clear();
}

// ---- for views

void RecordStore::log_change(RowNumber row) {
  // A log longer than the rows would cost a view more than starting anew.
  if (log_.size() >= kLogSlack + 2 * states_.size()) {
    log_start_ += log_.size();
    log_.clear();
  }
  log_.push_back(row);
}

std::optional<std::span<const RowNumber>> RecordStore::changes_since(std::uint64_t version) const {
  if (version < log_start_) return std::nullopt;
  return std::span(log_).subspan(version - log_start_);
}

FieldIndex* RecordStore::index(std::size_t field) {
  if (states_.size() < kIndexFrom) return nullptr;
  indexes_.resize(columns_.size());
  if (!indexes_[field]) {
    indexes_[field] = std::make_unique<FieldIndex>();
    for (RowNumber row = 0; row < row_count(); ++row) {
      if (alive(row)) indexes_[field]->add(columns_[field], row);
    }
    count_tested(alive_count_);
  }
  return indexes_[field].get();
}

void RecordStore::index_row(RowNumber row) {
  for (std::size_t field = 0; field < indexes_.size(); ++field) {
    if (indexes_[field]) indexes_[field]->add(columns_[field], row);
  }
}

void RecordStore::unindex_row(RowNumber row) {
  for (std::size_t field = 0; field < indexes_.size(); ++field) {
    if (indexes_[field]) indexes_[field]->remove(columns_[field], row);
  }
}

}  // namespace quor
