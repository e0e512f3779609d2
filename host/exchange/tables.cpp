#include "host/exchange/tables.h"

#include <algorithm>

namespace quor {

namespace {

constexpr bool kRequired = true;
constexpr bool kOptional = false;

// Columns that refer to nothing in the schema refer to nothing here: 0 or a record that is gone may stand there.
std::vector<ExchangedTable> people_and_tariffs() {
  using enum CellType;
  return {
      {.name = "departments",
       .columns = {{"id", kId, kRequired}, {"parent_id", kId, kOptional, "departments"}, {"name", kText, kRequired}},
       .key = {"id"},
       .named = true},
      {.name = "employees",
       .columns = {{"id", kId, kRequired},
                   {"department_id", kId, kRequired, "departments"},
                   {"name", kText, kRequired},
                   {"usr_acc_date", kDate}},
       .key = {"id"},
       .named = true,
       .versioned = true},
      {.name = "constant_types",
       .columns = {{"id", kId, kRequired}, {"code", kText, kRequired}, {"name", kText, kRequired}},
       .key = {"id"},
       .uniques = {{"code"}}},
      {.name = "constant_values",
       .columns = {{"id", kId, kRequired},
                   {"constant_type_id", kId, kRequired, "constant_types"},
                   {"date_from", kDate, kRequired},
                   {"value", kNumber, kRequired}},
       .key = {"id"},
       .uniques = {{"constant_type_id", "date_from"}}},
      {.name = "indications",
       .columns = {{"id", kId, kRequired},
                   {"indication_code", kText, kRequired},
                   {"code_id", kWhole, kRequired},
                   {"code", kText, kRequired},
                   {"code_name", kText, kRequired}},
       .key = {"id"},
       .uniques = {{"indication_code", "code_id"}}},
      {.name = "salary_codes",
       .columns = {{"id", kId, kRequired}, {"code", kText, kRequired}, {"name", kText, kRequired}},
       .key = {"id"},
       .uniques = {{"code"}}},
      {.name = "categories",
       .columns = {{"id", kId, kRequired}, {"guid", kText, kRequired}, {"name", kText}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .versioned = true},
      {.name = "category_rows",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"category_id", kId, kRequired, "categories"},
                   {"date_from", kDate},
                   {"factor", kNumber}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .owner = "category_id"},
      {.name = "settings",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"date_from", kDate},
                   {"base_month_tariff_id", kId, kOptional, "constant_types"},
                   {"base_hour_tariff_id", kWhole},
                   {"personal_time_code_id_list", kText},
                   {"extra_charge_percentage", kNumber},
                   {"surcharge_percentage", kNumber},
                   {"total_charge_percentage", kNumber}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .versioned = true},
      {.name = "settings_rows",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"settings_id", kId, kRequired, "settings"},
                   {"year_from", kWhole},
                   {"year_to", kWhole},
                   {"percentage", kNumber}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .owner = "settings_id"},
      {.name = "experience",
       .columns = {{"id", kId, kRequired},
                   {"employee_id", kId, kRequired, "employees"},
                   {"date_experience", kDate},
                   {"experience_years", kWhole},
                   {"experience_months", kWhole}},
       .key = {"id"},
       .uniques = {{"employee_id"}},
       .versioned = true},
      {.name = "extra_charges",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"employee_id", kId, kRequired, "employees"},
                   {"date_from", kDate},
                   {"date_to", kDate},
                   {"sum_a", kNumber},
                   {"percentage", kNumber},
                   {"salary_extra_oid", kText},
                   {"salary_code_id", kId, kOptional, "salary_codes"},
                   {"comment", kText}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .versioned = true},
      {.name = "positions",
       .columns = {{"id", kId, kRequired},
                   {"employee_id", kId, kRequired, "employees"},
                   {"contract_guid", kText, kRequired},
                   {"norm_guid", kText, kRequired},
                   {"constant_type_id", kWhole},
                   {"category_id", kId, kOptional, "categories"},
                   {"share", kNumber, kRequired},
                   {"date_from", kDate, kRequired},
                   {"date_to", kDate}},
       .key = {"id"},
       .versioned = true},
  };
}

std::vector<ExchangedTable> users_and_rights() {
  using enum CellType;
  return {
      {.name = "users",
       .columns = {{"id", kId, kRequired}, {"name", kText, kRequired}, {"administrator", kFlag, kRequired}},
       .key = {"id"},
       .uniques = {{"name"}}},
      {.name = "rights",
       .columns = {{"user_id", kId, kRequired, "users"},
                   {"component", kText, kRequired},
                   {"can_view", kFlag, kRequired},
                   {"can_create", kFlag, kRequired},
                   {"can_delete", kFlag, kRequired},
                   {"can_print", kFlag, kRequired},
                   {"can_write", kFlag, kRequired}},
       .key = {"user_id", "component"}},
  };
}

std::vector<ExchangedTable> months() {
  using enum CellType;
  return {
      {.name = "month_norms",
       .columns = {{"month", kMonth, kRequired}, {"hours", kNumber, kRequired}},
       .key = {"month"}},
      {.name = "worked_time",
       .columns = {{"employee_id", kId, kRequired, "employees"},
                   {"date", kDayOrMonth, kRequired},
                   {"time_code", kTimeCode, kRequired},
                   {"hours", kNumber, kRequired}},
       .key = {"employee_id", "date", "time_code"},
       .hidden_id = true,
       .closed_by = "date"},
      {.name = "documents",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"employee_id", kId, kRequired, "employees"},
                   {"month", kMonth, kRequired},
                   {"check_code", kWhole, kRequired},
                   {"check_message", kText, kRequired},
                   {"service_years", kWhole},
                   {"supplement_percentage", kNumber},
                   {"settings_guid", kText}},
       .key = {"id"},
       .uniques = {{"guid"}, {"employee_id", "month"}},
       .closed_by = "month"},
      {.name = "time_rows",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"document_id", kId, kRequired, "documents"},
                   {"salary_extra_oid", kText, kRequired},
                   {"position_id", kId, kOptional, "positions"},
                   {"time_code_id", kWhole, kRequired},
                   {"hours", kNumber, kRequired}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .closed_by = "document_id"},
      {.name = "salary_rows",
       .columns = {{"id", kId, kRequired},
                   {"guid", kText, kRequired},
                   {"document_id", kId, kRequired, "documents"},
                   {"time_row_guid", kText},
                   {"sum_type", kWhole, kRequired},
                   {"sum_a", kNumber, kRequired},
                   {"percentage", kNumber},
                   {"personal_extra_charge_id", kWhole},
                   {"salary_code_id", kWhole}},
       .key = {"id"},
       .uniques = {{"guid"}},
       .closed_by = "document_id"},
      {.name = "document_positions",
       .columns = {{"id", kId, kRequired},
                   {"document_id", kId, kRequired, "documents"},
                   {"category", kText, kRequired},
                   {"factor", kNumber, kRequired},
                   {"tariff", kNumber, kRequired},
                   {"share", kNumber, kRequired},
                   {"month_salary", kNumber, kRequired}},
       .key = {"id"},
       .closed_by = "document_id"},
      {.name = "document_settings",
       .columns = {{"guid", kText, kRequired},
                   {"line", kWhole, kRequired},
                   {"settings_id", kWhole, kRequired},
                   {"settings_guid", kText, kRequired},
                   {"date_from", kDate, kRequired},
                   {"base_month_tariff_id", kWhole},
                   {"base_hour_tariff_id", kWhole},
                   {"personal_time_code_id_list", kText},
                   {"extra_charge_percentage", kNumber},
                   {"surcharge_percentage", kNumber},
                   {"total_charge_percentage", kNumber},
                   {"row_guid", kText},
                   {"year_from", kWhole},
                   {"year_to", kWhole},
                   {"percentage", kNumber}},
       .key = {"guid", "line"}},
      {.name = "month_faults",
       .columns = {{"employee_id", kId, kRequired, "employees"},
                   {"month", kMonth, kRequired},
                   {"reason", kText, kRequired}},
       .key = {"month", "employee_id"}},
      {.name = "month_closings",
       .columns = {{"id", kId, kRequired},
                   {"month", kMonth, kRequired},
                   {"closed", kFlag, kRequired},
                   {"done_by", kText, kRequired},
                   {"done_at", kText, kRequired},
                   {"reason", kText, kRequired}},
       .key = {"id"}},
      // Last, so that a whole company can come in: what is closed takes no rows any more.
      {.name = "closed_months",
       .columns = {{"month", kMonth, kRequired},
                   {"closed_by", kText, kRequired},
                   {"closed_at", kText, kRequired},
                   {"settings_guid", kText}},
       .key = {"month"}},
  };
}

std::vector<ExchangedTable> all_tables() {
  std::vector<ExchangedTable> tables;
  for (const auto& part : {people_and_tariffs(), users_and_rights(), months()}) {
    tables.insert(tables.end(), part.begin(), part.end());
  }
  for (ExchangedTable& table : tables) {
    for (ExchangedColumn& column : table.columns) column.stored = &stored_column(table.name, column.name);
  }
  return tables;
}

}  // namespace

std::size_t ExchangedTable::column(std::string_view column_name) const {
  const auto at =
      std::find_if(columns.begin(), columns.end(), [&](const auto& each) { return each.name == column_name; });
  return static_cast<std::size_t>(at - columns.begin());
}

std::string ExchangedColumn::words() const {
  const bool says_more = !stored->caption.empty() && name != "id" && name != "guid";
  return "„" + std::string(name) + "“" + (says_more ? " (" + std::string(stored->caption) + ")" : "");
}

std::string ExchangedTable::words() const {
  return "„" + std::string(table_caption(name)) + "“ (" + std::string(name) + ")";
}

std::span<const ExchangedTable> exchanged_tables() {
  static const std::vector<ExchangedTable> tables = all_tables();
  return tables;
}

const ExchangedTable* find_exchanged_table(std::string_view name) {
  for (const ExchangedTable& table : exchanged_tables()) {
    if (table.name == name) return &table;
  }
  return nullptr;
}

}  // namespace quor
