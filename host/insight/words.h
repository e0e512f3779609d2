// How explanations are worded: numbers as a clerk reads them, and sentences with links in them.
#pragma once

#include <string>

#include "host/insight/explained_amount.h"

namespace quor {

// "1261,00"; all digits of what is no whole number of cents: "1265,3865".
std::string amount_text(double amount);
std::string hours_text(double hours);            // "168 val."
std::string percentage_text(double percentage);  // "7,5 %"

// Writes an amount's words behind each other.
class Words {
 public:
  explicit Words(ExplainedAmount& amount) : amount_(amount) {}

  Words& say(std::string text);
  // A link to the input, which becomes the amount's: `mention`, or without one what it is and its value, and all of it
  // of a stored value.
  Words& link(ExplainedAmount input, const std::string& mention = "");
  // An input that is not mentioned.
  Words& keep(ExplainedAmount input);

 private:
  ExplainedAmount& amount_;
};

}  // namespace quor
