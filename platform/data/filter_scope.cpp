#include "platform/data/filter_scope.h"

namespace quor {

bool filter_test(Recordset* record_set, std::string_view text) {
  if (record_set == nullptr || record_set->RecordCount() == 0) return false;
  record_set->Filter(text);
  if (record_set->RecordCount() > 0) return true;
  record_set->Filter("");
  return false;
}

bool filter_test(const std::shared_ptr<Recordset>& record_set, std::string_view text) {
  return filter_test(record_set.get(), text);
}

FilterScope::~FilterScope() {
  if (record_set_ != nullptr && !record_set_->Filter().empty()) record_set_->Filter("");
}

}  // namespace quor
