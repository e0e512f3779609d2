#include "host/store/tables/column_values.h"

#include <algorithm>

#include "host/store/object_codes.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

bool has_control_character(std::string_view text) {
  while (!text.empty()) {
    const char32_t character = take_character(text);
    if (character < 0x20 || (character >= 0x7F && character <= 0x9F)) return true;
  }
  return false;
}

// An ID as it is written back: no blanks, no sign, no leading zeros.
bool is_id(std::string_view text) {
  if (text.empty() || text.size() > 10 || text.front() == '0') return false;
  return text.find_first_not_of("0123456789") == std::string_view::npos &&
         kStoredId.holds(std::stod(std::string(text)));
}

std::string list_fault(std::string_view list) {
  for (std::size_t begin = 0; begin <= list.size() && !list.empty();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    const std::string_view piece = list.substr(begin, end - begin);
    if (!is_id(piece)) {
      return "„" + std::string(piece) + "“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40";
    }
    begin = end + 1;
  }
  return "";
}

std::string tie_fault(std::string_view text) {
  const std::string_view type = kSalaryExtensionType;
  if (text.empty() || (text.starts_with(type) && (text == type || is_id(text.substr(type.size()))))) return "";
  return "„" + std::string(text) + "“ – leidžiama palikti tuščią arba rašyti " + std::string(type);
}

std::string text_fault(TextForm form, std::string_view text) {
  if (form == TextForm::kProgramsOwn) return "";
  if (const std::size_t length = character_count(text); length > kLongestText) {
    return "teksto ilgis " + std::to_string(length) + " – leidžiama iki " + std::to_string(kLongestText) + " ženklų";
  }
  if (has_control_character(text)) return "tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas)";
  if (form == TextForm::kTimeCodeList) return list_fault(text);
  return form == TextForm::kServiceTie ? tie_fault(text) : "";
}

}  // namespace

std::string value_fault(const StoredColumn& column, const Variant& value, const std::string& written) {
  switch (value.kind()) {
    case Variant::Kind::kInt16:
    case Variant::Kind::kInt32:
    case Variant::Kind::kDouble:
      if (column.range == nullptr || column.range->holds(value.to_double())) return "";
      return written + " – leidžiama " + column.range->text();
    case Variant::Kind::kDate:
      return is_stored_date(value.to_date()) ? "" : written + " – leidžiama " + stored_dates_text();
    case Variant::Kind::kText:
      return text_fault(column.form, value.to_text());
    default:
      return "";
  }
}

bool same_value(const Variant& a, const Variant& b) {
  if (a.kind() != b.kind()) return false;
  if (a.kind() == Variant::Kind::kDouble) return a.to_double() == b.to_double();
  return null_to_text(a) == null_to_text(b);
}

}  // namespace quor
