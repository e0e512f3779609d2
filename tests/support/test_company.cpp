#include "tests/support/test_company.h"

#include "host/application/forwarded_requests.h"
#include "host/application/main_bo.h"
#include "host/company/guid.h"
#include "host/console/session.h"
#include "host/store/sort_key.h"

namespace quor {

namespace {

class RecordingBO : public ForwardedRequests {
 public:
  RecordingBO(TestApplication& application, std::shared_ptr<QuorMainBO> real)
      : ForwardedRequests(std::move(real)), application_(application) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override {
    application_.requests.push_back(name + "(" + parameter + "), flag " + std::to_string(flag));
    const auto answer = application_.answers.find(name);
    return answer == application_.answers.end() ? ForwardedRequests::RunMethod(name, parameter, flag) : answer->second;
  }

 private:
  TestApplication& application_;
};

}  // namespace

std::shared_ptr<QuorMainBO> TestApplication::NewMainBO() {
  return std::make_shared<RecordingBO>(*this, Application::NewMainBO());
}

BoxAnswer TestApplication::MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                                      const std::string& title) {
  const BoxAnswer alone = Application::MessageBox(text, icon, buttons, title);
  if (buttons == BoxButtons::kOk || next_answers_.empty()) return alone;
  const BoxAnswer answer = next_answers_.front();
  next_answers_.pop_front();
  return answer;
}

std::vector<std::string> TestApplication::boxes() const {
  std::vector<std::string> texts;
  for (const ShownBox& box : shown_boxes()) {
    texts.push_back(std::string(icon_name(box.icon)) + ", " + buttons_name(box.buttons) + ", " + box.title + ": " +
                    box.text);
  }
  return texts;
}

void TestCompany::act_between_statements(const std::function<void()>& act, const std::function<void()>& work,
                                         const std::function<void(std::uint64_t n)>& look) {
  bool reached = true;
  for (std::uint64_t n = 1; reached; ++n) {
    reached = false;
    const auto before = database().statements() + n;
    database().set_fault([&](std::uint64_t statement) {
      if (statement != before) return;
      reached = true;
      act();
    });
    work();
    heal();
    look(n);
  }
}

std::int32_t TestCompany::insert(const std::string& table, const std::string& columns, std::vector<Variant> values) {
  const std::int32_t id = database().reserve_ids(table);
  std::string binds;
  for (std::size_t i = 0; i < values.size(); ++i) binds += ":p" + std::to_string(i) + ", ";
  binds += ":p" + std::to_string(values.size());
  values.push_back(id);
  database().execute("INSERT INTO " + table + " (" + columns + ", id) VALUES (" + binds + ")", values);
  return id;
}

std::int32_t TestCompany::given_department(const char* name, Variant parent) {
  return insert("departments", "name, sort_key, parent_id", {name, lithuanian_sort_key(name), std::move(parent)});
}

std::int32_t TestCompany::given_employee(const char* name, std::int32_t department) {
  return insert("employees", "name, sort_key, department_id, row_version",
                {name, lithuanian_sort_key(name), department, 1});
}

std::int32_t TestCompany::given_employee(const char* name) { return given_employee(name, given_department("Skyrius")); }

std::int32_t TestCompany::given_category(const char* name, const std::vector<Dated>& factors) {
  const std::int32_t id = insert("categories", "guid, name, row_version", {new_guid(), name, 1});
  for (const Dated& factor : factors) {
    insert("category_rows", "guid, category_id, date_from, factor", {new_guid(), id, day(factor.from), factor.value});
  }
  return id;
}

std::int32_t TestCompany::given_constant(const char* code, const std::vector<Dated>& values) {
  const std::int32_t id = insert("constant_types", "code, name", {code, std::string("Konstanta ") + code});
  for (const Dated& value : values) {
    insert("constant_values", "constant_type_id, date_from, value", {id, day(value.from), value.value});
  }
  return id;
}

std::int32_t TestCompany::given_settings(const Settings& settings) {
  const std::int32_t id =
      insert("settings",
             "guid, date_from, base_month_tariff_id, base_hour_tariff_id,"
             " personal_time_code_id_list, extra_charge_percentage, surcharge_percentage,"
             " total_charge_percentage, row_version",
             {new_guid(), day(settings.from), settings.month_tariff, settings.hour_tariff, settings.time_codes,
              settings.extra_limit, settings.surcharge_limit, settings.total_limit, 1});
  for (const Band& band : settings.bands) {
    insert("settings_rows", "guid, settings_id, year_from, year_to, percentage",
           {new_guid(), id, band.year_from, band.year_to, band.percentage});
  }
  return id;
}

void TestCompany::given_service(std::int32_t employee, Variant reached_on, Variant years, Variant months) {
  insert("experience", "employee_id, date_experience, experience_years, experience_months, row_version",
         {employee, std::move(reached_on), std::move(years), std::move(months), 1});
}

std::int32_t TestCompany::given_position(const Position& position) {
  return insert("positions",
                "employee_id, contract_guid, norm_guid, constant_type_id, category_id, share, date_from, date_to,"
                " row_version",
                {position.employee, position.contract, position.norm, position.constant_type, position.category,
                 position.share, day(position.from), position.to, 1});
}

std::int32_t TestCompany::given_user(const char* name, bool administrator) {
  company_.forget();
  return insert("users", "name, administrator", {name, administrator ? 1 : 0});
}

void TestCompany::given_rights(std::int32_t user, const char* component, std::string_view letters) {
  std::vector<Variant> values = {user, component};
  for (const char letter : {'v', 'c', 'd', 'p', 'w'}) {
    values.emplace_back(letters.find(letter) == std::string_view::npos ? 0 : 1);
  }
  database().execute(
      "INSERT INTO rights (user_id, component, can_view, can_create, can_delete, can_print, can_write)"
      " VALUES (:p0, :p1, :p2, :p3, :p4, :p5, :p6)",
      values);
  company_.forget();
}

std::int32_t TestCompany::given_charge(std::int32_t employee, Variant from, Variant to, Variant sum) {
  return insert("extra_charges", "guid, employee_id, date_from, date_to, sum_a, row_version",
                {new_guid(), employee, std::move(from), std::move(to), std::move(sum), 1});
}

std::int32_t TestCompany::given_time(std::int32_t employee, std::int32_t code, double hours, Variant on) {
  return insert("worked_time", "employee_id, month, day, time_code_id, hours",
                {employee, day("2008.01.01"), std::move(on), code, hours});
}

std::int32_t TestCompany::given_document(std::int32_t employee, const char* month) {
  return insert("documents", "guid, employee_id, month, check_code, check_message",
                {new_guid(), employee, day(month), 0, ""});
}

void TestCompany::given_tariffs() {
  const std::int32_t month = given_constant("MMA_VT", {{"2005.01.01", 130.0}});
  const std::int32_t hour = given_constant("MVA_VT", {{"2005.01.01", 0.8}});
  given_settings(
      {.from = "2005.01.01", .month_tariff = month, .hour_tariff = hour, .bands = {{3, 5, 3.0}, {5, 10, 5.0}}});
}

void TestCompany::given_time_codes() {
  for (const auto& [id, code] : {std::pair{1, "FD"}, {2, "VD"}, {3, "L"}, {5, "PV"}}) {
    insert("indications", "indication_code, code_id, code, code_name", {"WorkTime", id, code, code});
  }
}

std::string TestCompany::get(const std::string& name, const std::string& parameter) {
  return result_text(application_.NewMainBO()->RunMethod("Get" + name, parameter, 0));
}

std::shared_ptr<Recordset> TestCompany::rows(const std::string& name, const std::string& parameter) {
  return application_.NewMainBO()->RunMethod("Get" + name, parameter, 0).Value.record_set();
}

void TestCompany::fail_statements(std::uint64_t n, const char* text) {
  const std::uint64_t first = database().statements() + n;
  database().set_fault([first, text](std::uint64_t statement) {
    if (statement >= first) throw StoreError(StoreFault::kFailed, text);
  });
}

std::string rows_text(Recordset& rows) {
  std::string text;
  if (rows.RecordCount() > 0) rows.MoveFirst();
  for (; !rows.Eof(); rows.MoveNext()) {
    text += text.empty() ? "" : " | ";
    for (std::size_t i = 0; i < rows.field_count(); ++i) {
      text += (i == 0 ? "" : ";") + value_text(rows.field(FieldHandle{i}));
    }
  }
  return text;
}

std::string result_text(const MethodResult& result) {
  using Kind = Variant::Kind;
  const Variant& value = result.Value;
  if (result.Code != 0) return "[" + std::to_string(result.Code) + ": " + result.Message + "]";
  const std::string text = result.Message.empty() ? "" : "[0: " + result.Message + "] ";
  if (value.is_empty()) return text + "Empty";
  if (value.kind() == Kind::kRecordSet) return text + (value.record_set() ? rows_text(*value.record_set()) : "no set");
  if (value.kind() == Kind::kObject) return text + (value.object() ? "object" : "no object");
  return text + value_text(value);
}

std::string called(QuorObjectUIO& engine, const std::string& method, const Parameters& parameters) {
  return outcome([&] { return result_text(engine.Methods(method, parameters)); });
}

}  // namespace quor
