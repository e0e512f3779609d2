#include "platform/data/quoted_text.h"

namespace quor {

std::string quoted(std::string_view text) {
  std::string result = "'";
  for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
  return result += '\'';
}

std::string quoted(Date date) { return quoted(date_text(date)); }

}  // namespace quor
