#include "host/editors/host_editors.h"

#include "frame/contract/host_types.h"
#include "host/application/application.h"
#include "host/editors/code_editor.h"
#include "host/editors/constant_editor.h"
#include "host/editors/department_editor.h"
#include "host/editors/employee_card.h"
#include "host/editors/month_editor.h"
#include "host/editors/month_norms_editor.h"
#include "host/editors/worked_time_editor.h"

namespace quor {

HostTypes host_editors() {
  HostTypes types;
  types[kEmployeeType] = {.open = open_employee_card, .new_caption = "Naujas darbuotojas", .removable = true};
  types[kMonthType] = {.open = month_editor, .new_caption = "Naujas mėnuo", .removable = true, .remove = delete_month};
  types[kDepartmentType] = {.open = department_editor, .new_caption = "Naujas padalinys", .removable = true};
  types[kConstantType] = {.open = constant_editor, .new_caption = "Nauja konstanta", .removable = true};
  types[kNormType] = {
      .open = month_norms_editor, .new_caption = "Nauji metai", .removable = true, .remove = delete_month_norms};
  types[kTimeCodeType] = {.open = time_code_editor, .new_caption = "Naujas laiko kodas", .removable = true};
  types[kSalaryCodeType] = {.open = salary_code_editor, .new_caption = "Naujas užmokesčio kodas", .removable = true};
  types[kWorkedTimeType] = {
      .open = worked_time_editor, .new_caption = "Naujas mėnuo", .removable = true, .remove = delete_worked_time};
  return types;
}

}  // namespace quor
