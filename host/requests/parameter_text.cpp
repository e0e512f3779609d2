#include "host/requests/parameter_text.h"

#include <charconv>

#include "frame/contract/quor_main_bo.h"
#include "platform/data/error.h"

namespace quor {

void ParameterText::fail(std::string_view expected) const {
  throw Error(ErrorKind::kTypeMismatch,
              "Užklausos parametras „" + std::string(text_) + "“ netinka: laukiama " + std::string(expected) + ".");
}

void ParameterText::separator() {
  if (!first_) {
    if (position_ >= text_.size() || text_[position_] != ',') fail("kablelio tarp reikšmių");
    ++position_;
  }
  first_ = false;
}

std::string ParameterText::text() {
  separator();
  if (position_ >= text_.size() || text_[position_] != '\'') fail("teksto tarp apostrofų");
  std::string result;
  for (++position_; position_ < text_.size(); ++position_) {
    if (text_[position_] != '\'') {
      result += text_[position_];
    } else if (position_ + 1 < text_.size() && text_[position_ + 1] == '\'') {
      result += text_[position_++];
    } else {
      ++position_;
      return result;
    }
  }
  fail("uždarančio apostrofo");
}

Date ParameterText::date() {
  const auto date = try_parse_date(text());
  if (!date) fail("datos tarp apostrofų, pvz., '2008.01.31'");
  return *date;
}

std::int32_t ParameterText::whole() {
  separator();
  std::int32_t value = 0;
  const char* const begin = text_.data() + position_;
  const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), value);
  if (error != std::errc()) fail("sveikojo skaičiaus");
  position_ += static_cast<std::size_t>(end - begin);
  return value;
}

std::vector<std::int32_t> ParameterText::whole_list() {
  const std::string list = text();
  std::vector<std::int32_t> values;
  const char* at = list.data();
  const char* const list_end = at + list.size();
  while (at != list_end) {
    if (*at == ',') {
      ++at;
      continue;
    }
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(at, list_end, value);
    if (error != std::errc() || (end != list_end && *end != ',')) fail("skaičių sąrašo, pvz., ',12,15,'");
    values.push_back(value);
    at = end;
  }
  return values;
}

void ParameterText::none() {
  if (text_ != kNoParameter) fail("žodžio „None“: ši užklausa parametrų neturi");
  position_ = text_.size();
}

void ParameterText::end() {
  if (position_ != text_.size()) fail("parametro pabaigos");
}

}  // namespace quor
