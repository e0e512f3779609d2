// What a record set and its clones share: typed columns, the state of each row, the base values, the indexes.
//
// A row number is a row's place for good: rows are appended, erased rows stay as tombstones, so order is insertion
// order, a cursor on an erased row knows what follows it, and a cancelled deletion returns a row to its old place.
// Every change is written to a log of row numbers; a view made at an older version re-tests the logged rows only.
// No checks of cursor states here: that is Recordset's. One thread at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "platform/data/column.h"
#include "platform/data/field_index.h"
#include "platform/data/row_state.h"

namespace quor {

// The edit buffer of a cursor: one row that is not in the store yet, or the new values of one that is.
struct EditedRow {
  std::vector<ColumnData> columns;  // one row each; in an edited row, the fields as a reader sees them
  std::vector<bool> assigned;
};

class RecordStore {
 public:
  static constexpr RowNumber kMaxRows = 0x7FFFFFFF;

  // ---- fields
  bool is_open() const { return open_; }
  void open();                        // throws NoSuchField without fields
  void append_field(FieldInfo info);  // throws TypeMismatch when the name is taken
  // Opens with these rows, unchanged. Throws TypeMismatch when the columns do not fit each other or their types.
  void open_with(std::vector<ColumnData> columns);
  const std::vector<ColumnData>& columns() const { return columns_; }

  // ---- rows, tombstones included
  RowNumber row_count() const { return static_cast<RowNumber>(states_.size()); }
  bool alive(RowNumber row) const { return states_[row] < RowState::kDeleted; }
  RowState state(RowNumber row) const { return states_[row]; }

  // ---- the rows that are alive, in store order; kNoRow when there is none
  RowNumber alive_count() const { return alive_count_; }
  RowNumber first_alive() const { return alive_count_ == 0 ? kNoRow : alive_begin_; }
  RowNumber last_alive() const { return alive_count_ == 0 ? kNoRow : alive_end_ - 1; }
  RowNumber alive_after(RowNumber row) const;
  RowNumber alive_before(RowNumber row) const;

  // ---- committed changes
  RowNumber append(const EditedRow& row);
  void modify(RowNumber row, const EditedRow& edited);  // the assigned fields only
  void erase(RowNumber row);

  // ---- the batch
  bool has_changes() const;
  std::vector<RowNumber> changed_rows() const;  // added, modified and deleted, ascending
  Variant base_value(RowNumber row, std::size_t field) const;
  void accept();
  void cancel();
  // The record sets in the fields of the rows that are alive, each once.
  std::vector<std::shared_ptr<Recordset>> child_sets() const;

  // ---- for views
  std::uint64_t version() const { return log_start_ + log_.size(); }
  // The rows changed since `version`, some more than once; no value when the log does not reach back that far.
  std::optional<std::span<const RowNumber>> changes_since(std::uint64_t version) const;
  // Built at the first call; a null pointer while a scan is cheaper.
  FieldIndex* index(std::size_t field);

  std::uint64_t rows_tested() const { return rows_tested_; }
  void count_tested(std::size_t rows) { rows_tested_ += rows; }

 private:
  friend class CancelScope;
  // The state of a row that is no part of the batch any more: an accepted deletion, an added row that was erased.
  static constexpr RowState kGone{static_cast<std::uint8_t>(RowState::kDeleted) + 1};

  void log_change(RowNumber row);
  void leave_alive(RowNumber row, RowState state);
  void save_base(RowNumber row);
  void restore_base(RowNumber row);
  void index_row(RowNumber row);
  void unindex_row(RowNumber row);
  void drop_for_good(RowNumber row);
  void recount_alive();
  void end_batch();

  bool open_ = false;
  std::vector<ColumnData> columns_;
  std::vector<RowState> states_;
  RowNumber alive_count_ = 0;
  RowNumber alive_begin_ = 0;  // the first row alive, and one past the last, while there is any
  RowNumber alive_end_ = 0;

  std::vector<RowNumber> touched_;                   // rows that left kUnchanged in this batch, each once
  std::vector<ColumnData> base_columns_;             // base values of modified rows
  std::unordered_map<RowNumber, std::size_t> base_;  // from a modified row to its place in base_columns_

  std::uint64_t log_start_ = 0;
  std::vector<RowNumber> log_;
  std::vector<std::unique_ptr<FieldIndex>> indexes_;  // by field, null until asked for
  std::uint64_t rows_tested_ = 0;
  bool cancelling_ = false;
};

// While the child sets of a store are cancelled: a set that is met again on the way is not entered.
class CancelScope {
 public:
  explicit CancelScope(RecordStore& store) : store_(store), entered_(!store.cancelling_) { store_.cancelling_ = true; }
  ~CancelScope() {
    if (entered_) store_.cancelling_ = false;
  }
  CancelScope(const CancelScope&) = delete;
  CancelScope& operator=(const CancelScope&) = delete;
  bool entered() const { return entered_; }

 private:
  RecordStore& store_;
  bool entered_;
};

}  // namespace quor
