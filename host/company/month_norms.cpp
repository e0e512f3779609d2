#include "host/company/month_norms.h"

#include "host/company/closed_reach.h"
#include "host/company/working_days.h"
#include "host/store/object_codes.h"
#include "host/store/tables/column_values.h"
#include "host/store/tables/stored_tables.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr char kTable[] = "month_norms";

std::string norm_text(const std::optional<double>& hours) { return hours ? general_text(*hours) : "nėra"; }

void refuse_unfit(const Month& month, double hours) {
  const std::string fault = value_fault(stored_column(kTable, "hours"), hours, general_text(hours));
  if (!fault.empty()) throw StoreError(StoreFault::kRefused, "Mėnesio " + month.text() + " norma: " + fault + ".");
}

void refuse_changed(const Month& month, const std::optional<double>& stored) {
  throw StoreError(
      StoreFault::kChangedElsewhere,
      "Mėnesio " + month.text() + " normą tuo metu pakeitė kitas vartotojas: dabar " + norm_text(stored) + ".");
}

void store(Database& database, const Month& month, const std::optional<double>& hours) {
  database.execute("DELETE FROM month_norms WHERE month = :p0", {month.first_day()});
  if (!hours) return;
  database.execute("INSERT INTO month_norms (month, hours) VALUES (:p0, :p1)", {month.first_day(), *hours});
}

}  // namespace

Month month_of_year(int year, std::size_t at) { return Month::of(Date::from_ymd(year, static_cast<int>(at) + 1, 1)); }

double norm_hours(Database& database, const Month& month) {
  const auto norm = database.read("SELECT hours FROM month_norms WHERE month = :p0", {{"Hours", FieldType::kDouble}},
                                  {month.first_day()});
  if (norm->RecordCount() > 0) return norm->number({0});
  return working_days(month.first_day(), month.last_day()) * kHoursOfWorkingDay;
}

YearNorms read_year_norms(Database& database, int year) {
  const auto rows = database.read("SELECT month, hours FROM month_norms WHERE month BETWEEN :p0 AND :p1",
                                  {{"Month", FieldType::kDate}, {"Hours", FieldType::kDouble}},
                                  {Date::from_ymd(year, 1, 1), Date::from_ymd(year, 12, 31)});
  YearNorms norms;
  for (; !rows->Eof(); rows->MoveNext()) {
    norms[static_cast<std::size_t>(rows->field("Month").to_date().month() - 1)] = rows->field("Hours").to_double();
  }
  return norms;
}

void store_year_norms(QuorApplication& application, Company& company, int year, const YearNorms& read,
                      const YearNorms& wanted) {
  if (!application.HasRight(UserRight::kWrite, kNormType, 0)) {
    throw StoreError(StoreFault::kRefused, "Neturite teisės keisti mėnesių normų.");
  }
  for (std::size_t at = 0; at < wanted.size(); ++at) {
    if (wanted[at] && wanted[at] != read[at]) refuse_unfit(month_of_year(year, at), *wanted[at]);
  }
  write_as_agreed(application, [&](const std::vector<Month>& agreed) {
    Database& database = company.database();
    Transaction transaction(database);
    ClosedReach reach(database, kTable);
    const YearNorms stored = read_year_norms(database, year);
    for (std::size_t at = 0; at < wanted.size(); ++at) {
      if (wanted[at] == read[at]) continue;
      const Month month = month_of_year(year, at);
      if (stored[at] != read[at]) refuse_changed(month, stored[at]);
      store(database, month, wanted[at]);
    }
    reach.require(agreed);
    transaction.commit();
  });
  company.forget();
}

}  // namespace quor
