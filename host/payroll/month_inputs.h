// What a month is calculated from, read in bulk: who is in force, what each has worked, which charges hold. A stored
// value outside its range is the fault of whose it is, and of nobody else.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/company/company.h"
#include "host/requests/rows_of_people.h"
#include "platform/data/month.h"

namespace quor {

struct PositionInput {
  std::int32_t id;
  std::string key;  // contract and norm GUID joined: how the engine finds the position
  double share;
  Date from, to;  // in force, cut to the month
};

struct WorkedTime {
  std::int32_t time_code;
  double hours;
  std::optional<Date> day;  // none: hours of the whole month
};

struct ChargeInput {
  std::int32_t id;
  double sum;
  double percentage;
  std::string salary_extra_oid;  // eight characters or more: tied to the length-of-service supplement
  std::int32_t salary_code;
};

struct PersonInput {
  std::int32_t employee;
  std::string name;
  std::vector<PositionInput> positions = {};  // at least one
  std::vector<WorkedTime> worked = {};
  std::vector<ChargeInput> charges = {};
  std::string fault = {};  // the stored value for which the person cannot be calculated; "" without one
};

// Whom a calculation is about.
struct Whom {
  std::optional<std::int32_t> department = {};  // with its sub-departments; none: everybody
  std::vector<std::int32_t> people = {};        // these alone; none: everybody

  bool everybody() const { return !department && people.empty(); }
};

struct MonthInputs {
  std::int64_t count;  // the state that all of it is of, see Database::pay_inputs_count
  double norm_hours;
  std::int32_t basic_time_code;            // 0 when the company has no code "FD"
  std::set<std::int32_t> surcharge_codes;  // time codes that the settings in force list
  std::string fault;                       // for which nobody can be calculated; "" without one
  std::vector<PersonInput> people;         // by employee ID
  std::shared_ptr<Recordset> alphabet;     // ID: at least these people, in alphabetical order
  // Of a few chosen people: what the engine is to find of them where it asks about everybody. Null for more.
  std::shared_ptr<const requests::RowsOfPeople> few;
};

// Who of them has a position in force on a day of the month. Belongs into a Snapshot. A fixed number of statements;
// a few chosen people cost the same in a company of any size. Throws StoreError, and quor::Error for an unknown
// department.
MonthInputs read_month_inputs(Company& company, const Month& month, const Whom& whom);

}  // namespace quor
