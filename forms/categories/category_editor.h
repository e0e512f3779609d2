// `frmOfficeEmployeeCategories`: the editor of one position category, its name and its dated salary factors.
//
// It changes the record's fields and its Rows in memory, through the category's data object; only the write button
// stores them.
#pragma once

#include <memory>
#include <string>

#include "frame/catalogue.h"
#include "frame/contract/quor_application.h"
#include "frame/list_commands.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

class frmOfficeEmployeeCategories : public quor::Form {
 public:
  quor::Panel SOPanel{*this, "SOPanel"};
  quor::TextBox txtName{*this, "txtName"};
  quor::ListView lvwFactors{
      *this,
      "lvwFactors",
      {{.key = "", .caption = "Galioja nuo", .width = 110},
       {.key = "Factor", .caption = "Koeficientas", .width = 110, .alignment = quor::CellAlignment::kRight}}};
  quor::PopupMenu mnuMain{*this, "mnuMain"};
  quor::MenuItem mnuNew{*this, mnuMain, "mnuNew", "Naujas įrašas", quor::MenuKey::kInsert};
  quor::MenuItem mnuEdit{*this, mnuMain, "mnuEdit", "Keisti", quor::MenuKey::kEnter};
  quor::MenuItem mnuDelete{*this, mnuMain, "mnuDelete", "Panaikinti", quor::MenuKey::kDelete};
  quor::CommandButton cmdWrite{*this, "cmdWrite", "", quor::ButtonRole::kWrite};
  quor::CommandButton cmdCancel{*this, "cmdCancel", ""};
  quor::CommandButton SSCNew{*this, "SSCNew", "Nauja kategorija", quor::ButtonRole::kNew};
  quor::CommandButton SSCClose{*this, "SSCClose", "Uždaryti", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeeCategories(quor::QuorApplication& application);

  // The category's data object, set by the opener before the form loads.
  std::shared_ptr<quor::QuorObjectUIO> QuorObjectUIO;

  bool has_unsaved_changes() const override { return changed_; }

 private:
  void opening() override;

  void write();
  void cancel();
  void start_new_category();
  void close_editor();
  // `guid` names the row; "" for a new one.
  void run_row_action(const std::string& action, const std::string& guid);
  void edit_row(const std::string& guid);
  void delete_row(const std::string& guid);

  void fill();
  void fill_factors();
  void show_heading();
  void mark_changed();
  void set_button_states();

  quor::QuorApplication& application_;
  std::string title_;  // of every box
  catalogue::Rights rights_;
  bool is_new_ = false;
  bool changed_ = false;
  ListCommands row_actions_;
};

}  // namespace velmora
