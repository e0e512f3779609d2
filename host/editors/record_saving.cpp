#include "host/editors/record_saving.h"

namespace quor {

bool stored_or_told(QuorApplication& application, const SaveStatus& status) {
  if (!status.Failed) return true;
  application.MessageBox(std::string("Įrašymas neatliktas!") + kLineBreak + status.ErrorText, BoxIcon::kExclamation,
                         BoxButtons::kOk, application.Title());
  return false;
}

}  // namespace quor
