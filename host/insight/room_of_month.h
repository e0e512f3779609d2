// What may still be given to everybody in a month, and by department: calculated without storing.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/insight/room_left.h"
#include "host/payroll/month_calculation.h"

namespace quor {

struct PersonRoom {
  std::int32_t employee = 0;
  std::string name;
  std::string department = {};  // of today
  Pay pay = {};
  RoomLeft left = {};
};

// Sums of the people's rooms; who is held by no limit is counted apart.
struct DepartmentRoom {
  std::string department = {};
  std::int32_t people = 0;
  std::int32_t unlimited = 0;
  std::int32_t over = 0;
  double supplements = 0;
  double surcharges = 0;
  double both = 0;

  DepartmentRoom& operator+=(const DepartmentRoom& other);
  void add(const RoomLeft& left);
};

struct MonthRoom {
  std::vector<PersonRoom> people;  // in alphabetical order
  std::vector<PersonFault> faults;
  ChargeLimits limits = {};
  bool cancelled = false;  // the people until then
};

// Throws as calculate_people does, and quor::Error when the user may not view the salary extension.
MonthRoom room_of_month(Application& application, const Month& month, const MonthOptions& options);

// In the order of the departments' names.
std::vector<DepartmentRoom> room_by_department(const std::vector<PersonRoom>& people);

}  // namespace quor
