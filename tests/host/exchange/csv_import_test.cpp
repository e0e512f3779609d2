// CSV files on their way in: everything is written or nothing.
#include "host/store/sort_key.h"
#include "tests/support/import_company.h"

namespace quor {
namespace {

class CsvImport : public ImportCompany {};
ON_EVERY_DATABASE(CsvImport);

TEST_P(CsvImport, ReadsWhatPeopleAndTablesWrite) {
  const std::string row = "2,2008-01-16,VD,7.5\r\n";
  const struct {
    const char* name;
    std::string text;
    std::string rows;
  } kCases[] = {
      {"commas and line feeds", kTime + "2,2008-01-16,VD,7.5\n", row},
      {"semicolons, CR LF, a byte order mark, a decimal comma",
       "\xEF\xBB\xBF"
       "employee_id;date;time_code;hours\r\n2;2008-01-16;VD;7,5\r\n",
       row},
      {"no line end", kTime + "2,2008-01-16,VD,7.5", row},
      {"everything in quotes",
       "\"employee_id\",\"date\",\"time_code\",\"hours\"\n\"2\",\"2008-01-16\",\"VD\",\"7,5\"\n", row},
      {"other order, code by number, date with points", "hours,time_code,employee_id,date\n7.5,2,2,2008.1.16\n", row},
      {"empty lines", "\n\n" + kTime + "\n2,2008-01-16,VD,7.5\n\n\n", row},
      {"a whole month", kTime + "2,2008.1,FD,1e2\n", "2,2008-01,FD,100\r\n"},
      {"a code whose text would mislead", kTime + "2,2008-01,3,8\n2,2008-02,A,8\n",
       "2,2008-01,3,8\r\n2,2008-02,A,8\r\n"},
      {"a header alone", kTime, ""},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(faults_of({{"worked_time", c.text}}), "");
    EXPECT_EQ(exported("worked_time"),
              "employee_id,date,time_code,hours\r\n1,2007-12,FD,160\r\n1,2008-01-15,FD,8\r\n" + c.rows);
    database().execute("DELETE FROM worked_time WHERE employee_id = 2");
  }
}

TEST_P(CsvImport, ChangesWhatDiffersAddsWhatIsNewAndLeavesTheRest) {
  const auto one = [&](const std::string& sql) {
    return null_to_text(database().read(sql, {{"Text", FieldType::kText}})->field("Text"));
  };
  database().execute("UPDATE employees SET changed_by = 'kitas', row_version = 7");
  const auto done = bring({{"employees", "name,id,department_id\nŽilinas,1,1\nČepienė,2,1\nAras,9,2\n"}});
  ASSERT_EQ(done.size(), 1U);
  EXPECT_EQ(std::vector({done[0].added, done[0].changed, done[0].unchanged}), std::vector<std::size_t>({1, 1, 1}));
  EXPECT_EQ(exported("employees"),
            "id,department_id,name,usr_acc_date\r\n1,1,Žilinas,2005-01-31\r\n2,1,Čepienė,\r\n9,2,Aras,\r\n");
  const auto guard = [&](const char* id) {
    return one(std::string("SELECT row_version || ' ' || changed_by FROM employees WHERE id = ") + id);
  };
  EXPECT_EQ(guard("1") + ", " + guard("2") + ", " + guard("9"), "7 kitas, 8 testuotoja, 1 testuotoja");
  EXPECT_EQ(one("SELECT sort_key FROM employees WHERE id = 2"), lithuanian_sort_key("Čepienė"));
  EXPECT_EQ(database().reserve_ids("employees"), 10);
  EXPECT_EQ(database().reserve_ids("constant_types"), 3);

  // A day's hours are replaced, the month's stay apart; a value taken away is taken away.
  bring({{"worked_time", kTime + "1,2008-01-15,1,6\n1,2008-01,FD,5\n"},
         {"employees", "id,department_id,name,usr_acc_date\n1,1,Žilinas,\n"}});
  EXPECT_EQ(exported("worked_time"),
            "employee_id,date,time_code,hours\r\n1,2007-12,FD,160\r\n1,2008-01-15,FD,6\r\n1,2008-01,FD,5\r\n");
  EXPECT_EQ(count(database(), "employees WHERE usr_acc_date IS NULL"), 3);
}

TEST_P(CsvImport, RowsThatComeInAreAChangeOfTheRecordTheyArePartOf) {
  const auto versions = [&] {
    const auto rows = database().read("SELECT row_version, changed_by FROM categories ORDER BY id",
                                      {{"Version", FieldType::kInt32}, {"User", FieldType::kText}});
    std::string text;
    for (; !rows->Eof(); rows->MoveNext()) {
      text += rows->field("Version").to_text() + null_to_text(rows->field("User")).substr(0, 1) + " ";
    }
    return text;
  };
  const std::string header = "id,guid,category_id,factor\n";
  bring({{"categories", "id,guid,name\n1,A,a\n2,B,b\n3,C,c\n"}});
  database().execute("UPDATE categories SET changed_by = 'ona'");
  const std::pair<std::string, const char*> steps[] = {
      {"1,R1,1,5\n2,R2,2,6\n", "2t 2t 1o "},  // new rows
      {"1,R1,1,5\n2,R2,2,6\n", "2t 2t 1o "},  // nothing differs
      {"1,R1,1,7\n2,R2,2,6\n", "3t 2t 1o "},
      {"2,R2,3,6\n", "3t 3t 2t "},  // a row that moves leaves one and comes to another
  };
  for (const auto& [rows, expected] : steps) {
    bring({{"category_rows", header + rows}});
    EXPECT_EQ(versions(), expected) << rows;
  }
}

TEST_P(CsvImport, CommitsNothingWhenNothingDiffers) {
  const std::string before = everything();
  std::vector<Source> same;
  for (const StoredTable& table : stored_tables()) same.push_back({table.name.data(), export_table(guard_, table)});
  for (const ImportedTable& done : bring(same)) EXPECT_EQ(done.added + done.changed, 0U) << done.source.file;
  EXPECT_EQ(everything(), before);
}

TEST_P(CsvImport, TakesFilesThatReferToEachOtherInAnyOrder) {
  EXPECT_EQ(faults_of({{"worked_time", kTime + "5,2008-01,NN,8\n"},
                       {"employees", "id,department_id,name\n5,11,A\n"},
                       {"indications", "id,indication_code,code_id,code,code_name\n2,WorkTime,2,NN,b\n"},
                       {"departments", kDepartments + "12,13,C\n11,12,B\n13,2,D\n"}}),
            "");
  EXPECT_EQ(count(database(), "worked_time WHERE time_code_id = 2 AND employee_id = 5"), 1);
  std::string chain = kDepartments;  // deeper than a batch, each below the one after it
  for (std::int32_t n = 100; n < 700; ++n)
    chain += std::to_string(n) + "," + std::to_string(n == 699 ? 2 : n + 1) + ",X\n";
  EXPECT_EQ(faults_of({{"departments", chain}}), "");
  // What a broken file would have brought is not known: only its own faults are told.
  EXPECT_EQ(faults_of({{"worked_time", kTime + "6,2008-01,NN,8\n"},
                       {"employees", "id,department_id,name\n7,11,A\n6,11,\"B\n"},
                       {"departments", kDepartments + "a,,C\n"}}),
            "departments.csv:2: stulpelis „id“: „a“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)\n"
            "employees.csv:3: kabutės neuždarytos");
}

TEST_P(CsvImport, IsWholeOrNotThereAtAllWhateverFails) {
  const std::vector<Source> kSources = {{"departments", kDepartments + "1,,Kitas\n3,2,C\n"},
                                        {"employees", "id,department_id,name\n1,3,B\n5,3,A\n"},
                                        {"worked_time", kTime + "1,2008-01-15,FD,1\n5,2008-01,FD,8\n"}};
  const std::string before = everything();
  bool done = false;
  std::uint64_t at = 1;
  for (; !done; ++at) {
    SCOPED_TRACE(at);
    ASSERT_LT(at, 100U);
    fail_one(database(), at);
    done = !refusal_of([&] { bring(kSources); }).fault;
    database().set_fault(nullptr);
    EXPECT_EQ(everything() == before, !done);
  }
  EXPECT_GT(at, 20U);
}

TEST_P(CsvImport, NeedsStatementsByTheBatchNotByTheRow) {
  const auto statements = [&](int year, int rows, const char* hours) {
    std::string text = kTime;
    for (int row = 0; row < rows; ++row)
      text += "1," + date_text(add_days(Date::from_ymd(year, 1, 1), row)) + ",FD," + hours + "\n";
    const std::uint64_t before = database().statements();
    bring({{"worked_time", text}});
    return database().statements() - before;
  };
  const auto few = statements(2010, 10, "1");
  constexpr std::uint64_t kBatches = 3000 / 33 + 1;  // 33 rows of six values a statement, or more
  EXPECT_LE(statements(2100, 3000, "1"), few + kBatches);
  EXPECT_LE(statements(2100, 3000, "2"), few + kBatches + 3);
}

}  // namespace
}  // namespace quor
