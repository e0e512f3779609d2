// `frmOfficeEmployeeExtraCharges`: an employee's personal extra charges at a date. They are entered, changed and
// deleted by the employee's data object; the form shows them, those that are not in force in grey.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "frame/list_commands.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"

namespace velmora {

class frmOfficeEmployeeExtraCharges : public quor::Form {
 public:
  quor::Label lblPreview{*this, "lblPreview"};
  quor::ListView lvwExtraCharges{
      *this,
      "lvwExtraCharges",
      {{.key = "", .caption = "Galioja nuo", .width = 90},
       {.key = "DateTo", .caption = "Galioja iki", .width = 90},
       {.key = "Preview", .caption = "Darbo užmokesčio kodas", .width = 220},
       {.key = "ExtraChargeSum", .caption = "Suma", .width = 90, .alignment = quor::CellAlignment::kRight},
       {.key = "ExtraChargePercentage", .caption = "Procentas", .width = 90, .alignment = quor::CellAlignment::kRight},
       {.key = "Comment", .caption = "Pastaba", .width = 220}}};
  quor::PopupMenu mnuExtraCharge{*this, "mnuExtraCharge"};
  quor::MenuItem mnuNewExtraCharge{*this, mnuExtraCharge, "mnuNewExtraCharge", "Naujas priedas",
                                   quor::MenuKey::kInsert};
  quor::MenuItem mnuEditExtraCharge{*this, mnuExtraCharge, "mnuEditExtraCharge", "Keisti", quor::MenuKey::kEnter};
  quor::MenuItem mnuDeleteExtraCharge{*this, mnuExtraCharge, "mnuDeleteExtraCharge", "Panaikinti",
                                      quor::MenuKey::kDelete};
  quor::CommandButton cmdClose{*this, "cmdClose", "Uždaryti", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeeExtraCharges(quor::QuorApplication& application);

  // Set by the opener before the form loads; it may also give `lblPreview` its caption.
  std::shared_ptr<quor::QuorObjectUIO> QuorObjectUIO;  // the salary engine; released when the form unloads
  std::string SalaryPersonalOIDR;                      // the employee's key
  quor::Date mDate;                                    // its time of day plays no part
  // For the opener afterwards: false once a charge was stored or deleted.
  bool mCancel = true;

  std::string subject() const override { return SalaryPersonalOIDR; }

 private:
  void opening() override;
  void closing() override;

  // `guid` names the charge; "" for a new one.
  void run_command(const std::string& command, const std::string& guid);
  void edit_charge(const std::string& guid);
  void delete_charge(const std::string& guid);

  void fill();
  void add_charge(const quor::Recordset& charge);
  void grey_out();
  bool in_force(std::size_t row) const;
  std::shared_ptr<quor::Recordset> named_rows(const char* name, const std::string& parameter);
  std::string salary_code_text(std::int32_t id);
  double service_percentage();
  bool ask_employee(const char* method, const std::string& guid);

  quor::QuorApplication& application_;
  std::shared_ptr<quor::QuorObjectUIO> employee_;  // null when the host has no such employee
  std::shared_ptr<quor::Recordset> salary_codes_;
  std::optional<double> service_percentage_;  // of this filling, once it was needed
  ListCommands commands_;
};

}  // namespace velmora
