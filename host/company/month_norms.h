// The norms of working hours of a year's months, as a clerk keeps them: a year at a time.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "host/company/company.h"
#include "platform/data/month.h"

namespace quor {

// By month, January first; none: nothing is stored, and the month has its Mondays to Fridays by eight hours.
using YearNorms = std::array<std::optional<double>, 12>;

Month month_of_year(int year, std::size_t at);  // 0 is January

// The hours of one month, stored or not.
double norm_hours(Database& database, const Month& month);

YearNorms read_year_norms(Database& database, int year);

// Stores what `wanted` changes in `read`, all or nothing. What reaches into a closed month is asked about first. Throws
// StoreError: the user may not, hours that no month holds, a norm that somebody else has changed since it was read.
void store_year_norms(QuorApplication& application, Company& company, int year, const YearNorms& read,
                      const YearNorms& wanted);

}  // namespace quor
