#include "host/editors/employment_end.h"

#include "frame/contract/host_types.h"
#include "host/editors/entered_values.h"
#include "host/payroll/person_positions.h"

namespace quor {

EmploymentEnd::EmploymentEnd(Application& application, std::int32_t employee)
    : Form("Darbo pabaiga"), application_(application), employee_(employee) {
  cmdEnd.on_click = [this] { end(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Paskutinė darbo diena", txtDay), row({cmdEnd, cmdCancel})}));
}

std::string EmploymentEnd::subject() const { return object_key(kEmployeeType, employee_); }

void EmploymentEnd::opening() {
  ended_ = false;
  txtDay.set_text(date_text(application_.Today()));
}

void EmploymentEnd::end() {
  EnteredValues entered(application_);
  const Date day = entered.date(txtDay, "Paskutinė darbo diena");
  if (entered.show_faults()) return;
  const RunningOn found = running_on(application_, employee_, day);
  const std::int32_t charges = found.positions > 0 ? found.charges : 0;
  const bool with_charges =
      charges > 0 &&
      application_.MessageBox("Po " + date_text(day) + " galioja ir darbuotojo priedai (" + std::to_string(charges) +
                                  "). Ar užbaigti ir juos?",
                              BoxIcon::kQuestion, BoxButtons::kYesNo, application_.Title()) == BoxAnswer::kYes;
  try {
    end_employment(application_, employee_, day, with_charges);
  } catch (const StoreError& error) {
    application_.MessageBox(error.what(), BoxIcon::kExclamation, BoxButtons::kOk, application_.Title());
    return;
  }
  ended_ = true;
  close();
}

}  // namespace quor
