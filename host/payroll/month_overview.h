// What the stored documents of a month say, for whoever looks at the month as a whole: everybody's pay, what changed
// since the month before, the fund of a year. Nothing is calculated here.
//
// Each answer is of one state of the company and takes a fixed number of statements, whatever the number of people.
// Sums are money in whole cents. Each throws StoreError, and Error when the user may not view the salary extension.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/document_limits.h"
#include "platform/data/month.h"

namespace quor {

struct Pay {
  double base = 0;
  double supplements = 0;
  double surcharges = 0;

  double total() const;
  // To the cent: sums of cents carry a binary tail.
  Pay& operator+=(const Pay& other);
  bool operator==(const Pay&) const = default;
};
Pay operator-(const Pay& now, const Pay& before);

struct PersonPay {
  std::int32_t employee = 0;
  std::string sort_key = {};  // of the name, as the store keeps it
  std::string name;
  std::string department;  // of today
  bool has_document = false;
  Pay pay = {};
  bool over_limit = false;
  ChargeLimits limits = {};  // that the document was held to
  std::string check;         // what the check of the document said; "" of one within the limits
  std::string fault;         // why the last calculation left the person out; "" when it did not
};

// Everybody with a document of the month or a fault in it, in alphabetical order; of the department with those below
// it, or of all.
std::vector<PersonPay> pay_of_month(Application& application, const Month& month,
                                    std::optional<std::int32_t> department = {});

struct DepartmentPay {
  std::string department;
  std::int32_t people = 0;
  std::int32_t over_limit = 0;
  Pay pay = {};
};
// The people by department, in the order of the departments' names.
std::vector<DepartmentPay> by_department(const std::vector<PersonPay>& people);

enum class PayChange { kNone, kJoined, kLeft, kChanged };
struct PersonDifference {
  PersonPay person;  // as now; who has left, as before
  Pay before = {};
  Pay now = {};
  PayChange change = PayChange::kNone;
};
// All three in alphabetical order; who has no document in a month was not paid in it.
std::vector<PersonDifference> pay_differences(const std::vector<PersonPay>& before, const std::vector<PersonPay>& now);

// January to December.
std::array<Pay, 12> fund_of_year(Application& application, int year);

struct MonthPay {
  Month month;
  Pay pay;
};
// The months in which the person has a document, the earliest first.
std::vector<MonthPay> pay_of_person(Application& application, std::int32_t employee);

struct DatedFactor {
  Date from;
  double factor;
};
// The earliest first; rows without a date or a factor never hold. Asks to view categories.
std::vector<DatedFactor> factors_of_category(Application& application, std::int32_t category);

}  // namespace quor
