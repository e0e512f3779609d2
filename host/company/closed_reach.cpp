#include "host/company/closed_reach.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace quor {

// A table of dated rows: id, owner, employee, date_from, date_to, then what holds. Several lines of one row (a scale)
// stand together.
struct ClosedReach::Dated {
  std::string_view table;  // by which writes to it are known
  const char* select;
  const char* scope;  // its column with the record that is written; none: each row bears on the others
  const char* order;
  bool until_next;  // each row of an owner holds until its next
  std::vector<FieldType> values;
};

namespace {

using enum FieldType;

// Without an employee: 0. Service is of all days; so is the bound that a charge leaves open.
const std::vector<ClosedReach::Dated>& dated_tables() {
  static const std::vector<ClosedReach::Dated> tables = {
      {"categories",
       "SELECT id, category_id, 0, date_from, NULL, factor FROM category_rows WHERE date_from IS NOT NULL",
       "category_id",
       "date_from, id",
       true,
       {kDouble}},
      {"constant_values",
       "SELECT id, constant_type_id, 0, date_from, NULL, value FROM constant_values WHERE 1 = 1",
       "constant_type_id",
       "date_from, id",
       true,
       {kDouble}},
      {"settings",
       "SELECT s.id, 0, 0, s.date_from, NULL, s.base_month_tariff_id, s.base_hour_tariff_id,"
       " s.personal_time_code_id_list, s.extra_charge_percentage, s.surcharge_percentage, s.total_charge_percentage,"
       " r.year_from, r.year_to, r.percentage FROM settings s LEFT JOIN settings_rows r ON r.settings_id = s.id"
       " WHERE s.date_from IS NOT NULL",
       nullptr,
       "s.date_from, s.id, r.id",
       true,
       {kInt32, kInt32, kText, kDouble, kDouble, kDouble, kInt32, kInt32, kDouble}},
      {"positions",
       "SELECT id, id, 0, date_from, date_to, employee_id, constant_type_id, category_id, share,"
       " contract_guid || norm_guid FROM positions WHERE 1 = 1",
       "id",
       "id",
       false,
       {kInt32, kInt32, kInt32, kDouble, kText}},
      {"extra_charges",
       "SELECT id, id, employee_id, date_from, date_to, sum_a, percentage, salary_extra_oid, salary_code_id"
       " FROM extra_charges WHERE 1 = 1",
       "id",
       "id",
       false,
       {kDouble, kDouble, kText, kInt32}},
      {"experience",
       "SELECT id, employee_id, employee_id, NULL, NULL, date_experience, experience_years, experience_months"
       " FROM experience WHERE 1 = 1",
       "employee_id",
       "id",
       false,
       {kInt32, kInt32, kInt32}},
      {"month_norms",
       "SELECT month, month, 0, month, month, hours FROM month_norms WHERE 1 = 1",
       "month",
       "month",
       false,
       {kDouble}},
  };
  return tables;
}

const ClosedReach::Dated* find(std::string_view table) {
  if (table == "category_rows") table = "categories";
  if (table == "settings_rows") table = "settings";
  const auto found = std::find_if(dated_tables().begin(), dated_tables().end(),
                                  [&](const auto& dated) { return dated.table == table; });
  return found == dated_tables().end() ? nullptr : &*found;
}

std::string exact_text(const Recordset& rows, std::size_t field) {
  if (rows.is_null({field})) return "Null;";
  if (rows.field_info({field}).type == kText) return "'" + std::string(rows.text({field})) + "';";
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, rows.number({field})).ptr) + ";";
}

}  // namespace

std::string months_text(const std::vector<Month>& months) {
  constexpr std::size_t kNamed = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(kNamed, months.size()); ++i) {
    text += (i == 0 ? "" : ", ") + months[i].text();
  }
  return months.size() > kNamed ? text + " ir dar " + std::to_string(months.size() - kNamed) : text;
}

std::string reach_text(const std::vector<Month>& months) {
  return (months.size() == 1 ? "siekia uždarytą mėnesį " : "siekia uždarytus mėnesius ") + months_text(months);
}

ReachesClosedMonths::ReachesClosedMonths(std::vector<Month> months)
    : StoreError(StoreFault::kRefused, "Pakeitimas " + reach_text(months) + "."), months_(std::move(months)) {}

bool ClosedReach::watches(std::string_view table) { return find(table) != nullptr; }

ClosedReach::ClosedReach(Database& database, std::string_view table, std::int32_t record)
    : database_(database), dated_(find(table)), record_(record) {
  if (dated_ == nullptr) return;
  const auto months = database.read("SELECT month FROM closed_months ORDER BY month", {{"Month", kDate}});
  for (; !months->Eof(); months->MoveNext()) closed_.push_back(Month::of(months->field(FieldHandle{0}).to_date()));
  if (!closed_.empty()) before_ = read();
}

std::map<std::int32_t, ClosedReach::Pieces> ClosedReach::read() {
  std::vector<FieldInfo> fields = {
      {"ID", kInt32}, {"Owner", kInt32}, {"Employee", kInt32}, {"From", kDate}, {"To", kDate}};
  const std::size_t first_value = fields.size();
  for (const FieldType type : dated_->values) fields.push_back({"V" + std::to_string(fields.size()), type});
  std::string sql = dated_->select;
  std::vector<Variant> binds;
  if (record_ != 0 && dated_->scope != nullptr) {
    sql += std::string(" AND ") + dated_->scope + " = :p0";
    binds.emplace_back(record_);
  }
  const auto rows = database_.read(sql + " ORDER BY " + dated_->order, fields, binds);
  // An old row may hold what is no day of the calendar: then the nearest one that has a day before and after it.
  const auto bound = [&](FieldHandle field, double open) {
    return Date::from_serial(
        std::clamp(rows->is_null(field) ? open : rows->number(field), Date::kMinSerial + 1.0, Date::kMaxSerial - 1.0));
  };
  std::map<std::int32_t, Pieces> pieces;
  for (const FieldHandle id{0}, owner{1}, employee{2}, from{3}, to{4}; !rows->Eof(); rows->MoveNext()) {
    Pieces& of_owner = pieces[rows->int32(owner)];
    const bool same_row = !of_owner.empty() && of_owner.back().id == rows->int32(id);
    if (!same_row) {
      const Date begin = bound(from, Date::kMinSerial);
      if (dated_->until_next && !of_owner.empty()) of_owner.back().to = add_days(begin, -1);
      of_owner.push_back({begin, bound(to, Date::kMaxSerial), "", rows->int32(id), rows->int32(employee)});
    }
    for (std::size_t i = first_value; i < fields.size(); ++i) of_owner.back().value += exact_text(*rows, i);
  }
  return pieces;
}

// Cut to the month; neighbours that hold alike are one.
ClosedReach::Pieces ClosedReach::within(const Pieces& pieces, const Month& month) {
  Pieces cut;
  for (Piece piece : pieces) {
    piece.from = std::max(piece.from, month.first_day());
    piece.to = std::min(piece.to, month.last_day());
    if (piece.from > piece.to) continue;
    if (!cut.empty() && cut.back().value == piece.value && add_days(cut.back().to, 1) == piece.from) {
      cut.back().to = piece.to;
    } else {
      cut.push_back(std::move(piece));
    }
  }
  return cut;
}

bool ClosedReach::has_document(std::int32_t employee, const Month& month) {
  if (!people_) {
    std::string sql = "SELECT c.month, d.employee_id FROM closed_months c JOIN documents d ON d.month = c.month";
    std::vector<Variant> binds;
    if (record_ != 0) {
      sql += " WHERE d.employee_id = :p0";
      binds.emplace_back(employee);
    }
    const auto rows = database_.read(sql, {{"Month", kInt32}, {"Employee", kInt32}}, binds);
    for (people_.emplace(); !rows->Eof(); rows->MoveNext()) people_->emplace(rows->int32({0}), rows->int32({1}));
  }
  return people_->contains({static_cast<std::int32_t>(month.first_day().serial()), employee});
}

void ClosedReach::compare(const Pieces& before, const Pieces& after,
                          std::map<std::int32_t, std::vector<Month>>& reached) {
  for (const Month& month : closed_) {
    const Pieces then = within(before, month), now = within(after, month);
    std::set<std::int32_t> ids;  // of what holds on one side alone
    const auto collect = [&](const Pieces& pieces, const Pieces& others) {
      for (const Piece& piece : pieces) {
        const auto alike = [&](const Piece& other) { return piece.holds_alike(other); };
        if (std::any_of(others.begin(), others.end(), alike)) continue;
        if (piece.employee == 0 || has_document(piece.employee, month)) ids.insert(piece.id);
      }
    };
    collect(then, now);
    collect(now, then);
    for (const std::int32_t id : ids) reached[id].push_back(month);
  }
}

std::map<std::int32_t, std::vector<Month>> ClosedReach::reached() {
  std::map<std::int32_t, std::vector<Month>> reached;
  if (closed_.empty()) return reached;
  const auto after = read();
  const Pieces none;
  const auto same = [](const Pieces& one, const Pieces& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const Piece& a, const Piece& b) { return a.holds_alike(b); });
  };
  for (const auto& [owner, pieces] : before_) {
    const auto now = after.find(owner);
    const Pieces& others = now == after.end() ? none : now->second;
    if (!same(pieces, others)) compare(pieces, others, reached);
  }
  for (const auto& [owner, pieces] : after) {
    if (!before_.contains(owner)) compare(none, pieces, reached);
  }
  return reached;
}

void ClosedReach::require(const std::vector<Month>& agreed) {
  std::set<Month> months;
  for (const auto& [id, of_row] : reached()) months.insert(of_row.begin(), of_row.end());
  const bool known = std::all_of(months.begin(), months.end(), [&](const Month& month) {
    return std::find(agreed.begin(), agreed.end(), month) != agreed.end();
  });
  if (!known) throw ReachesClosedMonths({months.begin(), months.end()});
}

}  // namespace quor
