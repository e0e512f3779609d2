#include "engine/salary_engine.h"

#include <gtest/gtest.h>

#include "tests/support/recording_object.h"

namespace velmora {
namespace {

using quor::day;
using quor::kNull;
using quor::Parameters;
using Texts = std::vector<std::string>;

class EngineTest : public testing::Test {
 protected:
  std::string called(const std::string& method, const Parameters& parameters) {
    return quor::called(engine_, method, parameters);
  }

  quor::TestCompany company_;
  quor::RecordingApplication application_{company_.company(), {}};
  UIO0402000 engine_{application_};
};

TEST_F(EngineTest, ForwardsEveryMemberToItsStandardObjectAndBack) {
  EXPECT_EQ(
      (Texts{engine_.GetGUID(), engine_.OID(), engine_.OIDR(), engine_.OName(), engine_.OType(), engine_.Preview()}),
      (Texts{"standard GetGUID", "standard OID", "standard OIDR", "standard OName", "standard OType",
             "standard Preview"}));
  engine_.OID("a");
  engine_.OIDR("b");
  engine_.OType("c");
  engine_.Preview("d");
  EXPECT_EQ(engine_.Fields()["ParentID"].Value().to_int32(), 42);
  EXPECT_EQ(engine_.RsFields(), application_.standard->RsFields());
  EXPECT_EQ(engine_.Read().ErrorText, "standard Read");
  EXPECT_EQ(engine_.Save(7, "p").ErrorText, "standard Save 7 p");
  const auto ui = std::make_shared<quor::FindingUI>();
  engine_.UI(ui);
  EXPECT_EQ(engine_.UI(), ui);
  EXPECT_EQ(engine_.BO(), application_.standard->BO());
  engine_.CancelUpdate();
  EXPECT_EQ(application_.standard->calls,
            (Texts{"GetGUID", "OID", "OIDR", "OName", "OType", "Preview", "OID=a", "OIDR=b", "OType=c", "Preview=d",
                   "Fields", "RsFields", "RsFields", "Read", "Save 7 p", "UI=", "UI", "CancelUpdate"}));
}

TEST_F(EngineTest, AsksTheBusinessObjectByNameWithTheParameterOrNone) {
  const std::pair<const char*, std::vector<const char*>> names_by_parameter[] = {
      {"(None), flag 0", {"OfficeEmployeeExperience", "SalaryCodes", "OfficeEmployeeExtraCharges"}},
      {"('x'), flag 0",
       {"SalaryExtraRow", "SalaryConstants", "OfficeEmployeeCategory", "SalaryExtraRowByID", "OfficeEmployeeSettings",
        "OfficeEmployeePreview", "OfficeEmployeeSurcharge", "PersonalExtraCharges"}}};
  std::size_t shown = 0;
  for (const auto& [parameter, names] : names_by_parameter) {
    for (const std::string name : names) {
      const std::string request = "Get" + name;
      application_.requests.clear();
      application_.answers[request] = {0, "", quor::ids({4, 5})};
      EXPECT_EQ(quor::result_text(engine_.Properties(name, "'x'")), "4 | 5");
      application_.refuse(request, "nėra ryšio");
      EXPECT_EQ(quor::result_text(engine_.Properties(name, "'x'")), "[5: nėra ryšio]") << "unchanged";
      EXPECT_EQ(application_.requests, (Texts{request + parameter, request + parameter}));
      ASSERT_EQ(application_.boxes().size(), ++shown) << "only the failure is shown";
      EXPECT_EQ(application_.boxes().back(), "exclamation, ok, Pirmas: nėra ryšio");
    }
  }
}

TEST_F(EngineTest, UnknownNamesAndOtherLetterCaseAreEmptyAndSilent) {
  for (const char* name : {"", "salaryconstants", "GetSalaryConstants", "parent", "Employees"}) {
    EXPECT_EQ(quor::result_text(engine_.Properties(name, "'2008.01.31'")), "Empty") << name;
  }
  for (const char* name : {"", "getmmacode", "GetMMACODE", "GetMMACode ", "MMACode"}) {
    EXPECT_EQ(called(name, {}), "Empty") << name;
  }
  EXPECT_TRUE(application_.requests.empty());
  EXPECT_TRUE(application_.boxes().empty());
}

TEST_F(EngineTest, TheParentIsFoundByTheOwnIdentifierAndTheParentsId) {
  EXPECT_EQ(quor::outcome([&] { return quor::result_text(engine_.Properties("Parent", "")); }), "ObjectMissing");
  const auto ui = std::make_shared<quor::FindingUI>();
  engine_.UI(ui);
  EXPECT_EQ(quor::result_text(engine_.Properties("Parent", "")), "no object");
  ui->found = std::make_shared<quor::RecordingObject>(nullptr);
  engine_.RsFields()->set_field("ParentID", kNull);
  EXPECT_EQ(engine_.Properties("Parent", "x").Value.object(), ui->found);
  EXPECT_EQ(ui->asked, (Texts{"standard OID42", "standard OID"}));
  EXPECT_TRUE(application_.requests.empty());
}

TEST_F(EngineTest, AWrongNumberOfParametersIsShownWithTheTitleOfTheBeginning) {
  application_.title = "Antras";
  const auto document = std::make_shared<quor::RecordingObject>(nullptr);
  struct Case {
    const char* method;
    Parameters parameters;
  };
  const quor::Date date = day("2008.01.31");
  const Case cases[] = {{"GetSalaryComponents", {}},
                        {"GetSalaryComponents", {document, "K", 0}},
                        {"GetSalaryComponents", {document, "K", 0, date, 1}},
                        {"GetSalaryConstant", {}},
                        {"GetSalaryConstant", {0}},
                        {"GetSalaryConstant", {0, date, 1, 1}}};
  std::size_t shown = 0;
  for (const Case& c : cases) {
    const std::string message = std::string("Method ") + c.method + ":\r\nKlaidingi parametrai!";
    EXPECT_EQ(called(c.method, c.parameters), "[777: " + message + "]");
    ASSERT_EQ(application_.boxes().size(), ++shown);
    EXPECT_EQ(application_.boxes().back(), "exclamation, ok, Pirmas: " + message);
  }
}

TEST_F(EngineTest, MissingAndUnconvertibleParametersThrowBeforeAnythingIsAskedOrShown) {
  const auto document = std::make_shared<quor::RecordingObject>(nullptr);
  const auto no_document = std::shared_ptr<quor::RecordingObject>();
  const auto ui = std::make_shared<quor::FindingUI>();
  const quor::Date date = day("2008.01.31");
  const struct {
    const char* method;
    Parameters parameters;
    const char* outcome;
  } cases[] = {
      {"GetPercentageByExperience", {5}, "IndexOutOfRange"},
      {"GetPercentageByExperience", {32768, quor::ids({})}, "Overflow"},
      {"GetPercentageByExperience", {5, "rinkinys"}, "TypeMismatch"},
      {"GetPersonalExtraChargeComponents", {1}, "IndexOutOfRange"},
      {"GetPersonalExtraChargeComponents", {1, "2008.02.30"}, "TypeMismatch"},
      {"GetActionComponents", {}, "IndexOutOfRange"},
      {"GetSalaryComponents", {ui, "K", 0, date}, "TypeMismatch"},
      {"GetSalaryComponents", {no_document, "K", 0, date}, "ObjectMissing"},
      {"GetSalaryComponents", {document, kNull, 0, date}, "InvalidNull"},
      {"GetSalaryComponents", {document, "K", 40000, date}, "Overflow"},
      {"GetSalaryComponents", {document, "K", 0, "rytoj"}, "TypeMismatch"},
      {"GetMonthSalaryValue", {130.0, 9.7}, "IndexOutOfRange"},
      {"GetMonthSalaryValue", {130.0, kNull, 1.0}, "InvalidNull"},
      {"GetMonthSalaryValue", {130.0, 9.7, "1E400"}, "Overflow"},
      {"GetSalaryComponentsByID", {1, 0}, "IndexOutOfRange"},
      {"GetSalaryComponentsByID", {1, -32769, date}, "Overflow"},
      {"GetSalaryConstant", {kNull, date}, "InvalidNull"},
      {"GetSalaryConstant", {0, date, "1E10"}, "Overflow"},
      {"GetExtraUIOByGUID", {"K"}, "IndexOutOfRange"},
      {"GetExtraUIOByGUID", {document, date}, "TypeMismatch"},
      {"CheckExtraComponents", {}, "IndexOutOfRange"},
      {"CheckExtraComponents", {document}, "TypeMismatch"},
  };
  for (const auto& c : cases) EXPECT_EQ(called(c.method, c.parameters), c.outcome) << c.method;
  EXPECT_TRUE(application_.requests.empty());
  EXPECT_TRUE(application_.boxes().empty());
}

TEST_F(EngineTest, ParametersConvertByPosition) {
  EXPECT_EQ(called("GetMMACode", {}) + called("GetMVACode", {}), "MMA_VTMVA_VT");
  company_.given_settings({.from = "2005.01.01", .bands = {{2, 3, 7.5}}});
  EXPECT_EQ(called("GetMonthSalaryValue", {"130", "9,7", true}), "-1260") << "true is -1";
  EXPECT_EQ(called("GetMonthSalaryValue", {130, 9.7, quor::Variant()}), "0");
  const auto settings = company_.rows("OfficeEmployeeSettings", "'2008.01.31'");
  EXPECT_EQ(called("GetPercentageByExperience", {"2,5", settings}), "7,5") << "half to even";
  EXPECT_EQ(called("GetPersonalExtraChargeComponents", {"17", "2008-1-31"}),
            "0;Tarnybos stažas datai 2008.01.31 (metai): 0");
}

TEST_F(EngineTest, AComputedRowIsWholeWithoutBeingUpdated) {
  const auto result = engine_.Methods("GetActionComponents", {"SalaryTariff"});
  const auto& row = result.Value.record_set();
  EXPECT_EQ(row->RecordCount(), 1);
  EXPECT_FALSE(row->Eof());
  EXPECT_EQ(row->field_info({0}).name, "ActionName");
  EXPECT_EQ(row->field_info({0}).size, 500U);
}

}  // namespace
}  // namespace velmora
