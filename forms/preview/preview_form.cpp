#include "forms/preview/preview_form.h"

#include <cmath>
#include <vector>

#include "frame/catalogue.h"
#include "frame/contract/host_types.h"
#include "frame/contract/quor_object_ui.h"
#include "frame/object_types.h"

namespace velmora {

namespace {

// How the department chooser is to offer its objects.
constexpr char kChooserMode[] = "T";
constexpr char kBlank[] = " ";
constexpr double kFirstMargin = 1.2;
constexpr double kSecondMargin = 1.0;
// Screen columns are wider than the paper's by this factor: a screen is read from farther away.
constexpr double kPixelsOfCentimetre = 57;

std::vector<quor::ListColumn> list_columns(std::span<const PreviewColumn> columns) {
  std::vector<quor::ListColumn> result;
  for (const PreviewColumn& column : columns) {
    result.push_back({.key = result.empty() ? "" : column.key,
                      .caption = column.caption,
                      .width = static_cast<int>(std::lround(column.width * kPixelsOfCentimetre)),
                      .alignment = column.alignment,
                      .header_key = column.header_key});
  }
  return result;
}

}  // namespace

// The buttons are off and the pointer is an hourglass while it lives.
class PreviewForm::Busy {
 public:
  explicit Busy(PreviewForm& form) : form_(form), hourglass_(form.application_.hourglass()) { enable(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() { enable(true); }

 private:
  void enable(bool enabled) {
    for (quor::CommandButton* button : {&form_.cmdGo, &form_.cmdPrint, &form_.cmdSelect}) button->set_enabled(enabled);
  }
  PreviewForm& form_;
  const std::shared_ptr<quor::Object> hourglass_;
};

PreviewForm::PreviewForm(quor::QuorApplication& application, const char* caption,
                         std::span<const PreviewColumn> columns, quor::MenuKey desk_top_key)
    : Form(caption),
      lvwRows(*this, "lvwRows", list_columns(columns)),
      mnuOnDeskTop(*this, mnuMenu, "mnuOnDeskTop", "Padėti ant darbo stalo", desk_top_key),
      application_(application),
      columns_(columns) {
  txtDepartment.set_read_only(true);
  cmdSelect.on_click = [this] { select_department(); };
  cmdClean.on_click = [this] { clear_department(); };
  cmdGo.on_click = [this] { fill(); };
  cmdPrint.on_click = [this] { print(); };
  SSCClose.on_click = [this] { close(); };
  lvwRows.on_right_click = [this] { open_menu(); };
  mnuOnDeskTop.on_choose = [this] { commands_.run([this] { place_on_desk_top(); }); };
  set_layout(column({row({field("Mėnuo", dtpDate), field("Padalinys", txtDepartment), cmdSelect, cmdClean, cmdGo}),
                     lvwRows, row({cmdPrint, SSCClose})}));
}

void PreviewForm::opening() {
  dtpDate.set_value(quor::Month::of(application_.Today()).first_day());
  clear_department();
  lvwRows.clear();
  listed_ = chosen();
}

void PreviewForm::release() {
  preview_rows_.reset();
  settings_.reset();
  release_records();
}

void PreviewForm::select_department() {
  const quor::PickedObject department =
      application_.SelectObject(quor::kDepartmentType, txtDepartment.tag(), kChooserMode);
  if (department.Identity.empty()) return;
  txtDepartment.set_text(department.Name);
  txtDepartment.set_tag(quor::key_of_identity(department.Identity));
}

void PreviewForm::clear_department() { catalogue::clear(txtDepartment); }

PreviewForm::Listed PreviewForm::chosen() const {
  return {.month = quor::Month::of(dtpDate.value()),
          .department = catalogue::chosen_id(txtDepartment.tag()),
          .department_name = txtDepartment.text()};
}

void PreviewForm::fill() {
  const Busy busy(*this);
  const quor::ListView::BulkChange bulk(lvwRows);
  lvwRows.clear();
  release();
  listed_ = chosen();
  const std::string date = catalogue::quoted(last_day());
  preview_rows_ = requested("OfficeEmployeePreview", date + "," + std::to_string(department()));
  settings_ = requested("OfficeEmployeeSettings", date);
  load_records();
  fill_list();
}

std::shared_ptr<quor::Recordset> PreviewForm::requested(const std::string& name, const std::string& parameter) {
  const quor::MethodResult result = QuorObjectUIO->Properties(name, parameter);
  if (result.Code != 0 || result.Value.kind() != quor::Variant::Kind::kRecordSet) return nullptr;
  return result.Value.record_set();
}

std::size_t PreviewForm::add_row(std::int32_t user) {
  const std::size_t row = lvwRows.add_row(kBlank, quor::object_key(quor::kEmployeeType, user));
  for (std::size_t column = 1; column < columns_.size(); ++column) lvwRows.set_text(row, column, kBlank);
  return row;
}

void PreviewForm::open_menu() {
  if (commands_.is_open() && lvwRows.row_count() > 0 && lvwRows.selected()) mnuMenu.open();
}

std::string PreviewForm::selected_employee() const {
  const std::string& tag = lvwRows.selected_tag();
  return quor::carries_object(tag) ? tag : "";
}

void PreviewForm::place_on_desk_top() {
  const std::string employee = selected_employee();
  if (employee.empty()) return;
  if (const auto ui = application_.GetQuorObjectUI(quor::kEmployeeType)) ui->AddToDeskTopQuorObject(employee);
}

void PreviewForm::print() {
  const auto company = application_.CompanyRecord();
  const auto report = application_.NewListReport(catalogue::null_to_text(company->field("Name")), kEngineType);
  for (const std::string& line : {caption(), month().text(), listed_.department_name}) report->AddHeading(line);
  report->SetMargins(kFirstMargin, kSecondMargin);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    report->AddColumn(columns_[column].key, lvwRows.columns()[column].caption, columns_[column].width,
                      columns_[column].alignment);
  }
  for (std::size_t line = 0; line < lvwRows.row_count(); ++line) {
    report->AddLine();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      report->SetCell(columns_[column].key, lvwRows.text(line, column), lvwRows.colour(line, column));
    }
  }
  report->Show();
}

}  // namespace velmora
