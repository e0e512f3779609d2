#include "plugin/icons.h"

#include <algorithm>
#include <span>
#include <string>

#include "platform/data/embedded_file.h"
#include "platform/data/error.h"

namespace velmora {

std::span<const quor::EmbeddedFile> icon_files();  // made by the build from resources/

namespace {

// Resource names are ASCII.
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool same_name(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace

quor::Picture find_icon(std::string_view name) {
  for (const quor::EmbeddedFile& file : icon_files()) {
    if (same_name(file.name, name)) return {std::string(file.name), file.bytes};
  }
  throw quor::Error(quor::ErrorKind::kNotFound, "Nėra piktogramos „" + std::string(name) + "“.");
}

}  // namespace velmora
