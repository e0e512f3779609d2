// The library's entry: the two symbols that the host looks for, and the table from class identifier to class.
#include "frame/contract/plugin_entry.h"

#include <string_view>

#include "adapters/category_list_ui.h"
#include "adapters/category_object.h"
#include "adapters/salary_extension_ui.h"
#include "adapters/settings_object.h"
#include "adapters/settings_ui.h"
#include "adapters/tarification_object.h"
#include "adapters/tarification_ui.h"
#include "engine/salary_engine.h"
#include "frame/dll_header.h"
#include "frame/security_header.h"
#include "plugin/icons.h"

namespace {

using quor::QuorApplication;

struct PluginClass {
  std::string_view id;
  std::shared_ptr<quor::Object> (*create)(QuorApplication&);
};

template <typename Class>
std::shared_ptr<quor::Object> made(QuorApplication& application) {
  return std::make_shared<Class>(application);
}

constexpr PluginClass kClasses[] = {
    {"Velmora.DLLHeader",
     [](QuorApplication& application) -> std::shared_ptr<quor::Object> {
       return std::make_shared<velmora::DLLHeader>(application, velmora::find_icon);
     }},
    {"Velmora.SecurityHeader",
     [](QuorApplication&) -> std::shared_ptr<quor::Object> { return std::make_shared<velmora::SecurityHeader>(); }},
    {"Velmora.UI0402000", made<velmora::UI0402000>},
    {"Velmora.UI0402100", made<velmora::UI0402100>},
    {"Velmora.UI0402200", made<velmora::UI0402200>},
    {"Velmora.UI0402300", made<velmora::UI0402300>},
    {"Velmora.UIO0402000", made<velmora::UIO0402000>},
    {"Velmora.UIO0402100", made<velmora::UIO0402100>},
    {"Velmora.UIO0402200", made<velmora::UIO0402200>},
    {"Velmora.UIO0402300", made<velmora::UIO0402300>},
};

}  // namespace

extern "C" {

[[gnu::visibility("default")]] extern const std::uint32_t quor_plugin_abi;
const std::uint32_t quor_plugin_abi = quor::kPluginAbi;

[[gnu::visibility("default")]] void quor_plugin_create(const char* class_id, QuorApplication& application,
                                                       std::shared_ptr<quor::Object>& object) noexcept {
  object.reset();
  for (const PluginClass& entry : kClasses) {
    if (entry.id != class_id) continue;
    // Nothing may leave the entry; a class that cannot be made is a null object, as an unknown one is.
    try {
      object = entry.create(application);
    } catch (...) {
      object.reset();
    }
    return;
  }
}

}  // extern "C"
