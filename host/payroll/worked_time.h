// The worked time of a month, read to be shown and changed together, and written whole or not at all.
//
// Hours stand under a person, a time code and either the whole month or one of its days. Without a row nothing is said
// of them: an employee without any time has worked the norm.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "platform/data/month.h"

namespace quor {

struct TimeCode {
  std::int32_t id;
  std::string code;  // "FD"
  std::string name;
};

struct TimePerson {
  std::int32_t employee;
  std::string name;
};

// Where hours stand: `day` 0 is the whole month.
struct TimePlace {
  std::int32_t employee;
  std::int32_t code;
  int day;

  auto operator<=>(const TimePlace&) const = default;
};

struct TimeHours {
  TimePlace place;
  double hours;
};

struct MonthTime {
  bool closed = false;
  double norm = 0;              // hours of the month
  std::int32_t basic_code = 0;  // of time worked as usual; 0 when the company has none
  std::vector<TimeCode> codes;  // the basic one first, then by code
  // With a position in the month or time in it, in alphabetical order.
  std::vector<TimePerson> people;
  std::vector<TimeHours> hours;  // of these people
};

// Of the department with those below it, or of all. A fixed number of statements, of one state of the company. Throws
// StoreError, and Error when the user may not view the salary extension or the department is unknown.
MonthTime read_month_time(Application& application, const Month& month, std::optional<std::int32_t> department = {});

// What is to stand in a place instead of what was read there; none: no hours.
struct TimeChange {
  TimePlace place;
  std::optional<double> before;
  std::optional<double> after;
};

// All changes or none. Throws Error when the user may not write the salary extension, when the month is closed or an
// hour is out of its range, StoreError (kChangedElsewhere), naming the person, when others have changed one of these
// places.
void write_month_time(Application& application, const Month& month, const std::vector<TimeChange>& changes);

// All time of an open month. Throws as write_month_time does.
void delete_month_time(Application& application, const Month& month);

}  // namespace quor
