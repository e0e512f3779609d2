#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "frame/contract/named_members.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::day;
using quor::FieldType;
using quor::kNull;
using Texts = std::vector<std::string>;

class ExtraRowsTest : public testing::Test {
 protected:
  quor::MethodResult object_of(const char* row_id) {
    return engine_.Methods("GetExtraUIOByGUID", {row_id, day("2008.01.31")});
  }

  quor::TestCompany company_;
  UIO0402000 engine_{company_.application()};
};

TEST_F(ExtraRowsTest, AnIdentifierLeadsToTheReadObjectOfItsRow) {
  company_.application().load_plugin(VELMORA_PLUGIN);
  const auto person = company_.given_employee("Pirmoji");
  company_.given_position({.employee = person, .contract = "K", .norm = "N"});
  company_.given_position({.employee = person, .share = 0.25, .contract = "L'", .norm = "M"});

  const auto found = object_of("L'M");
  const auto object = quor::to_object<quor::QuorObjectUIO>(found.Value);
  ASSERT_TRUE(object);
  EXPECT_EQ(object->OIDR(), "O04020002");
  EXPECT_EQ(object->Fields()["Share"].Value().to_double(), 0.25);
  EXPECT_EQ(quor::result_text(object_of("nėra")), "Empty");
  EXPECT_EQ(company_.application().requests.at(0), "GetSalaryExtraRow('L''M','2008.01.31'), flag 0");
  EXPECT_TRUE(company_.application().boxes().empty());
}

TEST_F(ExtraRowsTest, OnlyAnIdentityBehindTheTypeCodeIsAnObject) {
  const struct {
    quor::Variant identity;
    const char* answer;
  } cases[] = {{kNull, "Empty"},
               {"", "Empty"},
               {"O0402000", "Empty"},        // eight characters: no object
               {"O99990001", "no object"}};  // the host knows no such type
  for (const auto& c : cases) {
    company_.application().answers["GetSalaryExtraRow"] = {
        0, "", quor::record_set({{"OIDR", FieldType::kText}}, {{c.identity}})};
    EXPECT_EQ(quor::result_text(object_of("K")), c.answer) << quor::value_text(c.identity);
  }
  company_.application().answers["GetSalaryExtraRow"] = {0, "", std::shared_ptr<quor::Recordset>()};
  EXPECT_EQ(quor::result_text(object_of("K")), "Empty");
}

TEST_F(ExtraRowsTest, AFailedRequestIsShownAndThenWrapped) {
  company_.application().refuse("GetSalaryExtraRow", "nėra ryšio");
  EXPECT_EQ(quor::result_text(object_of("K")), "[777: CreateExtraUIO/SalaryExtraRow: Klaida!\r\nnėra ryšio]");
  EXPECT_EQ(company_.application().boxes(),
            (Texts{"exclamation, ok, Testas: nėra ryšio",
                   "exclamation, ok, Testas: CreateExtraUIO/SalaryExtraRow: Klaida!\r\nnėra ryšio"}));
}

struct RowMembers : quor::NamedMembers {
  RowMembers(quor::Variant c, quor::Variant f) : constant(std::move(c)), factor(std::move(f)) {}
  quor::Variant member(std::string_view name) const override {
    if (name == "mConstantID") return constant;
    if (name == "mTariffFactorID") return factor;
    throw quor::Error(quor::ErrorKind::kNoSuchField, std::string(name));
  }
  quor::Variant constant, factor;
};

TEST_F(ExtraRowsTest, ACompleteRowHasABaseTariffAndACategory) {
  const struct {
    quor::Variant constant, factor;
    const char* reason;
  } cases[] = {{1, 2, ""},
               {-1, -1, ""},
               {0, 0, "Nenurodyta bazinė alga!"},
               {0, 2, "Nenurodyta bazinė alga!"},
               {kNull, 2, "Nenurodyta bazinė alga!"},
               {1, 0, "Nenurodyta pareigybių kategoriją!"},
               {1, quor::Variant(), "Nenurodyta pareigybių kategoriją!"}};
  for (const auto& c : cases) {
    const auto row = std::make_shared<RowMembers>(c.constant, c.factor);
    EXPECT_EQ(quor::called(engine_, "CheckExtraComponents", {row}), c.reason);
  }
  EXPECT_TRUE(company_.application().boxes().empty());
}

}  // namespace
}  // namespace velmora
