// The form of a salary constant: its code, its name and all its values, each from a date on. The newest stands first.
//
// Values are changed in memory, in the dialog of one; the write button stores them with the constant.
#pragma once

#include "host/editors/record_form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class ConstantEditor : public RecordForm {
 public:
  TextBox txtCode{*this, "txtCode"};
  TextBox txtName{*this, "txtName"};
  ListView lvwValues{*this,
                     "lvwValues",
                     {{.key = "", .caption = "Galioja nuo", .width = 110},
                      {.key = "To", .caption = "Galioja iki", .width = 110},
                      {.key = "Value", .caption = "Reikšmė", .width = 130, .alignment = CellAlignment::kRight}}};
  PopupMenu mnuValues{*this, "mnuValues"};
  MenuItem mnuNew{*this, mnuValues, "mnuNew", "Nauja reikšmė", MenuKey::kInsert};
  MenuItem mnuEdit{*this, mnuValues, "mnuEdit", "Keisti", MenuKey::kEnter};
  MenuItem mnuDelete{*this, mnuValues, "mnuDelete", "Panaikinti", MenuKey::kDelete};
  CommandButton cmdNewValue{*this, "cmdNewValue", "Nauja reikšmė…"};

  ConstantEditor(Application& application, std::shared_ptr<QuorObjectUIO> record);

 private:
  using Command = void (ConstantEditor::*)();

  void show_record(bool may_write) override;
  bool take(EnteredValues& entered) override;

  void open_menu();
  void run(Command command);
  void add_value();
  void edit_value();
  void delete_value();

  void fill_values();
  std::shared_ptr<Recordset> values() const;
  // Stands on the row of the selected line; false when none is.
  bool stand_on_selected(Recordset& rows) const;
  void values_changed(const std::string& from);

  bool may_write_ = false;
  bool running_ = false;  // a command with its dialog: what the user does meanwhile starts no other
  Command chosen_ = nullptr;
};

// Of the constant with the key, or of a new one; null after a refusal that has been shown.
std::shared_ptr<Form> constant_editor(Application& application, const std::string& object);

}  // namespace quor
