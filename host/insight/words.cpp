#include "host/insight/words.h"

#include "platform/data/number_text.h"

namespace quor {

std::string amount_text(double amount) {
  const std::string all = general_text(amount);
  const std::size_t sign = all.find(kSystem.decimal_sign);
  const bool cents = all.find('E') == std::string::npos && (sign == std::string::npos || all.size() - sign <= 3);
  return cents ? fixed_text(amount, 2) : all;
}

std::string hours_text(double hours) { return general_text(hours) + " val."; }
std::string percentage_text(double percentage) { return general_text(percentage) + " %"; }

Words& Words::say(std::string text) {
  amount_.words.push_back({std::move(text)});
  return *this;
}

Words& Words::link(ExplainedAmount input, const std::string& mention) {
  std::string text = mention;
  if (text.empty()) text = input.source ? sentence_of(input) : input.what + " " + input.value;
  amount_.words.push_back({std::move(text), amount_.inputs.size()});
  return keep(std::move(input));
}

Words& Words::keep(ExplainedAmount input) {
  amount_.inputs.push_back(std::move(input));
  return *this;
}

std::string sentence_of(const ExplainedAmount& amount) {
  std::string text = amount.what + " " + amount.value;
  for (const Phrase& phrase : amount.words) text += phrase.text;
  return text;
}

}  // namespace quor
