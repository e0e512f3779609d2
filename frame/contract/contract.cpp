// The contract's interfaces have their tables and type identities here, once, in the library that both sides share.
#include "frame/contract/list_report.h"
#include "frame/contract/named_members.h"
#include "frame/contract/object_registry.h"
#include "frame/contract/open_objects.h"
#include "frame/contract/quor_application.h"
#include "frame/contract/quor_header.h"
#include "frame/contract/quor_header_security.h"
#include "frame/contract/quor_main_bo.h"
#include "frame/contract/quor_object_ui.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

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
