// The month salary of a position, for lists of everybody.
//
// What is paid, the salary engine of the plug-in decides ("GetMonthSalaryValue"). The store keeps no month salary: a
// document holds what the worked part of the month comes to. A list is answered by the business object alone, whether a
// plug-in is loaded or not; so the rule stands here once more, and a test holds both to the same cent.
#pragma once

namespace quor {

// `tariff` by `factor` in whole money, a half going up; its last digit 1 or 2 falls to 0, 3, 4, 6 and 7 go to 5, 8 and
// 9 rise to 10; then by `share` of a full post in cents, a half going up. For amounts of money that are not negative.
// Throws Overflow when the product is no finite number.
double position_salary(double tariff, double factor, double share);

}  // namespace quor
