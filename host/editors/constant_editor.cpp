#include "host/editors/constant_editor.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "host/editors/constant_value_editor.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr std::size_t kToColumn = 1, kValueColumn = 2;

struct Line {
  std::int64_t place;  // among the record's rows
  Date from;
  double value;
};

// The newest first.
std::vector<Line> lines_of(Recordset& rows) {
  std::vector<Line> lines;
  if (rows.RecordCount() > 0) rows.MoveFirst();
  for (; !rows.Eof(); rows.MoveNext()) {
    lines.push_back({static_cast<std::int64_t>(lines.size()), null_to_date(rows.field("DateFrom")),
                     null_to_double(rows.field("Value"))});
  }
  std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) { return a.from > b.from; });
  return lines;
}

}  // namespace

ConstantEditor::ConstantEditor(Application& application, std::shared_ptr<QuorObjectUIO> record)
    : RecordForm("Darbo užmokesčio konstanta", application, std::move(record)) {
  for (TextBox* box : {&txtCode, &txtName}) box->on_change = [this] { changed(); };
  lvwValues.on_right_click = [this] { open_menu(); };
  lvwValues.on_double_click = [this] { run(&ConstantEditor::edit_value); };
  mnuNew.on_choose = [this] { chosen_ = &ConstantEditor::add_value; };
  mnuEdit.on_choose = [this] { chosen_ = &ConstantEditor::edit_value; };
  mnuDelete.on_choose = [this] { chosen_ = &ConstantEditor::delete_value; };
  mnuValues.on_close = [this] { run(chosen_); };
  cmdNewValue.on_click = [this] { run(&ConstantEditor::add_value); };
  set_layout(column({field("Kodas", txtCode), field("Pavadinimas", txtName), lvwValues,
                     row({cmdNewValue, cmdWrite, cmdCancel, cmdClose})}));
}

void ConstantEditor::show_record(bool may_write) {
  may_write_ = may_write;
  txtCode.set_text(null_to_text(record().Fields()["Code"].Value()));
  txtName.set_text(null_to_text(record().Fields()["Name"].Value()));
  for (TextBox* box : {&txtCode, &txtName}) box->set_read_only(!may_write);
  cmdNewValue.set_enabled(may_write);
  fill_values();
}

bool ConstantEditor::take(EnteredValues& entered) {
  const std::string code = entered.text(txtCode, "Kodas"), name = entered.text(txtName, "Pavadinimas");
  if (entered.show_faults()) return false;
  record().Fields()["Code"].Value(code);
  record().Fields()["Name"].Value(name);
  return true;
}

// ---- the values

void ConstantEditor::open_menu() {
  if (running_) return;
  const bool on_value = may_write_ && lvwValues.selected().has_value();
  mnuNew.set_enabled(may_write_);
  mnuEdit.set_enabled(on_value);
  mnuDelete.set_enabled(on_value);
  chosen_ = nullptr;
  mnuValues.open();
}

void ConstantEditor::run(Command command) {
  chosen_ = nullptr;
  if (command == nullptr || running_ || !may_write_) return;
  const struct Running {
    explicit Running(bool& running) : flag(running) { flag = true; }
    ~Running() { flag = false; }
    bool& flag;
  } running(running_);
  (this->*command)();
}

void ConstantEditor::add_value() {
  const auto rows = values();
  std::set<Date> taken;
  for (const Line& line : lines_of(*rows)) taken.insert(line.from);
  ConstantValueEditor dialog(application(), {}, std::move(taken));
  application().show_modal(dialog);
  if (!dialog.entered()) return;
  rows->AddNew();
  rows->set_field("DateFrom", dialog.entered()->from);
  rows->set_field("Value", dialog.entered()->value);
  rows->Update();
  values_changed(date_text(dialog.entered()->from));
}

void ConstantEditor::edit_value() {
  const auto rows = values();
  std::set<Date> taken;
  for (const Line& line : lines_of(*rows)) taken.insert(line.from);
  if (!stand_on_selected(*rows)) return;
  const ConstantValue value{null_to_date(rows->field("DateFrom")), null_to_double(rows->field("Value"))};
  taken.erase(value.from);
  ConstantValueEditor dialog(application(), value, std::move(taken));
  application().show_modal(dialog);
  if (!dialog.entered()) return;
  rows->set_field("DateFrom", dialog.entered()->from);
  rows->set_field("Value", dialog.entered()->value);
  rows->Update();
  values_changed(date_text(dialog.entered()->from));
}

void ConstantEditor::delete_value() {
  const auto rows = values();
  if (!stand_on_selected(*rows)) return;
  const std::string from = date_text(null_to_date(rows->field("DateFrom")));
  const auto answer = application().MessageBox("Ar tikrai norite panaikinti reikšmę nuo " + from + "?",
                                               BoxIcon::kQuestion, BoxButtons::kYesNo, application().Title());
  if (answer != BoxAnswer::kYes || !stand_on_selected(*rows)) return;
  rows->Delete();
  values_changed("");
}

void ConstantEditor::fill_values() {
  const ListView::BulkChange bulk(lvwValues);
  lvwValues.clear();
  std::optional<Date> next;
  for (const Line& line : lines_of(*values())) {
    const std::size_t at = lvwValues.add_row(date_text(line.from), std::to_string(line.place));
    if (next) lvwValues.set_text(at, kToColumn, date_text(add_days(*next, -1)));
    lvwValues.set_text(at, kValueColumn, general_text(line.value));
    next = line.from;
  }
}

std::shared_ptr<Recordset> ConstantEditor::values() const {
  const auto rows = record().Fields()["Rows"].Value().record_set();
  rows->Filter("");
  return rows;
}

bool ConstantEditor::stand_on_selected(Recordset& rows) const {
  if (!lvwValues.selected()) return false;
  std::int64_t place = std::stoll(lvwValues.selected_tag());
  if (place >= rows.RecordCount()) return false;
  for (rows.MoveFirst(); place > 0; --place) rows.MoveNext();
  return true;
}

void ConstantEditor::values_changed(const std::string& from) {
  const auto line = lvwValues.selected();
  fill_values();
  for (std::size_t at = 0; at < lvwValues.row_count(); ++at) {
    if (lvwValues.text(at) == from) lvwValues.select_row(at);
  }
  if (from.empty() && line && lvwValues.row_count() > 0) {
    lvwValues.select_row(std::min(*line, lvwValues.row_count() - 1));
  }
  changed();
}

std::shared_ptr<Form> constant_editor(Application& application, const std::string& object) {
  auto record = read_record(application, object);
  return record ? std::make_shared<ConstantEditor>(application, std::move(record)) : nullptr;
}

}  // namespace quor
