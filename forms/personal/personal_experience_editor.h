// `frmOfficeEmployeePersonalExperience`: the editor of an employee's length of service as it stood at one date, and
// what it grows to at a second date. Without a record set to write into, or without an employee, it only calculates.
//
// It changes the record set only to store it: a save that fails takes the change back, and no filter outlives an event.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

class frmOfficeEmployeePersonalExperience : public quor::Form {
 public:
  quor::GroupFrame frameMain{*this, "frameMain", ""};
  quor::DatePicker dtpDate{*this, "dtpDate"};
  quor::TextBox txtYears{*this, "txtYears"};
  quor::TextBox txtMonthes{*this, "txtMonthes"};
  quor::GroupFrame frameCurrent{*this, "frameCurrent", "Tarnybos stažas kitai datai"};
  quor::DatePicker dtpDate2{*this, "dtpDate2"};
  quor::TextBox txtYears2{*this, "txtYears2"};
  quor::TextBox txtMonthes2{*this, "txtMonthes2"};
  quor::CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", quor::ButtonRole::kAccept};
  quor::CommandButton cmdCancel{*this, "cmdCancel", "", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeePersonalExperience(quor::QuorApplication& application);

  // Set by the opener before the form loads.
  std::shared_ptr<quor::Recordset> rsExperience;  // `OfficeEmployeeExperience`; null: nothing can be saved
  std::string UserOIDR;                           // the employee's key; only a type code, or empty: no employee
  quor::Date DatePreview;                         // the second date
  // For the opener afterwards: whether the cancel button closed the form.
  bool mCancel = false;

  std::string subject() const override { return UserOIDR; }

 private:
  // What the length of service is computed from.
  struct Inputs {
    quor::Date date;
    quor::Date second_date;
    std::string years;
    std::string months;
  };

  void opening() override;

  void inputs_changed();
  void write();
  void cancel();

  void show_employee(std::int32_t employee);
  bool find_record(std::int32_t employee);
  void put_into_record(std::int16_t years, std::int16_t months);
  void show_second_service();
  Inputs inputs() const;
  void take_back(const Inputs& inputs);
  void set_button_states();

  quor::QuorApplication& application_;
  std::string title_;          // of every box
  std::int32_t employee_ = 0;  // whose record is written, while it is known
  bool employee_is_known_ = false;
  std::optional<Inputs> computed_;  // the last ones that gave a result
};

}  // namespace velmora
