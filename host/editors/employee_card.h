// The card of an employee: who they are, and on its pages all that is theirs: positions, service and charges, the time
// worked in a month and what was paid for it. The pages of a new card come to life once it is written.
//
// Name, department and first day are written by the card's own button; what stands in the lists is written by the
// dialogs that they open.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/application/application.h"
#include "host/editors/person_lists.h"
#include "host/editors/record_form.h"
#include "platform/data/month.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/chart.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class EmployeeCard : public RecordForm {
 public:
  TextBox txtName{*this, "txtName"};
  ChoiceBox chcDepartment{*this, "chcDepartment"};  // tags: the departments' IDs
  TextBox txtServiceBegan{*this, "txtServiceBegan", TextBox::Kind::kDate};
  Label lblPages{*this, "lblPages"};  // why the pages stay empty

  ListView lvwPositions;
  PopupMenu mnuPosition{*this, "mnuPosition"};
  MenuItem mnuNewPosition{*this, mnuPosition, "mnuNewPosition", "Nauja pareigybė", MenuKey::kInsert};
  MenuItem mnuEditPosition{*this, mnuPosition, "mnuEditPosition", "Keisti", MenuKey::kEnter};
  MenuItem mnuCopyPosition{*this, mnuPosition, "mnuCopyPosition", "Kopijuoti"};
  MenuItem mnuDeletePosition{*this, mnuPosition, "mnuDeletePosition", "Panaikinti", MenuKey::kDelete};
  CommandButton cmdNewPosition{*this, "cmdNewPosition", "Nauja pareigybė…"};
  CommandButton cmdCopyPosition{*this, "cmdCopyPosition", "Kopijuoti…"};
  CommandButton cmdEnd{*this, "cmdEnd", "Darbo pabaiga…"};

  Label lblService{*this, "lblService"};
  CommandButton cmdService{*this, "cmdService", "Tarnybos stažas…"};
  ListView lvwCharges;
  PopupMenu mnuCharge{*this, "mnuCharge"};
  MenuItem mnuNewCharge{*this, mnuCharge, "mnuNewCharge", "Naujas priedas", MenuKey::kInsert};
  MenuItem mnuEditCharge{*this, mnuCharge, "mnuEditCharge", "Keisti", MenuKey::kEnter};
  MenuItem mnuDeleteCharge{*this, mnuCharge, "mnuDeleteCharge", "Panaikinti", MenuKey::kDelete};
  CommandButton cmdNewCharge{*this, "cmdNewCharge", "Naujas priedas…"};

  DatePicker dtpTimeMonth{*this, "dtpTimeMonth"};  // both pages are of one month
  ListView lvwWorkedTime;
  DatePicker dtpPayMonth{*this, "dtpPayMonth"};
  Label lblPay{*this, "lblPay"};
  ListView lvwPaidHours;
  ListView lvwPaidSums;
  Chart chtPay{*this, "chtPay", Chart::Kind::kStackedColumns};  // all months

  CommandButton cmdRefresh{*this, "cmdRefresh", "Atnaujinti", ButtonRole::kFill};

  // `card` is the employee's data object, read. The application outlives the form.
  EmployeeCard(Application& application, std::shared_ptr<QuorObjectUIO> card);

 private:
  void opening() override;
  void listen();
  void lay_out();

  void show_record(bool may_write) override;
  bool take(EnteredValues& entered) override;
  void show_card();
  void show_departments(std::int32_t chosen);
  void refresh();

  std::optional<std::int32_t> employee() const;  // none while the card is new
  void show_pages();
  void enable_pages(bool stored, bool viewed);
  void enable_copy();
  void show_positions(const std::string& select);
  void show_person();
  void show_month();
  void turn_to_month(Date day);

  void edit_position_of(const std::string& key);
  void add_position(const std::string& like);
  void delete_position();
  void positions_changed(const std::string& key);
  void end_employment();
  void edit_service();
  void ask_card(const char* method, const std::string& guid);
  void delete_charge();
  bool agreed_to_delete();

  Month month_;
  bool may_write_ = false;
};

// The form of the employee's card, or of a new one for the type code. Null when it is gone or may not be seen: the user
// has been shown that.
std::shared_ptr<Form> open_employee_card(Application& application, const std::string& object);

}  // namespace quor
