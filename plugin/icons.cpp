#include "plugin/icons.h"

#include <span>
#include <string>

#include "platform/data/case_folding.h"
#include "platform/data/embedded_file.h"
#include "platform/data/error.h"

namespace velmora {

std::span<const quor::EmbeddedFile> icon_files();  // made by the build from resources/

quor::Picture find_icon(std::string_view name) {
  for (const quor::EmbeddedFile& file : icon_files()) {
    if (quor::compare_folded(file.name, name) == 0) return {std::string(file.name), file.bytes};
  }
  throw quor::Error(quor::ErrorKind::kNotFound, "Nėra piktogramos „" + std::string(name) + "“.");
}

}  // namespace velmora
