// What is wrong with CSV files on their way in is told with its line, and nothing is written then.
#include <map>

#include "tests/support/import_company.h"
#include "tests/support/text_table.h"

namespace quor {
namespace {

class CsvImportChecks : public ImportCompany {};
ON_EVERY_DATABASE(CsvImportChecks);

// Table, rows, and what is told: line, column and text of each fault.
constexpr char kFaults[] = R"(
  worked_time    | 1,2008-01-16,FD,8\n2,2008-01-16,FD,abc | 3 hours „abc“ nėra skaičius
  worked_time    | 1,2008-01-16,FD,1 000                  | 2 hours „1 000“ nėra skaičius
  worked_time    | 1,2008-01-16,FD,"1.000,5"              | 2 hours „1.000,5“ nėra skaičius
  worked_time    | 1,2008-01-16,FD,inf\n1,2008-01-17,FD,1e999 | 2 hours „inf“ nėra skaičius / 3 hours „1e999“ nėra skaičius
  worked_time    | 1,2008-01-16,FD,                       | 2 hours trūksta reikšmės
  worked_time    | 1,2008-01-16,FD,""                     | 2 hours „“ nėra skaičius
  worked_time    | 1,2008-02-30,FD,8\n1,2008-13,FD,8      | 2 date „2008-02-30“ nėra nei diena (2008-01-31), nei mėnuo (2008-01) / 3 date „2008-13“ nėra nei diena (2008-01-31), nei mėnuo (2008-01)
  employees      | 1,1,A,2008-01-31 08:00                 | 2 usr_acc_date „2008-01-31 08:00“ nėra data (rašykite, pvz., 2008-01-31)
  month_norms    | 2008-01-01,168                         | 2 month „2008-01-01“ nėra mėnuo (rašykite, pvz., 2008-01)
  worked_time    | 1,2008-01-16,ZZ,8\n1,2008-01-16,XX,8   | 2 time_code „ZZ“: tokio darbo laiko kodo nėra / 3 time_code „XX“: tokio darbo laiko kodo nėra
  worked_time    | 1,2008-01-16,8,8                       | 2 time_code „8“: tokių darbo laiko kodų yra keli
  worked_time    | 99,2008-01-16,FD,8                     | 2 employee_id „99“: lentelėje „Darbuotojai“ (employees) tokio įrašo nėra
  worked_time    | 0,2008-01-16,FD,8                      | 2 employee_id „0“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)
  worked_time    | 1,2008-01,FD,8\n1,2008-01-01,FD,8\n1,2008-01,1,9 | 4 time_code „darbuotojas 1, diena arba mėnuo 2008-01, laiko kodas 1“ jau yra 2 eilutėje
  worked_time    | 2,2007-12-31,FD,8\n2,2008-01-01,FD,8   | 2 date mėnuo uždarytas
  worked_time    | 1,2007-12,FD,161                       | 2 date mėnuo uždarytas
  documents      | 7,D7,2,2007-12,0,a\n5,D5,1,2008-02,0,a | 2 month mėnuo uždarytas / 3 month mėnuo uždarytas
  time_rows      | 1,T1,6,O1,,1,8\n2,T2,5,O1,,1,8         | 3 document_id mėnuo uždarytas
  constant_types | 3,MMA,x                                | 2 code „kodas MMA“ jau turi kitas įrašas: ID 1
  constant_types | 1,MVA,x\n2,MMA,y                       | 2 code „kodas MVA“ jau turi kitas įrašas: ID 2 / 3 code „kodas MMA“ jau turi kitas įrašas: ID 1
  constant_types | 3,X,x\n4,X,y                           | 3 code „kodas X“ jau yra 2 eilutėje
  users          | 1,A,2\n2,B,1\n3,C,-1                   | 2 administrator „2“ nėra 0 arba 1 / 4 administrator „-1“ nėra 0 arba 1
  departments    | 3,3,C                                  | 2 parent_id padaliniai priklausytų vienas kitam ratu
  departments    | 1,2,A\n3,1,C                           | 2 parent_id padaliniai priklausytų vienas kitam ratu / 3 parent_id padaliniai priklausytų vienas kitam ratu
  departments    | 3,,"A\r\nB\nC"\r\n\r\nx,,D             | 2 name tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas) / 6 id „x“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)
  departments    | 3,,\xD0ilinas                          | 2 name tekstas ne UTF-8 koduotės
  departments    | 3,,A\0                                 | 2 name tekstas ne UTF-8 koduotės
)";

// As in C++: \n, \r, \0 and \xD0.
std::string unescaped(std::string text) {
  const std::pair<std::string, std::string> kEscapes[] = {
      {"\\n", "\n"}, {"\\r", "\r"}, {"\\0", std::string(1, '\0')}, {"\\xD0", "\xD0"}};
  for (const auto& [sign, meant] : kEscapes) {
    for (auto at = text.find(sign); at != text.npos; at = text.find(sign)) text.replace(at, sign.size(), meant);
  }
  return text;
}

TEST_P(CsvImportChecks, TellsEveryFaultOfACellWithItsLineAndWritesNothing) {
  const std::map<std::string, std::string> headers = {
      {"worked_time", kTime},
      {"departments", kDepartments},
      {"constant_types", kTypes},
      {"employees", "id,department_id,name,usr_acc_date\n"},
      {"month_norms", "month,hours\n"},
      {"users", "id,name,administrator\n"},
      {"documents", "id,guid,employee_id,month,check_code,check_message\n"},
      {"time_rows", "id,guid,document_id,salary_extra_oid,position_id,time_code_id,hours\n"}};
  const std::string before = everything();
  for (const auto& c : text_table(kFaults)) {
    ASSERT_EQ(c.size(), 3U) << c[1];
    const StoredTable& table = *find_stored_table(c[0]);
    std::string told;
    for (const std::string& fault : parts_of(c[2], '/')) {
      const auto line = fault.find(' '), column = fault.find(' ', line + 1);
      told += (told.empty() ? "" : "\n") + c[0] + ".csv:" + fault.substr(0, line) + ": stulpelis " +
              table.columns[table.column(fault.substr(line + 1, column - line - 1))].words() + ":" +
              fault.substr(column);
    }
    EXPECT_EQ(faults_of({{c[0].c_str(), headers.at(c[0]) + unescaped(c[1]) + "\n"}}), told);
    EXPECT_EQ(everything(), before) << c[1];
  }
}

TEST_P(CsvImportChecks, TellsWhereAFileIsNoTable) {
  const std::string control = "tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas)";
  const std::string no_id = " nėra ID (sveikasis skaičius nuo 1 iki 2000000000)";
  const struct {
    const char* table;
    std::string text, faults;
  } kCases[] = {
      {"worked_time", kTime + "1,2008-01-16,FD,7,5\n", "2: langelių 5, o stulpelių 4"},
      {"worked_time", kTime + "1,2008-01-16,FD\n", "2: langelių 3, o stulpelių 4"},
      {"departments", "id,vardas,id\n1,A,1\n",
       "1: nežinomas stulpelis „vardas“\ndepartments.csv:1: stulpelis „id“ yra du kartus\n"
       "departments.csv:1: trūksta stulpelio „name“ (pavadinimas)"},
      {"departments", "", "1: failas tuščias: nėra stulpelių vardų"},
      {"departments", "id,parent_id,name\r3,,C\r\rx,,D\r", "4: stulpelis „id“: „x“" + no_id},
      {"constant_types", "code,name,id\n\"X\nY\",\"x\n\",z\n",
       "2: stulpelis „code“ (kodas): " + control + "\nconstant_types.csv:3: stulpelis „name“ (pavadinimas): " +
           control + "\nconstant_types.csv:4: stulpelis „id“: „z“" + no_id},
      {"departments", kDepartments + "x,,A\n3,,\"B\n4,,C\n",
       "2: stulpelis „id“: „x“" + no_id + "\ndepartments.csv:3: kabutės neuždarytos"},
      {"departments", kDepartments + "3,,A\"B\n", "2: kabutės tekste be kabučių arba tekstas už kabučių"},
      {"departments", kDepartments + "3,,\"A\" B\n", "2: kabutės tekste be kabučių arba tekstas už kabučių"},
  };
  const std::string before = everything();
  for (const auto& c : kCases) {
    EXPECT_EQ(faults_of({{c.table, c.text}}), c.table + std::string(".csv:") + c.faults);
    EXPECT_EQ(everything(), before) << c.text;
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

TEST_P(CsvImportChecks, HoldsEveryColumnToItsRange) {
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

TEST_P(CsvImportChecks, TellsOddHoursAndTakesThemRefusesWhatNoMonthHolds) {
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

TEST_P(CsvImportChecks, LeavesNoVersionOfTheSettingsWithoutTheValueOfATariff) {
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

}  // namespace
}  // namespace quor
