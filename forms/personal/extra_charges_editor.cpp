#include "forms/personal/extra_charges_editor.h"

#include <utility>

#include "frame/catalogue.h"
#include "frame/contract/open_bounds.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

// The commands of the list.
constexpr char kNewCharge[] = "100";
constexpr char kEditCharge[] = "101";
constexpr char kDeleteCharge[] = "102";

// The columns of the list.
enum : std::size_t { kFrom, kTo, kSalaryCode, kSum, kPercentage, kComment };

// A cell that holds no full date is an open bound.
std::optional<quor::Date> shown_date(const std::string& cell) {
  constexpr std::size_t kFullDate = 10;
  return cell.size() < kFullDate ? std::nullopt : std::optional(quor::parse_date(cell));
}

// The record set of an answer; null for a failure and for an answer without one.
std::shared_ptr<quor::Recordset> rows_in(const quor::MethodResult& result) {
  const bool has_rows = result.Code == 0 && result.Value.kind() == quor::Variant::Kind::kRecordSet;
  return has_rows ? result.Value.record_set() : nullptr;
}

}  // namespace

frmOfficeEmployeeExtraCharges::frmOfficeEmployeeExtraCharges(quor::QuorApplication& application)
    : Form("Darbuotojo priedai"),
      application_(application),
      commands_(lvwExtraCharges, {mnuExtraCharge, mnuNewExtraCharge, mnuEditExtraCharge, mnuDeleteExtraCharge},
                {kNewCharge, kEditCharge, kDeleteCharge},
                [this](const std::string& command, const std::string& guid) { run_command(command, guid); }) {
  cmdClose.on_click = [this] { close(); };
  set_layout(column({lblPreview, lvwExtraCharges, cmdClose}));
}

void frmOfficeEmployeeExtraCharges::opening() {
  mCancel = true;
  employee_ = application_.GetQuorObjectUIO(SalaryPersonalOIDR);
  commands_.set_available(employee_ != nullptr);
  if (employee_) lblPreview.set_caption(employee_->Preview());
  fill();
}

void frmOfficeEmployeeExtraCharges::closing() {
  employee_.reset();
  salary_codes_.reset();
  QuorObjectUIO.reset();
}

void frmOfficeEmployeeExtraCharges::run_command(const std::string& command, const std::string& guid) {
  if (command == kNewCharge || command == kEditCharge) edit_charge(guid);
  if (command == kDeleteCharge) delete_charge(guid);
}

void frmOfficeEmployeeExtraCharges::edit_charge(const std::string& guid) {
  if (!ask_employee("PersonalExtraCharge", guid)) return;
  mCancel = false;
  fill();
}

void frmOfficeEmployeeExtraCharges::delete_charge(const std::string& guid) {
  if (application_.MessageBox("Ar tikrai norite panaikinti?", quor::BoxIcon::kQuestion, quor::BoxButtons::kYesNo,
                              application_.Title()) != quor::BoxAnswer::kYes) {
    return;
  }
  if (!ask_employee("DeletePersonalExtraCharge", guid)) return;
  if (const auto row = lvwExtraCharges.row_tagged(guid)) lvwExtraCharges.remove_row(*row);
  mCancel = false;
}

void frmOfficeEmployeeExtraCharges::fill() {
  const auto hourglass = application_.hourglass();
  const quor::ListView::BulkChange bulk(lvwExtraCharges);
  lvwExtraCharges.clear();
  service_percentage_.reset();
  salary_codes_ = named_rows("SalaryCodes", quor::kNoParameter);
  const auto charges = named_rows("PersonalExtraCharges", catalogue::quoted(SalaryPersonalOIDR));
  if (!charges || charges->RecordCount() == 0) return;
  for (charges->MoveFirst(); !charges->Eof(); charges->MoveNext()) add_charge(*charges);
  grey_out();
}

void frmOfficeEmployeeExtraCharges::add_charge(const quor::Recordset& charge) {
  const std::size_t row = lvwExtraCharges.add_row(quor::bound_text(charge.field("DateFrom"), quor::open_start()),
                                                  catalogue::null_to_text(charge.field("GUID")));
  const auto put = [&](std::size_t column, std::string text) {
    lvwExtraCharges.set_text(row, column, std::move(text));
  };
  put(kTo, quor::bound_text(charge.field("DateTo"), quor::open_end()));
  put(kSalaryCode, salary_code_text(catalogue::null_to_int32(charge.field("SalaryCodeID"))));
  const double sum = catalogue::null_to_double(charge.field("SumA"));
  if (sum > 0) {
    put(kSum, quor::fixed_text(sum, 2));
  } else {
    const bool tied = quor::names_type(catalogue::null_to_text(charge.field("SalaryExtraOID")));
    put(kPercentage,
        quor::general_text(tied ? service_percentage() : catalogue::null_to_double(charge.field("Percentage"))) + "%");
  }
  put(kComment, catalogue::null_to_text(charge.field("Comment")));
}

void frmOfficeEmployeeExtraCharges::grey_out() {
  for (std::size_t row = 0; row < lvwExtraCharges.row_count(); ++row) {
    if (in_force(row)) continue;
    for (std::size_t column = 0; column < lvwExtraCharges.columns().size(); ++column) {
      lvwExtraCharges.set_colour(row, column, quor::CellColour::kGreyText);
    }
  }
}

bool frmOfficeEmployeeExtraCharges::in_force(std::size_t row) const {
  const auto from = shown_date(lvwExtraCharges.text(row, kFrom));
  const auto to = shown_date(lvwExtraCharges.text(row, kTo));
  const quor::Date date = mDate.without_time();
  return !(from && date < *from) && !(to && *to < date);
}

std::shared_ptr<quor::Recordset> frmOfficeEmployeeExtraCharges::named_rows(const char* name,
                                                                           const std::string& parameter) {
  return QuorObjectUIO ? rows_in(QuorObjectUIO->Properties(name, parameter)) : nullptr;
}

std::string frmOfficeEmployeeExtraCharges::salary_code_text(std::int32_t id) {
  const quor::FilterScope scope(salary_codes_);
  if (!catalogue::filter_test(salary_codes_, "ID = " + std::to_string(id))) return "";
  return catalogue::null_to_text(salary_codes_->field("Code")) + "  " +
         catalogue::null_to_text(salary_codes_->field("Name"));
}

// All charges tied to the service have the percentage of the person's service: the engine is asked once.
double frmOfficeEmployeeExtraCharges::service_percentage() {
  if (service_percentage_) return *service_percentage_;
  service_percentage_ = 0;
  const auto person = quor::id_of_key(SalaryPersonalOIDR);
  if (!person || !QuorObjectUIO) return 0;
  const auto row = rows_in(QuorObjectUIO->Methods("GetPersonalExtraChargeComponents", {*person, mDate}));
  if (row && row->RecordCount() > 0) {
    service_percentage_ = catalogue::null_to_double(row->field("ExtraChargePercentage"));
  }
  return *service_percentage_;
}

bool frmOfficeEmployeeExtraCharges::ask_employee(const char* method, const std::string& guid) {
  return catalogue::is_true(employee_->Methods(method, {guid}));
}

}  // namespace velmora
