// What the month's window shows of people, departments and the month before, as rows of its lists.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/payroll/month_overview.h"
#include "platform/toolkit/chart.h"
#include "platform/toolkit/list_view.h"

namespace quor {

enum class MonthShow { kAll, kFaults, kOverLimit, kChanged };

std::vector<ListColumn> people_columns();
// Those of them that are to be shown; `changed` are those whose pay the last calculation has changed. A row's tag is
// the person's key.
void show_people(ListView& list, const std::vector<PersonPay>& people, MonthShow show,
                 const std::set<std::int32_t>& changed);

std::vector<ListColumn> department_columns();
// The people by department, with a last row of all sums.
void show_departments(ListView& list, const std::vector<PersonPay>& people);

std::vector<ListColumn> difference_columns();
// Who joined, left or is paid another sum, and a last row of all differences.
void show_differences(ListView& list, const std::vector<PersonDifference>& differences);

ChartData fund_chart(int year, const std::array<Pay, 12>& fund);

std::string money_text(double sum);  // "1260,00"; "" for nothing

}  // namespace quor
