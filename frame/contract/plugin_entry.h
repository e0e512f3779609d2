// The two C symbols by which the host enters a plug-in library.
//
// Implemented by  the plug-in library.
// Called by       the host's loader: it compares the number first and calls nothing when it differs.
// States          none.
// Units           class identifiers are the library's name, a point and the class name ("Velmora.DLLHeader").
#pragma once

#include <cstdint>
#include <memory>

#include "frame/contract/quor_application.h"

namespace quor {

// Grows with every change of a contract header that an older library would not survive.
inline constexpr std::uint32_t kPluginAbi = 3;

inline constexpr char kPluginAbiSymbol[] = "quor_plugin_abi";
inline constexpr char kPluginCreateSymbol[] = "quor_plugin_create";

// Puts a new object of the class into `object`; null for an unknown identifier or when it cannot be made. Never throws.
using PluginCreate = void(const char* class_id, QuorApplication& application, std::shared_ptr<Object>& object) noexcept;

}  // namespace quor
