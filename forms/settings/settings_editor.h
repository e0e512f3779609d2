// `frmOfficeEmployeeSettings`: the editor of one dated version of the civil-servant settings: the base tariffs, the
// work-time codes that are paid for, the limits of extra pay and the scale of the length-of-service supplement.
//
// It changes the record's Rows in memory at once and its fields when the write button is pressed, both through the
// settings' data object; only a save stores them. A new version starts as a copy of the one in force today.
#pragma once

#include <memory>
#include <string>

#include "frame/catalogue.h"
#include "frame/contract/quor_application.h"
#include "frame/list_commands.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

class frmOfficeEmployeeSettings : public quor::Form {
 public:
  quor::Panel SOPanel{*this, "SOPanel"};
  quor::DatePicker dtpDate{*this, "dtpDate"};
  quor::GroupFrame tariff_frame{*this, "tariff_frame", "Bazinė alga"};
  quor::TextBox txtMonthTariff{*this, "txtMonthTariff"};
  // The tag of a tariff's name is the chosen constant's key; shorter than nine characters when none is chosen.
  quor::TextBox txtMonthTariffName{*this, "txtMonthTariffName"};
  quor::CommandButton cmdMonthTariff{*this, "cmdMonthTariff", "Parinkti…"};
  quor::TextBox txtHourTariff{*this, "txtHourTariff"};
  quor::TextBox txtHourTariffName{*this, "txtHourTariffName"};
  quor::CommandButton cmdHourTariff{*this, "cmdHourTariff", "Parinkti…"};
  quor::CommandButton cmdCleanHourTariff{*this, "cmdCleanHourTariff", "Išvalyti"};
  quor::CommandButton cmdRefreshBaseTariff{*this, "cmdRefreshBaseTariff", "Atnaujinti pagal datą",
                                           quor::ButtonRole::kFill};
  quor::GroupFrame time_code_frame{*this, "time_code_frame", "Priemokų tipai (darbo laiko kodai)"};
  quor::ListView lvwTimeCodes{
      *this,
      "lvwTimeCodes",
      {{.key = "", .caption = "Kodas", .width = 80}, {.key = "CodeName", .caption = "Pavadinimas", .width = 240}},
      quor::ListView::CheckBoxes::kOnRows};
  quor::GroupFrame limit_frame{*this, "limit_frame", "Didžiausi dydžiai, %"};
  quor::TextBox txtExtraChargePercentage{*this, "txtExtraChargePercentage"};
  quor::TextBox txtSurChargePercentage{*this, "txtSurChargePercentage"};
  quor::TextBox txtTotalChargePercentage{*this, "txtTotalChargePercentage"};
  quor::GroupFrame experience_frame{*this, "experience_frame", "Priedas už tarnybos stažą"};
  quor::ListView lvwExperience{
      *this,
      "lvwExperience",
      {{.key = "", .caption = "Nr.", .width = 50, .alignment = quor::CellAlignment::kRight},
       {.key = "YearFrom", .caption = "Metai nuo", .width = 90, .alignment = quor::CellAlignment::kRight},
       {.key = "YearTo", .caption = "Metai iki", .width = 90, .alignment = quor::CellAlignment::kRight},
       {.key = "Percentage", .caption = "Priedas", .width = 90, .alignment = quor::CellAlignment::kRight}}};
  quor::PopupMenu experience_menu{*this, "experience_menu"};
  quor::MenuItem mnuAdd{*this, experience_menu, "mnuAdd", "Naujas įrašas", quor::MenuKey::kInsert};
  quor::MenuItem mnuEdit{*this, experience_menu, "mnuEdit", "Keisti", quor::MenuKey::kEnter};
  quor::MenuItem mnuDelete{*this, experience_menu, "mnuDelete", "Panaikinti", quor::MenuKey::kDelete};
  quor::CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", quor::ButtonRole::kWrite};
  quor::CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti"};
  quor::CommandButton SSCClose{*this, "SSCClose", "Uždaryti", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeeSettings(quor::QuorApplication& application);

  // The settings' data object, set by the opener before the form loads; given back at unloading.
  std::shared_ptr<quor::QuorObjectUIO> QuorObjectUIO;

  bool has_unsaved_changes() const override { return modified_; }

 private:
  struct Tariff {
    quor::TextBox& value;
    quor::TextBox& name;
  };
  // What the controls hold, as the record takes it.
  struct Entered {
    std::int32_t month_tariff;  // 0 for none
    std::int32_t hour_tariff;
    double extra_charge, surcharge, total_charge;
    std::string time_codes;
  };

  void arrange();
  void opening() override;
  void closing() override { QuorObjectUIO.reset(); }

  void choose_tariff(const Tariff& tariff);
  void clear_tariff(const Tariff& tariff);
  void refresh_tariffs();
  // `guid` names the band; "" for a new one.
  void run_experience_command(const std::string& command, const std::string& guid);
  void edit_band(const std::string& guid);
  void delete_band(const std::string& guid);
  void write();
  void cancel();

  void fill();
  void start_new_record();
  void fill_tariff(const Tariff& tariff, std::int32_t id);
  void fill_time_codes(const std::string& checked);
  void fill_experience();

  Entered entered() const;
  std::string checked_codes() const;
  void write_fields(const Entered& values);

  std::shared_ptr<quor::Recordset> named_rows(const std::string& name, const std::string& parameter);
  void mark_modified();
  void set_button_states();

  quor::QuorApplication& application_;
  std::string title_;  // of every box
  catalogue::Rights rights_;
  bool is_new_ = false;
  bool modified_ = false;
  ListCommands experience_commands_;
  const Tariff month_{txtMonthTariff, txtMonthTariffName};
  const Tariff hour_{txtHourTariff, txtHourTariffName};
};

}  // namespace velmora
