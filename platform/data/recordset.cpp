#include "platform/data/recordset.h"

#include <utility>

#include "platform/data/error.h"
#include "platform/data/record_store.h"
#include "platform/data/row_view.h"

namespace quor {
namespace {

[[noreturn]] void throw_no_current_row() {
  throw Error(ErrorKind::kNoCurrentRow, "Įrašų rinkinyje nėra dabartinio įrašo.");
}

[[noreturn]] void throw_row_deleted() { throw Error(ErrorKind::kRowDeleted, "Dabartinis įrašas pašalintas."); }

}  // namespace

Recordset::Recordset() : store_(std::make_shared<RecordStore>()) {}

Recordset::Recordset(std::shared_ptr<RecordStore> store) : store_(std::move(store)) {
  stand_on(first_row(), Position::kNone);
}

Recordset::~Recordset() = default;

std::shared_ptr<Recordset> Recordset::from_columns(std::vector<ColumnData> columns) {
  auto store = std::make_shared<RecordStore>();
  store->open_with(std::move(columns));
  return std::shared_ptr<Recordset>(new Recordset(std::move(store)));
}

bool Recordset::is_open() const { return store_->is_open(); }

void Recordset::Open() {
  if (is_open()) throw Error(ErrorKind::kAlreadyOpen, "Įrašų rinkinys jau atidarytas.");
  store_->open();
}

std::shared_ptr<Recordset> Recordset::Clone() const {
  require_open();
  return std::shared_ptr<Recordset>(new Recordset(store_));
}

void Recordset::require_open() const {
  if (!is_open()) throw Error(ErrorKind::kNotOpen, "Įrašų rinkinys neatidarytas.");
}

// ---- the current row

bool Recordset::on_hole() const {
  return position_ == Position::kOnRow && pending_ != Pending::kNewRow && !store_->alive(row_);
}

void Recordset::require_row() const {
  require_open();
  if (position_ != Position::kOnRow) throw_no_current_row();
  if (on_hole()) throw_row_deleted();
}

Recordset::Cell Recordset::cell(FieldHandle field) const {
  field_info(field);
  require_row();
  if (pending_ != Pending::kNothing) return {edit_->columns[field.index], 0};
  return {store_->columns()[field.index], row_};
}

Variant Recordset::field(FieldHandle field) const {
  const Cell current = cell(field);
  return current.column.value(current.row);
}

Variant Recordset::field(std::string_view name) const { return field(handle(name)); }

void Recordset::set_field(FieldHandle field, const Variant& value) {
  field_info(field);
  require_row();
  if (pending_ == Pending::kNothing) fill_edit_buffer(true);
  edit_->columns[field.index].assign(0, value);  // from here on there is an edit
  edit_->assigned[field.index] = true;
  if (pending_ == Pending::kNothing) pending_ = Pending::kEdit;
}

void Recordset::set_field(std::string_view name, const Variant& value) { set_field(handle(name), value); }

bool Recordset::is_null(FieldHandle field) const {
  const Cell current = cell(field);
  return current.column.nulls[current.row];
}

std::string_view Recordset::text(FieldHandle field) const {
  const Cell current = cell(field);
  if (current.column.info.type != FieldType::kText) {
    throw Error(ErrorKind::kTypeMismatch, "Laukas „" + current.column.info.name + "“ nėra tekstas.");
  }
  return current.column.nulls[current.row] ? std::string_view() : current.column.text(current.row);
}

std::int32_t Recordset::int32(FieldHandle field) const {
  const Cell current = cell(field);
  const FieldType type = current.column.info.type;
  if (type != FieldType::kInt32 && type != FieldType::kInt16 && type != FieldType::kBool) {
    throw Error(ErrorKind::kTypeMismatch, "Laukas „" + current.column.info.name + "“ nėra sveikasis skaičius.");
  }
  return current.column.nulls[current.row] ? 0 : static_cast<std::int32_t>(current.column.number(current.row));
}

double Recordset::number(FieldHandle field) const {
  const Cell current = cell(field);
  // A null text is a wrong type too.
  const double stored = current.column.number(current.row);
  return current.column.nulls[current.row] ? 0.0 : stored;
}

// ---- edits

void Recordset::fill_edit_buffer(bool from_current_row) {
  const std::vector<ColumnData>& columns = store_->columns();
  if (!edit_) {
    edit_ = std::make_unique<EditedRow>();
    for (const ColumnData& column : columns) edit_->columns.emplace_back(column.info);
  }
  edit_->assigned.assign(columns.size(), false);
  for (std::size_t field = 0; field < columns.size(); ++field) {
    edit_->columns[field].clear();
    if (from_current_row) {
      edit_->columns[field].append_cell(columns[field], row_);
    } else {
      edit_->columns[field].append_null();
    }
  }
}

void Recordset::commit() {
  if (pending_ == Pending::kNewRow) {
    row_ = store_->append(*edit_);
  } else if (pending_ == Pending::kEdit && store_->alive(row_)) {
    store_->modify(row_, *edit_);
  }
  drop_edit();
}

void Recordset::drop_edit() {
  if (pending_ == Pending::kNothing) return;
  pending_ = Pending::kNothing;
  for (ColumnData& column : edit_->columns) {
    if (column.info.type == FieldType::kRecordSet) column.set_null(0);
  }
}

void Recordset::AddNew() {
  require_open();
  commit();
  row_before_new_ = position_ == Position::kOnRow ? row_ : kNoRow;
  fill_edit_buffer(false);
  position_ = Position::kOnRow;
  pending_ = Pending::kNewRow;
}

void Recordset::Update() {
  require_open();
  if (position_ != Position::kOnRow) throw_no_current_row();
  commit();
}

void Recordset::CancelUpdate() {
  require_open();
  const bool was_new = pending_ == Pending::kNewRow;
  drop_edit();
  if (!was_new) return;
  row_ = row_before_new_;
  if (row_ == kNoRow) position_ = view_is_empty() ? Position::kNone : Position::kAfterLast;
}

void Recordset::Delete() {
  require_row();
  // A new row needs its place in the store to leave a hole there.
  if (pending_ == Pending::kNewRow) commit();
  drop_edit();
  store_->erase(row_);
}

// ---- moves

std::uint32_t Recordset::first_row() const { return view_ ? view_->rows().first() : store_->first_alive(); }
std::uint32_t Recordset::last_row() const { return view_ ? view_->rows().last() : store_->last_alive(); }
std::uint32_t Recordset::row_after(std::uint32_t row) const {
  return view_ ? view_->rows().after(row) : store_->alive_after(row);
}
std::uint32_t Recordset::row_before(std::uint32_t row) const {
  return view_ ? view_->rows().before(row) : store_->alive_before(row);
}

bool Recordset::view_is_empty() const { return first_row() == kNoRow; }

void Recordset::stand_on(std::uint32_t row, Position otherwise) {
  if (row != kNoRow) {
    row_ = row;
    position_ = Position::kOnRow;
  } else {
    position_ = view_is_empty() ? Position::kNone : otherwise;
  }
}

void Recordset::MoveFirst() {
  require_open();
  commit();
  const std::uint32_t row = first_row();
  if (row == kNoRow && position_ == Position::kNone) throw_no_current_row();
  stand_on(row, Position::kNone);
}

void Recordset::MoveLast() {
  require_open();
  commit();
  const std::uint32_t row = last_row();
  if (row == kNoRow && position_ == Position::kNone) throw_no_current_row();
  stand_on(row, Position::kNone);
}

void Recordset::MoveNext() {
  require_open();
  if (position_ == Position::kNone || position_ == Position::kAfterLast) throw_no_current_row();
  commit();
  stand_on(position_ == Position::kBeforeFirst ? first_row() : row_after(row_), Position::kAfterLast);
}

void Recordset::MovePrevious() {
  require_open();
  if (position_ == Position::kNone || position_ == Position::kBeforeFirst) throw_no_current_row();
  commit();
  stand_on(position_ == Position::kAfterLast ? last_row() : row_before(row_), Position::kBeforeFirst);
}

bool Recordset::Bof() const {
  require_open();
  return position_ == Position::kNone || position_ == Position::kBeforeFirst;
}

bool Recordset::Eof() const {
  require_open();
  return position_ == Position::kNone || position_ == Position::kAfterLast;
}

std::int64_t Recordset::RecordCount() const {
  require_open();
  auto count = static_cast<std::int64_t>(view_ ? view_->rows().count() : store_->alive_count());
  // The row that is being edited counts as its reader sees it.
  if (pending_ == Pending::kNewRow) {
    count += !view_ || view_->passes(*edit_) ? 1 : 0;
  } else if (pending_ == Pending::kEdit && view_ && store_->alive(row_)) {
    count += (view_->passes(*edit_) ? 1 : 0) - (view_->rows().contains(row_) ? 1 : 0);
  }
  return count;
}

// ---- filter

void Recordset::Filter(std::string_view text) {
  require_open();
  commit();
  std::unique_ptr<RowView> view;
  if (!text.empty()) view = std::make_unique<RowView>(CompiledFilter(text, store_->columns()), *store_);
  filter_text_ = std::string(text);  // `text` may lend from filter_text_
  view_ = std::move(view);
  stand_on(first_row(), Position::kNone);
}

const std::string& Recordset::Filter() const { return filter_text_; }

// ---- batch

void Recordset::AcceptBatch() {
  require_open();
  const bool was_on_hole = on_hole();
  store_->accept();
  if (was_on_hole) stand_on(kNoRow, Position::kAfterLast);
}

void Recordset::CancelBatch() {
  require_open();
  drop_edit();
  store_->cancel();
  stand_on(first_row(), Position::kNone);
  const CancelScope scope(*store_);
  if (!scope.entered()) return;  // two sets that hold each other
  for (const auto& child : store_->child_sets()) {
    if (child->is_open()) child->CancelBatch();
  }
}

bool Recordset::has_changes() const { return store_->has_changes(); }

RowState Recordset::row_state() const {
  require_open();
  if (position_ != Position::kOnRow) throw_no_current_row();
  if (pending_ == Pending::kNewRow) return RowState::kAdded;
  return store_->alive(row_) ? store_->state(row_) : RowState::kDeleted;
}

void Recordset::for_each_change(const std::function<void(const RowChange&)>& visit) const {
  require_open();
  for (const std::uint32_t row : store_->changed_rows()) visit(RowChange(*store_, row));
}

std::uint64_t Recordset::rows_tested() const { return store_->rows_tested(); }

}  // namespace quor
