#include "host/insight/stored_sources.h"

#include "host/company/month_keys.h"
#include "host/company/time_code.h"
#include "host/store/object_codes.h"

namespace quor {

// `sql` selects the ID and the day from, then who stored it and when.
StoredSource StoredSources::row(const char* table, const std::string& sql, const std::vector<Variant>& values) const {
  const auto rows = database_.read(
      sql,
      {{"ID", FieldType::kInt32}, {"From", FieldType::kDouble}, {"By", FieldType::kText}, {"At", FieldType::kText}},
      values);
  StoredSource source{.table = table};
  if (rows->RecordCount() == 0) return source;
  source.id = rows->int32({0});
  if (!rows->is_null({1})) source.from = Date::from_serial(rows->number({1}));
  source.stored_by = rows->text({2});
  source.stored_at = rows->text({3});
  return source;
}

StoredSource StoredSources::constant_value(std::int32_t type, Date from) const {
  StoredSource source = row("constant_values",
                            "SELECT v.id, v.date_from, t.changed_by, t.changed_at FROM constant_values v"
                            " JOIN constant_types t ON t.id = v.constant_type_id"
                            " WHERE v.constant_type_id = :p0 AND v.date_from = :p1",
                            {type, from});
  source.from = from;
  source.key = object_key(kConstantType, type);
  return source;
}

StoredSource StoredSources::category_row(std::int32_t category, Date from) const {
  StoredSource source = row("category_rows",
                            "SELECT r.id, r.date_from, c.changed_by, c.changed_at FROM category_rows r"
                            " JOIN categories c ON c.id = r.category_id"
                            " WHERE r.category_id = :p0 AND r.date_from = :p1 ORDER BY r.id DESC LIMIT 1",
                            {category, from});
  source.from = from;
  source.key = object_key(kCategoryType, category);
  return source;
}

StoredSource StoredSources::settings(std::int32_t id, Date from) const {
  StoredSource source =
      row("settings", "SELECT id, date_from, changed_by, changed_at FROM settings WHERE id = :p0", {id});
  source.from = from;
  source.key = object_key(kSettingsType, id);
  return source;
}

StoredSource StoredSources::scale_row(std::int32_t settings, const std::string& guid, Date from) const {
  StoredSource source = row("settings_rows",
                            "SELECT r.id, s.date_from, s.changed_by, s.changed_at FROM settings_rows r"
                            " JOIN settings s ON s.id = r.settings_id WHERE r.guid = :p0",
                            {guid});
  source.from = from;
  source.key = object_key(kSettingsType, settings);
  return source;
}

StoredSource StoredSources::position(std::int32_t id, std::int32_t employee) const {
  StoredSource source =
      row("positions", "SELECT id, date_from, changed_by, changed_at FROM positions WHERE id = :p0", {id});
  source.key = object_key(kEmployeeType, employee);
  return source;
}

StoredSource StoredSources::service(std::int32_t employee) const {
  StoredSource source = row("experience",
                            "SELECT id, date_experience, changed_by, changed_at FROM experience"
                            " WHERE employee_id = :p0",
                            {employee});
  source.key = object_key(kEmployeeType, employee);
  return source;
}

StoredSource StoredSources::charge(std::int32_t id, std::int32_t employee) const {
  StoredSource source =
      row("extra_charges", "SELECT id, date_from, changed_by, changed_at FROM extra_charges WHERE id = :p0", {id});
  source.key = object_key(kEmployeeType, employee);
  return source;
}

StoredSource StoredSources::worked_time(std::int32_t employee, const Month& month, std::int32_t code,
                                        std::optional<Date> day) const {
  StoredSource source = row("worked_time",
                            "SELECT id, day, NULL, NULL FROM worked_time WHERE employee_id = :p0 AND month = :p1"
                            " AND COALESCE(day, 0) = :p2 AND time_code_id = :p3",
                            {employee, month.first_day(), day ? Variant(*day) : Variant(0), code});
  source.key = key_of_month(kWorkedTimeType, month);
  return source;
}

StoredSource StoredSources::norm(const Month& month) const {
  const auto found = database_.read("SELECT month FROM month_norms WHERE month = :p0", {{"Month", FieldType::kInt32}},
                                    {month.first_day()});
  return {.table = "month_norms",
          .id = found->RecordCount() == 0 ? 0 : found->int32({0}),
          .from = month.first_day(),
          .key = object_key(kNormType, month.first_day().year())};
}

std::optional<StoredSource> StoredSources::of_request(const RecordedRequest& request) const {
  const RecordedRow& row = request.row;
  if (row.empty()) return std::nullopt;
  const auto id = [&](const char* field) { return null_to_int32(row[field]); };
  const auto from = [&] { return null_to_date(row["DateFrom"]); };
  if (request.name == "GetSalaryConstants") return constant_value(id("ConstantTypeID"), from());
  if (request.name == "GetOfficeEmployeeCategory") return category_row(id("ID"), from());
  if (request.name == "GetOfficeEmployeeSettings") {
    const std::string scale = null_to_text(row["RowGUID"]);
    return scale.empty() ? settings(id("ID"), from()) : scale_row(id("ID"), scale, from());
  }
  if (request.name == "GetOfficeEmployeeExperience") return service(id("UserID"));
  if (request.name == "GetSalaryExtraRow") {
    StoredSource source = position(id("ID"), 0);
    source.key = object_key(kSalaryExtensionType, source.id);
    return source;
  }
  return std::nullopt;
}

// ---- names

std::string StoredSources::text(const std::string& sql, const std::vector<Variant>& values) const {
  const auto rows = database_.read(sql, {{"Text", FieldType::kText}}, values);
  return rows->RecordCount() == 0 ? std::string() : std::string(rows->text({0}));
}

std::string StoredSources::charge_name(std::int32_t id) const {
  return text(
      "SELECT COALESCE(s.name, e.comment) FROM extra_charges e LEFT JOIN salary_codes s ON s.id = e.salary_code_id"
      " WHERE e.id = :p0",
      {id});
}

std::string StoredSources::time_code_name(std::int32_t code) const {
  const std::string name =
      text("SELECT code || ' ' || code_name FROM indications WHERE indication_code = :p0 AND code_id = :p1",
           {kWorkTime, code});
  return name.empty() ? std::to_string(code) : name;
}

std::string StoredSources::employee_name(std::int32_t employee) const {
  return text("SELECT name FROM employees WHERE id = :p0", {employee});
}

}  // namespace quor
