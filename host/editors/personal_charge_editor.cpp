#include "host/editors/personal_charge_editor.h"

#include <algorithm>
#include <optional>

#include "frame/contract/open_bounds.h"
#include "host/editors/entered_values.h"
#include "host/editors/record_saving.h"
#include "host/payroll/latest_month.h"
#include "host/store/database.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

constexpr char kNoSalaryCode[] = "0";
// Nothing at all is no charge.
constexpr NumberRange kSumOfCharge{0, kChargeSum.high, false};
constexpr NumberRange kPercentageOfCharge{0, kPercentage.high, false};

std::string amount_text(double amount) { return amount > 0 ? general_text(amount) : ""; }

Variant or_null(const std::optional<Date>& date) { return date ? Variant(*date) : Variant(kNull); }

}  // namespace

PersonalChargeEditor::PersonalChargeEditor(QuorApplication& application, QuorObjectUIO& charge,
                                           std::shared_ptr<Recordset> salary_codes)
    : Form("Darbuotojo priedas"), application_(application), charge_(charge), salary_codes_(std::move(salary_codes)) {
  lvwKind.on_select = [this] { show_kind(); };
  for (TextBox* box : {&txtSum, &txtPercentage}) {
    box->on_enter = [box] { box->select(0, character_count(box->text())); };
    box->on_key = [](char32_t key) { return key == U'.' ? U',' : key; };
    box->on_change = [this] { show_room(); };
  }
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Galioja nuo", txtDateFrom), field("Galioja iki", txtDateTo), lvwKind, field("Suma", txtSum),
                     field("Procentas", txtPercentage), lblRoom, lvwSalaryCodes, field("Pastaba", txtComment),
                     row({cmdWrite, cmdCancel})}));
}

std::string PersonalChargeEditor::subject() const {
  return object_key(kEmployeeType, null_to_int32(charge_.Fields()["PersonalID"].Value()));
}

void PersonalChargeEditor::opening() {
  stored_ = false;
  cmdWrite.set_enabled(application_.HasRight(UserRight::kWrite, kPersonalChargeType, 0));
  lvwKind.clear();
  for (const char* kind : {"Pastovia suma", "Procentu", "Už tarnybos stažą (procentas pagal skalę)"}) {
    lvwKind.add_row(kind);
  }
  show_charge();
  measure();
  show_kind();
  shown_ = shown();
}

std::string PersonalChargeEditor::shown() const {
  std::string all = std::to_string(kind()) + lvwSalaryCodes.selected_tag();
  for (const TextBox* box : {&txtDateFrom, &txtDateTo, &txtSum, &txtPercentage, &txtComment}) all += '\n' + box->text();
  return all;
}

void PersonalChargeEditor::show_kind() {
  txtSum.set_enabled(kind() == kSum);
  txtPercentage.set_enabled(kind() == kPercentage);
  show_room();
}

// In the month that was calculated last, or in which the charge begins where that is later.
void PersonalChargeEditor::measure() {
  auto* const application = dynamic_cast<Application*>(&application_);
  room_.reset();
  if (application == nullptr || !application->HasRight(UserRight::kView, kSalaryExtensionType, 0)) return;
  const Fields fields = charge_.Fields();
  Month month = latest_month(application->company().database()).value_or(Month::of(application->Today()));
  const Variant from = fields["DateFrom"].Value();
  if (!from.is_null()) month = std::max(month, Month::of(from.to_date()));
  try {
    room_ = room_for_charge(*application, month, null_to_int32(fields["PersonalID"].Value()),
                            id_of_key(charge_.OIDR()).value_or(0));
  } catch (const std::exception& failure) {  // a charge can be edited without knowing
    lblRoom.set_caption(failure.what());
  }
}

void PersonalChargeEditor::show_room() {
  if (!room_) return;
  const auto typed = [](const TextBox& box) { return try_parse_number(box.text()).value_or(0); };
  const double percentage = kind() == kLengthOfService ? room_->service_percentage : typed(txtPercentage);
  const double sum = kind() == kSum ? typed(txtSum) : round_half_up(room_->pay.base * percentage / 100, 2);
  lblRoom.set_caption(room_for_charge_text(*room_, sum));
}

void PersonalChargeEditor::write() {
  if (!move_into_fields() || !stored_or_told(application_, charge_.Save(0, ""))) return;
  stored_ = true;
  close();
}

// A sum wins over a percentage, and the tie over the charge's own.
void PersonalChargeEditor::show_charge() {
  const Fields fields = charge_.Fields();
  const double sum = null_to_double(fields["SumA"].Value());
  const bool tied = names_type(null_to_text(fields["SalaryExtraOID"].Value()));
  read_kind_ = sum > 0 ? kSum : tied ? kLengthOfService : kPercentage;
  const double percentage = null_to_double(fields["Percentage"].Value());
  lvwKind.select_row(read_kind_);
  txtSum.set_text(amount_text(sum));
  txtPercentage.set_text(read_kind_ == kPercentage ? amount_text(percentage) : "");
  txtDateFrom.set_text(bound_text(fields["DateFrom"].Value(), open_start()));
  txtDateTo.set_text(bound_text(fields["DateTo"].Value(), open_end()));
  txtComment.set_text(null_to_text(fields["Comment"].Value()));
  show_salary_codes();
}

void PersonalChargeEditor::show_salary_codes() {
  const ListView::BulkChange bulk(lvwSalaryCodes);
  lvwSalaryCodes.clear();
  const std::int32_t chosen = null_to_int32(charge_.Fields()["SalaryCodeID"].Value());
  lvwSalaryCodes.add_row("", kNoSalaryCode);
  lvwSalaryCodes.set_text(0, 1, "Nenurodytas");
  lvwSalaryCodes.select_row(0);
  for (; !salary_codes_->Eof(); salary_codes_->MoveNext()) {
    const std::int32_t id = null_to_int32(salary_codes_->field("ID"));
    const std::size_t row = lvwSalaryCodes.add_row(null_to_text(salary_codes_->field("Code")), std::to_string(id));
    lvwSalaryCodes.set_text(row, 1, null_to_text(salary_codes_->field("Name")));
    if (id == chosen) lvwSalaryCodes.select_row(row);
  }
}

PersonalChargeEditor::Kind PersonalChargeEditor::kind() const {
  return static_cast<Kind>(lvwKind.selected().value_or(read_kind_));
}

// Everything is read first: what is refused leaves the fields as they are.
bool PersonalChargeEditor::move_into_fields() {
  EnteredValues entered(application_);
  const auto from = entered.optional_date(txtDateFrom, "Galioja nuo");
  const auto to = entered.optional_date(txtDateTo, "Galioja iki");
  entered.in_order(from, to, txtDateTo);
  Variant sum = kNull, percentage = kNull;
  if (kind() == kSum) {
    const double typed = entered.number(txtSum, "Suma", kSumOfCharge);
    if (parse_number(fixed_text(typed, 2)) != typed) {
      entered.refuse(txtSum, "Suma: „" + txtSum.text() + "“ nurodyta tiksliau negu centais.");
    }
    sum = typed;
  }
  if (kind() == kPercentage) percentage = entered.number(txtPercentage, "Procentas", kPercentageOfCharge);
  if (entered.show_faults()) return false;

  const Fields fields = charge_.Fields();
  fields["DateFrom"].Value(or_null(from));
  fields["DateTo"].Value(or_null(to));
  fields["SumA"].Value(sum);
  fields["Percentage"].Value(percentage);
  // A tie that names more than the type stays while the charge stays tied.
  if (kind() != kLengthOfService) {
    fields["SalaryExtraOID"].Value(kNull);
  } else if (read_kind_ != kLengthOfService) {
    fields["SalaryExtraOID"].Value(kSalaryExtensionType);
  }
  const std::string& code = lvwSalaryCodes.selected_tag();
  fields["SalaryCodeID"].Value(code.empty() || code == kNoSalaryCode ? Variant(kNull) : Variant(code));
  fields["Comment"].Value(txtComment.text().empty() ? Variant(kNull) : Variant(txtComment.text()));
  return true;
}

bool edit_personal_charge(QuorApplication& application, QuorObjectUIO& charge) {
  const MethodResult codes = charge.BO()->RunMethod("GetSalaryCodes", kNoParameter, 0);
  if (codes.Code != 0) throw StoreError(StoreFault::kFailed, codes.Message);
  PersonalChargeEditor editor(application, charge, codes.Value.record_set());
  application.show_modal(editor);
  return editor.stored();
}

}  // namespace quor
