// CSV files on their way in: all that is wrong with them is told with its line, and everything is written or nothing.
#include <fstream>
#include <gtest/gtest.h>

#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "host/store/sort_key.h"
#include "tests/support/company_place.h"
#include "tests/support/text_table.h"

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
      files.push_back({find_stored_table(source.table), folder_.path(std::string(source.table) + ".csv")});
      std::ofstream(files.back().file, std::ios::binary) << source.text;
    }
    return import_tables(guard_, files);
  }

  // The faults of the import, a line each, files named without their folder; "" when there are none. Warnings as
  // "line words text;".
  std::string faults_of(const std::vector<Source>& sources, std::string* warnings = nullptr) {
    try {
      for (const ImportedTable& done : bring(sources)) {
        for (const ImportFault& odd : done.warnings) {
          if (warnings != nullptr) *warnings += std::to_string(odd.line) + " " + odd.column + " " + odd.text + ";";
        }
      }
      return "";
    } catch (const ImportRefused& refused) {
      std::string text = refused.what();
      const std::string folder = folder_.path("");
      for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder)) text.erase(at, folder.size());
      return text;
    }
  }

  std::string exported(const char* table) { return export_table(guard_, *find_stored_table(table)); }
  std::string everything() {
    std::string all = std::to_string(database().change_count()) + "\n";
    for (const StoredTable& table : stored_tables()) all += export_table(guard_, table);
    return all;
  }

  Database& database() { return company_.database(); }

  TemporaryFolder folder_;
  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  Company company_{Database::create(place_->address())};
  Registrations registrations_;
  RightsGuard guard_{company_, registrations_, "testuotoja"};
};
INSTANTIATE_TEST_SUITE_P(On, CsvImport, testing::ValuesIn(backends()),
                         [](const auto& each) { return each.param.name; });

const std::string kTime = "employee_id,date,time_code,hours\n";
const std::string kDepartments = "id,parent_id,name\n";
const std::string kTypes = "id,code,name\n";
const std::string kControl = "tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas)";

TEST_P(CsvImport, TellsEveryFaultWithItsLineAndWritesNothing) {
  const struct {
    const char* name;
    Source source;
    std::string faults;
  } kCases[] = {
      {"text for a number",
       {"worked_time", kTime + "1,2008-01-16,FD,8\n2,2008-01-16,FD,abc\n"},
       "worked_time.csv:3: stulpelis „hours“ (valandos): „abc“ nėra skaičius"},
      {"a blank in a number",
       {"worked_time", kTime + "1,2008-01-16,FD,1 000\n"},
       "worked_time.csv:2: stulpelis „hours“ (valandos): „1 000“ nėra skaičius"},
      {"a group sign",
       {"worked_time", kTime + "1,2008-01-16,FD,\"1.000,5\"\n"},
       "worked_time.csv:2: stulpelis „hours“ (valandos): „1.000,5“ nėra skaičius"},
      {"no finite number",
       {"worked_time", kTime + "1,2008-01-16,FD,inf\n1,2008-01-17,FD,1e999\n"},
       "worked_time.csv:2: stulpelis „hours“ (valandos): „inf“ nėra skaičius\n"
       "worked_time.csv:3: stulpelis „hours“ (valandos): „1e999“ nėra skaičius"},
      {"a required cell is empty",
       {"worked_time", kTime + "1,2008-01-16,FD,\n"},
       "worked_time.csv:2: stulpelis „hours“ (valandos): trūksta reikšmės"},
      {"an empty text for a number",
       {"worked_time", kTime + "1,2008-01-16,FD,\"\"\n"},
       "worked_time.csv:2: stulpelis „hours“ (valandos): „“ nėra skaičius"},
      {"a decimal comma that parts cells",
       {"worked_time", kTime + "1,2008-01-16,FD,7,5\n"},
       "worked_time.csv:2: langelių 5, o stulpelių 4"},
      {"a cell too few", {"worked_time", kTime + "1,2008-01-16,FD\n"}, "worked_time.csv:2: langelių 3, o stulpelių 4"},
      {"not in the calendar",
       {"worked_time", kTime + "1,2008-02-30,FD,8\n1,2008-13,FD,8\n"},
       "worked_time.csv:2: stulpelis „date“ (diena arba mėnuo): „2008-02-30“ nėra nei diena (2008-01-31), nei mėnuo "
       "(2008-01)\n"
       "worked_time.csv:3: stulpelis „date“ (diena arba mėnuo): „2008-13“ nėra nei diena (2008-01-31), nei mėnuo "
       "(2008-01)"},
      {"a time of day",
       {"employees", "id,department_id,name,usr_acc_date\n1,1,A,2008-01-31 08:00\n"},
       "employees.csv:2: stulpelis „usr_acc_date“ (tarnybos pradžia): „2008-01-31 08:00“ nėra data (rašykite, pvz., "
       "2008-01-31)"},
      {"a day for a month",
       {"month_norms", "month,hours\n2008-01-01,168\n"},
       "month_norms.csv:2: stulpelis „month“ (mėnuo): „2008-01-01“ nėra mėnuo (rašykite, pvz., 2008-01)"},
      {"no such code; a code of something else",
       {"worked_time", kTime + "1,2008-01-16,ZZ,8\n1,2008-01-16,XX,8\n"},
       "worked_time.csv:2: stulpelis „time_code“ (laiko kodas): „ZZ“: tokio darbo laiko kodo nėra\n"
       "worked_time.csv:3: stulpelis „time_code“ (laiko kodas): „XX“: tokio darbo laiko kodo nėra"},
      {"the code of one, the number of another",
       {"worked_time", kTime + "1,2008-01-16,8,8\n"},
       "worked_time.csv:2: stulpelis „time_code“ (laiko kodas): „8“: tokių darbo laiko kodų yra keli"},
      {"no such person",
       {"worked_time", kTime + "99,2008-01-16,FD,8\n"},
       "worked_time.csv:2: stulpelis „employee_id“ (darbuotojas): „99“: lentelėje „Darbuotojai“ (employees) tokio "
       "įrašo nėra"},
      {"an ID below 1",
       {"worked_time", kTime + "0,2008-01-16,FD,8\n"},
       "worked_time.csv:2: stulpelis „employee_id“ (darbuotojas): „0“ nėra ID (sveikasis skaičius nuo 1 iki "
       "2000000000)"},
      {"a key twice, once by number",
       {"worked_time", kTime + "1,2008-01,FD,8\n1,2008-01-01,FD,8\n1,2008-01,1,9\n"},
       "worked_time.csv:4: stulpelis „time_code“ (laiko kodas): „darbuotojas 1, diena arba mėnuo 2008-01, laiko kodas "
       "1“ jau yra 2 eilutėje"},
      {"a day of a closed month",
       {"worked_time", kTime + "2,2007-12-31,FD,8\n2,2008-01-01,FD,8\n"},
       "worked_time.csv:2: stulpelis „date“ (diena arba mėnuo): mėnuo uždarytas"},
      {"a change in a closed month",
       {"worked_time", kTime + "1,2007-12,FD,161\n"},
       "worked_time.csv:2: stulpelis „date“ (diena arba mėnuo): mėnuo uždarytas"},
      {"a document into a closed month, and one out of it",
       {"documents", "id,guid,employee_id,month,check_code,check_message\n7,D7,2,2007-12,0,a\n5,D5,1,2008-02,0,a\n"},
       "documents.csv:2: stulpelis „month“ (mėnuo): mėnuo uždarytas\ndocuments.csv:3: stulpelis „month“ (mėnuo): mėnuo "
       "uždarytas"},
      {"a row of a closed document",
       {"time_rows",
        "id,guid,document_id,salary_extra_oid,position_id,time_code_id,hours\n"
        "1,T1,6,O1,,1,8\n2,T2,5,O1,,1,8\n"},
       "time_rows.csv:3: stulpelis „document_id“ (dokumentas): mėnuo uždarytas"},
      {"a code that another record has",
       {"constant_types", kTypes + "3,MMA,x\n"},
       "constant_types.csv:2: stulpelis „code“ (kodas): „kodas MMA“ jau turi kitas įrašas: ID 1"},
      {"codes that change hands",
       {"constant_types", kTypes + "1,MVA,x\n2,MMA,y\n"},
       "constant_types.csv:2: stulpelis „code“ (kodas): „kodas MVA“ jau turi kitas įrašas: ID 2\n"
       "constant_types.csv:3: stulpelis „code“ (kodas): „kodas MMA“ jau turi kitas įrašas: ID 1"},
      {"a code twice",
       {"constant_types", kTypes + "3,X,x\n4,X,y\n"},
       "constant_types.csv:3: stulpelis „code“ (kodas): „kodas X“ jau yra 2 eilutėje"},
      {"neither yes nor no",
       {"users", "id,name,administrator\n1,A,2\n2,B,1\n3,C,-1\n"},
       "users.csv:2: stulpelis „administrator“ (administratorius): „2“ nėra 0 arba 1\n"
       "users.csv:4: stulpelis „administrator“ (administratorius): „-1“ nėra 0 arba 1"},
      {"no such department",
       {"departments", kDepartments + "3,4,C\n"},
       "departments.csv:2: stulpelis „parent_id“ (aukštesnis padalinys): „4“: lentelėje „Padaliniai“ (departments) "
       "tokio įrašo nėra"},
      {"a department of its own",
       {"departments", kDepartments + "3,3,C\n"},
       "departments.csv:2: stulpelis „parent_id“ (aukštesnis padalinys): padaliniai priklausytų vienas kitam ratu"},
      {"a ring through a stored one",
       {"departments", kDepartments + "1,2,A\n3,1,C\n"},
       "departments.csv:2: stulpelis „parent_id“ (aukštesnis padalinys): padaliniai priklausytų vienas kitam ratu\n"
       "departments.csv:3: stulpelis „parent_id“ (aukštesnis padalinys): padaliniai priklausytų vienas kitam ratu"},
      {"columns unknown, twice and missing",
       {"departments", "id,vardas,id\n1,A,1\n"},
       "departments.csv:1: nežinomas stulpelis „vardas“\ndepartments.csv:1: stulpelis „id“ yra du kartus\n"
       "departments.csv:1: trūksta stulpelio „name“ (pavadinimas)"},
      {"nothing at all", {"departments", ""}, "departments.csv:1: failas tuščias: nėra stulpelių vardų"},
      {"lines inside cells and empty lines count",
       {"departments", kDepartments + "3,,\"A\r\nB\nC\"\r\n\r\nx,,D\n"},
       "departments.csv:2: stulpelis „name“ (pavadinimas): " + kControl +
           "\ndepartments.csv:6: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)"},
      {"lines that end in CR alone",
       {"departments", "id,parent_id,name\r3,,C\r\rx,,D\r"},
       "departments.csv:4: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)"},
      {"a cell that begins below its record",
       {"constant_types", "code,name,id\n\"X\nY\",\"x\n\",z\n"},
       "constant_types.csv:2: stulpelis „code“ (kodas): " + kControl +
           "\nconstant_types.csv:3: stulpelis „name“ (pavadinimas): " + kControl +
           "\nconstant_types.csv:4: stulpelis „id“: „z“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)"},
      {"quotes that never close, and a fault before",
       {"departments", kDepartments + "x,,A\n3,,\"B\n4,,C\n"},
       "departments.csv:2: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)\n"
       "departments.csv:3: kabutės neuždarytos"},
      {"quotes in a bare text",
       {"departments", kDepartments + "3,,A\"B\n"},
       "departments.csv:2: kabutės tekste be kabučių arba tekstas už kabučių"},
      {"text behind the quotes",
       {"departments", kDepartments + "3,,\"A\" B\n"},
       "departments.csv:2: kabutės tekste be kabučių arba tekstas už kabučių"},
      {"another encoding",
       {"departments", kDepartments + "3,,\xD0ilinas\n"},
       "departments.csv:2: stulpelis „name“ (pavadinimas): tekstas ne UTF-8 koduotės"},
      {"a zero character",
       {"departments", kDepartments + "3,,A" + std::string(1, '\0') + "\n"},
       "departments.csv:2: stulpelis „name“ (pavadinimas): tekstas ne UTF-8 koduotės"},
  };
  const std::string before = everything();
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(faults_of({c.source}), c.faults);
    EXPECT_EQ(everything(), before);
  }
}

// Table, column, a row with that cell left open, what is taken there, what is refused and with which text ("*" is the
// refused value).
constexpr char kRanges[] = R"(
  departments     | id          | *,,X                      | 2000000000              | 2000000001          | „*“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)
  constant_types  | name        | 1,MMA,*                   | 1a                      | 501a                | teksto ilgis 501 – leidžiama iki 500 ženklų
  constant_types  | name        | 1,MMA,*                   | 500a / ą                | a	b / a        | tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas)
  constant_values | value       | 1,1,2005-01-01,*          | 0.01 / 1000000          | 0 / 1000000.01      | * – leidžiama daugiau kaip 0 iki 1000000
  indications     | code_id     | 7,WorkTime,*,X,x          | 2000000000              | 0 / 2000000001      | * – leidžiama nuo 1 iki 2000000000
  category_rows   | factor      | 1,R,1,2005-01-01,*        | 0.0001 / 1000           | 0 / 1000.1          | * – leidžiama daugiau kaip 0 iki 1000
  settings        | base_hour_tariff_id        | 1,S,2005-01-01,,*,,,, | 0            | -1 / 2000000001     | * – leidžiama nuo 0 iki 2000000000
  settings        | personal_time_code_id_list | 1,S,2005-01-01,,,*,,, | 1 / "3,8" / "" | 2; 3 / 03 / x / 2000000001 | „*“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40
  settings        | personal_time_code_id_list | 1,S,2005-01-01,,,*,,, | "12,15,40"     | "1,,2" / "1," / ",1" | „“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40
  settings        | personal_time_code_id_list | 1,S,2005-01-01,,,*,,, | "1,2"          | "1, 2"              | „ 2“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40
  settings        | extra_charge_percentage    | 1,S,2005-01-01,,,,*,, | 0 / 1000     | -0.1 / 1000.5       | * – leidžiama nuo 0 iki 1000
  settings        | surcharge_percentage       | 1,S,2005-01-01,,,,,*, | 0 / 1000     | -1 / 1001           | * – leidžiama nuo 0 iki 1000
  settings        | total_charge_percentage    | 1,S,2005-01-01,,,,,,* | 0 / 1000     | -1 / 1001           | * – leidžiama nuo 0 iki 1000
  settings_rows   | year_from   | 1,R,1,*,100,5             | 0 / 100                 | -1 / 101            | * – leidžiama nuo 0 iki 100
  settings_rows   | year_to     | 1,R,1,5,*,5               | 5 / 100                 | 101                 | * – leidžiama nuo 0 iki 100
  settings_rows   | year_to     | 1,R,1,5,*,5               | 6                       | 4                   | stažo pabaiga * mažesnė už pradžią 5
  settings_rows   | percentage  | 1,R,1,5,6,*               | 0 / 1000                | -1 / 1001           | * – leidžiama nuo 0 iki 1000
  experience      | date_experience   | 1,1,*,1,1           | 1900-01-01 / 2999-12-31 | 1899-12-31 / 3000-01-01 | * – leidžiama nuo 1900.01.01 iki 2999.12.31
  experience      | experience_years  | 1,1,2005-01-01,*,1  | 0 / 80                  | -1 / 81             | * – leidžiama nuo 0 iki 80
  experience      | experience_months | 1,1,2005-01-01,1,*  | 0 / 11                  | -1 / 12             | * – leidžiama nuo 0 iki 11
  extra_charges   | date_to     | 1,C,1,2008-01-02,*,,5,,,  | 2008-01-02 /            | 2008-01-01          | pabaiga 2008.01.01 ankstesnė už pradžią 2008.01.02
  extra_charges   | sum_a       | 1,C,1,,,*,,,,             | 0.01 / 1000000          | -1 / 1000000.01     | * – leidžiama nuo 0 iki 1000000
  extra_charges   | sum_a       | 1,C,1,,,*,,,,             | 1                       | 0 /                 | nenurodyta nė vienu būdu: priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu
  extra_charges   | percentage  | 1,C,1,,,5,*,,,            | / 0                     | 10                  | nurodyta daugiau negu vienu būdu: priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu
  extra_charges   | percentage  | 1,C,1,,,0,*,,,            | 0 / 1000                | -1 / 1001           | * – leidžiama nuo 0 iki 1000
  extra_charges   | salary_extra_oid | 1,C,1,,,,10,*,,      | / ""                    | O0402000            | nurodyta daugiau negu vienu būdu: priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu
  extra_charges   | salary_extra_oid | 1,C,1,,,,,*,,        | O0402000 / O04020007    | O0400100 / O0402000x / X | „*“ – leidžiama palikti tuščią arba rašyti O0402000
  positions       | share       | 1,1,K,N,,,*,2005-01-01,   | 0.01 / 2                | 0 / 2.01            | * – leidžiama daugiau kaip 0 iki 2
  positions       | date_to     | 1,1,K,N,,,1,2005-01-02,*  | 2005-01-02              | 2005-01-01          | pabaiga 2005.01.01 ankstesnė už pradžią 2005.01.02
  month_norms     | hours       | 2008-01,*                 | 0.5 / 744               | 0 / 744.5           | * – leidžiama daugiau kaip 0 iki 744
  month_norms     | month       | *,160                     | 1900-01 / 2999-12       | 1899-12 / 3000-01   | * – leidžiama nuo 1900.01.01 iki 2999.12.31
  worked_time     | date        | 1,*,FD,1                  | 2999-12 / 1900-01-01    | 3000-01 / 1899-12-31 | * – leidžiama nuo 1900.01.01 iki 2999.12.31
  worked_time     | hours       | 1,2008-02-01,FD,*         | 0 / 24                  | -1                  | * – leidžiama nuo 0 iki 744
  worked_time     | hours       | 1,2008-02-01,FD,*         | 8                       | 25                  | * – leidžiama nuo 0 iki 24 per dieną
  worked_time     | hours       | 1,2008-03,FD,*            | 0 / 744                 | 744.5               | * – leidžiama nuo 0 iki 744
  salary_rows     | sum_type    | 1,R,6,,*,1,,,             | 0 / 2                   | -1 / 3              | * – leidžiama nuo 0 iki 2
)";

// "500a" is that many letters; a tab, and a control character beyond ASCII.
std::string spelled_out(std::string value) {
  if (value.ends_with("0a") || value.ends_with("1a")) return std::string(std::stoul(value), 'a');
  for (const auto& [sign, text] : {std::pair{"\\t", "\t"}, {"\\x85", "\xC2\x85"}}) {
    if (const auto at = value.find(sign); at != value.npos) value.replace(at, std::string(sign).size(), text);
  }
  return value;
}

TEST_P(CsvImport, HoldsEveryColumnToItsRange) {
  database().execute("DELETE FROM closed_months");
  bring({{"categories", "id,guid,name\n1,A,a\n"}, {"settings", "id,guid,date_from\n1,S,2005-01-01\n"}});
  for (const auto& c : text_table(kRanges)) {
    ASSERT_EQ(c.size(), 6U) << c[0] << c[2];
    const StoredTable& table = *find_stored_table(c[0]);
    const std::string header = exported(c[0].c_str());
    const auto faults_with = [&](const std::string& value) {
      std::string row = c[2];
      row.replace(row.find('*'), 1, spelled_out(value));
      return faults_of({{c[0].c_str(), header.substr(0, header.find('\n') + 1) + row + "\n"}});
    };
    for (const std::string& value : parts_of(c[3], '/')) EXPECT_EQ(faults_with(value), "") << c[0] << c[1] << value;
    for (const std::string& value : parts_of(c[4], '/')) {
      std::string fault = c[5];
      if (const auto at = fault.find('*'); at != fault.npos) fault.replace(at, 1, value);
      EXPECT_EQ(faults_with(value),
                c[0] + ".csv:2: stulpelis " + table.columns[table.column(c[1])].words() + ": " + fault);
    }
  }
}

TEST_P(CsvImport, TellsOddHoursAndTakesThemRefusesWhatNoMonthHolds) {
  const std::string at = "2 „hours“ (valandos) ";
  const struct {
    std::string rows, faults, warnings;
  } kCases[] = {
      {"1,2008-02,FD,168\n1,2008-02,VD,20\n", "", ""},
      {"2,2008-02,FD,168.5\n", "", at + "kodo FD valandų per mėnesį iš viso 168,5, o mėnesio norma 168;"},
      {"1,2008-02-01,FD,1\n", "", at + "kodo FD valandų per mėnesį iš viso 169, o mėnesio norma 168;"},
      {"2,2008-03-03,FD,20\n2,2008-03-03,VD,4\n", "", ""},
      {"2,2008-03-03,A,1\n", "", at + "visų kodų valandų per dieną iš viso 25, o para jų turi 24;"},
      {"1,2008-01,FD,100\n", "", at + "kodo FD valandų per mėnesį iš viso 108, o mėnesio norma 100;"},
      {"1,2008-04,FD,743\n1,2008-04-01,FD,1.5\n",
       "worked_time.csv:2: stulpelis „hours“ (valandos): kodo FD valandų per mėnesį iš viso 744,5 – leidžiama nuo 0 "
       "iki 744",
       ""},
  };
  bring({{"month_norms", "month,hours\n2008-01,100\n"}});
  std::string warnings;
  for (const auto& c : kCases) {
    const std::string before = everything();
    EXPECT_EQ(faults_of({{"worked_time", kTime + c.rows}}, &(warnings = "")), c.faults);
    EXPECT_EQ(warnings, c.warnings);
    EXPECT_EQ(everything() == before, !c.faults.empty());
  }
  EXPECT_EQ(faults_of({{"settings", "id,guid,personal_time_code_id_list\n1,S,\"3,77\"\n"}}, &(warnings = "")), "");
  EXPECT_EQ(warnings, "2 „personal_time_code_id_list“ (priemokų laiko kodai) laiko kodo, kurio numeris 77, nėra;");
}

TEST_P(CsvImport, LeavesNoVersionOfTheSettingsWithoutTheValueOfATariff) {
  database().execute("DELETE FROM closed_months");
  const std::string
      settings = "id,guid,date_from,base_month_tariff_id,base_hour_tariff_id\n",
      values = "id,constant_type_id,date_from,value\n",
      at = "settings.csv:2: stulpelis „base_hour_tariff_id“ (bazinė valandinė alga): bazinė valandinė alga „";
  const std::string moved =
      "constant_values.csv:2: stulpelis „date_from“ (galioja nuo): nustatymai nuo 2006.01.01 liktų be tarifo: bazinė "
      "mėnesinė alga „MMA“ datai 2006.01.01 neturi reikšmės: ";
  const struct {
    std::string settings, values;
    std::string faults;
  } kSteps[] = {
      {"1,S,2006-01-01,1,\n", "1,1,2006-01-01,130\n2,2,2006-02-01,1\n", ""},
      {"2,T,2006-02-01,,2\n3,U,,1,2\n", "", ""},
      {"2,T,2006-01-31,,2\n", "", at + "MVA“ datai 2006.01.31 neturi reikšmės: pirmoji galioja nuo 2006.02.01"},
      {"2,T,2006-02-01,,9\n", "", at + "9“: tokios konstantos nėra"},
      {"2,T,2006-01-31,,2\n", "2,2,2006-01-31,1\n", ""},
      {"", "1,1,2006-01-02,130\n", moved + "pirmoji galioja nuo 2006.01.02"},
      {"", "1,2,2005-01-01,130\n", moved + "neįrašyta nė viena"},
      {"", "1,2,2005-01-01,130\n3,1,2005-12-31,130\n", ""},
      {"1,S,2007-01-01,1,\n", "3,1,2007-01-01,130\n", ""},
  };
  for (const auto& step : kSteps) {
    SCOPED_TRACE(step.settings + step.values);
    std::vector<Source> files;
    if (!step.settings.empty()) files.push_back({"settings", settings + step.settings});
    if (!step.values.empty()) files.push_back({"constant_values", values + step.values});
    EXPECT_EQ(faults_of(files), step.faults);
  }
  // Where there was none before, others' values still come in.
  database().execute("UPDATE settings SET date_from = 1");
  EXPECT_EQ(faults_of({{"constant_values", values + "7,1,2010-01-01,150\n"}}), "");
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
    database().set_fault([last = database().statements() + at](std::uint64_t number) {
      if (number == last) throw StoreError(StoreFault::kFailed, "nutrūko");
    });
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
