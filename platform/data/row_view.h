// The rows of a store that pass a filter, in store order: made from an index where the filter allows it, kept up with
// the store's change log.
//
// An unfiltered record set needs no view: it walks the store.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/data/filter.h"
#include "platform/data/record_store.h"

namespace quor {

// Ascending row numbers. A removed row stays as a marked entry until a third of the entries is marked, so that a loop
// that removes while it walks stays linear.
class RowList {
 public:
  std::size_t count() const { return count_; }
  bool contains(RowNumber row) const;
  RowNumber first() const { return count_ == 0 ? kNoRow : number(begin_); }
  RowNumber last() const { return count_ == 0 ? kNoRow : entries_.back(); }
  // Of any row, also one that is not in the list. kNoRow at the end. Cheap when walking on from the last answer.
  RowNumber after(RowNumber row);
  RowNumber before(RowNumber row);

  void assign(std::vector<RowNumber> rows);
  void add(RowNumber row);     // no effect when present
  void remove(RowNumber row);  // no effect when absent

 private:
  static constexpr RowNumber kRemoved = 0x80000000;
  RowNumber number(std::size_t at) const { return entries_[at] & ~kRemoved; }
  bool removed(std::size_t at) const { return (entries_[at] & kRemoved) != 0; }
  std::size_t lower_bound(RowNumber row) const;
  void drop_removed();

  std::vector<RowNumber> entries_;  // the last one, and the one at begin_, is never marked
  std::size_t begin_ = 0;           // all before are marked
  std::size_t count_ = 0;           // not marked
  std::size_t walked_ = 0;          // entry of the last answer
};

class RowView {
 public:
  RowView(CompiledFilter filter, RecordStore& store);

  // The rows as of now.
  RowList& rows();
  // Whether a row that is not in the store (an edit buffer) would pass.
  bool passes(const EditedRow& row);

 private:
  void rebuild();
  void scan();
  // Takes the rows of the smallest index bucket that the filter names. False when it names none.
  bool take_candidates(std::vector<RowNumber>& candidates);

  CompiledFilter filter_;
  RecordStore* store_;
  std::uint64_t version_ = 0;
  RowList rows_;
};

}  // namespace quor
