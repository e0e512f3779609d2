// A file that the build compiled into a library: a picture, a migration of the company's schema.
#pragma once

#include <span>
#include <string_view>

namespace quor {

struct EmbeddedFile {
  std::string_view name;                 // the file's name without folder and ending
  std::span<const unsigned char> bytes;  // lives as long as the library is loaded

  std::string_view text() const { return {reinterpret_cast<const char*>(bytes.data()), bytes.size()}; }
};

}  // namespace quor
