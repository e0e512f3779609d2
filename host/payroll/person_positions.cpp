#include "host/payroll/person_positions.h"

#include <algorithm>
#include <set>

#include "host/company/closed_reach.h"
#include "host/company/in_force.h"
#include "host/company/readable_columns.h"
#include "host/store/object_codes.h"
#include "host/store/tables/statements.h"

namespace quor {

namespace {

constexpr FieldType kInt = FieldType::kInt32;
constexpr char kRunsOn[] =
    " WHERE employee_id = :p0 AND (date_from IS NULL OR date_from <= :p1) AND (date_to IS NULL OR date_to > :p1)";

std::vector<std::int32_t> ids_running_on(Database& database, const char* table, std::int32_t employee, Date day) {
  const auto rows =
      database.read(std::string("SELECT id FROM ") + table + kRunsOn + " ORDER BY id", {{"ID", kInt}}, {employee, day});
  std::vector<std::int32_t> ids;
  for (; !rows->Eof(); rows->MoveNext()) ids.push_back(rows->int32({0}));
  return ids;
}

void refuse_later_positions(Database& database, std::int32_t employee, Date day) {
  const auto later = database.read("SELECT MIN(date_from) FROM positions WHERE employee_id = :p0 AND date_from > :p1",
                                   {{"From", FieldType::kDate}}, {employee, day});
  if (later->is_null({0})) return;
  throw StoreError(StoreFault::kRefused, "Darbo pabaiga „" + date_text(day) + "“: vėliau, " +
                                             date_text(later->field(FieldHandle{0}).to_date()) +
                                             ", prasideda kita pareigybė. Pirmiausia ją pakeiskite arba panaikinkite.");
}

// Both tables are asked at once, so that the user is.
void require_agreed(ClosedReach& positions, ClosedReach& charges, const std::vector<Month>& agreed) {
  std::set<Month> months;
  for (ClosedReach* const reach : {&positions, &charges}) {
    for (const auto& [id, of_row] : reach->reached()) months.insert(of_row.begin(), of_row.end());
  }
  const bool known = std::all_of(months.begin(), months.end(), [&](const Month& month) {
    return std::find(agreed.begin(), agreed.end(), month) != agreed.end();
  });
  if (!known) throw ReachesClosedMonths({months.begin(), months.end()});
}

std::optional<double> number_or_none(const Recordset& rows, std::size_t field) {
  return rows.is_null({field}) ? std::nullopt : std::optional(rows.number({field}));
}

std::optional<Date> date_or_none(const Recordset& rows, std::size_t field) {
  return rows.is_null({field}) ? std::nullopt : std::optional(Date::from_serial(rows.number({field})));
}

}  // namespace

std::vector<PersonPosition> positions_of(Application& application, std::int32_t employee, Date at) {
  application.guard().require_view(kSalaryExtensionType);
  const auto rows = application.company().database().read(
      "SELECT p.id, c.name, r.factor, t.name, v.value, p.share, " + readable_date("p.date_from") + ", " +
          readable_date("p.date_to") +
          " FROM positions p LEFT JOIN categories c ON c.id = p.category_id LEFT JOIN category_rows r ON r.id = " +
          id_in_force("category_rows", "dated.category_id = p.category_id", ":p1") +
          " LEFT JOIN constant_types t ON t.id = p.constant_type_id LEFT JOIN constant_values v ON v.id = " +
          id_in_force("constant_values", "dated.constant_type_id = p.constant_type_id", ":p1") +
          " WHERE p.employee_id = :p0 ORDER BY p.date_from, p.id",
      {{"ID", kInt},
       {"Category", FieldType::kText},
       {"Factor", FieldType::kDouble},
       {"Tariff", FieldType::kText},
       {"Value", FieldType::kDouble},
       {"Share", FieldType::kDouble},
       {"From", FieldType::kDate},
       {"To", FieldType::kDate}},
      {employee, at});
  std::vector<PersonPosition> positions;
  for (; !rows->Eof(); rows->MoveNext()) {
    positions.push_back({.key = object_key(kSalaryExtensionType, rows->int32({0})),
                         .category = std::string(rows->text({1})),
                         .factor = number_or_none(*rows, 2),
                         .tariff = std::string(rows->text({3})),
                         .tariff_value = number_or_none(*rows, 4),
                         .share = rows->number({5}),
                         .from = date_or_none(*rows, 6),
                         .to = date_or_none(*rows, 7)});
  }
  return positions;
}

RunningOn running_on(Application& application, std::int32_t employee, Date day) {
  application.guard().require_view(kSalaryExtensionType);
  Database& database = application.company().database();
  const auto count = [&](const char* table) {
    return static_cast<std::int32_t>(ids_running_on(database, table, employee, day).size());
  };
  return {.positions = count("positions"), .charges = count("extra_charges")};
}

RunningOn end_employment(Application& application, std::int32_t employee, Date day, bool with_charges) {
  application.guard().require_right(UserRight::kWrite, kSalaryExtensionType, "keisti darbuotojų pareigybių");
  if (with_charges) {
    application.guard().require_right(UserRight::kWrite, kPersonalChargeType, "keisti darbuotojų priedų");
  }
  Database& database = application.company().database();
  RunningOn ended;
  write_as_agreed(application, [&](const std::vector<Month>& agreed) {
    ended = {};
    Transaction transaction(database);
    refuse_later_positions(database, employee, day);
    ClosedReach reached_by_positions(database, "positions"), reached_by_charges(database, "extra_charges");
    const auto end = [&](const char* table) {
      const auto ids = ids_running_on(database, table, employee, day);
      for (const std::int32_t id : ids) update_row(database, table, id, {{"date_to", day}}, application.user());
      return static_cast<std::int32_t>(ids.size());
    };
    ended.positions = end("positions");
    if (ended.positions == 0) {
      throw StoreError(StoreFault::kRefused,
                       "Darbo pabaiga „" + date_text(day) + "“: po šios dienos nė viena pareigybė nebegalioja.");
    }
    if (with_charges) ended.charges = end("extra_charges");
    require_agreed(reached_by_positions, reached_by_charges, agreed);
    transaction.commit();
  });
  application.company().forget();
  return ended;
}

}  // namespace quor
