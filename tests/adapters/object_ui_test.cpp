#include "adapters/object_ui.h"

#include <gtest/gtest.h>

#include "adapters/salary_extension_ui.h"
#include "adapters/settings_object.h"
#include "adapters/settings_ui.h"
#include "adapters/tarification_ui.h"
#include "engine/salary_engine.h"
#include "forms/settings/settings_editor.h"
#include "platform/toolkit/form.h"
#include "tests/support/recording_object.h"

namespace velmora {
namespace {

using quor::BoxAnswer;
using quor::ClickAction;
using Texts = std::vector<std::string>;

// Writes down what it is asked to list and delete.
class ListingBO : public quor::QuorMainBO {
 public:
  quor::MethodResult RunMethod(const std::string&, const std::string&, std::int32_t) override { return {}; }
  std::shared_ptr<quor::Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                     const std::string& order) override {
    asked.push_back(parameter + "|" + filter + "|" + order);
    return list;
  }
  bool DeleteQuorObject(const std::string& object) override { return asked.push_back(object), refuses; }
  quor::SaveStatus SaveRecordset(const std::string&, quor::Recordset&) override { return {}; }
  std::string GroupContext() const override { return {}; }

  std::shared_ptr<quor::Recordset> list = quor::ids({1});
  Texts asked;
  bool refuses = false;
};

class ObjectUITest : public testing::Test {
 protected:
  std::string menu(quor::QuorObjectUI& ui, const std::string& context) {
    std::string text;
    for (const quor::MenuEntry& entry : ui.GetMenu(context, "O0402300", "")) {
      text += entry.Identifier + "=" + entry.Caption + "; ";
    }
    return text;
  }

  quor::TestCompany company_;
  quor::TestApplication& application_ = company_.application();
  std::shared_ptr<ObjectUI> extension_ = std::make_shared<UI0402000>(application_);
  std::shared_ptr<ObjectUI> tarification_ = std::make_shared<UI0402100>(application_);
  std::shared_ptr<ObjectUI> settings_ = std::make_shared<UI0402300>(application_);
};

TEST_F(ObjectUITest, TheFamilyDiffersInIconsNamesAndListParameters) {
  const struct {
    ObjectUI& ui;
    const char *icons, *name, *listed;
  } cases[] = {
      {*extension_, "CGroup=stdClose OGroup=stdOpen ", "Darbo užmokesčio išplėtimas", "'X',''||"},
      {*tarification_, "CGroup=stdClose OGroup=stdOpen ", "Tarifikacija", "'X',''||"},
      {*settings_, "OfficeEmployeeSettings=OfficeEmployeeSettings CGroup=stdClose OGroup=stdOpen ",
       "Valstybės tarnautojų nustatymai", "X||"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.ui.OName(), c.name);
    std::string icons;
    for (const quor::IconEntry& icon : c.ui.GetIconsTable()) icons += icon.Key + "=" + icon.Icon + " ";
    EXPECT_EQ(icons, c.icons);
    ASSERT_TRUE(c.ui.BO()) << "made with the object UI";
    const auto bo = std::make_shared<ListingBO>();
    c.ui.BO(bo);
    EXPECT_EQ(c.ui.GetQuorObjectList("X", "filtras", "tvarka"), bo->list);
    EXPECT_FALSE(c.ui.DeleteQuorObject("Y"));
    bo->refuses = true;
    EXPECT_TRUE(c.ui.DeleteQuorObject("Z"));
    EXPECT_EQ(bo->asked, (Texts{c.listed, "Y", "Z"}));
    EXPECT_TRUE(c.ui.DragOK("a", "b", "c"));
    EXPECT_FALSE(c.ui.DropOK("a"));
    for (const char* object : {"", "O0402300", "O04023001"}) EXPECT_FALSE(c.ui.AddToDeskTopQuorObject(object));
  }
}

TEST_F(ObjectUITest, OnlySettingsHaveAMenu) {
  const std::string full = "0=Padėti ant darbo stalo; 1=Naujas įrašas; =-; 2=Panaikinti; =-; ";
  const std::pair<const char*, std::string> cases[] = {{"O0402300K", "1=Naujas įrašas; "},
                                                       {"K", "1=Naujas įrašas; "},
                                                       {"O0402300k", full},
                                                       {"K1", full},
                                                       {"O04023001", full},
                                                       {"", full}};
  for (const auto& [context, expected] : cases) {
    EXPECT_EQ(menu(*settings_, context), expected) << context;
    EXPECT_EQ(menu(*extension_, context) + menu(*tarification_, context), "") << context;
  }
  for (ObjectUI* ui : {extension_.get(), tarification_.get()}) {
    for (const char* entry : {"0", "1", "2"}) {
      EXPECT_EQ(ui->ClickMenu("O04020001", entry, "", "").Action, ClickAction::kNothing);
    }
  }
  EXPECT_TRUE(application_.boxes().empty());
}

TEST_F(ObjectUITest, ADataObjectIsReadOrNewOrNull) {
  const std::int32_t position = company_.given_position({.employee = company_.given_employee("Pirmoji")});
  const std::string stored = "O0402000" + std::to_string(position);
  const auto object = extension_->GetQuorObject(stored);
  ASSERT_TRUE(std::dynamic_pointer_cast<UIO0402000>(object));
  EXPECT_EQ(object->UI(), extension_);
  EXPECT_EQ(object->OIDR(), stored);
  EXPECT_EQ(object->Fields()["PersonalContractGUID"].Value().to_text(), "K1");
  for (const char* fresh : {"", "O0402300"}) {
    const auto created = settings_->GetQuorObject(fresh);
    ASSERT_TRUE(std::dynamic_pointer_cast<UIO0402300>(created)) << fresh;
    EXPECT_TRUE(created->Fields()["DateFrom"].Value().is_null());
  }
  EXPECT_EQ(settings_->GetQuorObject("O04023001"), nullptr) << "there is no such record";
  EXPECT_EQ(extension_->GetQuorObject("O0402000999"), nullptr);
}

TEST_F(ObjectUITest, EachMakesADataObjectOfItsOwnClassAndReadsIt) {
  quor::RecordingApplication application(company_.company(), {});
  const std::shared_ptr<ObjectUI> family[] = {std::make_shared<UI0402000>(application),
                                              std::make_shared<UI0402100>(application),
                                              std::make_shared<UI0402300>(application)};
  for (const auto& ui : family) {
    EXPECT_EQ(ui->GetQuorObject("X7"), nullptr) << "this one cannot be read";
    EXPECT_EQ(application.standard->calls, (Texts{"UI=", "OIDR=X7", "Read"}));
  }
  EXPECT_EQ(application.types, (Texts{"O0402000", "O0402100", "O0402300"}));
}

class SettingsMenuTest : public ObjectUITest {
 protected:
  void SetUp() override { key_ = "O0402300" + std::to_string(company_.given_settings({.from = "2005.01.01"})); }
  quor::ClickResult click(const std::string& entry, const std::string& object) {
    return settings_->ClickMenu(object, entry, "", "");
  }
  static std::string edited(const quor::ClickResult& result) {
    if (result.Action != ClickAction::kShowForm) return "nothing";
    const auto object = dynamic_cast<frmOfficeEmployeeSettings&>(*result.EditorForm).QuorObjectUIO;
    return object->OType() + " " + object->OIDR();
  }

  std::string key_;
};

TEST_F(SettingsMenuTest, AStoredVersionIsOpenedAndANewOneMade) {
  EXPECT_EQ(edited(click("0", key_)), "O0402300 " + key_);
  EXPECT_EQ(edited(click("1", key_)), "OfficeEmployeeSettings O0402300");
  EXPECT_TRUE(application_.boxes().empty());
  EXPECT_EQ(edited(click("0", "O0402300999")), "nothing");
  EXPECT_EQ(application_.boxes(), (Texts{"critical, ok, Testas: Įrašas panaikintas kito vartotojo!"}));
  for (const char* unknown : {"", "3", "-", "10", "01"}) EXPECT_EQ(edited(click(unknown, key_)), "nothing") << unknown;
  EXPECT_EQ(application_.boxes().size(), 1U);
}

TEST_F(SettingsMenuTest, AReadThatFailsIsToldOnceByItsOwnText) {
  const std::string employee = "O0400100" + std::to_string(company_.given_employee("Pirmoji"));
  application_.HasRight(quor::UserRight::kView, "O0400100", 0);  // what rights there are is known by now
  company_.fail_statements();
  EXPECT_EQ(edited(click("0", key_)), "nothing");
  EXPECT_EQ(application_.GetQuorObjectUIO(employee), nullptr);
  company_.heal();
  EXPECT_EQ(application_.boxes(), Texts(2, "exclamation, ok, Testas: ryšys nutrūko"));
  EXPECT_EQ(application_.GetQuorObjectUIO(employee + "#GUID")->OIDR(), employee);
  EXPECT_EQ(application_.GetQuorObjectUIO("O0400100999"), nullptr);
  EXPECT_EQ(application_.boxes().size(), 2U) << "what is gone is an answer";
}

TEST_F(SettingsMenuTest, AVersionIsDeletedOnlyOnOk) {
  const auto bo = std::make_shared<ListingBO>();
  settings_->BO(bo);
  const struct {
    BoxAnswer answer;
    bool refuses;
    ClickAction action;
    std::size_t asked;
  } cases[] = {{BoxAnswer::kCancel, false, ClickAction::kNothing, 0},
               {BoxAnswer::kOk, true, ClickAction::kNothing, 1},
               {BoxAnswer::kOk, false, ClickAction::kRemoved, 1}};
  for (const auto& c : cases) {
    bo->asked.clear();
    bo->refuses = c.refuses;
    application_.answer(c.answer);
    EXPECT_EQ(click("2", key_).Action, c.action);
    EXPECT_EQ(bo->asked, c.asked == 0 ? Texts{} : Texts{key_});
    EXPECT_EQ(application_.boxes().back(), "exclamation, okcancel, Testas: Ar tikrai norite panaikinti?");
  }
}

TEST_F(SettingsMenuTest, WhatWasDeletedIsGone) {
  application_.answer(BoxAnswer::kOk);
  EXPECT_EQ(click("2", key_).Action, ClickAction::kRemoved);
  EXPECT_EQ(settings_->GetQuorObject(key_), nullptr);
  application_.answer(BoxAnswer::kOk);
  EXPECT_EQ(click("2", key_).Action, ClickAction::kNothing) << "it was deleted before";
}

}  // namespace
}  // namespace velmora
