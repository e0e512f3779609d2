#include "host/exchange/cell_values.h"

#include <optional>
#include <unicode/ustring.h>

#include "host/text/plain_values.h"

namespace quor {

namespace {

// Text that both databases keep: valid UTF-8 without a zero character.
bool storable(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF8(nullptr, 0, nullptr, text.data(), static_cast<std::int32_t>(text.size()), &status);
  return status != U_INVALID_CHAR_FOUND && text.find('\0') == std::string_view::npos;
}

std::optional<Date> first_day(const std::optional<Month>& month) {
  return month ? std::optional(month->first_day()) : std::nullopt;
}

template <typename T>
ParsedCell parsed(const std::optional<T>& value, std::string_view text, const std::string& what) {
  if (value) return {*value, {}};
  return {{}, "„" + std::string(storable(text) ? text : "?") + "“ nėra " + what};
}

}  // namespace

ParsedCell parse_cell(ColumnKind type, std::string_view text) {
  switch (type) {
    case ColumnKind::kId: {
      const auto id = parse_plain_whole(text);
      const bool fits = id && kStoredId.holds(*id);
      return parsed(fits ? id : std::nullopt, text, "ID (sveikasis skaičius " + kStoredId.text() + ")");
    }
    case ColumnKind::kWhole:
      return parsed(parse_plain_whole(text), text, "sveikasis skaičius");
    case ColumnKind::kFlag: {
      const auto flag = parse_plain_whole(text);
      return parsed(flag == 0 || flag == 1 ? flag : std::nullopt, text, "0 arba 1");
    }
    case ColumnKind::kNumber:
      return parsed(parse_plain_number(text), text, "skaičius");
    case ColumnKind::kDate:
      return parsed(parse_plain_day(text), text, "data (rašykite, pvz., 2008-01-31)");
    case ColumnKind::kMonth:
      return parsed(first_day(Month::try_parse(text)), text, "mėnuo (rašykite, pvz., 2008-01)");
    case ColumnKind::kDayOrMonth:
      if (const auto month = Month::try_parse(text)) return {Variant(plain_month(*month)), {}};
      return parsed(parse_plain_day(text), text, "nei diena (2008-01-31), nei mėnuo (2008-01)");
    case ColumnKind::kTimeCode:
    case ColumnKind::kText:
      break;
  }
  if (!storable(text)) return {{}, "tekstas ne UTF-8 koduotės"};
  return {Variant(unguarded(text)), {}};
}

std::string cell_text(ColumnKind type, const Variant& value, const CsvStyle& style) {
  if (value.kind() == Variant::Kind::kDouble) return plain_number(value.to_double(), style.decimal_comma);
  if (value.kind() != Variant::Kind::kDate) return value.to_text();
  return type == ColumnKind::kMonth ? plain_month(Month::of(value.to_date())) : plain_day(value.to_date());
}

Date month_of_cell(const Variant& value) {
  if (value.kind() == Variant::Kind::kDate) return Month::of(value.to_date()).first_day();
  return first_day(Month::try_parse(value.to_text())).value_or(Date());
}

std::string key_text(const StoredTable& table, const StoredTable::Names& key, const std::vector<Variant>& cells) {
  std::string text;
  for (const std::string_view name : key) {
    const std::size_t column = table.column(name);
    text += cell_text(table.columns[column].kind, cells[column]);
    text += '\0';  // stands in no value
  }
  return text;
}

std::string key_words(const StoredTable& table, const StoredTable::Names& key, const std::vector<Variant>& cells) {
  std::string text;
  for (const std::string_view name : key) {
    const std::size_t at = table.column(name);
    const StoredColumn& column = table.columns[at];
    const std::string_view words = column.caption;
    text += (text.empty() ? "" : ", ") + std::string(words) + " " + cell_text(column.kind, cells[at]);
  }
  return text;
}

}  // namespace quor
