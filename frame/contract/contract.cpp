// The contract's interfaces have their tables and type identities here, once, in the library that both sides share.
#include "frame/contract/list_report.h"
#include "frame/contract/named_members.h"
#include "frame/contract/object_registry.h"
#include "frame/contract/open_bounds.h"
#include "frame/contract/open_objects.h"
#include "frame/contract/quor_application.h"
#include "frame/contract/quor_header.h"
#include "frame/contract/quor_header_security.h"
#include "frame/contract/quor_main_bo.h"
#include "frame/contract/quor_object_ui.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

Date open_start() {
  static const Date date = Date::from_ymd(1990, 1, 1);
  return date;
}

Date open_end() {
  static const Date date = Date::from_ymd(2999, 12, 31);
  return date;
}

std::string bound_text(const Variant& date, Date open) {
  return date.is_null() || date.to_date() == open ? "" : date_text(date.to_date());
}

ListReport::~ListReport() = default;
NamedMembers::~NamedMembers() = default;
LayoutGroup::~LayoutGroup() = default;
Layout::~Layout() = default;
ObjectRegistry::~ObjectRegistry() = default;
OpenObjectRegistry::~OpenObjectRegistry() = default;
QuorApplication::~QuorApplication() = default;
QuorHeader::~QuorHeader() = default;
QuorHeaderSecurity::~QuorHeaderSecurity() = default;
QuorMainBO::~QuorMainBO() = default;
QuorObjectUI::~QuorObjectUI() = default;
QuorObjectUIO::~QuorObjectUIO() = default;

}  // namespace quor
