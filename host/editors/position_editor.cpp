#include "host/editors/position_editor.h"

#include "frame/contract/named_members.h"
#include "host/editors/entered_values.h"
#include "host/editors/record_saving.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/quoted_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

// What the engine asks of whoever has chosen.
struct Choice : NamedMembers {
  Choice(std::int32_t constant, std::int32_t category) : mConstantID(constant), mTariffFactorID(category) {}
  Variant member(std::string_view name) const override {
    if (name == "mConstantID") return mConstantID;
    if (name == "mTariffFactorID") return mTariffFactorID;
    throw Error(ErrorKind::kNoSuchField, "Nario „" + std::string(name) + "“ nėra.");
  }
  const std::int32_t mConstantID;
  const std::int32_t mTariffFactorID;
};

std::shared_ptr<Recordset> rows_in(const MethodResult& result) {
  const bool has_rows = result.Code == 0 && result.Value.kind() == Variant::Kind::kRecordSet;
  return has_rows ? result.Value.record_set() : nullptr;
}

std::int32_t id_in(const std::string& tag) { return tag.empty() ? 0 : Variant(tag).to_int32(); }

std::string name_of_category(QuorApplication& application, std::int32_t category) {
  const auto object = application.GetQuorObjectUIO(object_key(kCategoryType, category));
  return object ? null_to_text(object->Fields()["Name"].Value()) : "";
}

}  // namespace

PositionEditor::PositionEditor(QuorApplication& application, QuorObjectUIO& position)
    : Form("Darbuotojo pareigybė"), application_(application), position_(position) {
  for (TextBox* box : {&txtCategory, &txtFactor, &txtMonthSalary}) box->set_read_only(true);
  txtShare.on_enter = [this] { txtShare.select(0, character_count(txtShare.text())); };
  txtShare.on_key = [](char32_t key) { return key == U'.' ? U',' : key; };
  txtShare.on_change = [this] { show_month_salary(); };
  for (TextBox* box : {&txtDateFrom, &txtDateTo}) box->on_change = [this] { date_changed(); };
  chcTariff.on_change = [this] { show_month_salary(); };
  cmdChoose.on_click = [this] { choose_category(); };
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(
      column({field("Pareigybės kategorija", row({txtCategory, cmdChoose})), field("Koeficientas", txtFactor),
              field("Bazinė alga", chcTariff), field("Etato dalis", txtShare), field("Galioja nuo", txtDateFrom),
              field("Galioja iki", txtDateTo), field("Mėnesio alga", txtMonthSalary), row({cmdWrite, cmdCancel})}));
}

std::string PositionEditor::subject() const {
  return object_key(kEmployeeType, null_to_int32(position_.Fields()["ParentID"].Value()));
}

void PositionEditor::opening() {
  stored_ = false;
  cmdWrite.set_enabled(application_.HasRight(UserRight::kWrite, kSalaryExtensionType, 0));
  show_position();
  shown_ = shown();
}

std::string PositionEditor::shown() const {
  std::string all = txtCategory.tag() + '\n' + chcTariff.selected_tag();
  for (const TextBox* box : {&txtShare, &txtDateFrom, &txtDateTo}) all += '\n' + box->text();
  return all;
}

void PositionEditor::show_position() {
  const Fields fields = position_.Fields();
  const Variant share = fields["Share"].Value();
  txtShare.set_text(share.is_null() ? "1" : general_text(share.to_double()));
  txtDateFrom.set_text(null_to_text(fields["DateFrom"].Value()));
  txtDateTo.set_text(null_to_text(fields["DateTo"].Value()));
  dated_ = date();
  show_category(null_to_int32(fields["OfficeEmployeeCategoryID"].Value()));
  std::int32_t constant = null_to_int32(fields["SalaryConstantTypeID"].Value());
  // Without one of its own a position has the base tariff of the settings.
  if (constant == 0) {
    const auto usual = rows_in(position_.Methods("GetSalaryConstant", {0, dated_}));
    if (usual && usual->RecordCount() > 0) constant = null_to_int32(usual->field("ConstantID"));
  }
  show_tariffs(constant);
  show_month_salary();
}

void PositionEditor::show_category(std::int32_t category) {
  factor_.reset();
  txtCategory.set_tag(category == 0 ? "" : std::to_string(category));
  const auto row = category == 0 ? nullptr
                                 : requested("GetOfficeEmployeeCategory",
                                             std::to_string(category) + "," + quoted(date_text(dated_)));
  const bool has_factor = row && row->RecordCount() > 0;
  if (has_factor) factor_ = null_to_double(row->field("Factor"));
  std::string name;
  if (category != 0) name = has_factor ? null_to_text(row->field("Name")) : name_of_category(application_, category);
  txtCategory.set_text(name);
  txtFactor.set_text(factor_ ? general_text(*factor_) : "");
}

void PositionEditor::show_tariffs(std::int32_t chosen) {
  tariffs_ = requested("GetSalaryConstants", quoted(date_text(dated_)));
  std::vector<ChoiceBox::Item> items;
  bool found = chosen == 0;
  for (; tariffs_ && !tariffs_->Eof(); tariffs_->MoveNext()) {
    const std::int32_t id = null_to_int32(tariffs_->field("ConstantTypeID"));
    items.push_back(
        {null_to_text(tariffs_->field("Name")) + " – " + general_text(null_to_double(tariffs_->field("ConstantValue"))),
         std::to_string(id)});
    found = found || id == chosen;
  }
  if (!found) items.push_back({"Pasirinktos bazinės algos reikšmės šiai dienai nėra", std::to_string(chosen)});
  chcTariff.set_items(std::move(items));
  if (chosen != 0) chcTariff.select_tag(std::to_string(chosen));
}

// Blank while it cannot be told.
void PositionEditor::show_month_salary() {
  txtMonthSalary.set_text("");
  const auto share = try_parse_number(txtShare.text());
  const double tariff = tariff_value();
  if (!factor_ || !share || !kShare.holds(*share) || tariff == 0) return;
  const MethodResult salary = position_.Methods("GetMonthSalaryValue", {tariff, *factor_, *share});
  if (salary.Code == 0) txtMonthSalary.set_text(fixed_text(null_to_double(salary.Value), 2));
}

void PositionEditor::date_changed() {
  if (date() == dated_) return;
  dated_ = date();
  show_category(category());
  show_tariffs(tariff());
  show_month_salary();
}

void PositionEditor::choose_category() {
  const auto chosen = rows_in(position_.Methods(
      "HandleSelectEvent", {dated_, tariff(), tariff_value(), category(), factor_.value_or(0), txtCategory.text()}));
  if (!chosen || chosen->RecordCount() == 0) return;
  txtCategory.set_tag(std::to_string(null_to_int32(chosen->field("TariffFactorID"))));
  txtCategory.set_text(null_to_text(chosen->field("TariffFactorName")));
  factor_ = null_to_double(chosen->field("TariffFactorValue"));
  txtFactor.set_text(general_text(*factor_));
  show_month_salary();
}

void PositionEditor::write() {
  if (!move_into_fields() || !stored_or_told(application_, position_.Save(0, ""))) return;
  stored_ = true;
  close();
}

// Everything is read first: what is refused leaves the fields as they are.
bool PositionEditor::move_into_fields() {
  EnteredValues entered(application_);
  const auto choice = std::make_shared<Choice>(tariff(), category());
  const std::string missing = null_to_text(position_.Methods("CheckExtraComponents", {choice}).Value);
  if (!missing.empty()) entered.refuse(tariff() == 0 ? static_cast<const Control&>(chcTariff) : cmdChoose, missing);
  const double share = entered.number(txtShare, "Etato dalis", kShare);
  const Date from = entered.date(txtDateFrom, "Galioja nuo");
  const auto to = entered.optional_date(txtDateTo, "Galioja iki");
  entered.in_order(from, to, txtDateTo);
  if (entered.show_faults()) return false;

  const Fields fields = position_.Fields();
  // Under which contract and norm a position stands in the documents is the program's affair.
  for (const bool contract : {true, false}) {
    const char* const name = contract ? "PersonalContractGUID" : "SalaryPersonalNormGUID";
    std::string id = null_to_text(fields[name].Value());
    if (id.empty()) id = position_.GetGUID();
    if (position_.Methods("FillExtraUIOFields", {choice, id, contract}).Code != 0) return false;  // told by the engine
  }
  fields["Share"].Value(share);
  fields["DateFrom"].Value(from);
  fields["DateTo"].Value(to ? Variant(*to) : Variant(kNull));
  return true;
}

// The day of which factor and tariffs are shown: today, or the nearest one on which the position holds.
Date PositionEditor::date() const {
  const auto typed = [](const TextBox& box) {
    const auto day = try_parse_date(box.text());
    return day && is_stored_date(*day) ? std::optional(day->without_time()) : std::nullopt;
  };
  const Date today = application_.Today();
  const auto from = typed(txtDateFrom), to = typed(txtDateTo);
  if (from && *from > today) return *from;
  return to && *to < today ? *to : today;
}

std::int32_t PositionEditor::category() const { return id_in(txtCategory.tag()); }
std::int32_t PositionEditor::tariff() const { return id_in(chcTariff.selected_tag()); }

// 0 without one.
double PositionEditor::tariff_value() const {
  if (!tariffs_ || tariff() == 0) return 0;
  tariffs_->MoveFirst();
  for (; !tariffs_->Eof(); tariffs_->MoveNext()) {
    if (null_to_int32(tariffs_->field("ConstantTypeID")) == tariff()) {
      return null_to_double(tariffs_->field("ConstantValue"));
    }
  }
  return 0;
}

std::shared_ptr<Recordset> PositionEditor::requested(const char* name, const std::string& parameter) const {
  return rows_in(position_.BO()->RunMethod(name, parameter, 0));
}

std::shared_ptr<QuorObjectUIO> new_position(QuorApplication& application, std::int32_t employee,
                                            const std::string& like) {
  const auto position = application.GetQuorObjectUIO(kSalaryExtensionType);
  if (!position) throw Error(ErrorKind::kNotFound, "Pareigybės tvarkomos tik įkėlus darbo užmokesčio įskiepį.");
  const Fields fields = position->Fields();
  fields["ParentID"].Value(employee);
  if (like.empty()) return position;
  const auto old = application.GetQuorObjectUIO(like);
  if (!old) return nullptr;
  for (const char* name : {"SalaryConstantTypeID", "OfficeEmployeeCategoryID", "Share"}) {
    fields[name].Value(old->Fields()[name].Value());
  }
  const Variant end = old->Fields()["DateTo"].Value();
  fields["DateFrom"].Value(end.is_null() ? application.Today() : add_days(end.to_date(), 1));
  return position;
}

bool edit_position(QuorApplication& application, QuorObjectUIO& position) {
  PositionEditor editor(application, position);
  application.show_modal(editor);
  return editor.stored();
}

}  // namespace quor
