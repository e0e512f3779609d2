// Which table and columns the head of a file means, and what an import would do.
#include "host/exchange/table_heads.h"

#include <fstream>
#include <set>

#include "tests/support/import_company.h"

namespace quor {
namespace {

TEST(TableHeads, WhatPeopleCallATableOrColumnLeadsToItAlone) {
  std::set<std::string> tables;
  for (const StoredTable& table : stored_tables()) {
    SCOPED_TRACE(table.name);
    for (const std::string_view words : {table.name, table.caption}) {
      EXPECT_EQ(table_called(words), &table);
      EXPECT_TRUE(tables.insert(folded_name(words)).second) << words;
    }
    for (std::size_t at = 0; at < table.columns.size(); ++at) {
      EXPECT_EQ(column_called(table, table.columns[at].name), at) << table.columns[at].name;
      EXPECT_EQ(column_called(table, table.columns[at].caption), at) << table.columns[at].caption;
    }
  }
  EXPECT_EQ(table_called("DARBO LAIKAS"), &stored_table("worked_time"));
  EXPECT_EQ(table_called("menesiu_normos"), &stored_table("month_norms"));
  EXPECT_EQ(table_called(""), nullptr);
}

TEST(TableHeads, TheHeadChoosesTheTableOrSaysWhatKeepsItFromThat) {
  const TemporaryFolder folder;
  const HeadMapping foreign = read_mapping(R"({"columns": {"Nr.": "darbuotojas", "Val.": "hours", "%": ""}})", "a");
  const struct {
    const char* file;
    const char* head;
    HeadMapping mapping;
    const char* table;  // or what is said
  } kCases[] = {
      {"a.csv", "id,department_id,name", {}, "employees"},
      {"a.csv", "ID;Aukstesnis padalinys;PAVADINIMAS", {}, "departments"},
      {"a.csv", "Darbuotojas,Diena arba mėnuo,laiko kodas,hours", {}, "worked_time"},
      {"a.csv", "Nr.;date;time_code;VAL;%", foreign, "worked_time"},
      {"Darbo užmokesčio kodai.csv", "id,code,name", {}, "salary_codes"},
      {"a.csv", "x", {.table = "Padaliniai", .columns = {}}, "departments"},
      {"employees.csv", "id,code,name", {}, "tinka kelioms lentelėms: „Darbo užmokesčio konstantos“"},
      {"a.csv",
       "employee_id,date,time_code,val",
       {},
       "artimiausia „Darbo laikas“ (worked_time): trūksta stulpelio „hours“ (valandos), nežinomas stulpelis „val“"},
      {"a.csv", "Nr.,date,time_code,hours,%", {}, "nežinomas stulpelis „Nr.“, nežinomas stulpelis „%“"},
      {"a.csv", "1,2008-01,FD,8", {}, "pirmoje eilutėje turi būti stulpelių vardai"},
      {"a.csv", "", {}, "failas tuščias"},
      {"a.csv", "id", {.table = "kita", .columns = {}}, "nežinoma lentelė „kita“"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.head);
    const std::string file = folder.path(c.file);
    std::ofstream(file) << c.head << "\n";
    try {
      EXPECT_EQ(table_of_file(file, c.mapping).name, c.table);
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(c.table), std::string::npos) << error.what();
    }
  }
}

TEST(TableHeads, AMappingThatIsNoneSaysWhy) {
  for (const char* text :
       {"", "[]", "{}", R"({"columns": []})", R"({"columns": {"a": 1}})", R"({"table": 1, "columns": {}})"}) {
    EXPECT_THROW(read_mapping(text, "a.json"), std::runtime_error) << text;
  }
  const HeadMapping mapping{.table = "worked_time", .columns = {{"Tab. \"Nr.\"", "employee_id"}, {"Ė", ""}}};
  const HeadMapping again = read_mapping(mapping_json(mapping), "a.json");
  EXPECT_EQ(again.table, mapping.table);
  EXPECT_EQ(again.columns, mapping.columns);
}

class ImportTrial : public ImportCompany {};
ON_EVERY_DATABASE(ImportTrial);

TEST_P(ImportTrial, SaysWhatWouldComeInAndWritesNothing) {
  const std::string before = exported("worked_time");
  const auto changes = database().change_count();
  const std::string file = folder_.path("a.csv");
  std::ofstream(file)
      << "Nr.;date;time_code;hours;Pastaba\n1;2008-01-15;FD;6,5;x\n1;2007-12;FD;160;\n2;2008-01;VD;4;y\n";
  const ImportSource source{
      &stored_table("worked_time"), file, {.table = {}, .columns = {{"Nr.", "employee_id"}, {"Pastaba", ""}}}};
  const auto tried = import_tables(guard_, {source}, IntoClosed::kRefused, ImportRun::kTry);
  ASSERT_EQ(tried.size(), 1U);
  EXPECT_EQ(std::vector({tried[0].added, tried[0].changed, tried[0].unchanged}), std::vector<std::size_t>({1, 1, 1}));
  std::string lines;
  for (const ImportedRow& row : tried[0].first) lines += line_of(row) + "\n";
  EXPECT_EQ(lines,
            "2: keičiama (darbuotojas 1, diena arba mėnuo 2008-01-15, laiko kodas FD): valandos 8 → 6.5\n"
            "4: nauja (darbuotojas 2, diena arba mėnuo 2008-01, laiko kodas VD): valandos 4\n");
  EXPECT_EQ(exported("worked_time"), before);
  EXPECT_EQ(database().change_count(), changes);
  EXPECT_EQ(import_tables(guard_, {source})[0].changed, 1U);
  EXPECT_NE(exported("worked_time"), before);
}

}  // namespace
}  // namespace quor
