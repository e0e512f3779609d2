#include <gtest/gtest.h>

#include "frame/dll_header.h"
#include "frame/security_header.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

// Every call on the host in order; the n-th one fails when told to.
struct Calls {
  std::vector<std::string> made;
  std::size_t failing = 0;  // 1 = the first; 0 = none

  void add(const std::string& call) {
    if (made.size() + 1 == failing) throw quor::Error(quor::ErrorKind::kOverflow, "nepriimta: " + call);
    made.push_back(call);
  }
};

class RecordingRegistry : public quor::ObjectRegistry {
 public:
  explicit RecordingRegistry(Calls& calls) : calls_(calls) {}

  struct Group : quor::LayoutGroup {
    explicit Group(Calls& calls) : calls_(calls) {}
    void AddGroupObject(const std::string& object_type) override { calls_.add("AddGroupObject " + object_type); }
    Calls& calls_;
  };
  struct Section : quor::Layout {
    explicit Section(Calls& calls) : calls_(calls) {}
    std::shared_ptr<quor::LayoutGroup> AddGroup(const std::string& object_type, const std::string& caption,
                                                const std::string& key) override {
      calls_.add("AddGroup " + object_type + ", " + caption + ", " + key);
      return std::make_shared<Group>(calls_);
    }
    Calls& calls_;
  };

  std::shared_ptr<quor::Layout> AddLayout(const std::string& code, const std::string& again, const std::string& caption,
                                          const std::string& key) override {
    calls_.add("AddLayout " + code + ", " + again + ", " + caption + ", " + key);
    return std::make_shared<Section>(calls_);
  }
  void RegisterObjectType(const std::string& library, const std::string& type, const std::string& caption) override {
    calls_.add("RegisterObjectType " + library + ", " + type + ", " + caption);
  }
  void AddLayoutIcon(const std::string& key, const quor::Picture& picture) override {
    calls_.add("AddLayoutIcon " + key + ", " + picture.name);
  }
  void AddObjectIcon(const std::string& key, const quor::Picture& picture) override {
    calls_.add("AddObjectIcon " + key + ", " + picture.name);
  }

 private:
  Calls& calls_;
};

class RecordingApplication : public quor::TestApplication {
 public:
  using TestApplication::TestApplication;
  std::shared_ptr<quor::ObjectRegistry> NewObjectRegistry() override {
    calls.add("NewObjectRegistry");
    return std::make_shared<RecordingRegistry>(calls);
  }
  Calls calls;
};

quor::Picture picture_named(std::string_view name) { return {std::string(name), {}}; }

const std::vector<std::string> kRegistration = {
    "NewObjectRegistry",
    "AddLayout L04010021, L04010021, Darbo užmokesčio išplėtimas, CSalaryExtraLayout",
    "AddGroup O0402200, Valstybės tarnautojai, COfficeEmployees",
    "AddGroupObject O0402200",
    "RegisterObjectType Velmora, O0402000, Darbo užmokesčio išplėtimas",
    "RegisterObjectType Velmora, O0402100, Tarifikacija",
    "RegisterObjectType Velmora, O0402200, Pareigybių kategorijos",
    "RegisterObjectType Velmora, O0402300, Valstybės tarnautojų nustatymai",
    "AddObjectIcon CategoryType, CategoryType",
    "AddObjectIcon OfficeEmployeeSettings, OfficeEmployeeSettings",
    "AddObjectIcon OfficeEmployeePreview, OFFICEEMPLOYEEPREVIEW",
    "AddLayoutIcon L04010021, LAYOUT",
    "AddLayoutIcon CategoryType, CategoryType",
    "AddLayoutIcon OfficeEmployeeSettings, OfficeEmployeeSettings",
    "AddLayoutIcon OfficeEmployeePreview, OFFICEEMPLOYEEPREVIEW",
};

TEST(Registration, CallsTheHostInExactlyThisOrder) {
  quor::TestCompany company;
  RecordingApplication application(company.company(), {});
  DLLHeader(application, picture_named).DllInicialize();
  EXPECT_EQ(application.calls.made, kRegistration);
}

TEST(Registration, AFailingCallEndsItThereAndReachesTheHost) {
  for (std::size_t n = 1; n <= kRegistration.size(); ++n) {
    SCOPED_TRACE(n);
    quor::TestCompany company;
    RecordingApplication application(company.company(), {});
    application.calls.failing = n;
    DLLHeader header(application, picture_named);
    EXPECT_EQ(quor::error_text([&] { header.DllInicialize(); }), "nepriimta: " + kRegistration[n - 1]);
    EXPECT_EQ(
        application.calls.made,
        std::vector<std::string>(kRegistration.begin(), kRegistration.begin() + static_cast<std::ptrdiff_t>(n - 1)));
    EXPECT_TRUE(application.shown_boxes().empty());
  }
}

TEST(Registration, RightsCanBeGivenOnTheLibraryItsLayoutAndItsGroup) {
  std::vector<std::string> components;
  for (const quor::SecurityComponent& c : SecurityHeader().GetComponentList()) {
    components.push_back(c.ParentKey + "/" + c.Key + "/" + c.Caption + "/" + std::to_string(c.Kind));
  }
  EXPECT_EQ(components, (std::vector<std::string>{"/DLL|L04010021/Darbo užmokesčio išplėtimas/10",
                                                  "/CSalaryExtraLayout/Aplinkos peržūra/2",
                                                  "/COfficeEmployees/Valstybės tarnautojai/2"}));
}

}  // namespace
}  // namespace velmora
