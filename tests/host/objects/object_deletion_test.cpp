#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace quor {
namespace {

class ObjectDeletionTest : public testing::TestWithParam<Backend> {
 protected:
  // True when it was refused; the text of the box then.
  std::string refusal(const std::string& key) {
    const std::size_t before = company_.application().boxes().size();
    const bool refused = company_.application().NewMainBO()->DeleteQuorObject(key);
    const auto boxes = company_.application().boxes();
    EXPECT_EQ(boxes.size() - before, refused ? 1U : 0U);
    if (!refused) return "";
    EXPECT_TRUE(boxes.back().starts_with("exclamation, ok, Testas: ")) << boxes.back();
    return company_.application().shown_boxes().back().text;
  }
  std::int32_t rows_of(const char* table) { return count(company_.database(), table); }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(ObjectDeletionTest);

TEST_P(ObjectDeletionTest, ARecordGoesWithItsRowsAndItsPlacesOnDeskTops) {
  company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2006.01.01", 9.8}});
  company_.given_category("B lygis", {{"2005.01.01", 1.0}});
  company_.given_settings({.from = "2005.01.01", .bands = {{3, 5, 3.0}}});
  company_.given_position({.employee = company_.given_employee("Pirmoji")});
  for (const char* key : {"O04022001", "O04022002"}) company_.application().place_on_desk_top(key, nullptr);
  EXPECT_EQ(company_.application().NewMainBO()->GetQuorObjectList("O0402200", "", "")->RecordCount(), 2);

  for (const char* key : {"O04022001", "O04023001", "O04020001"}) EXPECT_EQ(refusal(key), "") << key;
  EXPECT_EQ(rows_of("categories") + rows_of("category_rows"), 2) << "the other one stays";
  EXPECT_EQ(rows_of("settings") + rows_of("settings_rows") + rows_of("positions"), 0);
  EXPECT_EQ(company_.application().desk_top(), std::vector<std::string>{"O04022002"});
  EXPECT_EQ(company_.application().NewMainBO()->GetQuorObjectList("O0402200", "", "")->RecordCount(), 1);
}

TEST_P(ObjectDeletionTest, WhatIsUsedOrGoneOrForbiddenStays) {
  const auto person = company_.given_employee("Pirmoji");
  const auto category = company_.given_category("A lygis", {{"2005.01.01", 9.7}});
  company_.given_position({.employee = person, .category = category});
  company_.given_position({.employee = person, .category = category, .contract = "K2"});
  company_.given_position({.employee = person, .contract = "K3"});
  company_.given_charge(person, kNull, kNull, 5.0);
  company_.given_settings({.from = "2005.01.01"});
  company_.given_settings({.from = "2008.01.31"});
  company_.given_settings({.from = "2008.02.01"});
  Database& database = company_.database();
  database.execute("UPDATE extra_charges SET salary_extra_oid = 'O04020002'");
  database.execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, 'O', '')");  // 2008.01
  company_.given_document(person);
  database.execute(
      "INSERT INTO time_rows (id, guid, document_id, salary_extra_oid, position_id, time_code_id, hours)"
      " VALUES (1, 'T', 1, 'O', 1, 1, 160)");
  const std::pair<const char*, const char*> cases[] = {
      {"O04022001", "Įrašo „A lygis“ panaikinti negalima: jis nurodytas darbuotojų pareigybėse (2)."},
      {"O04020001", "Įrašo „O04020001“ panaikinti negalima: jis nurodytas mėnesių dokumentuose (1)."},
      {"O04020002", "Įrašo „O04020002“ panaikinti negalima: jis nurodytas asmeniniuose prieduose (1)."},
      {"O04023002", "Įrašo „2008.01.31“ panaikinti negalima: pagal jį apskaičiuotas uždarytas mėnuo 2008.01."},
      {"O04022009", "Įrašas panaikintas kito vartotojo."},
      {"O0402200x", "Įrašo „O0402200x“ nėra."},
      {"O0402200", "Įrašo „O0402200“ nėra."},
      {"O04001001", "Įrašo „Pirmoji“ panaikinti negalima: jis nurodytas mėnesių dokumentuose (1)."},
      {"O04003001", "Objekto „O04003001“ čia panaikinti negalima: tokius tvarko kita programos dalis."},
      {"", "Objekto „“ čia panaikinti negalima: tokius tvarko kita programos dalis."},
  };
  const auto stored = [&] { return rows_of("categories, positions, settings, category_rows, extra_charges"); };
  const std::int32_t before = stored();
  for (const auto& [key, text] : cases) EXPECT_EQ(refusal(key), text);
  EXPECT_EQ(stored(), before);

  const std::int32_t user = company_.given_user("testuotoja");
  company_.given_rights(user, "O0402300", "vcpw");
  EXPECT_EQ(refusal("O04023001"), "Neturite teisės naikinti valstybės tarnautojų nustatymų.");
  EXPECT_EQ(stored(), before);
  database.execute("DELETE FROM rights");
  company_.given_rights(user, "O0402300", "d");
  // Settings of earlier and later months than the closed one go.
  EXPECT_EQ(refusal("O04023001") + refusal("O04023003"), "");
}

TEST_P(ObjectDeletionTest, WithAnEmployeeGoesAllThatIsOfHimAlone) {
  const auto person = company_.given_employee("Pirmoji"), other = company_.given_employee("Antroji");
  Database& database = company_.database();
  for (const std::int32_t each : {person, other}) {
    company_.given_position({.employee = each});
    company_.given_service(each, day("2008.01.01"), 1, 1);
    company_.given_charge(each, kNull, kNull, 5.0);
    company_.given_time(each, 1, 8);
    database.execute("INSERT INTO month_faults (employee_id, month, reason) VALUES (:p0, 39448, '')", {each});
  }
  for (const char* key : {"O04001001", "O04020001", "O04001101", "O04020002"}) {
    company_.application().place_on_desk_top(key, nullptr);
  }
  const auto rows = [&] {
    return rows_of("employees") + rows_of("positions") + rows_of("experience") + rows_of("extra_charges") +
           rows_of("worked_time") + rows_of("month_faults");
  };
  const std::int32_t user = company_.given_user("testuotoja");
  company_.given_rights(user, "O0400100", "vd");
  EXPECT_EQ(refusal("O04001001"), "Neturite teisės naikinti darbuotojo pareigybių ir darbo laiko.");
  company_.given_rights(user, "O0402000", "d");
  database.execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, 'O', '')");
  EXPECT_EQ(refusal("O04001001"),
            "Įrašo „Pirmoji“ panaikinti negalima: jis nurodytas uždarytų mėnesių darbo laike (1).");
  database.execute("UPDATE closed_months SET month = 39417");  // 2007.12
  EXPECT_TRUE(company_.application().NewMainBO()->DeleteQuorObject("O04001001")) << "nobody has agreed";
  EXPECT_EQ(rows(), 12);
  EXPECT_EQ(company_.application().desk_top().size(), 4U);
  std::uint64_t statement = 1;
  for (bool refused = true; refused; ++statement) {
    ASSERT_LT(statement, 60U);
    fail_one(database, statement);
    company_.application().answer(BoxAnswer::kYes);
    refused = company_.application().NewMainBO()->DeleteQuorObject("O04001001");
    company_.heal();
    company_.company().refresh();  // a roll-back that failed leaves the connection broken
    ASSERT_EQ(rows(), refused ? 12 : 6) << statement;
  }
  EXPECT_GT(statement, 12U);
  EXPECT_EQ(rows(), 6);
  EXPECT_EQ(company_.application().desk_top(), std::vector<std::string>{"O04020002"});
}

TEST_P(ObjectDeletionTest, ADeletionThatFailsAtAnyStatementDeletesNothing) {
  company_.given_category("A lygis", {{"2005.01.01", 9.7}});
  std::uint64_t statement = 1;
  for (;; ++statement) {
    fail_one(company_.database(), statement);
    const std::string text = refusal("O04022001");
    company_.heal();
    if (text.empty()) break;
    ASSERT_EQ(text, "ryšys nutrūko");
    ASSERT_EQ(rows_of("categories, category_rows"), 1) << statement;
    ASSERT_LT(statement, 20U);
  }
  EXPECT_GT(statement, 7U);  // the rights, begin, name, use, three deletions, change count, commit
  EXPECT_EQ(rows_of("categories") + rows_of("category_rows"), 0);
}

}  // namespace
}  // namespace quor
