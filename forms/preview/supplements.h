// What a person's extra charges of a month come to. Pure rules.
#pragma once

#include <optional>
#include <string_view>

namespace velmora {

// A personal extra charge: a sum, or a percentage when the sum is 0.
struct ExtraCharge {
  bool of_service = false;  // its percentage is the one for the years of service, not its own
  double sum = 0;
  double percentage = 0;

  bool by_percentage() const { return sum == 0; }
};

// The number in a salary cell; none in a blank one. Throws TypeMismatch for a text that is no number.
std::optional<double> salary_in_cell(std::string_view text);

// What the charge comes to: without a percentage its sum, else the percentage of the salary in cents, a half going up;
// a sum gives way to a percentage. Without a salary `previous`, the amount of the person's charge before (at first 0).
double charge_amount(double sum, double percentage, std::optional<double> salary, double previous);

}  // namespace velmora
