// A company in memory (or in a new file, or on the database that a test names) for one test, filled by small verbs,
// with the application around it. Today is 2008-01-31.
//
// Dates are texts, "2008.01.31". Every verb answers the ID of what it made.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "frame/contract/quor_object_uio.h"
#include "host/application/application.h"
#include "host/editors/host_editors.h"
#include "host/editors/personal_charge_editor.h"
#include "tests/support/company_place.h"
#include "tests/support/recordset_rows.h"

namespace quor {

// An application titled "Testas" that writes down every request to the business object.
class TestApplication : public Application {
 public:
  using Application::Application;
  std::shared_ptr<QuorMainBO> NewMainBO() override;
  BoxAnswer MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;

  std::vector<std::string> requests;            // "GetSalaryConstants('2008.01.31'), flag 0"
  std::map<std::string, MethodResult> answers;  // by request name: answered instead of asking the company

  void refuse(const std::string& request, const std::string& text) { answers[request] = {5, text, {}}; }
  // What the next question is answered with; several are used up in order, then questions are not agreed to.
  void answer(BoxAnswer answer) { next_answers_.push_back(answer); }
  // Acts as the user on every modal form while it is loaded.
  void on_modal(std::function<void(Form&)> user) { modal_user_ = std::move(user); }
  // Each box shown so far as "icon, buttons, title: text".
  std::vector<std::string> boxes() const;

 protected:
  void act_on(Form& form) override {
    if (modal_user_) modal_user_(form);
  }

 private:
  std::function<void(Form&)> modal_user_;
  std::deque<BoxAnswer> next_answers_;
};

// With a person who chooses `picked` where an object is to be selected.
class PickingApplication : public TestApplication {
 public:
  using TestApplication::TestApplication;
  PickedObject SelectObject(const std::string& type, const std::string& current, const std::string& mode) override {
    asked = type + "," + current + "," + mode;
    return picked;
  }
  PickedObject picked;
  std::string asked;
};

struct Dated {
  const char* from;
  double value;
};
struct Band {
  Variant year_from;
  Variant year_to;
  Variant percentage;
};
struct Position {
  std::int32_t employee;
  Variant category = kNull;
  Variant constant_type = kNull;
  double share = 1.0;
  const char* from = "2005.01.01";
  Variant to = kNull;  // a Date
  const char* contract = "K1";
  const char* norm = "N1";
};
struct Settings {
  const char* from;
  Variant month_tariff = kNull;
  Variant hour_tariff = kNull;
  std::vector<Band> bands = {};
  Variant time_codes = kNull;
  Variant extra_limit = kNull;
  Variant surcharge_limit = kNull;
  Variant total_limit = kNull;
};

class TestCompany {
 public:
  explicit TestCompany(const std::string& address = ":memory:") : company_(Database::create(address)) {}
  explicit TestCompany(const Backend& backend)
      : place_(backend.make_place()), company_(Database::create(place_->address())) {}

  Database& database() { return company_.database(); }
  Company& company() { return company_; }
  TestApplication& application() { return application_; }

  std::int32_t given_department(const char* name, Variant parent = kNull);
  std::int32_t given_employee(const char* name, std::int32_t department);
  std::int32_t given_employee(const char* name);  // in a department of its own
  std::int32_t given_category(const char* name, const std::vector<Dated>& factors);
  std::int32_t given_constant(const char* code, const std::vector<Dated>& values);
  std::int32_t given_settings(const Settings& settings);
  void given_service(std::int32_t employee, Variant reached_on, Variant years, Variant months);
  std::int32_t given_position(const Position& position);
  std::int32_t given_user(const char* name, bool administrator = false);
  // The rights on a component as letters: v(iew), c(reate), d(elete), p(rint), w(rite); "" takes all away.
  void given_rights(std::int32_t user, const char* component, std::string_view letters);
  std::int32_t given_charge(std::int32_t employee, Variant from, Variant to, Variant sum);
  // Hours of January 2008, of the whole month or of a day.
  std::int32_t given_time(std::int32_t employee, std::int32_t code, double hours, Variant on = kNull);
  std::int32_t given_document(std::int32_t employee, const char* month = "2008.01.01");

  // A base tariff (type 1) of 130 with an hourly one (type 2) of 0,8, and settings from 2005 that name them, with a
  // scale of 3 % from the 3rd year and 5 % from the 5th to the 10th.
  void given_tariffs();
  // The work-time codes 1 FD (basic), 2 VD, 3 L and 5 PV.
  void given_time_codes();

  // The answer of a request, one row behind the other: "1;A lygis;9,7 | 2;…"; or what went wrong.
  std::string get(const std::string& name, const std::string& parameter);
  // The record set of a request that works.
  std::shared_ptr<Recordset> rows(const std::string& name, const std::string& parameter = "None");

  // Acts before each statement of `work` once, all of `work` done anew for each; `look` is told after every time.
  void act_between_statements(const std::function<void()>& act, const std::function<void()>& work,
                              const std::function<void(std::uint64_t n)>& look);
  // Every statement from the n-th from now fails with `text`.
  void fail_statements(std::uint64_t n = 1, const char* text = "ryšys nutrūko");
  void heal() { database().set_fault({}); }

 private:
  std::int32_t insert(const std::string& table, const std::string& columns, std::vector<Variant> values);

  std::unique_ptr<CompanyPlace> place_;  // none in memory
  Company company_;
  TestApplication application_{company_,
                               {.title = "Testas",
                                .user = "testuotoja",
                                .today = Date::from_ymd(2008, 1, 31),
                                .edit_charge = edit_personal_charge,
                                .host_types = host_editors()}};
};

// The last day of January 2008 and others, short to write.
inline Date day(const char* text) { return parse_date(text); }

// The view of a record set as text, "1;A | 2;Null"; "" without rows. The cursor is past the last row then.
std::string rows_text(Recordset& rows);
// A result as text: its value ("Empty" for none), behind its Message if there is one; a failure as "[777: text]".
std::string result_text(const MethodResult& result);
// An engine method's result as text, or the kind of the error that it throws.
std::string called(QuorObjectUIO& engine, const std::string& method, const Parameters& parameters);

}  // namespace quor
