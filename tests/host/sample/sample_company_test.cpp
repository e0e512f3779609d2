// The sample company: the same for the same number and seed, whole or not there at all, with every unusual case in it.
#include "host/sample/sample_company.h"

#include <gtest/gtest.h>
#include <regex>

#include "tests/support/company_place.h"

namespace quor {
namespace {

std::unique_ptr<Database> sample(std::int32_t employees, std::uint32_t seed = 1) {
  auto database = Database::create(":memory:");
  make_sample_company(*database, {employees, seed, nullptr});
  return database;
}

std::vector<std::string> texts(Database& database, const std::string& sql) {
  std::vector<std::string> all;
  for (const auto rows = database.read(sql, {{"Text", FieldType::kText}}); !rows->Eof(); rows->MoveNext()) {
    all.push_back(null_to_text(rows->field("Text")));
  }
  return all;
}

// Every cell of every table but the record of when the schema was made.
std::string dump(Database& database) {
  std::string all;
  for (const std::string& table :
       texts(database,
             "SELECT name FROM sqlite_master WHERE type = 'table' AND name <> 'schema_migrations' ORDER BY name")) {
    for (const std::string& column : texts(database, "SELECT name FROM pragma_table_info('" + table + "')")) {
      all += table + "." + column + "\n";
      for (const std::string& cell : texts(database, "SELECT " + column + " FROM " + table + " ORDER BY 1"))
        all += cell + "\n";
    }
  }
  return all;
}

TEST(SampleCompany, IsTheSameForTheSameNumberAndSeed) {
  const std::string first = dump(*sample(60));
  EXPECT_GT(first.size(), 30000U);
  EXPECT_EQ(first, dump(*sample(60)));
  EXPECT_NE(first, dump(*sample(60, 2)));
  // On every machine:
  EXPECT_EQ(
      texts(*sample(3), "SELECT name || ', ' || usr_acc_date FROM employees ORDER BY id"),
      (std::vector<std::string>{"Žalčutis Ignas, 38028", "Ėriukauskas Saulius, 34626", "Baltrėnaitė Loreta, 34878"}));
  EXPECT_EQ(texts(*sample(1), "SELECT norm_guid FROM positions"),
            std::vector<std::string>{"6FF60958-83D7-4F08-A162-06EF6B3FE542"});
}

TEST(SampleCompany, HasEveryUnusualCaseAmongThirtyPeople) {
  // 2008.01.01 is day 39448, 2008.01.31 day 39478.
  const std::string current = "positions WHERE date_from <= 39478 AND (date_to IS NULL OR date_to >= 39448)";
  const struct {
    const char* name;
    std::string from;
    std::int32_t expected;
  } kCases[] = {
      {"length of service unknown", "employees WHERE id NOT IN (SELECT employee_id FROM experience)", 1},
      {"three quarters of a post", current + " AND share = 0.75", 2},
      {"a quarter of a post", current + " AND share = 0.25", 3},
      {"two posts at once", "(SELECT employee_id FROM " + current + " GROUP BY employee_id HAVING COUNT(*) = 2) two",
       2},
      {"category changed in 2007", "positions WHERE date_to = 39082", 2},
      {"post begins in February", "positions WHERE date_from = 39479", 1},
      {"the same as 0", "positions WHERE constant_type_id = 0", 2},
      {"tariff of its own", "positions p JOIN constant_types t ON t.id = p.constant_type_id WHERE t.code = 'MMA_SP'",
       2},
      {"no charge for service",
       "employees WHERE id NOT IN (SELECT employee_id FROM extra_charges WHERE salary_extra_oid = 'O0402000')", 2},
      {"charge open at the start", "extra_charges WHERE date_from IS NULL", 7},
      {"charge that has ended", "extra_charges WHERE date_to < 39448", 2},
      {"own charges above the limit",
       "(SELECT employee_id FROM extra_charges WHERE date_to IS NULL OR date_to >= 39448 "
       "GROUP BY employee_id HAVING SUM(percentage) > 55) above",
       1},
  };
  const auto database = sample(30);
  for (const auto& c : kCases) EXPECT_EQ(count(*database, c.from), c.expected) << c.name;
}

TEST(SampleCompany, HasRulesForEveryMonth) {
  const auto database = sample(0);
  const auto value_at = [&](const std::string& code, Date day) {
    const auto rows = database->read(
        "SELECT value FROM constant_values v JOIN constant_types t ON t.id = v.constant_type_id "
        "WHERE t.code = :p0 AND v.date_from <= :p1 ORDER BY v.date_from DESC LIMIT 1",
        {{"Value", FieldType::kDouble}}, {code, day});
    return rows->field("Value").to_double();
  };
  EXPECT_EQ(value_at("MMA_VT", Date::from_ymd(2006, 6, 30)), 115.0);
  EXPECT_EQ(value_at("MMA_VT", Date::from_ymd(2006, 7, 1)), 120.0);
  EXPECT_EQ(value_at("MVA_VT", Date::from_ymd(2008, 1, 31)), 0.77);
  EXPECT_EQ(count(*database, "categories"), 20);
  EXPECT_EQ(count(*database, "category_rows WHERE date_from = :p0", {Date::from_ymd(2005, 1, 1)}), 20);
  EXPECT_EQ(count(*database, "category_rows WHERE factor = 9.7"), 1);
  EXPECT_EQ(count(*database, "settings WHERE date_from IN (:p0, :p1)",
                  {Date::from_ymd(2005, 1, 1), Date::from_ymd(2008, 1, 1)}),
            2);
  // The scale: each band begins where the one before ends, and gives one per cent more.
  EXPECT_EQ(count(*database, "settings_rows WHERE percentage = year_from"), 56);
  EXPECT_EQ(count(*database,
                  "settings_rows a JOIN settings_rows b ON b.settings_id = a.settings_id AND b.year_from = a.year_to"),
            54);
  EXPECT_EQ(count(*database, "settings_rows WHERE year_from = 30 AND year_to = 100"), 2);
}

TEST(SampleCompany, NamesMenAndWomenRight) {
  const auto database = sample(600);
  for (const std::string& name : texts(*database, "SELECT name FROM employees")) {
    const std::string surname = name.substr(0, name.find(' '));
    EXPECT_EQ(surname.ends_with('s'), name.ends_with('s')) << name;
    EXPECT_TRUE(surname.ends_with('s') || surname.ends_with("ė")) << name;
  }
  EXPECT_GT(count(*database, "(SELECT DISTINCT name FROM employees) names"), 580);
}

TEST(SampleCompany, GivesEveryRecordAGuidOfItsOwn) {
  const auto database = sample(500);
  const auto guids = texts(*database,
                           "SELECT guid FROM extra_charges UNION SELECT guid FROM categories UNION "
                           "SELECT guid FROM settings_rows UNION SELECT norm_guid FROM positions");
  EXPECT_EQ(static_cast<std::int32_t>(guids.size()),
            count(*database, "extra_charges") + count(*database, "positions") + 20 + 56);
  const std::regex form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
  for (const std::string& guid : guids) {
    EXPECT_TRUE(std::regex_match(guid, form)) << guid;
    EXPECT_FALSE(guid.starts_with("0000")) << guid;
  }
}

TEST(SampleCompany, NeedsFewStatementsAThousandPeople) {
  const auto one = sample(500)->statements(), two = sample(1000)->statements(), three = sample(1500)->statements();
  EXPECT_LT(two - one, 120U);             // about 40 rows a statement
  EXPECT_LE(three - two, two - one + 8);  // a begun batch of each table
}

class SampleCompanyOn : public testing::TestWithParam<Backend> {};
ON_EVERY_DATABASE(SampleCompanyOn);

TEST_P(SampleCompanyOn, IsWholeOrNotThereAtAll) {
  const auto place = GetParam().make_place();
  const auto database = Database::create(place->address());
  const SampleOptions options{2, 1, nullptr};
  const std::int64_t changes = database->change_count();
  bool made = false;
  for (std::uint64_t at = 1; !made; ++at) {
    SCOPED_TRACE(at);
    ASSERT_LT(at, 100U);
    fail_one(*database, at);
    made = !refusal_of([&] { make_sample_company(*database, options); }).fault;
    database->set_fault(nullptr);
    EXPECT_EQ(count(*database, "company WHERE name <> ''"), made ? 1 : 0);
    EXPECT_EQ(database->change_count() - changes, made ? 1 : 0);
    for (const char* table :
         {"next_ids", "departments", "constant_types", "constant_values", "indications", "salary_codes", "categories",
          "category_rows", "settings", "settings_rows", "employees", "experience", "positions", "extra_charges"}) {
      EXPECT_EQ(count(*database, table) > 0, made) << table;
    }
  }
}

}  // namespace
}  // namespace quor
