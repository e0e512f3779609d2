#include "host/company/month_norms.h"

#include <gtest/gtest.h>

#include "host/company/office_name.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class KeptNorms : public testing::TestWithParam<Backend> {
 protected:
  // Sets the norms by month (1 is January; 0 hours for none) as whoever has read `read` does.
  std::string set(const YearNorms& read, const std::vector<std::pair<int, double>>& changes) {
    YearNorms wanted = read;
    for (const auto& [month, hours] : changes) {
      wanted[static_cast<std::size_t>(month - 1)] = hours == 0 ? std::nullopt : std::optional(hours);
    }
    return refusal_of([&] { store_year_norms(company_.application(), company_.company(), 2008, read, wanted); }).text;
  }
  YearNorms stored() { return read_year_norms(company_.database(), 2008); }
  std::string rows() {
    return rows_text(*company_.database().read("SELECT month, hours FROM month_norms ORDER BY month",
                                               {{"m", FieldType::kDate}, {"h", FieldType::kDouble}}));
  }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(KeptNorms);

TEST_P(KeptNorms, AreStoredAYearAtATimeOrNotAtAll) {
  company_.database().execute("INSERT INTO month_norms (month, hours) VALUES (39447, 1), (39814, 2)");  // not of 2008
  const std::string others = "2007.12.31;1 | 2009.01.01;2";
  EXPECT_EQ(set(stored(), {{1, 176}, {2, 744.5}}), "Mėnesio 2008.02 norma: 744,5 – leidžiama daugiau kaip 0 iki 744.");
  EXPECT_EQ(rows(), others);
  const YearNorms before = stored();
  EXPECT_EQ(set(before, {{1, 176}, {12, 166}}), "");
  const std::string all = "2007.12.31;1 | 2008.01.01;176 | 2008.12.01;166 | 2009.01.01;2";
  EXPECT_EQ(rows(), all);
  EXPECT_EQ(set(before, {{2, 160}, {1, 175}}), "Mėnesio 2008.01 normą tuo metu pakeitė kitas vartotojas: dabar 176.");
  for (std::uint64_t n = 1;; ++n) {
    fail_one(company_.database(), n);
    const std::string text = set(before, {{2, 167}});
    company_.heal();
    if (text.empty()) break;
    ASSERT_EQ(rows(), all) << n;
  }
  EXPECT_EQ(set(stored(), {{2, 0}}), "");
  EXPECT_EQ(rows(), all);
}

TEST_P(KeptNorms, OfAClosedMonthAreAskedAbout) {
  company_.database().execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, '', '')");
  EXPECT_EQ(set(stored(), {{1, 160}}), "Pakeitimas siekia uždarytą mėnesį 2008.01.");
  EXPECT_EQ(set(stored(), {{2, 160}}), "");
  company_.application().answer(BoxAnswer::kYes);
  EXPECT_EQ(set(stored(), {{1, 160}}), "");
  EXPECT_EQ(rows(), "2008.01.01;160 | 2008.02.01;160");
  company_.given_rights(company_.given_user("testuotoja"), "O0402000", "vcdp");
  EXPECT_EQ(set(stored(), {{3, 160}}), "Neturite teisės keisti mėnesių normų.");
}

TEST_P(KeptNorms, TheOfficesNameIsTheAdministrators) {
  RightsGuard& guard = company_.application().guard();
  const auto rename = [&](const char* read, const std::string& name) {
    return refusal_of([&] { rename_office(guard, read, name); }).text;
  };
  EXPECT_EQ(rename("", "Žemės tarnyba"), "");
  EXPECT_EQ(rename("", "Kita"), "Įstaigos pavadinimą tuo metu pakeitė kitas vartotojas: dabar „Žemės tarnyba“.");
  EXPECT_EQ(rename("Žemės tarnyba", " "), "Neįrašytas įstaigos pavadinimas.");
  EXPECT_EQ(rename("Žemės tarnyba", "a\tb"),
            "Įstaigos pavadinimas: tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas).");
  company_.given_user("testuotoja");
  company_.company().forget();
  EXPECT_THROW(rename_office(guard, "Žemės tarnyba", "Kita"), Error);
  EXPECT_EQ(office_name(company_.database()), "Žemės tarnyba");
}

}  // namespace
}  // namespace quor
