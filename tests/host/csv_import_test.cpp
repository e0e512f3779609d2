// CSV files on their way in: all that is wrong with them is told with its line, and everything is written or nothing.
#include <fstream>
#include <gtest/gtest.h>

#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "host/store/sort_key.h"
#include "tests/host/company_place.h"

namespace quor {
namespace {

struct Source {
  const char* table;
  std::string text;
};

class CsvImport : public testing::TestWithParam<Backend> {
 protected:
  // Two departments and two people; the work-time codes FD (1), VD (2), 8 (3) and A (8); December 2007 is closed, with
  // the document 5 in it.
  CsvImport() {
    bring({{"departments", "id,parent_id,name\n1,,Skyrius\n2,1,Poskyris\n"},
           {"employees", "id,department_id,name,usr_acc_date\n1,1,Žilinas,2005-01-31\n2,2,Čepaitė,\n"},
           {"constant_types", "id,code,name\n1,MMA,Alga\n2,MVA,Valanda\n"},
           {"indications",
            "id,indication_code,code_id,code,code_name\n1,WorkTime,1,FD,a\n2,WorkTime,2,VD,b\n3,WorkTime,3,8,c\n"
            "4,WorkTime,8,A,d\n5,Other,9,XX,e\n"},
           {"worked_time", "employee_id,date,time_code,hours\n1,2007-12,FD,160\n1,2008-01-15,FD,8\n"},
           {"documents",
            "id,guid,employee_id,month,check_code,check_message\n5,D5,1,2007-12,0,\"\"\n6,D6,1,2008-01,0,\"\"\n"},
           {"closed_months", "month,closed_by,closed_at\n2007-12,O,2008.01.05 09:00\n"}});
  }

  std::vector<ImportedTable> bring(const std::vector<Source>& sources) {
    std::vector<ImportSource> files;
    for (const Source& source : sources) {
      files.push_back({find_exchanged_table(source.table), folder_.path(std::string(source.table) + ".csv")});
      std::ofstream(files.back().file, std::ios::binary) << source.text;
    }
    return import_tables(*database_, files, "testuotoja");
  }

  // The faults of the import, a line each, files named without their folder; "" when there are none.
  std::string faults_of(const std::vector<Source>& sources) {
    try {
      bring(sources);
      return "";
    } catch (const ImportRefused& refused) {
      std::string text = refused.what();
      const std::string folder = folder_.path("");
      for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder)) text.erase(at, folder.size());
      return text;
    }
  }

  std::string exported(const char* table) { return export_table(*database_, *find_exchanged_table(table)); }
  std::string everything() {
    std::string all = std::to_string(database_->change_count()) + "\n";
    for (const ExchangedTable& table : exchanged_tables()) all += export_table(*database_, table);
    return all;
  }

  TemporaryFolder folder_;
  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  std::unique_ptr<Database> database_ = Database::create(place_->address());
};
INSTANTIATE_TEST_SUITE_P(On, CsvImport, testing::ValuesIn(backends()),
                         [](const auto& each) { return each.param.name; });

const std::string kTime = "employee_id,date,time_code,hours\n";
const std::string kDepartments = "id,parent_id,name\n";
const std::string kTypes = "id,code,name\n";

TEST_P(CsvImport, TellsEveryFaultWithItsLineAndWritesNothing) {
  const struct {
    const char* name;
    Source source;
    const char* faults;
  } kCases[] = {
      {"text for a number",
       {"worked_time", kTime + "1,2008-01-16,FD,8\n2,2008-01-16,FD,abc\n"},
       "worked_time.csv:3: stulpelis „hours“: „abc“ nėra skaičius"},
      {"a blank in a number",
       {"worked_time", kTime + "1,2008-01-16,FD,1 000\n"},
       "worked_time.csv:2: stulpelis „hours“: „1 000“ nėra skaičius"},
      {"a group sign",
       {"worked_time", kTime + "1,2008-01-16,FD,\"1.000,5\"\n"},
       "worked_time.csv:2: stulpelis „hours“: „1.000,5“ nėra skaičius"},
      {"no finite number",
       {"worked_time", kTime + "1,2008-01-16,FD,inf\n1,2008-01-17,FD,1e999\n"},
       "worked_time.csv:2: stulpelis „hours“: „inf“ nėra skaičius\n"
       "worked_time.csv:3: stulpelis „hours“: „1e999“ nėra skaičius"},
      {"a required cell is empty",
       {"worked_time", kTime + "1,2008-01-16,FD,\n"},
       "worked_time.csv:2: stulpelis „hours“: trūksta reikšmės"},
      {"an empty text for a number",
       {"worked_time", kTime + "1,2008-01-16,FD,\"\"\n"},
       "worked_time.csv:2: stulpelis „hours“: „“ nėra skaičius"},
      {"a decimal comma that parts cells",
       {"worked_time", kTime + "1,2008-01-16,FD,7,5\n"},
       "worked_time.csv:2: langelių 5, o stulpelių 4"},
      {"a cell too few", {"worked_time", kTime + "1,2008-01-16,FD\n"}, "worked_time.csv:2: langelių 3, o stulpelių 4"},
      {"not in the calendar",
       {"worked_time", kTime + "1,2008-02-30,FD,8\n1,2008-13,FD,8\n"},
       "worked_time.csv:2: stulpelis „date“: „2008-02-30“ nėra nei diena (2008-01-31), nei mėnuo (2008-01)\n"
       "worked_time.csv:3: stulpelis „date“: „2008-13“ nėra nei diena (2008-01-31), nei mėnuo (2008-01)"},
      {"a time of day",
       {"employees", "id,department_id,name,usr_acc_date\n1,1,A,2008-01-31 08:00\n"},
       "employees.csv:2: stulpelis „usr_acc_date“: „2008-01-31 08:00“ nėra data (rašykite, pvz., 2008-01-31)"},
      {"a day for a month",
       {"month_norms", "month,hours\n2008-01-01,168\n"},
       "month_norms.csv:2: stulpelis „month“: „2008-01-01“ nėra mėnuo (rašykite, pvz., 2008-01)"},
      {"no such code; a code of something else",
       {"worked_time", kTime + "1,2008-01-16,ZZ,8\n1,2008-01-16,XX,8\n"},
       "worked_time.csv:2: stulpelis „time_code“: „ZZ“: tokio darbo laiko kodo nėra\n"
       "worked_time.csv:3: stulpelis „time_code“: „XX“: tokio darbo laiko kodo nėra"},
      {"the code of one, the number of another",
       {"worked_time", kTime + "1,2008-01-16,8,8\n"},
       "worked_time.csv:2: stulpelis „time_code“: „8“: tokių darbo laiko kodų yra keli"},
      {"no such person",
       {"worked_time", kTime + "99,2008-01-16,FD,8\n"},
       "worked_time.csv:2: stulpelis „employee_id“: „99“: lentelėje „employees“ tokio įrašo nėra"},
      {"an ID below 1",
       {"worked_time", kTime + "0,2008-01-16,FD,8\n"},
       "worked_time.csv:2: stulpelis „employee_id“: „0“ nėra ID (sveikasis skaičius nuo 1)"},
      {"no ID left behind it",
       {"constant_types", kTypes + "2147483647,X,x\n"},
       "constant_types.csv:2: stulpelis „id“: „2147483647“ nėra ID (sveikasis skaičius nuo 1)"},
      {"a key twice, once by number",
       {"worked_time", kTime + "1,2008-01,FD,8\n1,2008-01-01,FD,8\n1,2008-01,1,9\n"},
       "worked_time.csv:4: stulpelis „time_code“: „employee_id 1, date 2008-01, time_code 1“ jau yra 2 eilutėje"},
      {"a day of a closed month",
       {"worked_time", kTime + "2,2007-12-31,FD,8\n2,2008-01-01,FD,8\n"},
       "worked_time.csv:2: stulpelis „date“: mėnuo uždarytas"},
      {"a change in a closed month",
       {"worked_time", kTime + "1,2007-12,FD,161\n"},
       "worked_time.csv:2: stulpelis „date“: mėnuo uždarytas"},
      {"a document into a closed month, and one out of it",
       {"documents", "id,guid,employee_id,month,check_code,check_message\n7,D7,2,2007-12,0,a\n5,D5,1,2008-02,0,a\n"},
       "documents.csv:2: stulpelis „month“: mėnuo uždarytas\ndocuments.csv:3: stulpelis „month“: mėnuo uždarytas"},
      {"a row of a closed document",
       {"time_rows",
        "id,guid,document_id,salary_extra_oid,position_id,time_code_id,hours\n"
        "1,T1,6,O1,,1,8\n2,T2,5,O1,,1,8\n"},
       "time_rows.csv:3: stulpelis „document_id“: mėnuo uždarytas"},
      {"a code that another record has",
       {"constant_types", kTypes + "3,MMA,x\n"},
       "constant_types.csv:2: stulpelis „code“: „code MMA“ jau turi kitas įrašas: id 1"},
      {"codes that change hands",
       {"constant_types", kTypes + "1,MVA,x\n2,MMA,y\n"},
       "constant_types.csv:2: stulpelis „code“: „code MVA“ jau turi kitas įrašas: id 2\n"
       "constant_types.csv:3: stulpelis „code“: „code MMA“ jau turi kitas įrašas: id 1"},
      {"a code twice",
       {"constant_types", kTypes + "3,X,x\n4,X,y\n"},
       "constant_types.csv:3: stulpelis „code“: „code X“ jau yra 2 eilutėje"},
      {"neither yes nor no",
       {"users", "id,name,administrator\n1,A,2\n2,B,1\n3,C,-1\n"},
       "users.csv:2: stulpelis „administrator“: „2“ nėra 0 arba 1\n"
       "users.csv:4: stulpelis „administrator“: „-1“ nėra 0 arba 1"},
      {"no such department",
       {"departments", kDepartments + "3,4,C\n"},
       "departments.csv:2: stulpelis „parent_id“: „4“: lentelėje „departments“ tokio įrašo nėra"},
      {"a department of its own",
       {"departments", kDepartments + "3,3,C\n"},
       "departments.csv:2: stulpelis „parent_id“: padaliniai priklausytų vienas kitam ratu"},
      {"a ring through a stored one",
       {"departments", kDepartments + "1,2,A\n3,1,C\n"},
       "departments.csv:2: stulpelis „parent_id“: padaliniai priklausytų vienas kitam ratu\n"
       "departments.csv:3: stulpelis „parent_id“: padaliniai priklausytų vienas kitam ratu"},
      {"columns unknown, twice and missing",
       {"departments", "id,vardas,id\n1,A,1\n"},
       "departments.csv:1: nežinomas stulpelis „vardas“\ndepartments.csv:1: stulpelis „id“ yra du kartus\n"
       "departments.csv:1: trūksta stulpelio „name“"},
      {"nothing at all", {"departments", ""}, "departments.csv:1: failas tuščias: nėra stulpelių vardų"},
      {"lines inside cells and empty lines count",
       {"departments", kDepartments + "3,,\"A\r\nB\nC\"\r\n\r\nx,,D\n"},
       "departments.csv:6: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1)"},
      {"a cell that begins below its record",
       {"constant_types", "code,name,id\n\"X\nY\",\"x\n\",z\n"},
       "constant_types.csv:4: stulpelis „id“: „z“ nėra ID (sveikasis skaičius nuo 1)"},
      {"quotes that never close, and a fault before",
       {"departments", kDepartments + "x,,A\n3,,\"B\n4,,C\n"},
       "departments.csv:2: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1)\n"
       "departments.csv:3: kabutės neuždarytos"},
      {"quotes in a bare text",
       {"departments", kDepartments + "3,,A\"B\n"},
       "departments.csv:2: kabutės tekste be kabučių arba tekstas už kabučių"},
      {"text behind the quotes",
       {"departments", kDepartments + "3,,\"A\" B\n"},
       "departments.csv:2: kabutės tekste be kabučių arba tekstas už kabučių"},
      {"another encoding",
       {"departments", kDepartments + "3,,\xD0ilinas\n"},
       "departments.csv:2: stulpelis „name“: tekstas ne UTF-8 koduotės"},
      {"a zero character",
       {"departments", kDepartments + "3,,A" + std::string(1, '\0') + "\n"},
       "departments.csv:2: stulpelis „name“: tekstas ne UTF-8 koduotės"},
  };
  const std::string before = everything();
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(faults_of({c.source}), c.faults);
    EXPECT_EQ(everything(), before);
  }
}

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
    database_->execute("DELETE FROM worked_time WHERE employee_id = 2");
  }
}

TEST_P(CsvImport, ChangesWhatDiffersAddsWhatIsNewAndLeavesTheRest) {
  const auto one = [&](const std::string& sql) {
    return null_to_text(database_->read(sql, {{"Text", FieldType::kText}})->field("Text"));
  };
  database_->execute("UPDATE employees SET changed_by = 'kitas', row_version = 7");
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
  EXPECT_EQ(database_->reserve_ids("employees"), 10);
  EXPECT_EQ(database_->reserve_ids("constant_types"), 3);

  // A day's hours are replaced, the month's stay apart; a value taken away is taken away.
  bring({{"worked_time", kTime + "1,2008-01-15,1,6\n1,2008-01,FD,5\n"},
         {"employees", "id,department_id,name,usr_acc_date\n1,1,Žilinas,\n"}});
  EXPECT_EQ(exported("worked_time"),
            "employee_id,date,time_code,hours\r\n1,2007-12,FD,160\r\n1,2008-01-15,FD,6\r\n1,2008-01,FD,5\r\n");
  EXPECT_EQ(count(*database_, "employees WHERE usr_acc_date IS NULL"), 3);
}

TEST_P(CsvImport, RowsThatComeInAreAChangeOfTheRecordTheyArePartOf) {
  const auto versions = [&] {
    const auto rows = database_->read("SELECT row_version, changed_by FROM categories ORDER BY id",
                                      {{"Version", FieldType::kInt32}, {"User", FieldType::kText}});
    std::string text;
    for (; !rows->Eof(); rows->MoveNext()) {
      text += rows->field("Version").to_text() + null_to_text(rows->field("User")).substr(0, 1) + " ";
    }
    return text;
  };
  const std::string header = "id,guid,category_id,factor\n";
  bring({{"categories", "id,guid,name\n1,A,a\n2,B,b\n3,C,c\n"}});
  database_->execute("UPDATE categories SET changed_by = 'ona'");
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
  for (const ExchangedTable& table : exchanged_tables())
    same.push_back({table.name.data(), export_table(*database_, table)});
  for (const ImportedTable& done : bring(same)) EXPECT_EQ(done.added + done.changed, 0U) << done.source.file;
  EXPECT_EQ(everything(), before);
}

TEST_P(CsvImport, TakesFilesThatReferToEachOtherInAnyOrder) {
  EXPECT_EQ(faults_of({{"worked_time", kTime + "5,2008-01,NN,8\n"},
                       {"employees", "id,department_id,name\n5,11,A\n"},
                       {"indications", "id,indication_code,code_id,code,code_name\n2,WorkTime,2,NN,b\n"},
                       {"departments", kDepartments + "12,13,C\n11,12,B\n13,2,D\n"}}),
            "");
  EXPECT_EQ(count(*database_, "worked_time WHERE time_code_id = 2 AND employee_id = 5"), 1);
  std::string chain = kDepartments;  // deeper than a batch, each below the one after it
  for (std::int32_t n = 100; n < 700; ++n)
    chain += std::to_string(n) + "," + std::to_string(n == 699 ? 2 : n + 1) + ",X\n";
  EXPECT_EQ(faults_of({{"departments", chain}}), "");
  // What a broken file would have brought is not known: only its own faults are told.
  EXPECT_EQ(faults_of({{"worked_time", kTime + "6,2008-01,NN,8\n"},
                       {"employees", "id,department_id,name\n7,11,A\n6,11,\"B\n"},
                       {"departments", kDepartments + "a,,C\n"}}),
            "departments.csv:2: stulpelis „id“: „a“ nėra ID (sveikasis skaičius nuo 1)\n"
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
    database_->set_fault([last = database_->statements() + at](std::uint64_t number) {
      if (number == last) throw StoreError(StoreFault::kFailed, "nutrūko");
    });
    done = !refusal_of([&] { bring(kSources); }).fault;
    database_->set_fault(nullptr);
    EXPECT_EQ(everything() == before, !done);
  }
  EXPECT_GT(at, 20U);
}

TEST_P(CsvImport, NeedsStatementsByTheBatchNotByTheRow) {
  const auto statements = [&](std::int32_t first, std::int32_t rows, const char* hours) {
    std::string text = kTime;
    for (std::int32_t row = 0; row < rows; ++row)
      text += "1," + std::to_string(first + row) + "-06," + "FD," + hours + "\n";
    const std::uint64_t before = database_->statements();
    bring({{"worked_time", text}});
    return database_->statements() - before;
  };
  const auto few = statements(2010, 10, "1");
  constexpr std::uint64_t kBatches = 3000 / 33 + 1;  // 33 rows of six values a statement, or more
  EXPECT_LE(statements(2100, 3000, "1"), few + kBatches);
  EXPECT_LE(statements(2100, 3000, "2"), few + kBatches + 3);
}

}  // namespace
}  // namespace quor
