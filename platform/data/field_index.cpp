#include "platform/data/field_index.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "platform/data/case_folding.h"

namespace quor {
namespace {

constexpr std::size_t kFirstBuckets = 64;

// Spreads keys that differ in few bits (small whole numbers as Doubles) over all bits.
std::uint64_t mixed(std::uint64_t key) {
  key = (key ^ (key >> 30)) * 0xBF58476D1CE4E5B9U;
  key = (key ^ (key >> 27)) * 0x94D049BB133111EBU;
  return key ^ (key >> 31);
}

std::uint64_t cell_key(const ColumnData& column, RowNumber row) {
  switch (column.info.type) {
    case FieldType::kText:
      return index_key(column.text(row));
    case FieldType::kRecordSet:
      return 0;  // only nulls are ever looked up
    default:
      return index_key(column.number(row));
  }
}

}  // namespace

std::uint64_t index_key(double number) {
  return std::bit_cast<std::uint64_t>(number == 0.0 ? 0.0 : number);  // minus zero is zero
}

std::uint64_t index_key(std::string_view text) { return hash_folded(text); }

FieldIndex::Bucket& FieldIndex::place(std::uint64_t key) {
  const std::size_t mask = buckets_.size() - 1;
  std::size_t at = mixed(key) & mask;
  while (buckets_[at].used && buckets_[at].key != key) at = (at + 1) & mask;
  return buckets_[at];
}

FieldIndex::Bucket* FieldIndex::bucket(std::uint64_t key) {
  if (buckets_.empty()) return nullptr;
  Bucket& found = place(key);
  return found.used ? &found : nullptr;
}

FieldIndex::Bucket& FieldIndex::bucket_of(const ColumnData& column, RowNumber row) {
  if (column.nulls[row]) return nulls_;
  if (used_ * 4 >= buckets_.size() * 3) grow();
  const std::uint64_t key = cell_key(column, row);
  Bucket& found = place(key);
  if (!found.used) {
    found.used = true;
    found.key = key;
    ++used_;
  }
  return found;
}

void FieldIndex::grow() {
  std::vector<Bucket> old(std::max(buckets_.size() * 2, kFirstBuckets));
  std::swap(old, buckets_);
  used_ = 0;
  for (const Bucket& bucket : old) {
    if (bucket.count == 0) continue;
    place(bucket.key) = bucket;
    ++used_;
  }
}

void FieldIndex::add(const ColumnData& column, RowNumber row) {
  if (row >= links_.size()) links_.resize(std::max<std::size_t>(column.size(), std::size_t{row} + 1));
  Bucket& bucket = bucket_of(column, row);
  links_[row] = {bucket.tail, kNoRow};
  if (bucket.tail == kNoRow) {
    bucket.head = row;
  } else {
    links_[bucket.tail].next = row;
    bucket.unsorted = bucket.unsorted || row < bucket.tail;
  }
  bucket.tail = row;
  ++bucket.count;
}

void FieldIndex::remove(const ColumnData& column, RowNumber row) {
  Bucket& bucket = bucket_of(column, row);
  const Link link = links_[row];
  (link.previous == kNoRow ? bucket.head : links_[link.previous].next) = link.next;
  (link.next == kNoRow ? bucket.tail : links_[link.next].previous) = link.previous;
  --bucket.count;
}

void FieldIndex::collect(Bucket* bucket, std::vector<RowNumber>& rows) {
  rows.clear();
  if (bucket == nullptr) return;
  rows.reserve(bucket->count);
  for (RowNumber row = bucket->head; row != kNoRow; row = links_[row].next) rows.push_back(row);
  if (!bucket->unsorted) return;
  std::sort(rows.begin(), rows.end());
  relink(*bucket, rows);
}

void FieldIndex::relink(Bucket& bucket, const std::vector<RowNumber>& rows) {
  RowNumber previous = kNoRow;
  for (const RowNumber row : rows) {
    links_[row] = {previous, kNoRow};
    (previous == kNoRow ? bucket.head : links_[previous].next) = row;
    previous = row;
  }
  bucket.tail = previous;
  bucket.unsorted = false;
}

}  // namespace quor
