#include <gtest/gtest.h>

#include "adapters/category_object.h"
#include "adapters/settings_object.h"
#include "adapters/tarification_object.h"
#include "tests/support/recording_object.h"

namespace velmora {
namespace {

using quor::kNull;
using Texts = std::vector<std::string>;

struct DataObjects {
  explicit DataObjects(quor::QuorApplication& application)
      : tarification(application), category(application), settings(application) {}
  UIO0402100 tarification;
  UIO0402200 category;
  UIO0402300 settings;
};

TEST(DataObjects, EachKeepsRecordsOfItsOwnType) {
  quor::TestCompany company;
  quor::RecordingApplication application(company.company(), {});
  const DataObjects objects(application);
  EXPECT_EQ(application.types, (Texts{"O0402100", "O0402200", "O0402300"}));
}

TEST(DataObjects, ServeTheirOwnNamesAndNoOthers) {
  quor::TestCompany company;
  quor::TestApplication& application = company.application();
  DataObjects objects(application);
  const struct {
    const char* name;
    const char* tarification;  // the parameter of the request, "" for none
    const char* category;
    const char* settings;
  } cases[] = {
      {"CategoryPreview", "", "(None)", ""},
      {"OfficeEmployeeSettings", "", "(None)", "('x')"},
      {"SalaryConstants", "", "", "('x')"},
      {"Indications", "", "", "(None)"},
      {"SalaryCodes", "", "", "(None)"},
      {"OfficeEmployeeCategory", "", "", ""},
      {"categoryPreview", "", "", ""},
      {"SALARYCODES", "", "", ""},
      {"parent", "", "", ""},
      {"", "", "", ""},
  };
  std::size_t shown = 0;
  const auto expect = [&](quor::QuorObjectUIO& object, const std::string& name, const std::string& parameter) {
    SCOPED_TRACE(name + parameter);
    const std::string request = "Get" + name;
    application.requests.clear();
    application.answers[request] = {0, "", quor::ids({4, 5})};
    EXPECT_EQ(quor::result_text(object.Properties(name, "'x'")), parameter.empty() ? "Empty" : "4 | 5");
    application.refuse(request, "nėra ryšio");
    EXPECT_EQ(quor::result_text(object.Properties(name, "'x'")), parameter.empty() ? "Empty" : "[5: nėra ryšio]");
    const std::string asked = request + parameter + ", flag 0";
    EXPECT_EQ(application.requests, parameter.empty() ? Texts{} : (Texts{asked, asked}));
    if (!parameter.empty()) ++shown;
    ASSERT_EQ(application.boxes().size(), shown) << "only the failure is shown, once";
    if (shown > 0) {
      EXPECT_EQ(application.boxes().back(), "exclamation, ok, Testas: nėra ryšio");
    }
  };
  for (const auto& c : cases) {
    expect(objects.tarification, c.name, c.tarification);
    expect(objects.category, c.name, c.category);
    expect(objects.settings, c.name, c.settings);
  }
}

TEST(DataObjects, AParentIsFoundForTarificationAndSettings) {
  quor::TestCompany company;
  quor::RecordingApplication application(company.company(), {});
  DataObjects objects(application);
  const auto ui = std::make_shared<quor::FindingUI>();
  ui->found = std::make_shared<quor::RecordingObject>(nullptr);
  const std::pair<quor::QuorObjectUIO*, bool> cases[] = {
      {&objects.tarification, true}, {&objects.category, false}, {&objects.settings, true}};
  for (const auto& [object, has_parent] : cases) {
    ui->asked.clear();
    object->UI(ui);
    EXPECT_EQ(quor::result_text(object->Properties("Parent", "")), has_parent ? "object" : "Empty");
    EXPECT_EQ(ui->asked, has_parent ? Texts{"standard OID42"} : Texts{});
  }
}

// Counts what the data object lets happen.
class WaitingApplication : public quor::TestApplication {
 public:
  using TestApplication::TestApplication;
  void run_pending_events() override { ++pauses; }
  int pauses = 0;
};

class CategoryRowsTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::int32_t id = company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2007.01.01", 10.2}});
    category_.OIDR(kKey + std::to_string(id));
    ASSERT_FALSE(category_.Read().Failed);
  }
  std::shared_ptr<quor::Recordset> rows() { return category_.Fields()["Rows"].Value().record_set(); }
  std::string guid() {
    rows()->MoveFirst();
    return rows()->field("GUID").to_text();
  }
  std::string remove(const quor::Parameters& parameters) {
    return quor::called(category_, "DeleteCategoryRow", parameters);
  }
  std::string factors() { return quor::walked(*rows(), "Factor"); }

  const std::string kKey = "O0402200";
  quor::TestCompany company_;
  WaitingApplication application_{company_.company(), {}};
  UIO0402200 category_{application_};
};

TEST_F(CategoryRowsTest, ARowIsDeletedByItsGuidAndTheRestIsStored) {
  const std::string first = guid();
  EXPECT_EQ(remove({first, "dar"}), "True") << "only the first element counts";
  EXPECT_EQ(rows()->Filter(), "GUID = '" + first + "'") << "for the caller to remove";
  EXPECT_EQ(application_.pauses, 1);
  rows()->Filter("");
  EXPECT_EQ(factors(), "10,2");
  EXPECT_FALSE(category_.Save(0, "").Failed);
  ASSERT_FALSE(category_.Read().Failed);
  EXPECT_EQ(factors(), "10,2");

  EXPECT_EQ(remove({guid()}), "True");
  rows()->Filter("");
  EXPECT_EQ(rows()->RecordCount(), 0) << "the last row is gone";
  EXPECT_EQ(remove({first}), "False") << "nothing is left";
}

TEST_F(CategoryRowsTest, WhatIsNotFoundChangesNothing) {
  const std::string there = guid();
  const quor::Parameters not_found[] = {{}, {""}, {"nėra"}, {there + "0"}, {"' OR GUID <> '"}};
  for (const quor::Parameters& parameters : not_found) EXPECT_EQ(remove(parameters), "False");
  EXPECT_EQ(remove({kNull}), "InvalidNull");
  for (const char* name : {"deleteCategoryRow", "DeletePersonalExtraCharge", ""}) {
    EXPECT_EQ(quor::called(category_, name, {there}), "Empty");
  }
  UIO0402300 settings(application_);
  EXPECT_EQ(quor::called(settings, "DeleteCategoryRow", {there}), "Empty");
  EXPECT_EQ(rows()->Filter(), "");
  EXPECT_EQ(factors(), "9,7 10,2");
  EXPECT_EQ(application_.pauses, 0);
  category_.Fields()["Rows"].Value(kNull);
  EXPECT_EQ(remove({there}), "False") << "a category without rows";
  EXPECT_TRUE(application_.boxes().empty());
}

}  // namespace
}  // namespace velmora
