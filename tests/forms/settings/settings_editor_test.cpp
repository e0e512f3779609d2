// The editor of the civil-servant settings and the dialog of its scale, acted on as a person does, against the real
// host.
#include "forms/settings/settings_editor.h"

#include <gtest/gtest.h>
#include <regex>

#include "adapters/settings_object.h"
#include "forms/settings/experience_row_editor.h"
#include "platform/data/error.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::BoxAnswer;
using quor::choose_on;
using quor::day;
using quor::shown;
using quor::type_and_leave;
using quor::type_over;
using Texts = std::vector<std::string>;

constexpr char kNew[] = "O0402300";
constexpr char kFirstVersion[] =
    "1;*;2005.01.01;1;2;5,2,13;12,5;60;70;*;3;5;3 | 1;*;2005.01.01;1;2;5,2,13;12,5;60;70;*;5;10;7,5";

// The settings' data object as it would be if it knew how to delete a band.
class DeletingObject : public UIO0402300 {
 public:
  using UIO0402300::UIO0402300;
  quor::MethodResult Methods(const std::string& name, const quor::Parameters& parameters) override {
    return {.Code = 0,
            .Message = "",
            .Value = name == "DeletePersonalExtraCharge" && parameters.at(0).to_text() == band ? quor::Variant(true)
                                                                                               : quor::kNull};
  }
  std::string band;
};

// Constants: 1 a month tariff that changes in February, 2 an hour tariff, 3 one of next year.
class SettingsEditor : public testing::TestWithParam<quor::Backend> {
 protected:
  SettingsEditor() {
    company_.given_constant("MMA", {{"2005.01.01", 130.0}, {"2008.02.01", 150.0}});
    company_.given_constant("MVA", {{"2005.01.01", 0.8}});
    company_.given_constant("NMA", {{"2009.01.01", 170.0}});
    company_.given_time_codes();
  }
  std::string given_version() {
    return kNew + std::to_string(company_.given_settings({.from = "2005.01.01",
                                                          .month_tariff = 1,
                                                          .hour_tariff = 2,
                                                          .bands = {{3, 5, 3.0}, {5, 10, 7.5}},
                                                          .time_codes = "5,2,13",
                                                          .extra_limit = 12.5,
                                                          .surcharge_limit = 60.0,
                                                          .total_limit = 70.0}));
  }
  template <typename DataObject = UIO0402300>
  void open(const std::string& key) {
    object_ = std::make_shared<DataObject>(application_);
    object_->OIDR(key);
    ASSERT_FALSE(object_->Read().Failed);
    editor_ = std::make_unique<frmOfficeEmployeeSettings>(application_);
    editor_->QuorObjectUIO = object_;
    editor_->load();
    EXPECT_FALSE(editor_->has_unsaved_changes());
  }

  // What the user of the selection dialog chooses next, "" for nothing.
  void choose(const std::string& key) { application_.picked.Identity = key.empty() ? "" : key + "#GUID"; }

  // The user of the dialog of the scale, from its opening to its closing.
  using Dialog = frmOfficeEmployeeExperience;
  void in_the_dialog(std::function<void(Dialog&)> acts) {
    application_.on_modal([acts = std::move(acts)](quor::Form& form) { acts(dynamic_cast<Dialog&>(form)); });
  }
  void enter_band(const char* from, const char* to, const char* percentage) {
    in_the_dialog([=](Dialog& dialog) {
      type_and_leave(dialog.txtYearFrom, from);
      type_and_leave(dialog.txtYearTo, to);
      type_and_leave(dialog.txtPercentage, percentage);
      dialog.cmdOK.click();
    });
  }
  static std::string texts(const Dialog& dialog) {
    return dialog.txtYearFrom.text() + " " + dialog.txtYearTo.text() + " " + dialog.txtPercentage.text();
  }
  void add_band() { choose_on(editor_->lvwExperience, {}, editor_->mnuAdd); }

  static std::string tariff(const quor::TextBox& value, const quor::TextBox& name) {
    return value.text() + " " + name.text() + " [" + name.tag() + "]";
  }
  std::string month() const { return tariff(editor_->txtMonthTariff, editor_->txtMonthTariffName); }
  std::string hour() const { return tariff(editor_->txtHourTariff, editor_->txtHourTariffName); }
  std::string limits() const {
    return editor_->txtExtraChargePercentage.text() + " " + editor_->txtSurChargePercentage.text() + " " +
           editor_->txtTotalChargePercentage.text();
  }
  std::string codes() const {
    std::string checked;
    for (std::size_t i = 0; i < editor_->lvwTimeCodes.row_count(); ++i) {
      if (editor_->lvwTimeCodes.checked(i)) checked += editor_->lvwTimeCodes.text(i) + " ";
    }
    return checked;
  }
  std::string scale() const { return shown(editor_->lvwExperience); }
  std::string enabled() const {
    return std::string(editor_->dtpDate.enabled() ? "date " : "") +
           (editor_->cmdRefreshBaseTariff.enabled() ? "refresh " : "") + (editor_->cmdWrite.enabled() ? "write " : "") +
           (editor_->cmdCancel.enabled() ? "cancel" : "");
  }
  // The stored version in force at the date, a line for each band; GUIDs as "*".
  std::string stored(const std::string& date) {
    static const std::regex guid("[0-9A-Fa-f-]{36}");
    return std::regex_replace(company_.get("OfficeEmployeeSettings", "'" + date + "'"), guid, "*");
  }

  quor::TestCompany company_{GetParam()};
  quor::PickingApplication application_{company_.company(),
                                        {.title = "Testas", .user = "testuotoja", .today = day("2008.01.31")}};
  std::shared_ptr<quor::QuorObjectUIO> object_;
  std::unique_ptr<frmOfficeEmployeeSettings> editor_;
};
ON_EVERY_DATABASE(SettingsEditor);

TEST_P(SettingsEditor, TheFirstVersionStartsWithTheLimitsAlone) {
  open(kNew);
  EXPECT_EQ(editor_->SOPanel.caption(), " Naujas nustatymas");
  EXPECT_EQ(editor_->dtpDate.value(), day("2008.01.31"));
  EXPECT_EQ(month() + hour() + codes() + scale(), "0,00  []0,00  []");
  EXPECT_EQ(limits(), "55 60 70");
  EXPECT_EQ(shown(editor_->lvwTimeCodes), "FD;FD | VD;VD | L;L | PV;PV");
  EXPECT_EQ(enabled(), "date refresh ");
  EXPECT_EQ(object_->Fields()["GUID"].Value().to_text().size(), 36U);
  EXPECT_EQ(application_.busy(), 0);

  company_.given_settings({.from = "2008.01.31", .total_limit = 71.0});
  company_.company().forget();
  open(kNew);
  EXPECT_EQ(limits() + scale(), "0 0 71") << "no scale, no band";
}

TEST_P(SettingsEditor, ANewVersionIsACopyThatLeavesTheFirstUntouched) {
  given_version();
  open(kNew);
  EXPECT_EQ(month() + ", " + hour(), "130,00 Konstanta MMA [O04006001], 0,80 Konstanta MVA [O04006002]");
  EXPECT_EQ(limits() + ", " + codes() + scale(), "12 60 70, VD PV 1;3;5;3% | 2;5;10;7,5%");
  editor_->dtpDate.pick(day("2008.03.01"));
  enter_band("10", "99", "20");
  add_band();
  enter_band("4", "5", "4");
  editor_->lvwExperience.double_click(0);
  EXPECT_EQ(scale(), "1;4;5;4% | 2;5;10;7,5% | 3;10;99;20%");
  EXPECT_EQ(enabled(), "date refresh write ");
  const std::string guid = object_->Fields()["GUID"].Value().to_text();
  EXPECT_EQ(walked(*catalogue::rows_of(*object_), "OfficeEmployeeSettingGUID"), guid + " " + guid + " " + guid);
  std::string written;
  application_.open_objects().on_written([&](const std::string&) { written = object_->Preview(); });
  editor_->cmdWrite.click();
  const std::string version = "2;*;2008.03.01;1;2;2,5;12;60;70;*;";
  EXPECT_EQ(stored("2008.03.01"), version + "4;5;4 | " + version + "5;10;7,5 | " + version + "10;99;20");
  EXPECT_EQ(stored("2008.02.29"), kFirstVersion);
  EXPECT_EQ(written + editor_->SOPanel.caption() + enabled(), "2008.03.01 Nustatymai");
  EXPECT_EQ(object_->OIDR(), "O04023002");
  EXPECT_EQ(month(), "150,00 Konstanta MMA [O04006001]") << "at the version's own date";
}

TEST_P(SettingsEditor, SavingTellsEverythingThatIsMissing) {
  const struct {
    const char* pick;
    bool code;
    const char* box;
  } cases[] = {{"", false, "critical, ok, Testas: Nenurodyta bazinė alga!\r\nNepažymėti priemokų tipai!"},
               {"", true, "critical, ok, Testas: Nenurodyta bazinė alga!"},
               {"O04006001", false, "critical, ok, Testas: Nepažymėti priemokų tipai!"}};
  for (const auto& c : cases) {
    open(kNew);
    type_and_leave(editor_->txtTotalChargePercentage, "75");
    choose(c.pick);
    editor_->cmdMonthTariff.click();
    if (c.code) editor_->lvwTimeCodes.check(0);
    editor_->cmdWrite.click();
    EXPECT_EQ(application_.boxes().back(), c.box);
    EXPECT_EQ(limits() + enabled(), "55 60 75date refresh write ");
  }
  EXPECT_EQ(stored("2999.01.01"), "");
}

TEST_P(SettingsEditor, TariffsAreChosenClearedAndRefreshed) {
  open(kNew);
  const struct {
    const char *pick, *month;
    bool modified;
  } cases[] = {{"", "0,00  []", false},
               {"O04006001", "130,00 Konstanta MMA [O04006001]", true},
               {"O04006002", "0,80 Konstanta MVA [O04006002]", true},
               {"O04006003", "0,00  [O04006003]", true},
               {"", "0,00  [O04006003]", true},
               {"O04006001", "130,00 Konstanta MMA [O04006001]", true}};
  for (const auto& c : cases) {
    choose(c.pick);
    editor_->cmdMonthTariff.click();
    EXPECT_EQ(month(), c.month);
    EXPECT_EQ(editor_->has_unsaved_changes(), c.modified);
  }
  EXPECT_EQ(hour(), "0,00  []");
  editor_->dtpDate.pick(day("2008.02.01"));
  EXPECT_EQ(month(), "130,00 Konstanta MMA [O04006001]");
  editor_->cmdRefreshBaseTariff.click();
  EXPECT_EQ(month() + hour(), "150,00 Konstanta MMA [O04006001]0,00  []");
  editor_->lvwTimeCodes.check(2);
  editor_->cmdWrite.click();
  EXPECT_EQ(stored("2008.02.01"), "1;*;2008.02.01;1;0;3;55;60;70;Null;Null;Null;Null");

  open("O04023001");
  editor_->cmdMonthTariff.click();
  EXPECT_EQ(enabled(), "") << "the same again";
  choose("O04006002");
  editor_->cmdHourTariff.click();
  EXPECT_EQ(hour() + enabled(), "0,80 Konstanta MVA [O04006002]write cancel");
  editor_->cmdCleanHourTariff.click();
  EXPECT_EQ(hour(), "0,00  []");
}

TEST_P(SettingsEditor, CodesAreStoredInTheOrderOfTheList) {
  open(given_version());
  EXPECT_EQ(codes(), "VD PV ") << "13 is neither 1 nor 3";
  for (const std::size_t line : {3U, 2U, 0U}) editor_->lvwTimeCodes.check(line);
  EXPECT_EQ(enabled(), "write cancel");
  editor_->cmdWrite.click();
  const std::string version = "1;*;2005.01.01;1;2;1,2,3;12;60;70;*;";
  EXPECT_EQ(stored("2005.01.01"), version + "3;5;3 | " + version + "5;10;7,5");
}

TEST_P(SettingsEditor, CancellingAndAFailedSaveReturnToWhatIsStored) {
  const std::string version = given_version();
  const std::pair<std::string, bool> cases[] = {{version, false}, {version, true}, {kNew, true}};
  for (const auto& [key, failing] : cases) {
    open(key);
    editor_->cmdCleanHourTariff.click();
    editor_->lvwTimeCodes.check(0);
    type_over(editor_->txtSurChargePercentage, "1");
    enter_band("10", "99", "20");
    add_band();
    enter_band("1", "2", "3");
    editor_->lvwExperience.double_click(1);
    if (failing) company_.fail_statements();
    failing ? editor_->cmdWrite.click() : editor_->cmdCancel.click();
    company_.heal();
    EXPECT_EQ(hour() + ", " + limits(), "0,80 Konstanta MVA [O04006002], 12 60 70");
    EXPECT_EQ(codes() + scale(), "VD PV 1;3;5;3% | 2;5;10;7,5%");
    EXPECT_FALSE(editor_->has_unsaved_changes());
  }
  EXPECT_EQ(application_.boxes(), Texts(2, "none, ok, Testas: Įrašymas neatliktas!\r\nryšys nutrūko"));
  EXPECT_EQ(stored("2999.01.01"), kFirstVersion);
}

TEST_P(SettingsEditor, ALimitThatDoesNotConvertLeavesTheRecordAsItIs) {
  open(given_version());
  for (const char* text : {"", ",", "32768"}) {
    editor_->dtpDate.set_value(day("2007.01.01"));
    type_over(editor_->txtTotalChargePercentage, text);
    EXPECT_THROW(editor_->cmdWrite.click(), quor::Error) << text;
    EXPECT_EQ(object_->Fields()["DateFrom"].Value().to_text(), "2005.01.01");
    EXPECT_EQ(editor_->txtTotalChargePercentage.text() + enabled(), text + std::string("write cancel"));
  }
  type_and_leave(editor_->txtTotalChargePercentage, "1000");
  editor_->cmdWrite.click();
  EXPECT_EQ(limits(), "12 60 1000");
}

TEST_P(SettingsEditor, WithoutTheRightToWriteNothingIsWritten) {
  // What is granted on the group is not the settings': they are in none.
  const std::int32_t user = company_.given_user("testuotoja");
  company_.given_rights(user, "COfficeEmployees", "vcdpw");
  company_.given_rights(user, "O0402300", "vcdp");
  open(given_version());
  editor_->lvwTimeCodes.check(0);
  EXPECT_EQ(enabled(), "cancel");
  company_.database().execute("UPDATE rights SET can_write = 1 - can_write");
  company_.company().forget();
  open(editor_->QuorObjectUIO->OIDR());
  editor_->lvwTimeCodes.check(0);
  EXPECT_EQ(enabled(), "write cancel");
  editor_->cmdWrite.click();
  EXPECT_TRUE(application_.boxes().empty());
}

TEST_P(SettingsEditor, ARequestThatFailsIsToldAndFillsNothing) {
  given_version();
  for (const char* request : {"GetOfficeEmployeeSettings", "GetSalaryConstants", "GetIndications"}) {
    application_.refuse(request, "nėra ryšio");
  }
  open(kNew);
  EXPECT_EQ(month() + hour() + limits() + codes() + scale(), "0,00  []0,00  []0 0 0");
  EXPECT_EQ(application_.boxes(), Texts(4, "exclamation, ok, Testas: nėra ryšio"));
}

TEST_P(SettingsEditor, TheDialogTakesABandWithYears) {
  open(given_version());
  enum Ending { kWritten, kRefused, kThrows };
  const struct {
    const char *from, *to, *percentage;
    Ending ending;
  } cases[] = {{"1", "5", "10", kWritten},  {"5", "5", "0", kWritten}, {"6", "5", "1", kRefused},
               {"0", "5", "1", kRefused},   {"", "5", "1", kRefused},  {"5", "0", "1", kRefused},
               {"5", "", "1", kRefused},    {"1", "5", "", kThrows},   {"1", "5", "32768", kThrows},
               {"1", "32768", "1", kThrows}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.from) + " " + c.to + " " + c.percentage);
    const std::size_t boxes = application_.boxes().size();
    in_the_dialog([&](Dialog& dialog) {
      EXPECT_EQ(texts(dialog), "0 0 0");
      type_over(dialog.txtYearFrom, c.from);
      type_over(dialog.txtYearTo, c.to);
      type_over(dialog.txtPercentage, c.percentage);
      if (c.ending == kThrows) {
        EXPECT_THROW(dialog.cmdOK.click(), quor::Error);
      } else {
        dialog.cmdOK.click();
      }
      EXPECT_EQ(dialog.close_requested(), c.ending == kWritten);
      if (c.ending != kWritten) dialog.cmdCancel.click();
    });
    add_band();
    EXPECT_EQ(application_.boxes().size() - boxes, c.ending == kRefused ? 1U : 0U);
  }
  EXPECT_EQ(application_.boxes().back(), "exclamation, ok, Testas: Nenurodytas laikotarpis!");
  EXPECT_EQ(scale(), "1;3;5;3% | 2;5;10;7,5% | 3;1;5;10% | 4;5;5;0%");
}

TEST_P(SettingsEditor, ABandIsEditedByItselfAndOnlyCancelLeavesTheSettingsUnchanged) {
  open(kNew);
  for (const char* percentage : {"1", "2", "3"}) enter_band("1", "5", percentage), add_band();
  choose("O04006001");
  editor_->cmdMonthTariff.click();
  editor_->lvwTimeCodes.check(0);
  editor_->cmdWrite.click();
  ASSERT_EQ(enabled(), "");
  in_the_dialog([](Dialog& dialog) {
    EXPECT_EQ(texts(dialog), "1 5 2");
    type_and_leave(dialog.txtPercentage, "9");
    dialog.cmdCancel.click();
  });
  editor_->lvwExperience.double_click(1);
  EXPECT_EQ(scale() + enabled(), "1;1;5;1% | 2;1;5;2% | 3;1;5;3%");
  EXPECT_EQ(catalogue::rows_of(*object_)->RecordCount(), 3) << "no filter is left";
  in_the_dialog([](Dialog& dialog) { dialog.close_box(); });
  choose_on(editor_->lvwExperience, 1, editor_->mnuEdit);
  EXPECT_EQ(scale() + enabled(), "1;1;5;1% | 2;1;5;2% | 3;1;5;3%write cancel");
}

TEST_P(SettingsEditor, ABandStaysUnlessTheDataObjectDeletesIt) {
  open(given_version());
  editor_->lvwExperience.right_click({});
  EXPECT_FALSE(editor_->mnuEdit.enabled() || editor_->mnuDelete.enabled());
  editor_->experience_menu.dismiss();
  choose_on(editor_->lvwExperience, 0, editor_->mnuDelete);
  EXPECT_EQ(application_.boxes(), Texts{"question, yesno, Testas: Ar tikrai norite panaikinti?"});
  EXPECT_EQ(scale() + enabled(), "1;3;5;3% | 2;5;10;7,5%") << "the answer was No";
  application_.answer(BoxAnswer::kYes);
  choose_on(editor_->lvwExperience, 0, editor_->mnuDelete);
  EXPECT_EQ(scale() + enabled(), "1;3;5;3% | 2;5;10;7,5%write cancel");

  open<DeletingObject>(object_->OIDR());
  dynamic_cast<DeletingObject&>(*object_).band = editor_->lvwExperience.tag(1);
  application_.on_box([&](const quor::ShownBox&) { editor_->lvwExperience.select(0); });
  for (const std::size_t row : {0U, 1U}) {
    application_.answer(BoxAnswer::kYes);
    choose_on(editor_->lvwExperience, row, editor_->mnuDelete);
  }
  EXPECT_EQ(scale(), "1;3;5;3%");
}

TEST_P(SettingsEditor, TheNumericBoxesTakeWholeNumbers) {
  const struct { const char *keys, *typed, *left; } cases[] = {{"2.5", "2,5", "3"}, {"-7", "7", "7"}, {",", ",", "0"}};
  const auto check = [&](std::initializer_list<quor::TextBox*> boxes) {
    for (quor::TextBox* box : boxes) {
      for (const auto& c : cases) {
        SCOPED_TRACE(box->name() + c.keys);
        type_over(*box, c.keys);
        EXPECT_EQ(box->text(), c.typed);
        box->leave();
        EXPECT_EQ(box->text(), c.left);
      }
    }
  };
  open(given_version());
  check({&editor_->txtExtraChargePercentage, &editor_->txtSurChargePercentage, &editor_->txtTotalChargePercentage});
  in_the_dialog([&](Dialog& dialog) { check({&dialog.txtYearFrom, &dialog.txtYearTo, &dialog.txtPercentage}); });
  add_band();
}

}  // namespace
}  // namespace velmora
