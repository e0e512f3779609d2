#include "host/exchange/written_check.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <tuple>

#include "host/company/working_days.h"
#include "host/exchange/cell_values.h"
#include "host/exchange/time_codes.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/month.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr double kSameHours = 0.000001;  // sums of tenths of an hour carry a tail

const TableFile* find_file(const std::vector<TableFile>& files, std::string_view table) {
  const auto found =
      std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.table->name == table; });
  return found == files.end() ? nullptr : &*found;
}

// The first and the last month that the file has hours of.
std::pair<Date, Date> months_of(const TableFile& file, std::size_t date) {
  Date first = last_stored_date(), last = first_stored_date();
  for (const FileRow& row : file.rows) {
    first = std::min(first, month_of_cell(row.cells[date]));
    last = std::max(last, month_of_cell(row.cells[date]));
  }
  return {first, last};
}

}  // namespace

WrittenCheck::WrittenCheck(Database& database, const std::vector<TableFile>& files)
    : database_(database), files_(files) {
  if (find_file(files_, "constant_values") == nullptr) return;
  gaps_before_ = tariff_gaps(database_);
  const auto values =
      database_.read("SELECT id, constant_type_id, date_from FROM constant_values",
                     {{"ID", FieldType::kInt32}, {"Tariff", FieldType::kInt32}, {"DateFrom", FieldType::kDate}});
  for (; !values->Eof(); values->MoveNext()) {
    values_before_[values->int32(FieldHandle{0})] = {values->int32(FieldHandle{1}),
                                                     values->field(FieldHandle{2}).to_date()};
  }
}

std::vector<ImportFault> WrittenCheck::check(const TableFile& file, std::vector<ImportFault>& faults) {
  std::vector<ImportFault> warnings;
  const std::string_view table = file.table->name;
  if (table == "constant_values") check_tariff_values(file, faults);
  if (table == "settings") {
    check_versions(file, faults);
    check_code_lists(file, warnings);
  }
  if (table == "worked_time" && !file.rows.empty()) {
    check_months(file, faults, warnings);
    check_days(file, warnings);
  }
  return warnings;
}

void WrittenCheck::check_months(const TableFile& file, std::vector<ImportFault>& faults,
                                std::vector<ImportFault>& warnings) {
  const std::size_t employee = file.table->column("employee_id"), date = file.table->column("date"),
                    code = file.table->column("time_code");
  const auto [first, last] = months_of(file, date);
  const auto sums = database_.read(
      "SELECT employee_id, month, time_code_id, SUM(hours) FROM worked_time WHERE month BETWEEN :p0 AND :p1"
      " GROUP BY employee_id, month, time_code_id",
      {{"Employee", FieldType::kInt32},
       {"Month", FieldType::kDate},
       {"Code", FieldType::kInt32},
       {"Hours", FieldType::kDouble}},
      {first, last});
  std::map<std::tuple<std::int32_t, Date, std::int32_t>, double> too_many;
  for (; !sums->Eof(); sums->MoveNext()) {
    const Date month = sums->field("Month").to_date();
    const double hours = sums->field("Hours").to_double();
    if (hours > norm_of(month) + kSameHours) {
      too_many[{sums->int32(FieldHandle{0}), month, sums->int32(FieldHandle{2})}] = hours;
    }
  }
  const TimeCodes codes(database_);
  for (const FileRow& row : file.rows) {
    const auto sum =
        too_many.find({row.cells[employee].to_int32(), month_of_cell(row.cells[date]), row.cells[code].to_int32()});
    if (sum == too_many.end()) continue;
    const auto& [person, month, code_id] = sum->first;
    const double hours = sum->second;
    const std::string text = "kodo " + codes.text(code_id) + " valandų per mėnesį iš viso " + general_text(hours);
    if (hours > kHoursOfMonth.high + kSameHours) {
      file.add_fault(faults, row, "hours", text + " – leidžiama " + kHoursOfMonth.text());
    } else {
      file.add_fault(warnings, row, "hours", text + ", o mėnesio norma " + general_text(norm_of(month)));
    }
    too_many.erase(sum);
  }
}

void WrittenCheck::check_days(const TableFile& file, std::vector<ImportFault>& warnings) {
  const std::size_t employee = file.table->column("employee_id"), date = file.table->column("date");
  const auto [first, last] = months_of(file, date);
  const auto sums = database_.read(
      "SELECT employee_id, day, SUM(hours) FROM worked_time WHERE month BETWEEN :p0 AND :p1 AND day IS NOT NULL"
      " GROUP BY employee_id, day HAVING SUM(hours) > :p2",
      {{"Employee", FieldType::kInt32}, {"Day", FieldType::kDate}, {"Hours", FieldType::kDouble}},
      {first, last, kHoursOfDay.high + kSameHours});
  std::map<std::pair<std::int32_t, Date>, double> too_many;
  for (; !sums->Eof(); sums->MoveNext()) {
    too_many[{sums->int32(FieldHandle{0}), sums->field("Day").to_date()}] = sums->field("Hours").to_double();
  }
  for (const FileRow& row : file.rows) {
    if (row.cells[date].kind() != Variant::Kind::kDate) continue;
    const auto sum = too_many.find({row.cells[employee].to_int32(), row.cells[date].to_date()});
    if (sum == too_many.end()) continue;
    file.add_fault(warnings, row, "hours",
                   "visų kodų valandų per dieną iš viso " + general_text(sum->second) + ", o para jų turi " +
                       general_text(kHoursOfDay.high));
    too_many.erase(sum);
  }
}

double WrittenCheck::norm_of(Date month) {
  if (norms_.empty()) {
    const auto rows = database_.read("SELECT month, hours FROM month_norms",
                                     {{"Month", FieldType::kDate}, {"Hours", FieldType::kDouble}});
    for (; !rows->Eof(); rows->MoveNext()) norms_[rows->field("Month").to_date()] = rows->field("Hours").to_double();
  }
  const auto [norm, is_new] = norms_.try_emplace(month, 0);
  if (is_new) norm->second = working_days(month, Month::of(month).last_day()) * kHoursOfWorkingDay;
  return norm->second;
}

void WrittenCheck::check_versions(const TableFile& settings, std::vector<ImportFault>& faults) {
  std::map<std::int32_t, const FileRow*> rows;
  for (const FileRow& row : settings.rows) rows[row.cells[settings.table->column("id")].to_int32()] = &row;
  for (const TariffGap& gap : tariff_gaps(database_)) {
    if (rows.contains(gap.settings)) settings.add_fault(faults, *rows[gap.settings], gap.column, gap.text);
  }
}

void WrittenCheck::check_tariff_values(const TableFile& values, std::vector<ImportFault>& faults) {
  std::set<std::int32_t> told;  // versions with a row of their own
  if (const TableFile* const settings = find_file(files_, "settings")) {
    for (const FileRow& row : settings->rows) told.insert(row.cells[settings->table->column("id")].to_int32());
  }
  for (const TariffGap& gap : tariff_gaps(database_)) {
    const bool old = std::any_of(gaps_before_.begin(), gaps_before_.end(), [&](const TariffGap& each) {
      return each.settings == gap.settings && each.column == gap.column;
    });
    if (old || told.contains(gap.settings)) continue;
    // Every value that the version had has moved away: the file has them all.
    const auto moved = std::find_if(values.rows.begin(), values.rows.end(), [&](const FileRow& row) {
      const auto before = values_before_.find(row.cells[values.table->column("id")].to_int32());
      return before != values_before_.end() && before->second.tariff == gap.tariff && before->second.from <= gap.date;
    });
    if (moved != values.rows.end()) {
      values.add_fault(faults, *moved, "date_from",
                       "nustatymai nuo " + date_text(gap.date) + " liktų be tarifo: " + gap.text);
    }
  }
}

void WrittenCheck::check_code_lists(const TableFile& settings, std::vector<ImportFault>& warnings) {
  const TimeCodes codes(database_);
  for (const FileRow& row : settings.rows) {
    std::istringstream list(null_to_text(row.cells[settings.table->column("personal_time_code_id_list")]));
    for (std::string code_id; std::getline(list, code_id, ',');) {
      if (codes.has(std::stoi(code_id))) continue;
      settings.add_fault(warnings, row, "personal_time_code_id_list",
                         "laiko kodo, kurio numeris " + code_id + ", nėra");
    }
  }
}

}  // namespace quor
