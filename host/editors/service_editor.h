// The dialog of an employee's recorded length of service: years and months, and the day on which they were reached.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class ServiceEditor : public Form {
 public:
  TextBox txtDate{*this, "txtDate", TextBox::Kind::kDate};
  TextBox txtYears{*this, "txtYears"};
  TextBox txtMonths{*this, "txtMonths"};
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // `services` is the record set "OfficeEmployeeExperience"; `began` stands in the date's place while nothing is
  // recorded: "" or a date's text.
  ServiceEditor(QuorApplication& application, std::int32_t employee, std::shared_ptr<Recordset> services,
                std::string began);

  bool has_unsaved_changes() const override { return !stored_ && loaded() && shown() != shown_; }
  bool stored() const { return stored_; }
  std::string subject() const override;

 private:
  void opening() override;
  void write();
  std::string shown() const { return txtDate.text() + '\n' + txtYears.text() + '\n' + txtMonths.text(); }

  QuorApplication& application_;
  const std::int32_t employee_;
  const std::shared_ptr<Recordset> services_;
  const std::string began_;
  bool recorded_ = false;
  std::string shown_;
  bool stored_ = false;
};

// Stands on the employee's record under the filter that finds it; false when there is none.
bool find_service(Recordset& services, std::int32_t employee);

}  // namespace quor
