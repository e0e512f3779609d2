#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "host/objects/standard_object_uio.h"
#include "host/store/object_codes.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::day;
using quor::FieldType;
using quor::kNull;
using Texts = std::vector<std::string>;

const char* const kJanuary = "2008.01.31";

// A salary document that holds rows not stored yet, or whatever else stands in its collection.
class Document : public quor::StandardObjectUIO {
 public:
  explicit Document(quor::TestCompany& company)
      : StandardObjectUIO(company.application(), company.company(), "", quor::kSalaryExtensionType) {}
  quor::MethodResult Properties(const std::string& name, const std::string& parameter) override {
    asked.push_back(name + "(" + parameter + ")");
    return collection;
  }
  quor::MethodResult collection{0, "", quor::Variant::Array{}};
  Texts asked;
};

class SalaryComponentsTest : public testing::Test {
 protected:
  void SetUp() override {
    company_.given_tariffs();
    other_tariff_ = company_.given_constant("KITA", {{"2005.01.01", 99.5}});
    category_ = company_.given_category("A lygis", {{"2005.01.01", 9.1}, {"2007.07.01", 9.7}});
    other_category_ = company_.given_category("B lygis", {{"2009.01.01", 3.0}});
    person_ = company_.given_employee("Pirmoji");
  }

  std::string constant(const quor::Parameters& parameters) {
    return quor::called(engine_, "GetSalaryConstant", parameters);
  }
  std::string by_key(const char* key, int hourly = 0, const char* date = kJanuary) {
    return quor::called(engine_, "GetSalaryComponents", {document_, key, hourly, day(date)});
  }
  std::string by_id(std::int32_t id, int hourly = 0, const char* date = kJanuary) {
    return quor::called(engine_, "GetSalaryComponentsByID", {id, hourly, day(date)});
  }
  // A row of the document, edited and not stored.
  quor::Variant extra_row(const char* contract, const char* norm, quor::Variant constant_type, quor::Variant category) {
    auto row = company_.application().NewStandardObjectUIO(quor::kSalaryExtensionType);
    row->OIDR(quor::kSalaryExtensionType);
    EXPECT_FALSE(row->Read().Failed);
    row->Fields()["PersonalContractGUID"].Value(contract);
    row->Fields()["SalaryPersonalNormGUID"].Value(norm);
    row->Fields()["SalaryConstantTypeID"].Value(constant_type);
    row->Fields()["OfficeEmployeeCategoryID"].Value(category);
    return row;
  }

  quor::TestCompany company_;
  UIO0402000 engine_{company_.application()};
  std::shared_ptr<Document> document_ = std::make_shared<Document>(company_);
  std::int32_t other_tariff_ = 0, category_ = 0, other_category_ = 0, person_ = 0;
};

TEST_F(SalaryComponentsTest, TheBaseTariffIsTheSettingsOneOrTheTypeThatIsAskedFor) {
  const struct {
    const char* name;
    quor::Parameters parameters;
    const char* answer;
  } cases[] = {{"month tariff", {0, day(kJanuary)}, "1;130"},
               {"hour tariff", {1, day(kJanuary)}, "2;0,8"},
               {"any hourly flag but 0", {-1, day(kJanuary)}, "2;0,8"},
               {"type 0 means the settings", {0, day(kJanuary), 0}, "1;130"},
               {"a type wins over the settings", {1, day(kJanuary), 3}, "3;99,5"},
               {"an unknown type", {0, day(kJanuary), 2147483647}, "0;0"},
               {"first day in force", {0, day("2005.01.01")}, "1;130"},
               {"no settings yet", {0, day("2004.12.31")}, "0;0"},
               {"no value yet", {0, day("2004.12.31"), 3}, "0;0"}};
  for (const auto& c : cases) EXPECT_EQ(constant(c.parameters), c.answer) << c.name;
  EXPECT_TRUE(company_.application().boxes().empty());

  company_.given_settings({.from = "2009.01.01"});
  EXPECT_EQ(constant({0, day("2009.01.01")}), "0;0") << "settings without a tariff";
}

TEST_F(SalaryComponentsTest, ConstantsAreAskedForOnlyWhenThereIsAType) {
  EXPECT_EQ(constant({0, day(kJanuary)}), "1;130");
  EXPECT_EQ(constant({0, day(kJanuary), 3}), "3;99,5");
  EXPECT_EQ(constant({0, day("2004.12.31")}), "0;0");
  EXPECT_EQ(company_.application().requests,
            (Texts{"GetOfficeEmployeeSettings('2008.01.31'), flag 0", "GetSalaryConstants('2008.01.31'), flag 0",
                   "GetSalaryConstants('2008.01.31'), flag 0", "GetOfficeEmployeeSettings('2004.12.31'), flag 0"}));
}

TEST_F(SalaryComponentsTest, FailingConstantRequestsAreShownByPropertiesAndThenWrapped) {
  company_.application().refuse("GetSalaryConstants", "nėra ryšio");
  EXPECT_EQ(constant({0, day(kJanuary)}), "[777: GetSalaryConstant: Klaida!\r\nnėra ryšio]");
  EXPECT_EQ(company_.application().boxes(),
            (Texts{"exclamation, ok, Testas: nėra ryšio",
                   "exclamation, ok, Testas: GetSalaryConstant: Klaida!\r\nnėra ryšio"}));
}

TEST_F(SalaryComponentsTest, FailingSettingsAreShownOnceAndTheTypeStaysNone) {
  company_.application().refuse("GetOfficeEmployeeSettings", "nėra ryšio");
  EXPECT_EQ(constant({0, day(kJanuary)}), "0;0");
  EXPECT_EQ(company_.application().boxes(), Texts{"exclamation, ok, Testas: nėra ryšio"});
}

TEST_F(SalaryComponentsTest, AnswersWithoutARecordSetCountAsNotFound) {
  company_.application().answers["GetSalaryConstants"] = {0, "", std::shared_ptr<quor::Recordset>()};
  EXPECT_EQ(constant({0, day(kJanuary)}), "0;0");
  company_.application().answers["GetOfficeEmployeeSettings"] = {0, "", std::shared_ptr<quor::Recordset>()};
  EXPECT_EQ(constant({0, day(kJanuary)}), "0;0");
}

TEST_F(SalaryComponentsTest, AStoredPositionGivesTariffCategoryAndFactorOfTheDate) {
  const auto stored = company_.given_position(
      {.employee = person_, .category = category_, .constant_type = other_tariff_, .contract = "K", .norm = "N"});
  const auto plain = company_.given_position({.employee = person_, .contract = "P'", .norm = "L"});
  const auto future = company_.given_position({.employee = person_, .category = other_category_, .contract = "F"});

  EXPECT_EQ(by_key("KN"), "3;99,5;1;9,7;A lygis");
  EXPECT_EQ(by_key("KN", 1), "3;99,5;1;9,7;A lygis") << "the type wins over the hourly flag";
  EXPECT_EQ(by_key("KN", 0, "2007.06.30"), "3;99,5;1;9,1;A lygis");
  EXPECT_EQ(by_key("P'L"), "1;130;0;0;") << "no type: the settings' tariff; no category: nothing";
  EXPECT_EQ(by_key("P'L", -1), "2;0,8;0;0;");
  EXPECT_EQ(by_key("NK"), "1;130;0;0;") << "no such position";
  EXPECT_EQ(by_id(stored), "3;99,5;1;9,7;A lygis");
  EXPECT_EQ(by_id(plain, -1), "2;0,8;0;0;");
  EXPECT_EQ(by_id(future), "1;130;0;0;") << "the category has no factor yet";
  EXPECT_EQ(by_id(99), "1;130;0;0;");
  EXPECT_TRUE(company_.application().boxes().empty());
  EXPECT_EQ(document_->asked.at(0), "ExtraUIOCollection()");
  EXPECT_EQ(company_.application().requests.at(0), "GetSalaryExtraRow('KN','2008.01.31'), flag 0");

  company_.application().requests.clear();
  EXPECT_EQ(by_key("P'L"), "1;130;0;0;");
  EXPECT_EQ(by_id(stored), "3;99,5;1;9,7;A lygis");
  EXPECT_EQ(company_.application().requests,
            (Texts{"GetSalaryExtraRow('P''L','2008.01.31'), flag 0", "GetOfficeEmployeeSettings('2008.01.31'), flag 0",
                   "GetSalaryConstants('2008.01.31'), flag 0", "GetSalaryExtraRowByID(1,'2008.01.31'), flag 0",
                   "GetSalaryConstants('2008.01.31'), flag 0", "GetOfficeEmployeeCategory(1,'2008.01.31'), flag 0"}));
}

TEST_F(SalaryComponentsTest, TheAnswerHasItsFiveFieldsInOrder) {
  const auto result = engine_.Methods("GetSalaryComponentsByID", {1, 0, day(kJanuary)});
  const auto& row = *result.Value.record_set();
  std::string fields;
  for (std::size_t i = 0; i < row.field_count(); ++i) {
    const quor::FieldInfo& info = row.field_info({i});
    fields += info.name + "/" + std::to_string(static_cast<int>(info.type)) + "/" + std::to_string(info.size) + " ";
  }
  EXPECT_EQ(fields,
            "ConstantID/1/0 ConstantValue/2/0 TariffFactorID/1/0 TariffFactorValue/2/0 TariffFactorName/5/500 ");
  EXPECT_EQ(row.RecordCount(), 1);
}

TEST_F(SalaryComponentsTest, ARowOfTheDocumentWinsOverTheStore) {
  company_.given_position({.employee = person_, .category = other_category_, .contract = "K", .norm = "N"});
  document_->collection.Value =
      quor::Variant::Array{std::shared_ptr<quor::StandardObjectUIO>(), extra_row("K", "", 2, kNull),
                           extra_row("K", "N", 3, category_), extra_row("K", "N", 1, other_category_)};
  EXPECT_EQ(by_key("KN"), "3;99,5;1;9,7;A lygis") << "the first that matches";
  EXPECT_EQ(by_key("K"), "2;0,8;0;0;") << "a null category";
  EXPECT_TRUE(company_.application().boxes().empty());
  const auto& requests = company_.application().requests;
  EXPECT_EQ(std::count(requests.begin(), requests.end(), "GetSalaryExtraRow('KN','2008.01.31'), flag 0"), 0);
  // Keys are compared letter by letter; a collection that fails or is none leaves the store.
  EXPECT_EQ(by_key("kn"), "1;130;0;0;");
  document_->collection = {7, "sugedo", quor::Variant::Array{extra_row("K", "N", 3, category_)}};
  EXPECT_EQ(by_key("KN"), "1;130;0;0;");
  document_->collection = {};
  EXPECT_EQ(by_key("KN"), "1;130;0;0;");
}

TEST_F(SalaryComponentsTest, APositionThatCannotBeReadIsShownAsCriticalAndCountsAsEmpty) {
  company_.given_position({.employee = person_, .category = category_, .contract = "K", .norm = "N"});
  company_.application().refuse("GetSalaryExtraRow", "nėra ryšio");
  company_.application().refuse("GetSalaryExtraRowByID", "nutrūko");
  EXPECT_EQ(by_key("KN"), "1;130;0;0;");
  EXPECT_EQ(by_id(1, 1), "2;0,8;0;0;");
  EXPECT_EQ(company_.application().boxes(),
            (Texts{"exclamation, ok, Testas: nėra ryšio", "critical, ok, Testas: SalaryExtraRow: Klaida!\r\nnėra ryšio",
                   "exclamation, ok, Testas: nutrūko", "critical, ok, Testas: SalaryExtraRow: Klaida!\r\nnutrūko"}));
}

TEST_F(SalaryComponentsTest, AFailedCategoryIsThePluginsFailure) {
  const auto id = company_.given_position({.employee = person_, .category = category_, .contract = "K", .norm = "N"});
  company_.application().refuse("GetOfficeEmployeeCategory", "nėra ryšio");
  const Texts two_boxes = {"exclamation, ok, Testas: nėra ryšio",
                           "exclamation, ok, Testas: GetSalaryComponents: Klaida!\r\nnėra ryšio"};
  EXPECT_EQ(by_id(id), "[777: GetSalaryComponents: Klaida!\r\nnėra ryšio]");
  EXPECT_EQ(company_.application().boxes(), two_boxes);
  EXPECT_EQ(by_key("KN"), "[777: GetSalaryComponents: Klaida!\r\nnėra ryšio]");
}

TEST_F(SalaryComponentsTest, OnlyAPositiveCategoryIsAskedFor) {
  company_.application().refuse("GetOfficeEmployeeCategory", "nėra ryšio");
  const std::vector<quor::FieldInfo> fields = {{"SalaryConstantTypeID", FieldType::kInt32},
                                               {"OfficeEmployeeCategoryID", FieldType::kInt32}};
  for (const quor::Variant& category : {quor::Variant(-1), quor::Variant(0), quor::Variant(kNull)}) {
    company_.application().answers["GetSalaryExtraRowByID"] = {0, "", quor::record_set(fields, {{3, category}})};
    EXPECT_EQ(by_id(5), "3;99,5;0;0;");
  }
  company_.application().answers = {{"GetSalaryExtraRowByID", {0, "", quor::record_set(fields, {{kNull, category_}})}}};
  EXPECT_EQ(by_id(5), "1;130;1;9,7;A lygis");
}

// What the constants' failure says about the position that needs them: its fields stay 0, its own category is read.
TEST_F(SalaryComponentsTest, FailedConstantsLeaveTheTariffZero) {
  const auto id = company_.given_position({.employee = person_, .category = category_});
  company_.application().refuse("GetSalaryConstants", "nėra ryšio");
  EXPECT_EQ(by_id(id), "0;0;1;9,7;A lygis");
  EXPECT_EQ(company_.application().boxes(), Texts{"exclamation, ok, Testas: nėra ryšio"});
}

}  // namespace
}  // namespace velmora
