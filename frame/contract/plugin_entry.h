// The two C symbols by which the host enters a plug-in library.
//
// Implemented by  the plug-in library.
// Called by       the host's loader: it compares the number first and calls nothing when it differs.
// States          none.
// Units           class identifiers are ASCII: the library's name, a point and the class name.
//
// A library is called as its file "lib<name>.so" with the first letter a capital: libvelmora.so is the library
// `Velmora`. It has a header class, which the host creates once and lets register what the library contributes, may
// have a security header, and for each type that it registers an object UI and a data object; one that is missing, the
// host brings. Several libraries stand beside each other when their types, layout keys and icon keys differ.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "frame/contract/quor_application.h"

namespace quor {

// Grows with every change of a contract header that an older library would not survive.
inline constexpr std::uint32_t kPluginAbi = 4;

inline constexpr char kPluginAbiSymbol[] = "quor_plugin_abi";
inline constexpr char kPluginCreateSymbol[] = "quor_plugin_create";

// The classes of a library: its headers, and what those of a type begin with.
inline constexpr char kHeaderClass[] = "DLLHeader";               // QuorHeader
inline constexpr char kSecurityHeaderClass[] = "SecurityHeader";  // QuorHeaderSecurity
inline constexpr char kObjectUIClass[] = "UI";                    // QuorObjectUI
inline constexpr char kDataObjectClass[] = "UIO";                 // QuorObjectUIO

inline std::string class_id(std::string_view library, std::string_view class_name) {
  return std::string(library).append(".").append(class_name);
}
// The class of a type: behind `side` its code without the letter, as `UIO0402000` for O0402000.
inline std::string type_class_id(std::string_view library, std::string_view side, std::string_view object_type) {
  return class_id(library, side).append(object_type.substr(1));
}

// Puts a new object of the class into `object`; null for an unknown identifier or when it cannot be made. Never throws.
using PluginCreate = void(const char* class_id, QuorApplication& application, std::shared_ptr<Object>& object) noexcept;

}  // namespace quor
