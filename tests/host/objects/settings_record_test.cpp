// The settings' record with its scale: what an editor does to it, and what the store then holds.
#include <deque>
#include <functional>
#include <gtest/gtest.h>

#include "host/objects/standard_object_uio.h"
#include "host/store/object_codes.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class SettingsRecordTest : public testing::TestWithParam<Backend> {
 protected:
  SettingsRecordTest() {
    company_.given_constant("MMA", {{"2005.01.01", 130.0}});
    company_.given_settings({.from = "2005.01.01",
                             .month_tariff = 1,
                             .bands = {{3, 5, 3.0}, {5, 10, 5.0}, {10, 99, 7.5}},
                             .extra_limit = 55.0});
  }
  StandardObjectUIO& object_of(const char* user, const char* key) {
    StandardObjectUIO& object = objects_.emplace_back(company_.application(), company_.company(), user, kSettingsType);
    object.OIDR(key);
    EXPECT_EQ(object.Read().ErrorText, "");
    return object;
  }
  static std::shared_ptr<Recordset> rows(StandardObjectUIO& object) {
    return object.Fields()["Rows"].Value().record_set();
  }
  static void add_band(StandardObjectUIO& object, const char* guid, int from, int to, double percentage) {
    const auto scale = rows(object);
    scale->AddNew();
    const std::pair<const char*, Variant> fields[] = {
        {"GUID", guid}, {"YearFrom", from}, {"YearTo", to}, {"Percentage", percentage}};
    for (const auto& [name, value] : fields) scale->Fields()[name].Value(value);
  }
  // The limit and the scale as the store has them: "55: 3 5 10".
  std::string stored() {
    auto& object = object_of("kita", kKey);
    return value_text(object.Fields()["ExtraChargePercentage"].Value()) + ": " + walked(*rows(object), "YearFrom");
  }

  static constexpr char kKey[] = "O04023001";
  TestCompany company_{GetParam()};
  std::deque<StandardObjectUIO> objects_;  // of several users
};
ON_EVERY_DATABASE(SettingsRecordTest);

TEST_P(SettingsRecordTest, ANewRecordIsStoredWithItsScaleAndReadBack) {
  auto& made = object_of("Ona", "O0402300");
  EXPECT_EQ(made.OType() + made.OName(), "O0402300");
  const std::pair<const char*, Variant> fields[] = {{"GUID", "G"},
                                                    {"DateFrom", day("2008.02.01")},
                                                    {"BaseMonthTariffID", 1},
                                                    {"BaseHourTariffID", 0},
                                                    {"PersonalTimeCodeIDList", "3,7"},
                                                    {"ExtraChargePercentage", 55.5},
                                                    {"SurChargePercentage", 60}};
  for (const auto& [name, value] : fields) made.Fields()[name].Value(value);
  add_band(made, "b", 5, 10, 5);
  add_band(made, "a", 1, 5, 2.5);
  EXPECT_EQ(made.Save(0, "").ErrorText, "");
  EXPECT_EQ(made.OIDR() + " " + made.Preview() + " " + made.OName(), "O04023002 2008.02.01 2008.02.01");

  auto& again = object_of("Jonas", "O04023002");
  EXPECT_EQ(again.OName(), "2008.02.01");
  std::string record;
  for (std::size_t i = 0; i < 8; ++i) record += value_text(again.RsFields()->field(FieldHandle{i})) + ";";
  EXPECT_EQ(record, "G;2008.02.01;1;0;3,7;55,5;60;Null;");
  EXPECT_EQ(rows_text(*rows(again)), "5;G;a;1;5;2,5 | 4;G;b;5;10;5") << "by the years";
  EXPECT_EQ(company_.get("OfficeEmployeeSettings", "'2008.02.01'"),
            "2;G;2008.02.01;1;0;3,7;55,5;60;Null;b;5;10;5 | 2;G;2008.02.01;1;0;3,7;55,5;60;Null;a;1;5;2,5");
}

TEST_P(SettingsRecordTest, EveryChangedRowIsStoredWhateverFilterAndPlaceAnEditorHasLeft) {
  const auto walk_to_the_end = [](Recordset& scale) { walked(scale, "YearFrom"); };
  const struct {
    const char* name;
    std::function<void(Recordset&)> leave;
  } cases[] = {{"on a row", [](Recordset&) {}},
               {"past the last row", walk_to_the_end},
               {"a filter on another row", [](Recordset& scale) { scale.Filter("YearFrom = 5"); }},
               {"a filter that no row passes", [](Recordset& scale) { scale.Filter("YearFrom = 77"); }},
               {"past the last row of a filter", [&](Recordset& scale) {
                  scale.Filter("YearFrom = 5");
                  walk_to_the_end(scale);
                }}};
  auto& object = object_of("Ona", kKey);
  int from = 20;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto scale = rows(object);
    EXPECT_EQ(scale, rows(object)) << "the same set each time";
    scale->Filter("");
    scale->MoveLast();
    scale->set_field("YearFrom", ++from);
    c.leave(*scale);
    EXPECT_EQ(object.Save(0, "").ErrorText, "");
    EXPECT_EQ(stored(), "55: 3 5 " + std::to_string(from));
  }
  rows(object)->Filter("");
  rows(object)->Delete();
  add_band(object, "G", 7, 8, 1);
  rows(object)->Filter("YearFrom = 5");
  EXPECT_EQ(object.Save(0, "").ErrorText, "");
  EXPECT_EQ(stored(), "55: 5 7 25");
}

TEST_P(SettingsRecordTest, ASaveThatFailsAtAnyStatementStoresNothingAndLosesNothing) {
  auto& object = object_of("Ona", kKey);
  object.Fields()["ExtraChargePercentage"].Value(70);
  rows(object)->set_field("YearFrom", 2);
  rows(object)->MoveNext();
  rows(object)->Delete();
  add_band(object, "G", 99, 100, 9);
  std::uint64_t statement = 1;
  for (;; ++statement) {
    SCOPED_TRACE(statement);
    fail_one(company_.database(), statement);
    const SaveStatus status = object.Save(0, "");
    company_.heal();
    if (!status.Failed) break;
    ASSERT_EQ(status.ErrorText, "ryšys nutrūko");
    ASSERT_EQ(stored(), "55: 3 5 10");
    ASSERT_LT(statement, 40U);
  }
  EXPECT_GT(statement, 10U);  // begin, two checks, record, ID, rows with their checks, change count, commit
  EXPECT_EQ(stored(), "70: 2 10 99");
}

TEST_P(SettingsRecordTest, WhatTheStoreCannotTakeIsNamedAndLeavesTheRecordAsItWas) {
  company_.given_settings({.from = "2006.01.01", .bands = {{1, 2, 1.0}}});
  company_.database().execute("UPDATE settings SET guid = 'KITO' WHERE id = 2");
  company_.database().execute("UPDATE settings_rows SET guid = 'EILUTĖ' WHERE settings_id = 2");
  const struct {
    const char* field;
    bool in_row;
    Variant value;
    const char* text;
  } cases[] = {
      {"BaseMonthTariffID", false, 2, "Laukas „bazinė mėnesinė alga“ rodo į įrašą, kurio nėra: „2“."},
      {"GUID", false, kNull, "Neužpildytas laukas „GUID“."},
      {"GUID", false, "KITO", "Lauko „GUID“ reikšmę „KITO“ jau turi kitas įrašas."},
      {"GUID", true, kNull, "Neužpildytas laukas „GUID“."},
      {"GUID", true, "EILUTĖ", "Lauko „GUID“ reikšmę „EILUTĖ“ jau turi kitas įrašas."},
  };
  auto& object = object_of("Ona", kKey);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    rows(object)->MoveFirst();
    rows(object)->set_field("YearFrom", 4);
    (c.in_row ? *rows(object) : *object.RsFields()).set_field(c.field, c.value);
    EXPECT_EQ(object.Save(0, "").ErrorText, c.text);
    object.CancelUpdate();
    EXPECT_EQ(walked(*rows(object), "YearFrom"), "3 5 10");
    EXPECT_EQ(stored(), "55: 3 5 10");
  }
  // No tariff at all, and a date that another version has, are both possible.
  object.Fields()["BaseMonthTariffID"].Value(0);
  object.Fields()["DateFrom"].Value(day("2006.01.01"));
  EXPECT_EQ(object.Save(0, "").ErrorText, "");
}

TEST_P(SettingsRecordTest, AfterARefusalByAnothersChangeCancelShowsWhatTheOtherStored) {
  auto &first = object_of("Ona", kKey), &second = object_of("Jonas", kKey);
  first.Fields()["ExtraChargePercentage"].Value(60);
  add_band(first, "G", 1, 3, 1);
  ASSERT_EQ(first.Save(0, "").ErrorText, "");

  second.Fields()["ExtraChargePercentage"].Value(65);
  EXPECT_TRUE(second.Save(0, "").ErrorText.starts_with("Įrašą tuo metu pakeitė kitas vartotojas: Ona, "));
  EXPECT_EQ(value_text(second.Fields()["ExtraChargePercentage"].Value()), "65") << "nothing typed is lost";
  second.CancelUpdate();
  EXPECT_EQ(value_text(second.Fields()["ExtraChargePercentage"].Value()), "60");
  EXPECT_EQ(walked(*rows(second), "YearFrom"), "1 3 5 10");
  second.Fields()["ExtraChargePercentage"].Value(65);
  EXPECT_EQ(second.Save(0, "").ErrorText, "");

  ASSERT_FALSE(company_.application().NewMainBO()->DeleteQuorObject(kKey));
  second.Fields()["ExtraChargePercentage"].Value(66);
  EXPECT_EQ(second.Save(0, "").ErrorText, "Įrašas panaikintas kito vartotojo.");
  second.CancelUpdate();
  EXPECT_EQ(value_text(second.Fields()["ExtraChargePercentage"].Value()), "65");
}

TEST_P(SettingsRecordTest, TheRightsOfTheUserHoldWhateverTheEditorLets) {
  const std::int32_t user = company_.given_user("testuotoja");
  const auto save = [&](const char* key, const char* letters) {
    company_.database().execute("DELETE FROM rights");
    company_.given_rights(user, kSettingsType, letters);
    const auto object = company_.application().NewStandardObjectUIO(kSettingsType);
    object->OIDR(key);
    if (const SaveStatus read = object->Read(); read.Failed) return "read: " + read.ErrorText;
    if (object->OIDR() != kKey) object->Fields()["GUID"].Value(object->GetGUID());
    return object->Save(0, "").ErrorText;
  };
  EXPECT_EQ(save(kKey, "vcdp"), "Neturite teisės keisti valstybės tarnautojų nustatymų.");
  EXPECT_EQ(save(kKey, "vw"), "");
  EXPECT_EQ(save(kKey, "cdpw"), "read: Neturite teisės peržiūrėti valstybės tarnautojų nustatymų.");
  EXPECT_EQ(save("", "vdpw"), "read: Neturite teisės kurti valstybės tarnautojų nustatymų.");
  EXPECT_EQ(save("", "vcdp"), "read: Neturite teisės keisti valstybės tarnautojų nustatymų.");
  EXPECT_EQ(save("", "cw"), "");
}

}  // namespace
}  // namespace quor
