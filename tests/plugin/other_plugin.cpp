// A library with the entry of a plug-in of another contract number: the host must not enter it.
#include <cstdlib>

#include "frame/contract/plugin_entry.h"

extern "C" {

extern const std::uint32_t quor_plugin_abi;
const std::uint32_t quor_plugin_abi = quor::kPluginAbi + 1;

void quor_plugin_create(const char*, quor::QuorApplication&, std::shared_ptr<quor::Object>&) noexcept { std::abort(); }

}  // extern "C"
