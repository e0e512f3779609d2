#include "host/editors/host_editors.h"

#include "frame/contract/host_types.h"
#include "host/application/application.h"
#include "host/editors/month_editor.h"

namespace quor {

HostTypes host_editors() {
  HostTypes types;
  types[kMonthType] = {.open = month_editor, .new_caption = "Naujas mėnuo", .removable = true, .remove = delete_month};
  return types;
}

}  // namespace quor
