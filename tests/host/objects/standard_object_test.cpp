#include <gtest/gtest.h>
#include <regex>

#include "host/objects/standard_object_uio.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"
#include "tests/support/text_table.h"

namespace quor {
namespace {

class StandardObjectTest : public testing::TestWithParam<Backend> {
 protected:
  // A data object of a user of the same company.
  StandardObjectUIO object_of(const char* user, const char* type = kSalaryExtensionType) {
    return {company_.application(), company_.company(), user, type};
  }
  static std::string read(StandardObjectUIO& object, const char* key) {
    object.OIDR(key);
    return object.Read().ErrorText;
  }
  // Share, end, version and writer of every position, "1;Null;3;Ona | …".
  std::string stored() {
    return rows_text(*company_.database().read(
        "SELECT share, date_to, row_version, changed_by FROM positions ORDER BY id",
        {{"s", FieldType::kDouble}, {"d", FieldType::kDate}, {"v", FieldType::kInt32}, {"u", FieldType::kText}}));
  }

  TestCompany company_{GetParam()};
  std::int32_t person_ = company_.given_employee("Pirmoji");
};
ON_EVERY_DATABASE(StandardObjectTest);

TEST_P(StandardObjectTest, ReadsEditsAndSavesItsRecord) {
  company_.given_position({.employee = person_, .share = 0.5, .to = parse_date("2008.12.31"), .contract = "K"});
  auto object = object_of("Ona");
  EXPECT_EQ(object.RsFields(), nullptr);
  EXPECT_EQ(outcome([&] { return value_text(object.Fields()["Share"].Value()); }), "ObjectMissing");
  ASSERT_EQ(read(object, "O04020001"), "");
  EXPECT_EQ(rows_text(*object.RsFields()), "1;K;N1;Null;Null;0,5;2005.01.01;2008.12.31");

  object.RsFields()->MoveFirst();
  object.Fields()["Share"].Value(0.75);
  object.Fields()["DateTo"].Value(kNull);
  EXPECT_FALSE(object.Save(0, "").Failed);
  object.Fields()["Share"].Value(1);
  EXPECT_FALSE(object.Save(0, "").Failed) << "a second save goes on from the first";
  EXPECT_EQ(stored(), "1;Null;3;Ona");
}

TEST_P(StandardObjectTest, ANewRecordIsEmptyAndGetsItsKeyWhenItIsSaved) {
  auto object = object_of("Ona");
  EXPECT_EQ(object.OType(), "O0402000");
  for (const char* key : {"", "O040", "O0402000"}) {
    ASSERT_EQ(read(object, key), "");
    EXPECT_EQ(rows_text(*object.RsFields()), "Null;Null;Null;Null;Null;Null;Null;Null");
  }
  object.RsFields()->MoveFirst();
  object.Fields()["ParentID"].Value(person_);
  object.Fields()["PersonalContractGUID"].Value("K");
  object.CancelUpdate();
  EXPECT_TRUE(object.Fields()["ParentID"].Value().is_null()) << "nothing is stored to go back to";

  object.Fields()["ParentID"].Value(person_);
  object.Fields()["PersonalContractGUID"].Value("K");
  object.Fields()["SalaryPersonalNormGUID"].Value("N");
  object.Fields()["DateFrom"].Value(parse_date("2008.01.01"));
  const SaveStatus refused = object.Save(0, "");
  EXPECT_EQ(refused.ErrorText, "Neužpildytas laukas „etato dalis“.");
  EXPECT_EQ(object.OIDR() + "/" + stored(), "O0402000/");
  object.Fields()["Share"].Value(1.0);
  EXPECT_EQ(object.Save(0, "").ErrorText, "");
  EXPECT_EQ(object.OIDR(), "O04020001") << "the refused save took no number";
  auto again = object_of("Jonas");
  ASSERT_EQ(read(again, "O04020001"), "");
  EXPECT_EQ(rows_text(*again.RsFields()), "1;K;N;Null;Null;1;2008.01.01;Null");
}

TEST_P(StandardObjectTest, ACardTakesItsPlaceInTheAlphabetWithItsName) {
  company_.given_employee("Čepienė");
  const auto write = [&](const char* key, const Variant& name, const Variant& department, const Variant& date) {
    auto card = object_of("Ona", kEmployeeType);
    EXPECT_EQ(read(card, key), "");
    card.Fields()["Preview"].Value(name);
    card.Fields()["DepartmentID"].Value(department);
    card.Fields()["UsrAccDate"].Value(date);
    return card.Save(0, "").ErrorText;
  };
  const struct {
    const char* key;
    Variant name, department, date;
    const char* refusal;
  } cases[] = {
      {"O0400100", "Cibas", kNull, kNull, "Neužpildytas laukas „padalinys“."},
      {"O0400100", " ", 1, kNull, "Neužpildytas laukas „pavardė ir vardas“."},
      {"O0400100", "Cibas", 1, day("1899.12.31"),
       "Laukas „tarnybos pradžia“: 1899.12.31 – leidžiama nuo 1900.01.01 iki 2999.12.31."},
      {"O0400100", "Žilienė", 1, day("2008.01.02"), ""},
      {"O04001001", "Daukša", 1, kNull, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(write(c.key, c.name, c.department, c.date), c.refusal);
  EXPECT_EQ(company_.get("Employees", "None"), "2;2;Čepienė;Null | 1;1;Daukša;Null | 3;1;Žilienė;2008.01.02");
}

TEST_P(StandardObjectTest, WhoeverSavesSecondIsToldByWhomAndOverwritesNothing) {
  company_.given_position({.employee = person_});
  auto first = object_of("Ona Pirmoji");
  auto second = object_of("Jonas");
  ASSERT_EQ(read(first, "O04020001") + read(second, "O04020001"), "");
  first.Fields()["Share"].Value(0.5);
  second.Fields()["Share"].Value(0.25);
  EXPECT_FALSE(first.Save(0, "").Failed);
  const SaveStatus refused = second.Save(0, "");
  EXPECT_TRUE(refused.Failed);
  EXPECT_TRUE(std::regex_match(refused.ErrorText, std::regex("Įrašą tuo metu pakeitė kitas vartotojas: Ona Pirmoji, "
                                                             "\\d{4}\\.\\d\\d\\.\\d\\d \\d\\d:\\d\\d\\.")))
      << refused.ErrorText;
  EXPECT_EQ(stored(), "0,5;Null;2;Ona Pirmoji");

  ASSERT_EQ(second.Read().ErrorText, "");
  second.Fields()["Share"].Value(0.25);
  EXPECT_FALSE(second.Save(0, "").Failed) << "after reading what the other wrote";
  company_.database().execute("DELETE FROM positions");
  first.Fields()["Share"].Value(1.0);
  EXPECT_EQ(first.Save(0, "").ErrorText, "Įrašas panaikintas kito vartotojo.");
  EXPECT_EQ(stored(), "");
}

TEST_P(StandardObjectTest, KeysWithoutARecordAreRefusedByName) {
  company_.given_position({.employee = person_});
  const std::pair<const char*, const char*> cases[] = {
      {"O04020002", "Įrašo „O04020002“ nėra."},
      {"O0402000x", "Įrašo „O0402000x“ nėra."},
      {"O04020001x", "Įrašo „O04020001x“ nėra."},
      {"O040200099999999999", "Įrašo „O040200099999999999“ nėra."},
      {"O04022001", "Įrašas „O04022001“ kito tipo: laukiama „O0402000“."}};
  for (const auto& [key, text] : cases) {
    auto object = object_of("Ona");
    EXPECT_EQ(read(object, key), text);
    EXPECT_EQ(object.Save(0, "").ErrorText, "Nėra ką įrašyti: įrašas neperskaitytas.");
    // Nor does the record that was read before go where the key points now.
    ASSERT_EQ(read(object, "O04020001"), "");
    EXPECT_EQ(read(object, key), text);
    EXPECT_EQ(object.Save(0, "").ErrorText, "Nėra ką įrašyti: įrašas neperskaitytas.");
  }
  auto unknown = object_of("Ona", "O0402100");
  EXPECT_EQ(read(unknown, "O04021001"), "Nežinomas objekto tipas: „O0402100“.");
}

TEST_P(StandardObjectTest, CancelGoesBackToWhatWasReadOrSaved) {
  company_.given_position({.employee = person_, .share = 0.5});
  auto object = object_of("Ona");
  ASSERT_EQ(read(object, "O04020001"), "");
  object.Fields()["Share"].Value(0.75);
  object.RsFields()->Update();
  object.Fields()["Share"].Value(0.9);
  object.CancelUpdate();
  EXPECT_EQ(value_text(object.Fields()["Share"].Value()), "0,5");
  object.Fields()["Share"].Value(0.75);
  ASSERT_FALSE(object.Save(0, "").Failed);
  object.CancelUpdate();
  EXPECT_EQ(value_text(object.Fields()["Share"].Value()), "0,75");
}

TEST_P(StandardObjectTest, ASaveThatFailsAtAnyStatementLeavesNothingHalfSavedAndCanBeRepeated) {
  const auto saved_at_last = [&](const char* key, const char* expected) {
    auto object = object_of("Ona");
    ASSERT_EQ(read(object, key), "");
    object.Fields()["ParentID"].Value(person_);
    object.Fields()["PersonalContractGUID"].Value("K");
    object.Fields()["SalaryPersonalNormGUID"].Value("N");
    object.Fields()["Share"].Value(0.25);
    object.Fields()["DateFrom"].Value(parse_date("2008.01.01"));
    for (std::uint64_t n = 1;; ++n) {
      ASSERT_LT(n, 20U);
      const std::string before = stored();
      // One statement only: the roll-back itself goes through.
      fail_one(company_.database(), n);
      const SaveStatus status = object.Save(0, "");
      company_.heal();
      if (!status.Failed) {
        EXPECT_GT(n, 3U) << "begin, write, count, commit";
        EXPECT_EQ(stored(), expected);
        return;
      }
      EXPECT_EQ(status.ErrorText, "ryšys nutrūko");
      EXPECT_EQ(stored(), before) << n;
      EXPECT_EQ(object.OIDR(), key);
    }
  };
  saved_at_last("O0402000", "0,25;Null;1;Ona");
  company_.database().execute("UPDATE positions SET share = 1");
  saved_at_last("O04020001", "0,25;Null;2;Ona");
}

TEST_P(StandardObjectTest, GuidsAreFreshAndInUpperCase) {
  auto object = object_of("Ona");
  const std::string one = object.GetGUID();
  EXPECT_NE(one, object.GetGUID());
  EXPECT_TRUE(std::regex_match(one, std::regex("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"))) << one;
}

TEST_P(StandardObjectTest, ARecordIsStoredWithItsRowsWholeOrNotAtAll) {
  company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2006.01.01", 10.1}, {"2007.01.01", 10.5}});
  auto object = object_of("Ona", kCategoryType);
  ASSERT_EQ(read(object, "O04022001"), "");
  const auto rows = object.Fields()["Rows"].Value().record_set();
  EXPECT_EQ(object.Fields()["Rows"].Value().record_set(), rows) << "the same set each time";
  const auto factors = [&] { return walked(*object.Fields()["Rows"].Value().record_set(), "Factor"); };
  const auto edit = [&] {
    rows->MoveFirst();
    rows->set_field("Factor", 9.9);
    rows->MoveNext();
    rows->Delete();
    rows->AddNew();
    rows->set_field("GUID", "G4");
    rows->set_field("DateFrom", parse_date("2008.01.01"));
    rows->set_field("Factor", 11.0);
    object.Fields()["Name"].Value("A lygio");
  };
  const auto stored_factors = [&] {
    auto other = object_of("Jonas", kCategoryType);
    EXPECT_EQ(read(other, "O04022001"), "");
    return null_to_text(other.Fields()["Name"].Value()) + ": " +
           walked(*other.Fields()["Rows"].Value().record_set(), "Factor");
  };
  edit();
  object.CancelUpdate();
  EXPECT_EQ(factors(), "9,7 10,1 10,5");

  edit();
  std::uint64_t statement = 1;
  for (;; ++statement) {
    fail_one(company_.database(), statement);
    const SaveStatus status = object.Save(0, "");
    company_.heal();
    if (!status.Failed) break;
    ASSERT_EQ(status.ErrorText, "ryšys nutrūko");
    ASSERT_EQ(stored_factors(), "A lygis: 9,7 10,1 10,5") << "statement " << statement;
  }
  EXPECT_GT(statement, 7U);  // begin, record, ID, three rows, change count, commit
  // Nothing of what was typed is lost.
  EXPECT_EQ(stored_factors(), "A lygio: 9,9 10,5 11");

  const char* const today = "1,'2008.01.31'";
  EXPECT_EQ(company_.rows("OfficeEmployeeCategory", today)->field("Factor").to_double(), 11.0);
  rows->MoveLast();
  rows->set_field("Factor", 12.0);
  EXPECT_EQ(object.Save(0, "").ErrorText, "") << "the new row has its own number now";
  EXPECT_EQ(company_.rows("OfficeEmployeeCategory", today)->field("Factor").to_double(), 12.0) << "seen at once";
  EXPECT_EQ(stored_factors(), "A lygio: 9,9 10,5 12");
}

// Type, field of the record or of its first row, what is taken, what is refused then and with which text.
constexpr char kRefusals[] = R"(
  O0402000 | Share                   | 2          | 2,5        | Laukas „etato dalis“: 2,5 – leidžiama daugiau kaip 0 iki 2.
  O0402000 | DateTo                  | 2005.01.01 | 2004.12.31 | Laukas „galioja iki“: pabaiga 2004.12.31 ankstesnė už pradžią 2005.01.01.
  O0402000 | DateTo                  | 2999.12.31 | 3000.01.01 | Laukas „galioja iki“: 3000.01.01 – leidžiama nuo 1900.01.01 iki 2999.12.31.
  O0402200 | Rows.Factor             | 1000       | 1000,5     | Laukas „koeficientas“: 1000,5 – leidžiama daugiau kaip 0 iki 1000.
  O0400110 | Percentage              | 1000       | 1000,5     | Laukas „procentas“: 1000,5 – leidžiama nuo 0 iki 1000.
  O0400110 | SumA                    | 0          | 10         | Laukas „procentas“: nurodyta daugiau negu vienu būdu: priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu.
  O0400110 | SalaryExtraOID          |            | O0402000   | Laukas „sąsaja su tarnybos stažu“: nurodyta daugiau negu vienu būdu: priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu.
  O0400110 | SalaryExtraOID          |            | O0400100   | Laukas „sąsaja su tarnybos stažu“: „O0400100“ – leidžiama palikti tuščią arba rašyti O0402000.
  O0402300 | BaseHourTariffID        | 0          | 2          | Nustatymų bazinė valandinė alga „MVA“ datai 2005.01.01 neturi reikšmės: pirmoji galioja nuo 2005.02.01.
  O0402300 | BaseHourTariffID        | 1          | 3          | Nustatymų bazinė valandinė alga „NMA“ datai 2005.01.01 neturi reikšmės: neįrašyta nė viena.
  O0402300 | BaseHourTariffID        | 1          | 9          | Nustatymų bazinė valandinė alga „9“: tokios konstantos nėra.
  O0402300 | DateFrom                | 2005.01.01 | 2004.12.31 | Nustatymų bazinė mėnesinė alga „MMA“ datai 2004.12.31 neturi reikšmės: pirmoji galioja nuo 2005.01.01.
  O0402300 | PersonalTimeCodeIDList  | 3,7        | 3, 7       | Laukas „priemokų laiko kodai“: „ 7“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40.
  O0402300 | Rows.YearTo             | 3          | 2          | Laukas „stažas iki“: stažo pabaiga 2 mažesnė už pradžią 3.
)";

TEST_P(StandardObjectTest, RefusesWhatIsOutOfRangeAndKeepsWhatWasThere) {
  company_.given_position({.employee = person_, .share = 0.5});
  company_.given_category("A lygis", {{"2005.01.01", 9.7}});
  company_.given_constant("MMA", {{"2005.01.01", 130}});
  company_.given_constant("MVA", {{"2005.02.01", 0.8}});
  company_.given_constant("NMA", {});
  company_.given_settings({.from = "2005.01.01", .month_tariff = 1, .bands = {{3, 5, 3.0}}});
  company_.given_charge(person_, kNull, kNull, kNull);
  company_.database().execute("UPDATE extra_charges SET percentage = 5");
  for (const auto& c : text_table(kRefusals)) {
    ASSERT_EQ(c.size(), 5U) << c[1];
    SCOPED_TRACE(c[4]);
    const bool in_row = c[1].starts_with("Rows.");
    const std::string field = in_row ? c[1].substr(5) : c[1];
    const auto opened = [&](StandardObjectUIO& object) {
      EXPECT_EQ(read(object, (c[0] + "1").c_str()), "");
      return in_row ? object.Fields()["Rows"].Value().record_set() : object.RsFields();
    };
    auto object = object_of("Ona", c[0].c_str()), again = object_of("Jonas", c[0].c_str());
    const auto record = opened(object);
    record->set_field(field, c[2]);
    EXPECT_EQ(object.Save(0, "").ErrorText, "");
    record->set_field(field, c[3]);
    EXPECT_EQ(object.Save(0, "").ErrorText, c[4]);
    EXPECT_EQ(opened(again)->field(field).to_text(), c[2]);
  }
}

// What came in before there were ranges must not keep the rest of the record from being edited.
TEST_P(StandardObjectTest, AnOldValueOutOfRangeIsNoObstacleUntilItIsChanged) {
  company_.given_position({.employee = person_, .share = 5, .to = day("2004.12.31")});
  auto object = object_of("Ona");
  ASSERT_EQ(read(object, "O04020001"), "");
  const auto save_with = [&](const char* field, const Variant& value) {
    object.Fields()[field].Value(value);
    return object.Save(0, "").ErrorText;
  };
  EXPECT_EQ(save_with("PersonalContractGUID", "K2"), "");
  EXPECT_EQ(save_with("DateFrom", day("2005.01.02")),
            "Laukas „galioja iki“: pabaiga 2004.12.31 ankstesnė už pradžią 2005.01.02.");
  EXPECT_EQ(save_with("DateFrom", day("2004.12.31")), "");
  EXPECT_EQ(save_with("Share", 4), "Laukas „etato dalis“: 4 – leidžiama daugiau kaip 0 iki 2.");
  EXPECT_EQ(save_with("Share", 5), "");

  company_.given_constant("NMA", {});
  company_.given_settings({.from = "2005.01.01", .month_tariff = 1, .bands = {{3, 200, 3.0}, {1, 3, 1.0}}});
  auto settings = object_of("Ona", kSettingsType);
  ASSERT_EQ(read(settings, "O04023001"), "");
  settings.Fields()["ExtraChargePercentage"].Value(60);
  settings.Fields()["Rows"].Value().record_set()->set_field("Percentage", 2);
  EXPECT_EQ(settings.Save(0, "").ErrorText, "");
}

}  // namespace
}  // namespace quor
