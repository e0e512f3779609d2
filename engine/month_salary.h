// The month salary of a civil servant: base tariff by factor, rounded to a multiple of five, by the share of the post.
#pragma once

namespace velmora {

// `tariff` in money, `factor` of the position category, `share` of a full post; the result has two decimals.
// Whole-number rounding and the cents round half to even after 0.00001 is added, so that a half goes up.
// Throws Overflow when the product is no finite number.
double month_salary(double tariff, double factor, double share);

// A whole amount to a multiple of five by its last digit as text: 1 and 2 fall to 0, 3, 4, 6 and 7 go to 5, 8 and 9
// rise to 10. The digit is taken and applied literally, also for negative amounts.
double to_multiple_of_five(double amount);

}  // namespace velmora
