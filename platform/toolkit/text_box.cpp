#include "platform/toolkit/text_box.h"

#include <algorithm>
#include <utility>

#include "platform/data/utf8.h"

namespace quor {

void TextBox::set_text(std::string text) {
  text_ = std::move(text);
  selection_start_ = 0;
  selection_length_ = 0;
}

void TextBox::select(std::size_t start, std::size_t length) {
  const std::size_t all = character_count(text_);
  selection_start_ = std::min(start, all);
  selection_length_ = std::min(length, all - selection_start_);
}

}  // namespace quor
