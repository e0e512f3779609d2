// Departments, salary constants, time and salary codes as records: what keeps one from being stored or deleted.
#include <gtest/gtest.h>

#include "host/objects/standard_object_uio.h"
#include "host/store/object_codes.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class CodeListRecords : public testing::TestWithParam<Backend> {
 protected:
  using Values = std::vector<std::pair<const char*, Variant>>;

  // Reads the record (or a new one), puts the values in and saves; answers what it was refused with.
  std::string save(const std::string& key, const Values& values) {
    StandardObjectUIO object(company_.application(), company_.company(), "Ona", type_of_key(key));
    object.OIDR(key);
    if (const SaveStatus read = object.Read(); read.Failed) return read.ErrorText;
    for (const auto& [field, value] : values) object.Fields()[field].Value(value);
    return object.Save(0, "").ErrorText;
  }
  // The dated values of constant 1 after `edit`, or why they were not stored.
  std::string values_after(const std::function<void(Recordset&)>& edit) {
    StandardObjectUIO object(company_.application(), company_.company(), "Ona", kConstantType);
    object.OIDR("O04006001");
    if (const SaveStatus read = object.Read(); read.Failed) return read.ErrorText;
    edit(*object.Fields()["Rows"].Value().record_set());
    if (const SaveStatus saved = object.Save(0, ""); saved.Failed) return saved.ErrorText;
    return stored("SELECT date_from, value FROM constant_values WHERE constant_type_id = 1 ORDER BY date_from",
                  {{"d", FieldType::kDate}, {"v", FieldType::kDouble}});
  }
  std::string stored(const char* sql, const std::vector<FieldInfo>& fields) {
    return rows_text(*company_.database().read(sql, fields));
  }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(CodeListRecords);

TEST_P(CodeListRecords, ADepartmentIsNeverBelowItself) {
  company_.given_department("Viršutinis");
  company_.given_department("Vidurinis", 1);
  company_.given_department("Žemas", 2);
  const char* const ring = "Padalinys „%“ negali priklausyti pats sau nei savo žemesniam padaliniui.";
  const auto refused = [&](const char* name) {
    return std::string(ring).replace(std::string(ring).find('%'), 1, name);
  };
  EXPECT_EQ(save("O00016041", {{"ParentID", 1}}), refused("Viršutinis"));
  EXPECT_EQ(save("O00016041", {{"ParentID", 3}}), refused("Viršutinis"));
  EXPECT_EQ(save("O00016042", {{"ParentID", 3}}), refused("Vidurinis"));
  EXPECT_EQ(save("O00016043", {{"ParentID", 1}, {"Name", "Aukštas"}}), "");
  EXPECT_EQ(save("O0001604", {{"Name", "Čia"}, {"ParentID", kNull}}), "");
  EXPECT_EQ(save("O0001604", {{"ParentID", 9}}), "Neužpildytas laukas „pavadinimas“.");
  const auto list = company_.application().NewMainBO()->GetQuorObjectList("O0001604", "", "");
  EXPECT_EQ(rows_text(*list),
            "O00016044;Čia;;0 | O00016041;Viršutinis;;0 | O00016043;Aukštas;Viršutinis;1 |"
            " O00016042;Vidurinis;Viršutinis;1")
      << "by the sort keys that the saves have made";
}

TEST_P(CodeListRecords, AConstantHasOneValueADayAndLeavesNoSettingsWithoutATariff) {
  company_.given_constant("MMA", {{"2005.01.01", 115}, {"2007.01.01", 125}});
  company_.given_settings({.from = "2006.01.01", .month_tariff = 1});
  EXPECT_EQ(values_after([&](Recordset& rows) {  // two rows change places
              rows.MoveFirst();
              rows.set_field("DateFrom", day("2007.01.01"));
              rows.MoveNext();
              rows.set_field("DateFrom", day("2005.01.01"));
            }),
            "2005.01.01;125 | 2007.01.01;115");
  EXPECT_EQ(values_after([](Recordset& rows) {
              rows.AddNew();
              rows.set_field("DateFrom", day("2008.01.01"));
              rows.set_field("Value", 130);
            }),
            "2005.01.01;125 | 2007.01.01;115 | 2008.01.01;130");
  EXPECT_EQ(values_after([](Recordset& rows) {
              rows.MoveFirst();
              rows.set_field("DateFrom", day("2008.01.01"));
            }),
            "Dvi eilutės galioja nuo tos pačios dienos: 2008.01.01.");
  EXPECT_EQ(values_after([](Recordset& rows) {
              rows.MoveFirst();
              rows.Delete();
            }),
            "Nustatymai nuo 2006.01.01 liktų be tarifo: bazinė mėnesinė alga „MMA“ datai 2006.01.01 neturi reikšmės: "
            "pirmoji galioja nuo 2007.01.01.");
  EXPECT_EQ(values_after([](Recordset& rows) { rows.set_field("Value", 0); }),
            "Laukas „reikšmė“: 0 – leidžiama daugiau kaip 0 iki 1000000.");
  EXPECT_EQ(save("O0400600", {{"Code", "MMA"}, {"Name", "Antra"}}),
            "Lauko „kodas“ reikšmę „MMA“ jau turi kitas įrašas.");
}

TEST_P(CodeListRecords, ATimeCodeMeansOneThingAndKeepsItsNumber) {
  company_.given_time_codes();
  const auto person = company_.given_employee("Pirmoji");
  company_.given_time(person, 40, 8);
  company_.given_settings({.from = "2005.01.01", .time_codes = "2,41"});
  EXPECT_EQ(save("O0400620", {{"Code", "DN"}, {"Name", "Naktis"}}), "");
  EXPECT_EQ(stored("SELECT indication_code, code_id, code FROM indications WHERE id > 4",
                   {{"k", FieldType::kText}, {"n", FieldType::kInt32}, {"c", FieldType::kText}}),
            "WorkTime;42;DN")
      << "number 40 is that of hours that are there, 41 is a surcharge";
  EXPECT_EQ(save("O04006202", {{"Code", "DN"}}), "Laiko kodas „DN“ jau yra.");
  EXPECT_EQ(save("O04006202", {{"Code", "42"}}), "Laiko kodas „42“ netinka: tai kodo „DN“ numeris.");
  EXPECT_EQ(save("O04006202", {{"Code", "V"}, {"Name", "Viršvalandžiai"}}), "");
  EXPECT_EQ(save("O04006201", {{"Name", "Darbas"}}), "");
  EXPECT_EQ(save("O04006201", {{"Code", "F"}}),
            "Laiko kodo „FD“ pervadinti negalima: pagal jį skaičiuojamas dirbtas laikas.");
  company_.database().execute("UPDATE indications SET indication_code = 'DayType' WHERE id = 3");
  EXPECT_EQ(save("O04006203", {}), "Įrašo „O04006203“ nėra.") << "no time code";
}

TEST_P(CodeListRecords, WhatIsUsedIsNotDeleted) {
  company_.given_time_codes();
  const auto top = company_.given_department("Viršus");
  company_.given_department("Žemiau", top);
  company_.given_employee("Pirmoji", 2);
  for (const char* code : {"A", "B", "C"}) company_.given_constant(code, {{"2005.01.01", 1}});
  company_.given_settings({.from = "2005.01.01", .hour_tariff = 1, .time_codes = "12,2"});
  company_.given_position({.employee = 1, .constant_type = 2});
  company_.given_time(1, 3, 8);
  Database& database = company_.database();
  database.execute("INSERT INTO salary_codes (id, code, name) VALUES (1, '10', 'Alga'), (2, '11', 'Priedas')");
  company_.given_charge(1, kNull, kNull, 1.0);
  database.execute("UPDATE extra_charges SET salary_code_id = 1");
  const std::pair<const char*, const char*> cases[] = {
      {"O00016041", "Įrašo „Viršus“ panaikinti negalima: jis nurodytas žemesniuose padaliniuose (1)."},
      {"O00016042", "Įrašo „Žemiau“ panaikinti negalima: jis nurodytas darbuotojų kortelėse (1)."},
      {"O04006001", "Įrašo „Konstanta A“ panaikinti negalima: jis nurodytas valstybės tarnautojų nustatymuose (1)."},
      {"O04006002", "Įrašo „Konstanta B“ panaikinti negalima: jis nurodytas darbuotojų pareigybėse (1)."},
      {"O04006201", "Įrašo „FD“ panaikinti negalima: pagal jį skaičiuojamas dirbtas laikas."},
      {"O04006202", "Įrašo „VD“ panaikinti negalima: jis nurodytas valstybės tarnautojų nustatymuose (1)."},
      {"O04006203", "Įrašo „L“ panaikinti negalima: jis nurodytas darbo laiko įrašuose (1)."},
      {"O04006301", "Įrašo „Alga“ panaikinti negalima: jis nurodytas darbuotojų prieduose (1)."},
  };
  const auto refusal = [&](const char* key) -> std::string {
    const bool refused = company_.application().NewMainBO()->DeleteQuorObject(key);
    return refused ? company_.application().shown_boxes().back().text : "";
  };
  for (const auto& [key, text] : cases) EXPECT_EQ(refusal(key), text);
  EXPECT_EQ(count(database, "departments") + count(database, "constant_values") + count(database, "indications"), 9);
  for (const char* key : {"O04006003", "O04006204", "O04006302"}) EXPECT_EQ(refusal(key), "") << key;
  EXPECT_EQ(count(database, "constant_types") + count(database, "constant_values"), 4);
}

}  // namespace
}  // namespace quor
