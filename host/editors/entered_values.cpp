#include "host/editors/entered_values.h"

#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

std::string trimmed(const std::string& text) {
  constexpr char kBlanks[] = " \t";
  const std::size_t from = text.find_first_not_of(kBlanks);
  return from == std::string::npos ? "" : text.substr(from, text.find_last_not_of(kBlanks) - from + 1);
}

std::string quoted_value(const std::string& what, const std::string& text) { return what + ": „" + text + "“ "; }

}  // namespace

void EnteredValues::refuse(const Control& where, std::string fault) { faults_.push_back({&where, std::move(fault)}); }

std::optional<std::string> EnteredValues::optional_text(const TextBox& box, const std::string& what) {
  std::string text = trimmed(box.text());
  if (text.empty()) return {};
  if (character_count(text) > kLongestText) {
    refuse(box, what + ": tekstas ilgesnis kaip " + std::to_string(kLongestText) + " ženklų.");
  }
  return text;
}

std::optional<Date> EnteredValues::optional_date(const TextBox& box, const std::string& what) {
  const std::string text = trimmed(box.text());
  if (text.empty()) return {};
  const auto date = try_parse_date(text);
  if (!date) {
    refuse(box, quoted_value(what, text) + "nėra data: rašykite metus, mėnesį ir dieną, pavyzdžiui, 2008.01.31.");
  } else if (!is_stored_date(*date)) {
    refuse(box, quoted_value(what, text) + "– leidžiama " + stored_dates_text() + ".");
  }
  return date ? std::optional(date->without_time()) : std::nullopt;
}

std::optional<double> EnteredValues::optional_number(const TextBox& box, const std::string& what,
                                                     const NumberRange& range) {
  const std::string text = trimmed(box.text());
  if (text.empty()) return {};
  if (!is_numeric(text)) {
    refuse(box, quoted_value(what, text) + "nėra skaičius.");
    return {};
  }
  const double number = parse_number(text);
  if (!range.holds(number)) refuse(box, quoted_value(what, text) + "– leidžiama " + range.text() + ".");
  return number;
}

// A blank box alone is not filled in; a box with a fault has its fault already.
template <typename Value>
Value EnteredValues::required(std::optional<Value> value, const TextBox& box, const std::string& what) {
  if (!value && trimmed(box.text()).empty()) refuse(box, what + ": neįrašyta.");
  return value.value_or(Value());
}

std::string EnteredValues::text(const TextBox& box, const std::string& what) {
  return required(optional_text(box, what), box, what);
}

Date EnteredValues::date(const TextBox& box, const std::string& what) {
  return required(optional_date(box, what), box, what);
}

double EnteredValues::number(const TextBox& box, const std::string& what, const NumberRange& range) {
  return required(optional_number(box, what, range), box, what);
}

void EnteredValues::in_order(std::optional<Date> from, std::optional<Date> to, const TextBox& end) {
  if (!from || !to || *from <= *to) return;
  refuse(end, "Pabaiga „" + date_text(*to) + "“ ankstesnė už pradžią „" + date_text(*from) + "“.");
}

bool EnteredValues::show_faults() {
  if (faults_.empty()) return false;
  std::string text;
  for (const Fault& fault : faults_) text += (text.empty() ? "" : kLineBreak) + fault.text;
  application_.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application_.Title());
  faults_.front().where->focus();
  return true;
}

}  // namespace quor
