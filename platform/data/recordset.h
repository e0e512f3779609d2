// A table of rows with named, typed fields whose values may be null: a cursor with a filter over a shared store of
// typed columns.
//
//   state of the cursor   Bof    Eof    means
//   before the first row  true   false
//   on a row              false  false  fields can be read and assigned
//   after the last row    false  true
//   on a hole             false  false  the current row was deleted
//   none                  true   true   the view is empty
//
// The view is the rows that are not deleted and pass the filter, in the order of insertion, always. Clones share the
// store: what one commits, all see; each has its own position and filter. Pending work has two layers: the edit buffer
// of the current row (until Update, a move or a filter change) and the batch (rows changed since the last
// AcceptBatch). Every operation may throw quor::Error; it then changes nothing. One thread at a time for a record set
// and all its clones. A record set in a field of itself keeps itself alive: do not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/field_info.h"
#include "platform/data/row_state.h"
#include "platform/data/variant.h"

namespace quor {

// A field's place in its record set, looked up once outside a loop. Good for the record set and all its clones.
struct FieldHandle {
  std::size_t index;
};

class Field;
class Fields;
class RowChange;
class RowView;
class RecordStore;
struct ColumnData;  // see platform/data/column.h
struct EditedRow;

class Recordset {
 public:
  Recordset();  // closed, without fields
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // An open, accepted set made of whole columns of equal length, on its first row; nothing is copied, and the values
  // are taken as they are. TypeMismatch when a column does not fit the others or its own type.
  static std::shared_ptr<Recordset> from_columns(std::vector<ColumnData> columns);

  // The fields by name, as the host and the plug-in address them: rs.Fields()["Name"].Value().
  quor::Fields Fields();

  std::size_t field_count() const;
  const FieldInfo& field_info(FieldHandle field) const;
  FieldHandle handle(std::string_view name) const;  // throws NoSuchField; letter case does not count

  // The current row's value; the edit buffer's where there is one. NoCurrentRow, RowDeleted (on a hole).
  Variant field(FieldHandle field) const;
  Variant field(std::string_view name) const;
  // Converts to the field's type and puts the value into the edit buffer. The conversion's error, or Overflow for a
  // text longer than the field; NoCurrentRow, RowDeleted.
  void set_field(FieldHandle field, const Variant& value);
  void set_field(std::string_view name, const Variant& value);

  // Reading without a Variant, for loops over many rows. A null reads as "" and 0. TypeMismatch for a field of another
  // type: `text` reads texts, `int32` whole numbers and bools, `number` these, Doubles and dates (serials).
  bool is_null(FieldHandle field) const;
  std::string_view text(FieldHandle field) const;  // good until the next change of the record set or a clone
  std::int32_t int32(FieldHandle field) const;
  double number(FieldHandle field) const;

  bool is_open() const;
  void Open();  // AlreadyOpen; NoSuchField without fields

  // A new row at the end, null in every field; current, whether or not it passes the filter. Commits a pending edit.
  void AddNew();
  void Update();        // commits the edit buffer; the position stays. No effect on a hole.
  void CancelUpdate();  // drops the edit buffer; a new row vanishes and the row before it is current again
  // The row leaves every view at once; the cursor is on a hole, from which a move goes on as if the row were there.
  void Delete();

  // Moves commit a pending edit first. NoCurrentRow on an empty view and beyond the ends.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  bool Bof() const;
  bool Eof() const;
  std::int64_t RecordCount() const;  // of the view, a new row that passes included

  // Replaces the filter ("" removes it) and stands on the first row that passes. BadFilter and NoSuchField leave
  // filter and position as they are.
  void Filter(std::string_view text);
  const std::string& Filter() const;

  // Another cursor on the same rows, without a filter, on the first row. Costs the same however many rows there are.
  std::shared_ptr<Recordset> Clone() const;

  // The rows as they are become the base; an edit buffer stays pending.
  void AcceptBatch();
  // All rows, hidden ones too, go back to the base, deleted rows to their old place; the filter stays, and the first
  // row of the view is current. Does the same to the record sets in the fields.
  void CancelBatch();

  // For whoever stores the batch. Edit buffers are no part of it.
  bool has_changes() const;
  RowState row_state() const;  // of the current row: kAdded in a new row, kDeleted on a hole; NoCurrentRow
  // In store order. `visit` must not change the record set.
  void for_each_change(const std::function<void(const RowChange&)>& visit) const;

  // Rows looked at by filters and to build indexes, in this record set and all its clones: the work, for tests.
  std::uint64_t rows_tested() const;

 private:
  friend class quor::Fields;
  enum class Position : std::uint8_t { kNone, kBeforeFirst, kOnRow, kAfterLast };
  enum class Pending : std::uint8_t { kNothing, kEdit, kNewRow };
  struct Cell {
    const ColumnData& column;
    std::size_t row;
  };

  explicit Recordset(std::shared_ptr<RecordStore> store);  // open, on the first row

  bool on_hole() const;
  void require_open() const;
  void require_row() const;
  Cell cell(FieldHandle field) const;
  void fill_edit_buffer(bool from_current_row);
  void commit();
  void drop_edit();  // lets go of the record sets in it
  // Rows of the view by number; kNoRow when there is none.
  std::uint32_t first_row() const;
  std::uint32_t last_row() const;
  std::uint32_t row_after(std::uint32_t row) const;
  std::uint32_t row_before(std::uint32_t row) const;
  bool view_is_empty() const;  // without the edit buffer
  void stand_on(std::uint32_t row, Position otherwise);

  std::shared_ptr<RecordStore> store_;
  std::string filter_text_;
  std::unique_ptr<RowView> view_;    // none without a filter
  std::unique_ptr<EditedRow> edit_;  // made at the first edit; its content counts while pending_
  std::uint32_t row_ = 0;            // the current row or hole, while kOnRow and not kNewRow
  std::uint32_t row_before_new_ = 0;
  Position position_ = Position::kNone;
  Pending pending_ = Pending::kNothing;
};

// One field of the current row. Lends the record set.
class Field {
 public:
  Field() = default;  // of nothing: every use throws ObjectMissing

  const std::string& name() const;
  FieldType type() const;
  Variant Value() const;
  void Value(const Variant& value);

 private:
  friend class Fields;
  Field(Recordset* owner, FieldHandle handle) : owner_(owner), handle_(handle) {}
  Recordset& owner() const;

  Recordset* owner_ = nullptr;
  FieldHandle handle_{};
};

// The fields of a record set. Lends it.
class Fields {
 public:
  Fields() = default;  // of nothing: every use throws ObjectMissing
  explicit Fields(Recordset* owner) : owner_(owner) {}

  std::size_t count() const;
  Field operator[](std::string_view name) const;  // throws NoSuchField
  // Only before Open. TypeMismatch when the name is taken, letter case not counted.
  void Append(std::string name, FieldType type, std::size_t size = 0);

 private:
  Recordset& owner() const;

  Recordset* owner_ = nullptr;
};

// A row that differs from the base. Good during the visit only.
class RowChange {
 public:
  RowState state() const;                    // never kUnchanged
  Variant current(FieldHandle field) const;  // of a deleted row: what it held last
  Variant base(FieldHandle field) const;     // Null in an added row

 private:
  friend class Recordset;
  RowChange(const RecordStore& store, std::uint32_t row) : store_(store), row_(row) {}

  const RecordStore& store_;
  std::uint32_t row_;
};

}  // namespace quor
