#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "host/application/menu_places.h"
#include "host/application/plugin_files.h"
#include "host/application/user_rights.h"
#include "platform/toolkit/form.h"
#include "tests/support/company_place.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

std::string loading(const std::string& file) {
  return error_text([&] { PluginLibrary{file}; });
}

TEST(PluginLibrary, OnlyAPluginOfThisContractIsLoaded) {
  const TemporaryFolder folder;
  const std::string text_file = folder.path("tekstas.so");
  std::ofstream(text_file) << "ne biblioteka";
  EXPECT_EQ(loading(VELMORA_PLUGIN), "no error");
  const struct {
    std::string file;
    const char* reason;
  } cases[] = {{folder.path("nėra.so"), "nerastas."},
               {text_file, "neįkeliamas: "},
               {folder.path(""), "neįkeliamas: "},
               {VELMORA_LIBQUOR, "nėra šios programos įskiepis."},
               {VELMORA_OTHER_PLUGIN, "skirtas kitai programos versijai: jo sąsajos numeris 5, reikia 4."}};
  for (const auto& c : cases) {
    const std::string expected = "Įskiepis „" + c.file + "“ " + c.reason;
    EXPECT_EQ(loading(c.file).substr(0, expected.size()), expected);
  }
}

TEST(PluginLibrary, ClassesAreMadeByTheirExactIdentifier) {
  TestCompany company;
  const PluginLibrary library(VELMORA_PLUGIN);
  EXPECT_TRUE(library.create<QuorHeader>("Velmora.DLLHeader", company.application()));
  EXPECT_TRUE(library.create<QuorHeaderSecurity>("Velmora.SecurityHeader", company.application()));
  for (const char* number : {"0402000", "0402100", "0402200", "0402300"}) {
    EXPECT_TRUE(library.create<QuorObjectUIO>(std::string("Velmora.UIO") + number, company.application())) << number;
  }
  for (const char* number : {"0402000", "0402100", "0402300"}) {
    EXPECT_TRUE(library.create<QuorObjectUI>(std::string("Velmora.UI") + number, company.application())) << number;
  }
  for (const char* unknown : {"", "Velmora", "UIO0402000", "velmora.UIO0402000", "Velmora.UIO0402000 "}) {
    EXPECT_EQ(library.create_object(unknown, company.application()), nullptr) << unknown;
  }
  for (const char* refused : {"Velmora.Nothing", "Velmora.SecurityHeader"}) {
    EXPECT_EQ(error_text([&] { library.create<QuorHeader>(refused, company.application()); }),
              std::string("Įskiepis „" VELMORA_PLUGIN "“ neturi klasės „") + refused + "“.");
  }
}

TEST(PluginLibrary, NoExceptionLeavesTheEntry) {
  struct BrokenApplication : TestApplication {
    using TestApplication::TestApplication;
    std::shared_ptr<QuorObjectUIO> NewStandardObjectUIO(const std::string&) override {
      throw Error(ErrorKind::kOverflow, "nėra vietos");
    }
  };
  TestCompany company;
  BrokenApplication application(company.company(), {});
  EXPECT_EQ(PluginLibrary(VELMORA_PLUGIN).create_object("Velmora.UIO0402000", application), nullptr);
}

TEST(Plugin, RegistersItselfWithTheHost) {
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  const Registrations& all = company.application().registrations();
  ASSERT_EQ(all.layouts.size(), 1U);
  EXPECT_EQ(all.layouts[0]->groups.size(), 1U);
  std::string types;
  for (const auto& [code, type] : all.types) types += type.class_id("UI", code) + " ";
  EXPECT_EQ(types, "Velmora.UI0402000 Velmora.UI0402100 Velmora.UI0402200 Velmora.UI0402300 ");

  const auto names = [](const std::map<std::string, Picture>& icons) {
    std::string text;
    for (const auto& [key, picture] : icons) text += key + "=" + picture.name + " ";
    return text;
  };
  // Found in whatever letter case the resource is named.
  const std::string object_icons =
      "CategoryType=CATEGORYTYPE OfficeEmployeePreview=OFFICEEMPLOYEEPREVIEW "
      "OfficeEmployeeSettings=OFFICEEMPLOYEESETTINGS ";
  EXPECT_EQ(names(all.object_icons), object_icons);
  EXPECT_EQ(names(all.layout_icons), "CategoryType=CATEGORYTYPE L04010021=LAYOUT " +
                                         object_icons.substr(object_icons.find("OfficeEmployeePreview")));
  std::set<std::vector<unsigned char>> pictures;
  for (const auto& [key, picture] : all.layout_icons) pictures.emplace(picture.bytes.begin(), picture.bytes.end());
  EXPECT_EQ(pictures.size(), 4U) << "four different pictures";

  EXPECT_EQ(error_text([&] { company.application().load_plugin(VELMORA_PLUGIN); }),
            "Skyrius „CSalaryExtraLayout“ jau užregistruotas.");
}

TEST(Plugin, ItsEngineIsReachedByTheTypeItRegistered) {
  TestCompany company;
  const auto making = [&](const char* type) {
    return error_text([&] { company.application().new_data_object(type); });
  };
  EXPECT_EQ(making("O0402000"), "Objekto tipo „O0402000“ niekas neregistravo.") << "nothing is loaded yet";
  EXPECT_EQ(company.application().create("Velmora.UIO0402000"), nullptr);
  company.application().load_plugin(VELMORA_PLUGIN);
  EXPECT_EQ(making("O9999000"), "Objekto tipo „O9999000“ niekas neregistravo.");
  EXPECT_EQ(called(*company.application().new_data_object("O0402000"), "GetMonthSalaryValue", {130, 9.7, 0.5}), "630");
}

// What a library defines for others; weak symbols are the standard library's templates.
std::set<std::string> exported_symbols(const std::string& file) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
      popen((VELMORA_NM " -D --defined-only '" + file + "'").c_str(), "r"), pclose);
  std::string listing;
  for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) listing += static_cast<char>(c);
  std::istringstream lines(listing);
  std::set<std::string> names;
  for (std::string address, kind, name; lines >> address >> kind >> name;) {
    const bool strong = kind == "T" || kind == "D" || kind == "R" || kind == "B";
    if (strong && !name.starts_with("__odr_asan.")) names.insert(name);  // the sanitizer's own
  }
  return names;
}

TEST(Plugin, ShowsTheHostTwoSymbols) {
  EXPECT_EQ(exported_symbols(VELMORA_PLUGIN), (std::set<std::string>{"quor_plugin_abi", "quor_plugin_create"}));
}

TEST(PluginFiles, WhatTheProgramFindsItLoadsAndTellsOfTheRest) {
  const TemporaryFolder folder;
  const auto put = [&](const char* file, const char* name) {
    std::filesystem::create_symlink(file, folder.path(name));
  };
  std::vector<std::string> skipped;
  const auto load = [&](Application& application) {
    skipped.clear();
    return error_text(
        [&] { load_plugins_in(application, folder.path(""), [&](const auto& t) { skipped.push_back(t); }); });
  };
  TestCompany company;
  put(VELMORA_LIBQUOR, "libquor.so");  // no plug-in: not a word of it
  put(VELMORA_PLUGIN, "velmora.so");   // no library's name
  std::ofstream(folder.path("libtekstas.so")) << "ne biblioteka";
  const std::string none = "Aplanke „" + folder.path("") + "“ nėra įskiepio, kurį ši programa galėtų įkelti.";
  EXPECT_EQ(load(company.application()), none);
  EXPECT_EQ(skipped.size(), 0U);
  put(VELMORA_OTHER_PLUGIN, "libkitas.so");
  put(VELMORA_SECOND_PLUGIN, "libkitavardis.so");
  std::ofstream(folder.path("libsugadintas.so")) << "quor_plugin_abi quor_plugin_create";
  EXPECT_EQ(load(company.application()), none);
  put(VELMORA_SECOND_PLUGIN, "libsecond.so");
  put(VELMORA_PLUGIN, "libvelmora.so");
  EXPECT_EQ(load(company.application()), "no error");
  const char* const reasons[] = {"libkitas.so“ skirtas kitai programos versijai",
                                 "libkitavardis.so“ neturi klasės „Kitavardis.DLLHeader“.",
                                 "libsugadintas.so“ neįkeliamas: "};
  ASSERT_EQ(skipped.size(), std::size(reasons));
  for (std::size_t i = 0; i < skipped.size(); ++i) {
    EXPECT_NE(skipped[i].find(reasons[i]), std::string::npos) << skipped[i];
  }
  EXPECT_EQ(company.application().registrations().types.size(), 5U);
}

// Beside the first plug-in one of other names, which the host has never heard of.
class SecondPlugin : public testing::Test {
 protected:
  static constexpr char kBook[] = "O09001001";

  void SetUp() override {
    for (const char* file : {VELMORA_PLUGIN, VELMORA_SECOND_PLUGIN}) application_.load_plugin(file);
  }
  ClickResult click(const MenuPlace& place, MenuPurpose purpose) {
    return click_entry(application_, place, wanted_entry(application_, place, purpose).value());
  }
  std::string opened(const MenuPlace& place, MenuPurpose purpose) {
    return click(place, purpose).EditorForm->caption();
  }
  std::string words(MenuPurpose purpose) {
    std::string text;
    for (const CalledEntry& called : called_entries(application_, purpose)) text += called.entry.Word + " ";
    return text;
  }

  TestCompany company_;
  TestApplication& application_ = company_.application();
};

TEST_F(SecondPlugin, EachEntryDoesWhatItIsFor) {
  EXPECT_EQ(opened(place_of_object(kBook), MenuPurpose::kOpen), "Pirmoji knyga O09001001");
  EXPECT_EQ(opened(place_of_type("O0900100"), MenuPurpose::kNew), "Nauja knyga");
  EXPECT_EQ(opened(place_of_group(application_, "O0900100"), MenuPurpose::kPreview), "Visos knygos");
  EXPECT_EQ(opened(place_of_type("O0402200"), MenuPurpose::kNew), "Pareigybių kategorija") << "the first one's";
  EXPECT_EQ(words(MenuPurpose::kPreview), "salary supplements books ");
  EXPECT_EQ(words(MenuPurpose::kPrint), "categories books ");
  click(place_of_object(kBook), MenuPurpose::kPrint);
  EXPECT_EQ(application_.shown_report()->title, "Knygų sąrašas");
  const auto list = [&] { return application_.GetQuorObjectUI("O0900100")->GetQuorObjectList("O0900100", "", ""); };
  EXPECT_EQ(list()->RecordCount(), 1);
  EXPECT_EQ(click(place_of_object(kBook), MenuPurpose::kDelete).Action, ClickAction::kRemoved);
  EXPECT_EQ(list()->RecordCount(), 0);
}

TEST_F(SecondPlugin, ItsObjectsAreReadByWhoeverMayViewThem) {
  EXPECT_EQ(application_.GetQuorObjectUIO(kBook)->Fields()["Name"].Value().to_text(), "Pirmoji knyga");
  EXPECT_EQ(application_.GetQuorObjectUIO("O09001002"), nullptr);
  std::string captions;
  for (const SecurityComponent& component : grantable_components(application_)) captions += component.Caption + "; ";
  EXPECT_EQ(captions,
            "Darbo užmokesčio išplėtimas; Aplinkos peržūra; Valstybės tarnautojai; Skaitykla; Darbuotojai; Padaliniai; "
            "Darbo užmokesčio konstantos; ");
  company_.given_user("vadovė", true);
  const std::int32_t user = company_.given_user("testuotojas");
  for (const auto& [component, told] :
       {std::pair{"COfficeEmployees", "Neturite teisės peržiūrėti tokių duomenų."}, {"CBooks", "no error"}}) {
    company_.given_rights(user, component, "v");
    TestApplication reader(company_.company(), {.title = "Testas", .user = "testuotojas"});
    for (const char* file : {VELMORA_PLUGIN, VELMORA_SECOND_PLUGIN}) reader.load_plugin(file);
    EXPECT_EQ(error_text([&] { reader.GetQuorObjectUIO(kBook); }), told);
  }
}

}  // namespace
}  // namespace quor
