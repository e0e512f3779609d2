#include "host/payroll/closed_months.h"

#include <algorithm>

#include "host/payroll/closed_month_guard.h"
#include "host/payroll/last_calculation.h"
#include "host/payroll/month_comparison.h"
#include "host/store/record_guard.h"
#include "host/store/tables/statements.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/error.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

constexpr int kAttempts = 3;

void require_reason(const std::string& reason) {
  const auto control = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  if (reason.find_first_not_of(' ') == std::string::npos) throw Error(ErrorKind::kRefused, "Nenurodyta priežastis.");
  if (std::any_of(reason.begin(), reason.end(), control) || character_count(reason) > kLongestText) {
    throw Error(ErrorKind::kRefused,
                "Priežastis turi būti viena eilutė, ne ilgesnė kaip " + std::to_string(kLongestText) + " ženklų.");
  }
}

void require_not_closed(Database& database, const Month& month) {
  if (is_closed(database, month)) {
    throw Error(ErrorKind::kRefused, "Mėnuo " + month.text() + " jau uždarytas.");
  }
}

std::vector<std::string> names_of(const std::vector<NamedPerson>& people) {
  std::vector<std::string> names;
  for (const NamedPerson& person : people) names.push_back(person.name);
  return names;
}

// What speaks against closing, a line each; "" when nothing does.
std::string objections(Database& database, const Month& month, const MonthComparison& found) {
  std::string text;
  const auto add = [&](const char* what, const std::vector<std::string>& names) {
    if (!names.empty())
      text += "\n" + std::string(what) + ": " + std::to_string(names.size()) + " (" + first_of(names) + ")";
  };
  if (!was_calculated(database, month)) return "\nmėnuo neapskaičiuotas";
  std::vector<std::string> faults;
  for (const PersonFault& fault : found.faults) faults.push_back(fault.person + ": " + fault.reason);
  add("žmonių be dokumento", names_of(found.missing));
  add("klaidų", faults);
  add("dokumentų, kurie pasikeistų", names_of(found.changed));
  add("dokumentų žmonių, kurie tą mėnesį nedirbo", names_of(found.ended));
  return text;
}

void note(Database& database, const Month& month, bool closed, const std::string& user, const std::string& at,
          const std::string& reason) {
  insert_row(database, "month_closings",
             {{"id", database.reserve_ids("month_closings")},
              {"month", month.first_day()},
              {"closed", closed ? 1 : 0},
              {"done_by", user},
              {"done_at", at},
              {"reason", reason}});
}

// Inside the open transaction. The newest document's settings answer for the month, if every document keeps its own.
void store_closing(Database& database, const Month& month, const std::string& user, const std::string& reason) {
  const std::string at = change_time();
  database.execute(
      "INSERT INTO closed_months (month, closed_by, closed_at, settings_guid, pay_inputs) VALUES (:p0, :p1, :p2,"
      " (SELECT d.settings_guid FROM documents d WHERE d.month = :p0 AND NOT EXISTS (SELECT 1 FROM documents o"
      " WHERE o.month = :p0 AND o.settings_guid IS NULL) ORDER BY d.id DESC LIMIT 1),"
      " (SELECT value FROM counters WHERE name = 'pay_inputs'))",
      {month.first_day(), user, at});
  note(database, month, true, user, at, reason);
}

// False when others have written something that was compared.
bool close_if_ready(Application& application, const Month& month, const MonthOptions& options) {
  Database& database = application.company().database();
  const MonthStamp before = month_stamp(database, month);
  const MonthComparison found = compare_month(application, month, options);
  if (found.cancelled)
    throw Error(ErrorKind::kRefused, "Mėnuo " + month.text() + " neuždarytas: tikrinimas nutrauktas.");
  if (const std::string against = objections(database, month, found); !against.empty()) {
    throw MonthNotReady("Mėnesio " + month.text() + " uždaryti negalima:" + against);
  }
  Transaction transaction(database, Writes::kOther);
  require_not_closed(database, month);
  if (month_stamp(database, month) != before) return false;
  store_closing(database, month, application.user(), "");
  transaction.commit();
  return true;
}

}  // namespace

void close_month(Application& application, const Month& month, const std::optional<std::string>& despite,
                 const MonthOptions& watching) {
  application.guard().require_administrator("uždaryti mėnesio");
  Company& company = application.company();
  Database& database = company.database();
  if (despite) {
    require_reason(*despite);
    Transaction transaction(database, Writes::kOther);
    require_not_closed(database, month);
    store_closing(database, month, application.user(), *despite);
    transaction.commit();
  } else {
    company.refresh();
    require_not_closed(database, month);
    int attempt = 1;
    const MonthOptions options{.progress = watching.progress, .cancelled = watching.cancelled};
    while (!close_if_ready(application, month, options)) {
      if (++attempt > kAttempts) {
        throw StoreError(StoreFault::kChangedElsewhere,
                         "Mėnuo " + month.text() +
                             " neuždarytas: duomenys tuo metu keičiami. Pakartokite, kai niekas nieko neįrašinės.");
      }
    }
  }
  company.forget();
}

void reopen_month(Application& application, const Month& month, const std::string& reason) {
  application.guard().require_administrator("atverti uždaryto mėnesio");
  require_reason(reason);
  Database& database = application.company().database();
  Transaction transaction(database, Writes::kOther);
  if (database.execute("DELETE FROM closed_months WHERE month = :p0", {month.first_day()}) == 0) {
    throw Error(ErrorKind::kRefused, "Mėnuo " + month.text() + " nėra uždarytas.");
  }
  note(database, month, false, application.user(), change_time(), reason);
  transaction.commit();
  application.company().forget();
}

void delete_documents_of(Application& application, const Month& month) {
  application.guard().require_administrator("naikinti mėnesio dokumentų");
  Database& database = application.company().database();
  Transaction transaction(database, Writes::kOther);
  require_open(database, month);
  for (const char* rows : {"salary_rows", "time_rows", "document_positions"}) {
    database.execute(
        std::string("DELETE FROM ") + rows + " WHERE document_id IN (SELECT id FROM documents WHERE month = :p0)",
        {month.first_day()});
  }
  for (const char* table : {"documents", "month_faults", "month_runs"}) {
    database.execute(std::string("DELETE FROM ") + table + " WHERE month = :p0", {month.first_day()});
  }
  transaction.commit();
  application.company().forget();
}

std::vector<MonthClosing> closings_of(Database& database, const Month& month) {
  const auto rows = database.read(
      "SELECT closed, done_by, done_at, reason FROM month_closings WHERE month = :p0 ORDER BY id",
      {{"Closed", FieldType::kInt32}, {"By", FieldType::kText}, {"At", FieldType::kText}, {"Reason", FieldType::kText}},
      {month.first_day()});
  std::vector<MonthClosing> closings;
  for (; !rows->Eof(); rows->MoveNext()) {
    closings.push_back({rows->int32({0}) != 0, std::string(rows->text({1})), std::string(rows->text({2})),
                        std::string(rows->text({3}))});
  }
  return closings;
}

std::string first_of(const std::vector<std::string>& names) {
  constexpr std::size_t kNamed = 5;
  std::string text;
  for (std::size_t i = 0; i < std::min(kNamed, names.size()); ++i) text += (i == 0 ? "" : ", ") + names[i];
  return names.size() > kNamed ? text + " ir dar " + std::to_string(names.size() - kNamed) : text;
}

}  // namespace quor
