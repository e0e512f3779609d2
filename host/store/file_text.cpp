#include "host/store/file_text.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "host/store/addresses.h"

namespace quor {

std::string text_of_file(const std::string& file, std::size_t most) {
  std::ifstream in(file, std::ios::binary);
  std::error_code none;
  if (!in || std::filesystem::is_directory(file, none))
    throw std::runtime_error("nepavyksta perskaityti failo „" + shown_address(file) + "“");
  if (most == std::string::npos) return {std::istreambuf_iterator<char>(in), {}};
  std::string text(most, '\0');
  in.read(text.data(), static_cast<std::streamsize>(most));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

}  // namespace quor
