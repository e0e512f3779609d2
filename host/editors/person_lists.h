// How the lists of an employee's card look: columns, and rows from what a person's services answer.
#pragma once

#include <vector>

#include "host/payroll/person_pay.h"
#include "host/payroll/person_positions.h"
#include "platform/toolkit/list_view.h"

namespace quor {

std::vector<ListColumn> position_columns();
std::vector<ListColumn> charge_columns();
std::vector<ListColumn> worked_time_columns();
std::vector<ListColumn> paid_hours_columns();
std::vector<ListColumn> paid_sums_columns();

// Each takes the place of all rows. What does not hold on the day is grey.
void show_positions(ListView& list, const std::vector<PersonPosition>& positions, Date day);
// `charges` is the answer of "GetPersonalExtraCharges"; tags are the charges' GUIDs. `codes` is that of
// "GetSalaryCodes"; either may be null.
void show_charges(ListView& list, Recordset* charges, Recordset* codes, Date day);
void show_worked_time(ListView& list, const std::vector<WorkedHours>& worked, const Month& month);
void show_paid_hours(ListView& list, const PaidMonth& pay);
// The sums, what they come to, and in red what is against them.
void show_paid_sums(ListView& list, const PaidMonth& pay);

}  // namespace quor
