// A file's bytes, read at once.
#pragma once

#include <cstddef>
#include <string>

namespace quor {

// The first `most` bytes of the file. Throws std::runtime_error, which names the file, when it cannot be read.
std::string text_of_file(const std::string& file, std::size_t most = std::string::npos);

}  // namespace quor
