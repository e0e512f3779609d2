#include "host/editors/person_lists.h"

#include <algorithm>
#include <map>

#include "frame/contract/object_key.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr CellAlignment kRight = CellAlignment::kRight;
using Cells = std::vector<std::string>;

void add_row(ListView& list, const Cells& cells, const std::string& tag = "", CellColour colour = CellColour::kNormal) {
  const std::size_t row = list.add_row(cells.front(), tag);
  for (std::size_t column = 0; column < cells.size(); ++column) {
    if (column > 0) list.set_text(row, column, cells[column]);
    list.set_colour(row, column, colour);
  }
}

std::string text_of(const std::optional<double>& number) { return number ? general_text(*number) : ""; }
std::string text_of(const std::optional<Date>& date) { return date ? date_text(*date) : ""; }

CellColour colour_on(Date day, const std::optional<Date>& from, const std::optional<Date>& to) {
  const bool holds = !(from && day < *from) && !(to && *to < day);
  return holds ? CellColour::kNormal : CellColour::kGreyText;
}

std::optional<Date> date_in(const Variant& value) {
  return value.is_null() ? std::nullopt : std::optional(value.to_date());
}

std::string words_of(SumType type) {
  switch (type) {
    case SumType::kBasePay:
      return "Pareiginė alga";
    case SumType::kSupplement:
      return "Priedas";
    case SumType::kSurcharge:
      return "Priemoka";
  }
  return "";
}

void add_lines(ListView& list, const std::string& heading, const std::string& text) {
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t end = std::min(text.find('\n', from), text.size());
    std::string line = text.substr(from, end - from);
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) add_row(list, {from == 0 ? heading : "", line, "", ""}, "", CellColour::kRed);
    from = end + 1;
  }
}

}  // namespace

std::vector<ListColumn> position_columns() {
  return {{.key = "", .caption = "Kategorija", .width = 190},
          {.key = "Factor", .caption = "Koeficientas šiandien", .width = 95, .alignment = kRight},
          {.key = "Tariff", .caption = "Bazinė alga", .width = 150},
          {.key = "TariffValue", .caption = "Jos dydis šiandien", .width = 90, .alignment = kRight},
          {.key = "Share", .caption = "Etato dalis", .width = 70, .alignment = kRight},
          {.key = "DateFrom", .caption = "Nuo", .width = 82},
          {.key = "DateTo", .caption = "Iki", .width = 82}};
}

std::vector<ListColumn> charge_columns() {
  return {{.key = "", .caption = "Galioja nuo", .width = 82},
          {.key = "DateTo", .caption = "Galioja iki", .width = 82},
          {.key = "Code", .caption = "Darbo užmokesčio kodas", .width = 205},
          {.key = "Sum", .caption = "Suma", .width = 80, .alignment = kRight},
          {.key = "Percentage", .caption = "Procentas", .width = 90, .alignment = kRight},
          {.key = "Comment", .caption = "Pastaba", .width = 200}};
}

std::vector<ListColumn> worked_time_columns() {
  return {{.key = "", .caption = "Diena", .width = 120},
          {.key = "Code", .caption = "Laiko kodas", .width = 260},
          {.key = "Hours", .caption = "Valandos", .width = 90, .alignment = kRight}};
}

std::vector<ListColumn> paid_hours_columns() {
  return {{.key = "", .caption = "Laiko kodas", .width = 260},
          {.key = "Category", .caption = "Pareigybė", .width = 230},
          {.key = "Hours", .caption = "Valandos", .width = 90, .alignment = kRight}};
}

std::vector<ListColumn> paid_sums_columns() {
  return {{.key = "", .caption = "Rūšis", .width = 160},
          {.key = "About", .caption = "Už ką", .width = 330},
          {.key = "Percentage", .caption = "Procentas", .width = 90, .alignment = kRight},
          {.key = "Sum", .caption = "Suma", .width = 100, .alignment = kRight}};
}

void show_positions(ListView& list, const std::vector<PersonPosition>& positions, Date day) {
  const ListView::BulkChange bulk(list);
  list.clear();
  for (const PersonPosition& each : positions) {
    add_row(list,
            {each.category, text_of(each.factor), each.tariff.empty() ? "pagal nustatymus" : each.tariff,
             text_of(each.tariff_value), general_text(each.share), text_of(each.from), text_of(each.to)},
            each.key, colour_on(day, each.from, each.to));
  }
}

void show_charges(ListView& list, Recordset* charges, Recordset* codes, Date day) {
  const ListView::BulkChange bulk(list);
  list.clear();
  std::map<std::int32_t, std::string> code_texts;
  for (; codes != nullptr && !codes->Eof(); codes->MoveNext()) {
    code_texts[null_to_int32(codes->field("ID"))] =
        null_to_text(codes->field("Code")) + "  " + null_to_text(codes->field("Name"));
  }
  for (; charges != nullptr && !charges->Eof(); charges->MoveNext()) {
    const auto from = date_in(charges->field("DateFrom")), to = date_in(charges->field("DateTo"));
    const double sum = null_to_double(charges->field("SumA"));
    const bool tied = names_type(null_to_text(charges->field("SalaryExtraOID")));
    const std::string percentage =
        tied ? "pagal stažą" : general_text(null_to_double(charges->field("Percentage"))) + "%";
    add_row(list,
            {text_of(from), text_of(to), code_texts[null_to_int32(charges->field("SalaryCodeID"))],
             sum > 0 ? fixed_text(sum, 2) : "", sum > 0 ? "" : percentage, null_to_text(charges->field("Comment"))},
            null_to_text(charges->field("GUID")), colour_on(day, from, to));
  }
}

void show_worked_time(ListView& list, const std::vector<WorkedHours>& worked, const Month& month) {
  const ListView::BulkChange bulk(list);
  list.clear();
  for (const WorkedHours& each : worked) {
    add_row(list,
            {each.day ? date_text(*each.day) : month.text() + " (visas)", each.time_code, general_text(each.hours)});
  }
}

void show_paid_hours(ListView& list, const PaidMonth& pay) {
  const ListView::BulkChange bulk(list);
  list.clear();
  for (const PaidHours& each : pay.hours) add_row(list, {each.time_code, each.category, general_text(each.hours)});
}

void show_paid_sums(ListView& list, const PaidMonth& pay) {
  const ListView::BulkChange bulk(list);
  list.clear();
  for (const PaidSum& each : pay.sums) {
    add_row(list, {words_of(each.type), each.about, each.percentage == 0 ? "" : fixed_text(each.percentage, 2),
                   fixed_text(each.sum, 2)});
  }
  if (pay.has_document) {
    const std::pair<const char*, double> totals[] = {{"pareiginė alga", pay.sum_of(SumType::kBasePay)},
                                                     {"priedai", pay.sum_of(SumType::kSupplement)},
                                                     {"priemokos", pay.sum_of(SumType::kSurcharge)}};
    for (const auto& [words, sum] : totals) add_row(list, {"Iš viso", words, "", fixed_text(sum, 2)});
    add_row(list, {"Iš viso", "mokama", "", fixed_text(pay.total(), 2)});
  }
  add_lines(list, "Patikra", pay.check);
  add_lines(list, "Klaida", pay.fault);
}

}  // namespace quor
