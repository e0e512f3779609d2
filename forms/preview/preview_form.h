// What the two previews of a month share: the month and the department, the reading, a list of persons, the desk top
// and the printing of the list. Each preview adds its columns, its record sets and its filling.
//
//   open     this month, no department, an empty list
//   filled   by cmdGo: the list, and the record sets that it was made from, held until the next filling or the end
//
// While it fills, its buttons are off and the pointer is an hourglass. A request that fails leaves its record set
// unset; the data object has told the user.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "frame/command_gate.h"
#include "frame/contract/quor_application.h"
#include "platform/data/month.h"
#include "platform/data/recordset.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

// A column of the list on the screen and on paper. The first column's key is the paper's alone.
struct PreviewColumn {
  const char* key;
  const char* caption;
  double width;  // in centimetres of paper
  quor::CellAlignment alignment = quor::CellAlignment::kLeft;
  const char* header_key = "";
};

class PreviewForm : public quor::Form {
 public:
  quor::DatePicker dtpDate{*this, "dtpDate"};
  quor::TextBox txtDepartment{*this, "txtDepartment"};
  quor::CommandButton cmdSelect{*this, "cmdSelect", "...", quor::ButtonRole::kChoose};
  quor::CommandButton cmdClean{*this, "cmdClean", "Išvalyti"};
  quor::CommandButton cmdGo{*this, "cmdGo", "Užpildyti", quor::ButtonRole::kFill};
  quor::CommandButton cmdPrint{*this, "cmdPrint", "Spausdinti", quor::ButtonRole::kPrint};
  quor::CommandButton SSCClose{*this, "SSCClose", "Uždaryti", quor::ButtonRole::kDismiss};
  quor::ListView lvwRows;
  quor::PopupMenu mnuMenu{*this, "mnuMenu"};
  quor::MenuItem mnuOnDeskTop;

  // The salary engine's data object, set by the opener before the form loads.
  std::shared_ptr<quor::QuorObjectUIO> QuorObjectUIO;

 protected:
  // `columns` outlive the form. `desk_top_key` is the key of the desk top's menu item.
  PreviewForm(quor::QuorApplication& application, const char* caption, std::span<const PreviewColumn> columns,
              quor::MenuKey desk_top_key);

  void opening() override;
  void closing() override { release(); }

  // Clears the list, reads every record set anew and fills the list.
  void fill();
  // The preview's own record sets, asked for behind those that both share.
  virtual void load_records() = 0;
  virtual void release_records() = 0;
  virtual void fill_list() = 0;

  // The record set that the data object has under that name; null after a failure.
  std::shared_ptr<quor::Recordset> requested(const std::string& name, const std::string& parameter);
  // "OfficeEmployeePreview" and "OfficeEmployeeSettings" of the month.
  const std::shared_ptr<quor::Recordset>& preview_rows() const { return preview_rows_; }
  const std::shared_ptr<quor::Recordset>& settings() const { return settings_; }

  // What the list was filled for, whatever the user has chosen since: the month, the department (0 for all).
  const quor::Month& month() const { return listed_.month; }
  quor::Date last_day() const { return listed_.month.last_day(); }
  std::int32_t department() const { return listed_.department; }

  // Adds a row of a person, every cell a blank; answers its number.
  std::size_t add_row(std::int32_t user);
  // The selected row's tag when it carries an employee, else "".
  std::string selected_employee() const;
  void place_on_desk_top();
  // Runs a command of the list, never one inside another.
  CommandGate& commands() { return commands_; }

  quor::QuorApplication& application() { return application_; }

 private:
  class Busy;
  struct Listed {
    quor::Month month;
    std::int32_t department = 0;
    std::string department_name;
  };

  void select_department();
  void clear_department();
  void open_menu();
  void print();
  void release();
  Listed chosen() const;

  quor::QuorApplication& application_;
  const std::span<const PreviewColumn> columns_;
  Listed listed_ = {quor::Month::of(quor::Date()), 0, {}};
  CommandGate commands_;
  std::shared_ptr<quor::Recordset> preview_rows_;
  std::shared_ptr<quor::Recordset> settings_;
};

}  // namespace velmora
