// A company as CSV files, and the same company again from them.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "host/sample/sample_company.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

std::string exported(TestCompany& company, const char* table) {
  return export_table(company.application().guard(), *find_stored_table(table));
}

TEST(CsvExport, WritesEveryKindOfCellSoThatItReadsBack) {
  TestCompany company, again;
  Database* const database = &company.database();
  database->execute("INSERT INTO departments (id, name, sort_key) VALUES (1, 'A', '')");
  database->execute("INSERT INTO constant_types (id, code, name) VALUES (1, 'A', ''), (2, 'a,b', 'c;d')");
  database->execute("INSERT INTO constant_types (id, code, name) VALUES (3, :p0, :p1)", {"\"", "q\"\"q, "});
  database->execute("INSERT INTO constant_types (id, code, name) VALUES (4, :p0, ' Ąž ')", {"ė"});
  const std::string types =
      "id,code,name\r\n1,A,\"\"\r\n2,\"a,b\",\"c;d\"\r\n3,\"\"\"\",\"q\"\"\"\"q, \"\r\n4,ė, Ąž \r\n";
  EXPECT_EQ(exported(company, "constant_types"), types);

  database->execute("INSERT INTO categories (id, guid, name, row_version) VALUES (1, 'G', NULL, 5), (2, 'H', '', 6)");
  database->execute(
      "INSERT INTO category_rows (id, guid, category_id, date_from, factor) VALUES (2, 'a', 1, 39478, 0.1),"
      " (1, 'b', 1, NULL, NULL), (3, 'c', 2, 38383, 61.725010000000005), (4, 'd', 2, 2, 1e-7), (5, 'e', 2, 401768, "
      "3)");
  database->execute("INSERT INTO employees (id, department_id, name, sort_key, row_version) VALUES (1, 1, 'A', '', 1)");
  database->execute("INSERT INTO month_faults (employee_id, month, reason) VALUES (1, 39448, :p0)", {"=r\r\nn\nq\r"});
  EXPECT_EQ(exported(company, "categories"), "id,guid,name\r\n1,G,\r\n2,H,\"\"\r\n");
  EXPECT_EQ(exported(company, "category_rows"),
            "id,guid,category_id,date_from,factor\r\n1,b,1,,\r\n2,a,1,2008-01-31,0.1\r\n"
            "3,c,2,2005-01-31,61.725010000000005\r\n4,d,2,1900-01-01,0.0000001\r\n5,e,2,2999-12-31,3\r\n");
  EXPECT_EQ(exported(company, "month_faults"), "employee_id,month,reason\r\n1,2008-01,\"'=r\r\nn\nq\r\"\r\n");

  const TemporaryFolder folder;
  export_company(company.application().guard(), folder.path("a"));
  import_tables(again.application().guard(), sources_of_folder(folder.path("a")));
  for (const char* table : {"constant_types", "categories", "category_rows", "month_faults"})
    EXPECT_EQ(exported(again, table), exported(company, table));
}

TEST(CsvExport, GivesNoSpreadsheetAFormulaAndEveryTextBack) {
  const struct {
    const char *text, *cell;
  } kCases[] = {{"=1+1", "'=1+1"},    {"+370", "'+370"}, {"-5,25", "\"'-5,25\""}, {"@a", "'@a"},
                {"\tx", "'\tx"},      {"\r", "\"'\r\""}, {"'=1", "''=1"},         {"''-", "'''-"},
                {"'90 m.", "'90 m."}, {"''", "''"},      {"a=1", "a=1"},          {" =1", " =1"}};
  TestCompany company, again;
  Database* const database = &company.database();
  std::string expected = "id,code,name\r\n";
  std::int32_t id = 0;
  for (const auto& c : kCases) {
    database->execute("INSERT INTO constant_types (id, code, name) VALUES (:p0, :p1, :p2)",
                      {++id, std::to_string(id), c.text});
    expected += std::to_string(id) + "," + std::to_string(id) + "," + c.cell + "\r\n";
  }
  EXPECT_EQ(exported(company, "constant_types"), expected);

  database->execute(
      "INSERT INTO constant_values (id, constant_type_id, date_from, value) VALUES (1, 1, 39478, 100000), (2, 2, 1, "
      "-5.25)");
  const StoredTable& values = *find_stored_table("constant_values");
  EXPECT_EQ(export_table(company.application().guard(), values, kSpreadsheetCsv),
            "\xEF\xBB\xBFid;constant_type_id;date_from;value\r\n1;1;2008-01-31;100000\r\n2;2;1899-12-31;-5,25\r\n");
  const TemporaryFolder folder;
  // What old data hold goes out, and does not come in again.
  database->execute("DELETE FROM constant_types WHERE id IN (5, 6)");
  database->execute("UPDATE constant_values SET date_from = 2, value = 5.25 WHERE id = 2");
  export_company(company.application().guard(), folder.path("a"), kSpreadsheetCsv);
  import_tables(again.application().guard(), sources_of_folder(folder.path("a")));
  for (const char* table : {"constant_types", "constant_values"})
    EXPECT_EQ(exported(again, table), exported(company, table));
}

class CsvCompany : public testing::TestWithParam<Backend> {};
INSTANTIATE_TEST_SUITE_P(On, CsvCompany, testing::ValuesIn(backends()),
                         [](const auto& each) { return each.param.name; });

TEST_P(CsvCompany, MovesWholeIntoAnEmptyOne) {
  TestCompany company, to(GetParam());
  Database* const from = &company.database();
  make_sample_company(*from, {40, 3, nullptr});
  from->execute("INSERT INTO month_norms (month, hours) VALUES (39448, 168)");
  from->execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, 'O', '2008.02.05 09:00')");
  from->execute(
      "INSERT INTO worked_time (id, employee_id, month, day, time_code_id, hours) VALUES (4, 2, 39448, 39450, 1, 8.1),"
      " (9, 1, 39448, NULL, 2, 0.2)");
  from->execute(
      "INSERT INTO documents (id, guid, employee_id, month, check_code, check_message) VALUES (1, 'D', 1, 39448, 0, "
      "'')");
  from->execute(
      "INSERT INTO time_rows (id, guid, document_id, salary_extra_oid, position_id, time_code_id, hours)"
      " VALUES (1, 'T', 1, 'O', 1, 1, 160)");
  from->execute(
      "INSERT INTO salary_rows (id, guid, document_id, time_row_guid, sum_type, sum_a, percentage,"
      " personal_extra_charge_id, salary_code_id) VALUES (1, 'S', 1, 'T', 2, 1260, NULL, NULL, NULL)");
  from->execute("INSERT INTO users (id, name, administrator) VALUES (1, 'testuotoja', 1), (2, 'Jonas', 0)");
  from->execute(
      "INSERT INTO rights (user_id, component, can_view, can_create, can_delete, can_print, can_write)"
      " VALUES (2, 'COfficeEmployees', 1, 0, 0, 1, 0)");
  from->execute("INSERT INTO month_faults (employee_id, month, reason) VALUES (2, 39448, 'a')");
  from->execute(
      "INSERT INTO document_positions (id, document_id, category, factor, tariff, share, month_salary)"
      " VALUES (1, 1, 'A', 9.7, 130, 1, 1260)");
  from->execute(
      "INSERT INTO document_settings (guid, line, settings_id, settings_guid, date_from) VALUES ('S', 1, 1, 'G', 2)");
  from->execute(
      "INSERT INTO month_closings (id, month, closed, done_by, done_at, reason) VALUES (1, 39448, 0, 'O', '', 'b')");

  const TemporaryFolder folder;
  export_company(company.application().guard(), folder.path("iš"));
  import_tables(to.application().guard(), sources_of_folder(folder.path("iš")));
  for (const StoredTable& table : stored_tables()) {
    const std::string text = export_table(company.application().guard(), table);
    EXPECT_EQ(export_table(to.application().guard(), table), text);
    EXPECT_GT(text.size(), text.find("\r\n") + 2) << table.name << ": a table without rows proves nothing";
  }
  EXPECT_EQ(to.database().reserve_ids("employees"), 41);
}

TEST(CsvExport, LeavesNoHalfFolderAndMixesNoCompanies) {
  const TemporaryFolder folder;
  TestCompany company;
  const auto text_of = [&](const std::string& name) {
    return error_text([&] { export_company(company.application().guard(), folder.path(name)); });
  };
  EXPECT_EQ(text_of("a"), "no error");
  const std::string before = folder.contents();
  EXPECT_EQ(text_of("a"), "aplankas turi būti naujas arba tuščias: „" + folder.path("a") + "“");
  company.fail_statements(9, "nutrūko");
  EXPECT_EQ(text_of("b"), "nutrūko");
  company.heal();
  EXPECT_EQ(folder.contents(), before);

  const auto sources_text = [&](const std::string& name) {
    return error_text([&] { sources_of_folder(folder.path(name)); });
  };
  std::ofstream(folder.path("a/employes.csv")) << "id\n";
  EXPECT_EQ(sources_text("a"), "failo vardas ne lentelės: „" + folder.path("a/employes.csv") + "“");
  std::filesystem::create_directory(folder.path("c"));
  EXPECT_EQ(sources_text("c"), "aplanke nėra lentelių failų: „" + folder.path("c") + "“");
  EXPECT_EQ(sources_text("d"), "nepavyksta perskaityti aplanko „" + folder.path("d") + "“");
}

// Tables stand behind those that they refer to, and every name that a declaration uses is there.
}  // namespace
}  // namespace quor
