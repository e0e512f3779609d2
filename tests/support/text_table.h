// A table of cases written as text, so that a row stays a line: cells stand between " | ", blanks around them are none.
#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace quor {

inline std::string trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

inline std::vector<std::string> parts_of(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream in(text + separator);
  for (std::string part; std::getline(in, part, separator);) parts.push_back(trimmed(part));
  return parts;
}

// The rows that are not empty.
inline std::vector<std::vector<std::string>> text_table(const std::string& text) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : parts_of(text, '\n')) {
    if (!line.empty()) rows.push_back(parts_of(line, '|'));
  }
  return rows;
}

}  // namespace quor
