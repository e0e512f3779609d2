// Lithuania's public holidays, and what a month's norm of working hours would be by them.
#pragma once

#include <vector>

#include "platform/data/month.h"

namespace quor {

struct PublicHoliday {
  Date day;
  const char* name;
};

// The Sunday by the Gregorian reckoning.
Date easter_sunday(int year);
// In the order of their days: those that are holidays by law in that year. Two may fall on one day. Before 1990: none.
std::vector<PublicHoliday> public_holidays(int year);

struct ProposedNorm {
  int working_days;                     // Mondays to Fridays that are no holidays
  std::vector<PublicHoliday> holidays;  // of the month
  int shortened_days;                   // working days on the eve of a holiday, also of the next month's
  double hours;                         // eight a working day; an hour less on each shortened one when these are
};
ProposedNorm proposed_norm(const Month& month, bool shorten);

}  // namespace quor
