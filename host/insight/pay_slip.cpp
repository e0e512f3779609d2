#include "host/insight/pay_slip.h"

namespace quor {

namespace {

void add_line(ReportData& slip, const std::string& what, const std::string& value, const std::string& words, bool red) {
  const CellColour colour = red ? CellColour::kRed : CellColour::kNormal;
  for (const std::string& text : {what, value, words}) slip.cells.push_back({text, colour});
  ++slip.lines;
}

// Without the sign that stands between the value and its words in a sentence.
std::string words_of(const ExplainedAmount& amount) {
  std::string text;
  for (const Phrase& phrase : amount.words) text += phrase.text;
  for (const char* sign : {" = ", ": "}) {
    if (text.starts_with(sign)) return text.substr(std::string_view(sign).size());
  }
  return text;
}

}  // namespace

ReportData pay_slip(const Explanation& explanation, const std::string& office) {
  ReportData slip{.title = "Atsiskaitymo lapelis"};
  for (const std::string& heading :
       {office, explanation.person, explanation.month.text() + " mėnuo", document_text(explanation)}) {
    if (!heading.empty()) slip.headings.push_back(heading);
  }
  slip.columns = {{.key = "What", .caption = "Kas", .width = 4.6},
                  {.key = "Value", .caption = "Dydis", .width = 2.6, .alignment = CellAlignment::kRight},
                  {.key = "Words", .caption = "Kaip apskaičiuota", .width = 11.2}};
  for (const ExplainedAmount& amount : explanation.amounts) {
    add_line(slip, amount.what, amount.value, words_of(amount), amount.warns);
  }
  if (!explanation.fault.empty()) add_line(slip, "Neapskaičiuota", "", explanation.fault, true);
  for (const std::string& refused : explanation.refused) add_line(slip, "Nepaaiškinta", "", refused, true);
  return slip;
}

}  // namespace quor
