#include "platform/toolkit/text_box.h"

#include <algorithm>
#include <utility>

#include "platform/data/utf8.h"

namespace quor {

void TextBox::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void TextBox::set_text(std::string text) {
  selection_start_ = 0;
  selection_length_ = 0;
  put(text_, std::move(text), ControlChange::kContent);
}

void TextBox::select(std::size_t start, std::size_t length) {
  const std::size_t all = character_count(text_);
  selection_start_ = std::min(start, all);
  selection_length_ = std::min(length, all - selection_start_);
  tell(ControlChange::kSelection);
}

bool TextBox::accepts(char32_t& key) const {
  if (!can_act() || read_only_) return false;
  if (on_key) key = on_key(key);
  return key != 0;
}

void TextBox::type_key(char32_t key) {
  if (!accepts(key)) return;
  if (key != kBackspace) {
    replace(selection_start_, selection_length_, encoded(key));
  } else if (selection_length_ > 0) {
    replace(selection_start_, selection_length_, {});
  } else if (selection_start_ > 0) {
    replace(selection_start_ - 1, 1, {});
  }
}

void TextBox::paste(std::string_view text) {
  while (!text.empty()) {
    const char32_t key = take_character(text);
    if (key != kBackspace && key < kStrayByte) type_key(key);
  }
}

void TextBox::erase() {
  if (!can_act() || read_only_) return;
  replace(selection_start_, std::max<std::size_t>(selection_length_, 1), {});
}

void TextBox::enter() {
  if (can_act()) run(on_enter);
}

void TextBox::leave() {
  if (can_act()) run(on_leave);
}

void TextBox::replace(std::size_t start, std::size_t length, std::string_view by) {
  const std::size_t from = byte_position(text_, start);
  const std::size_t to = byte_position(text_, start + length);
  if (from == to && by.empty()) return;
  text_.replace(from, to - from, by);
  selection_start_ = start + character_count(by);
  selection_length_ = 0;
  tell(ControlChange::kContent);
  run(on_change);
}

}  // namespace quor
