// Hash index of one column: from a value to the rows that hold it, in store order.
//
// Owned and kept valid by RecordStore, which calls `add` after a row got its value and `remove` before the row loses it
// (or leaves the set). Adding and removing cost O(1) whatever the size of a bucket. Texts are found without regard to
// letter case; a bucket of texts may hold strangers with the same hash, so whoever reads one tests its rows.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/data/column.h"

namespace quor {

using RowNumber = std::uint32_t;
inline constexpr RowNumber kNoRow = 0xFFFFFFFF;

// What a value is looked up by: equal values have equal keys.
std::uint64_t index_key(double number);
std::uint64_t index_key(std::string_view text);

class FieldIndex {
 public:
  // The rows with one value: a list through the rows' links, ascending unless `unsorted`.
  struct Bucket {
    std::uint64_t key = 0;
    RowNumber head = kNoRow;
    RowNumber tail = kNoRow;
    RowNumber count = 0;
    bool used = false;
    bool unsorted = false;
  };

  void add(const ColumnData& column, RowNumber row);
  void remove(const ColumnData& column, RowNumber row);

  // The bucket of the rows with a null; never a null pointer.
  Bucket* null_bucket() { return &nulls_; }
  // A null pointer when no row ever had the value. Good until the next `add`.
  Bucket* bucket(std::uint64_t key);
  // Replaces `rows` by the rows of `bucket` (a null pointer: no rows), ascending.
  void collect(Bucket* bucket, std::vector<RowNumber>& rows);

 private:
  struct Link {
    RowNumber previous = kNoRow;
    RowNumber next = kNoRow;
  };
  // The place of `key`: its bucket, or the unused one where it belongs.
  Bucket& place(std::uint64_t key);
  Bucket& bucket_of(const ColumnData& column, RowNumber row);
  void grow();
  void relink(Bucket& bucket, const std::vector<RowNumber>& rows);

  Bucket nulls_;
  std::vector<Bucket> buckets_;  // open addressing, size a power of two
  std::size_t used_ = 0;
  std::vector<Link> links_;  // by row number
};

}  // namespace quor
