#include "forms/settings/settings_editor.h"

#include "forms/settings/experience_row_editor.h"
#include "forms/settings/new_version.h"
#include "frame/contract/host_types.h"
#include "frame/numeric_box.h"
#include "frame/object_types.h"
#include "frame/row_dialog.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

// The commands of the experience scale.
constexpr char kAddBand[] = "100";
constexpr char kEditBand[] = "101";
constexpr char kDeleteBand[] = "102";

std::string money(double value) { return quor::fixed_text(value, 2); }

std::string whole_text(const quor::Variant& value) { return std::to_string(catalogue::null_to_int16(value)); }

double limit_in(const quor::TextBox& box) {
  const quor::Variant text(box.text());
  (void)text.to_int16();  // throws for a limit that the form could never show again
  return text.to_double();
}

}  // namespace

frmOfficeEmployeeSettings::frmOfficeEmployeeSettings(quor::QuorApplication& application)
    : Form("Valstybės tarnautojų nustatymai"),
      application_(application),
      experience_commands_(
          lvwExperience, {experience_menu, mnuAdd, mnuEdit, mnuDelete}, {kAddBand, kEditBand, kDeleteBand},
          [this](const std::string& command, const std::string& guid) { run_experience_command(command, guid); }) {
  dtpDate.on_change = [this] { mark_modified(); };
  cmdMonthTariff.on_click = [this] { choose_tariff(month_); };
  cmdHourTariff.on_click = [this] { choose_tariff(hour_); };
  cmdCleanHourTariff.on_click = [this] {
    clear_tariff(hour_);
    mark_modified();
  };
  cmdRefreshBaseTariff.on_click = [this] { refresh_tariffs(); };
  for (quor::TextBox* box : {&txtMonthTariff, &txtMonthTariffName, &txtHourTariff, &txtHourTariffName}) {
    box->set_read_only(true);
  }
  lvwTimeCodes.on_check = [this](std::size_t) { mark_modified(); };
  for (quor::TextBox* box : {&txtExtraChargePercentage, &txtSurChargePercentage, &txtTotalChargePercentage}) {
    make_numeric_box(*box, 0);
    box->on_change = [this] { mark_modified(); };
  }
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { cancel(); };
  SSCClose.on_click = [this] { close(); };
  arrange();
}

void frmOfficeEmployeeSettings::arrange() {
  set_layout(
      column({SOPanel, field("Galioja nuo", dtpDate),
              group(tariff_frame,
                    {field("Mėnesinė", row({txtMonthTariff, txtMonthTariffName, cmdMonthTariff})),
                     field("Valandinė", row({txtHourTariff, txtHourTariffName, cmdHourTariff, cmdCleanHourTariff})),
                     cmdRefreshBaseTariff}),
              row({column({group(limit_frame,
                                 {field("Priedų", txtExtraChargePercentage), field("Priemokų", txtSurChargePercentage),
                                  field("Priedų ir priemokų kartu", txtTotalChargePercentage)}),
                           group(time_code_frame, {lvwTimeCodes})}),
                   group(experience_frame, {lvwExperience})}),
              row({cmdWrite, cmdCancel, SSCClose})}));
}

void frmOfficeEmployeeSettings::opening() {
  catalogue::query_rights(application_, rights_, kSettingsType);
  title_ = application_.Title();
  fill();
}

void frmOfficeEmployeeSettings::choose_tariff(const Tariff& tariff) {
  const std::string picked =
      quor::key_of_identity(catalogue::pick_object(application_, quor::kConstantType, tariff.name.tag()));
  if (picked.empty() || picked == tariff.name.tag()) return;
  const std::int32_t id = catalogue::chosen_id(picked);
  tariff.name.set_tag(picked);
  tariff.name.set_text("");
  fill_tariff(tariff, id);
  mark_modified();
}

void frmOfficeEmployeeSettings::clear_tariff(const Tariff& tariff) {
  tariff.value.set_text(money(0.0));
  catalogue::clear(tariff.name);
}

void frmOfficeEmployeeSettings::refresh_tariffs() {
  for (const Tariff* tariff : {&month_, &hour_}) fill_tariff(*tariff, catalogue::chosen_id(tariff->name.tag()));
  mark_modified();
}

void frmOfficeEmployeeSettings::run_experience_command(const std::string& command, const std::string& guid) {
  if (command == kAddBand || command == kEditBand) edit_band(guid);
  if (command == kDeleteBand) delete_band(guid);
}

void frmOfficeEmployeeSettings::edit_band(const std::string& guid) {
  if (!edit_row_in_dialog<frmOfficeEmployeeExperience>(application_, QuorObjectUIO, guid)) return;
  fill_experience();
  mark_modified();
}

// The settings' data object does not have this method today; without it the band stays.
void frmOfficeEmployeeSettings::delete_band(const std::string& guid) {
  if (application_.MessageBox("Ar tikrai norite panaikinti?", quor::BoxIcon::kQuestion, quor::BoxButtons::kYesNo,
                              title_) != quor::BoxAnswer::kYes) {
    return;
  }
  const quor::MethodResult result = QuorObjectUIO->Methods("DeletePersonalExtraCharge", {guid});
  const auto row = lvwExperience.row_tagged(guid);
  if (catalogue::is_true(result) && row) lvwExperience.remove_row(*row);
  mark_modified();
}

void frmOfficeEmployeeSettings::write() {
  const Entered values = entered();
  std::string faults;
  if (values.month_tariff == 0) faults = "Nenurodyta bazinė alga!";
  if (values.time_codes.empty())
    faults += (faults.empty() ? "" : quor::kLineBreak) + std::string("Nepažymėti priemokų tipai!");
  if (!faults.empty()) {
    application_.MessageBox(faults, quor::BoxIcon::kCritical, quor::BoxButtons::kOk, title_);
    return;
  }
  write_fields(values);
  const quor::SaveStatus status = QuorObjectUIO->Save(0, "");
  if (status.Failed) {
    application_.MessageBox(std::string("Įrašymas neatliktas!") + quor::kLineBreak + status.ErrorText,
                            quor::BoxIcon::kNone, quor::BoxButtons::kOk, title_);
    cancel();
    return;
  }
  QuorObjectUIO->Preview(quor::date_text(dtpDate.value()));
  application_.open_objects().written(*QuorObjectUIO);
  fill();
}

void frmOfficeEmployeeSettings::cancel() {
  QuorObjectUIO->CancelUpdate();
  fill();
}

void frmOfficeEmployeeSettings::fill() {
  const auto hourglass = application_.hourglass();
  modified_ = false;
  is_new_ = !quor::carries_object(QuorObjectUIO->OIDR());
  if (is_new_) start_new_record();
  const quor::Fields fields = QuorObjectUIO->Fields();
  const quor::Variant date = fields["DateFrom"].Value();
  dtpDate.set_value(date.is_null() ? application_.Today() : date.to_date());
  txtExtraChargePercentage.set_text(whole_text(fields["ExtraChargePercentage"].Value()));
  txtSurChargePercentage.set_text(whole_text(fields["SurChargePercentage"].Value()));
  txtTotalChargePercentage.set_text(whole_text(fields["TotalChargePercentage"].Value()));
  SOPanel.set_caption(is_new_ ? " Naujas nustatymas" : " Nustatymai");
  clear_tariff(month_);
  fill_tariff(month_, catalogue::null_to_int32(fields["BaseMonthTariffID"].Value()));
  clear_tariff(hour_);
  fill_tariff(hour_, catalogue::null_to_int32(fields["BaseHourTariffID"].Value()));
  fill_time_codes(catalogue::null_to_text(fields["PersonalTimeCodeIDList"].Value()));
  fill_experience();
  set_button_states();
}

void frmOfficeEmployeeSettings::start_new_record() {
  QuorObjectUIO->Fields()["GUID"].Value(QuorObjectUIO->GetGUID());
  if (const auto in_force = named_rows("OfficeEmployeeSettings", catalogue::quoted(application_.Today()))) {
    start_as_copy(*QuorObjectUIO, *in_force);
  }
}

// Shows the constant as it is at the editor's date. Without a value then, it is shown as zero and keeps its name.
void frmOfficeEmployeeSettings::fill_tariff(const Tariff& tariff, std::int32_t id) {
  tariff.value.set_text(money(0.0));
  const auto constants = named_rows("SalaryConstants", catalogue::quoted(dtpDate.value()));
  if (!catalogue::filter_test(constants, "ConstantTypeID = " + std::to_string(id))) return;
  tariff.value.set_text(money(catalogue::null_to_double(constants->field("ConstantValue"))));
  tariff.name.set_tag(quor::object_key(quor::kConstantType, constants->field("ConstantTypeID").to_int32()));
  tariff.name.set_text(catalogue::null_to_text(constants->field("Name")));
}

void frmOfficeEmployeeSettings::fill_time_codes(const std::string& checked) {
  const quor::ListView::BulkChange bulk(lvwTimeCodes);
  lvwTimeCodes.clear();
  const auto codes = named_rows("Indications", "");
  if (!catalogue::filter_test(codes, "IndicationCode = 'WorkTime'")) return;
  const std::size_t name_column = lvwTimeCodes.column("CodeName");
  // Codes are looked for with a comma on both sides, so that 7 is not found in 37.
  const std::string wrapped = "," + checked + ",";
  for (; !codes->Eof(); codes->MoveNext()) {
    const std::string id = std::to_string(codes->field("CodeID").to_int32());
    const std::size_t line = lvwTimeCodes.add_row(catalogue::null_to_text(codes->field("Code")), id);
    lvwTimeCodes.set_text(line, name_column, catalogue::null_to_text(codes->field("CodeName")));
    lvwTimeCodes.set_checked(line, wrapped.find("," + id + ",") != std::string::npos);
  }
}

void frmOfficeEmployeeSettings::fill_experience() {
  const auto hourglass = application_.hourglass();
  const quor::ListView::BulkChange bulk(lvwExperience);
  lvwExperience.clear();
  const auto rows = catalogue::rows_of(*QuorObjectUIO);
  if (!rows) return;
  rows->Filter("");
  const std::size_t from_column = lvwExperience.column("YearFrom");
  const std::size_t to_column = lvwExperience.column("YearTo");
  const std::size_t percentage_column = lvwExperience.column("Percentage");
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string number = std::to_string(lvwExperience.row_count() + 1);
    const std::size_t line = lvwExperience.add_row(number, rows->field("GUID").to_text());
    lvwExperience.set_text(line, from_column, whole_text(rows->field("YearFrom")));
    lvwExperience.set_text(line, to_column, whole_text(rows->field("YearTo")));
    const double percentage = catalogue::null_to_double(rows->field("Percentage"));
    lvwExperience.set_text(line, percentage_column, quor::general_text(percentage) + "%");
  }
}

// A text that does not convert throws here, before the record has changed.
frmOfficeEmployeeSettings::Entered frmOfficeEmployeeSettings::entered() const {
  return {.month_tariff = catalogue::chosen_id(month_.name.tag()),
          .hour_tariff = catalogue::chosen_id(hour_.name.tag()),
          .extra_charge = limit_in(txtExtraChargePercentage),
          .surcharge = limit_in(txtSurChargePercentage),
          .total_charge = limit_in(txtTotalChargePercentage),
          .time_codes = checked_codes()};
}

std::string frmOfficeEmployeeSettings::checked_codes() const {
  std::string codes;
  for (std::size_t line = 0; line < lvwTimeCodes.row_count(); ++line) {
    if (lvwTimeCodes.checked(line)) codes += (codes.empty() ? "" : ",") + lvwTimeCodes.tag(line);
  }
  return codes;
}

void frmOfficeEmployeeSettings::write_fields(const Entered& values) {
  const quor::Fields fields = QuorObjectUIO->Fields();
  fields["DateFrom"].Value(dtpDate.value());
  fields["BaseMonthTariffID"].Value(values.month_tariff);
  fields["BaseHourTariffID"].Value(values.hour_tariff);
  fields["ExtraChargePercentage"].Value(values.extra_charge);
  fields["SurChargePercentage"].Value(values.surcharge);
  fields["TotalChargePercentage"].Value(values.total_charge);
  fields["PersonalTimeCodeIDList"].Value(values.time_codes);
}

// Null when the request failed, of which the data object has told the user, or answered no record set.
std::shared_ptr<quor::Recordset> frmOfficeEmployeeSettings::named_rows(const std::string& name,
                                                                       const std::string& parameter) {
  const quor::MethodResult answer = QuorObjectUIO->Properties(name, parameter);
  const bool has_rows = answer.Code == 0 && answer.Value.kind() == quor::Variant::Kind::kRecordSet;
  return has_rows ? answer.Value.record_set() : nullptr;
}

void frmOfficeEmployeeSettings::mark_modified() {
  modified_ = true;
  set_button_states();
}

void frmOfficeEmployeeSettings::set_button_states() {
  dtpDate.set_enabled(is_new_);
  cmdRefreshBaseTariff.set_enabled(is_new_);
  cmdWrite.set_enabled(modified_ && rights_.may_write());
  cmdCancel.set_enabled(modified_ && !is_new_);
}

}  // namespace velmora
