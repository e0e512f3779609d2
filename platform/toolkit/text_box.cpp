#include "platform/toolkit/text_box.h"

#include <algorithm>
#include <utility>

#include "platform/data/utf8.h"

namespace quor {

namespace {

constexpr std::size_t kMostRemembered = 200;

}  // namespace

void TextBox::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void TextBox::set_text(std::string text) {
  selection_start_ = 0;
  selection_length_ = 0;
  if (text != text_) {
    undo_.clear();
    redo_.clear();
    typed_to_ = kNowhere;
  }
  put(text_, std::move(text), ControlChange::kContent);
}

void TextBox::select(std::size_t start, std::size_t length) {
  const std::size_t all = character_count(text_);
  selection_start_ = std::min(start, all);
  selection_length_ = std::min(length, all - selection_start_);
  tell(ControlChange::kSelection);
}

bool TextBox::accepts(char32_t& key) const {
  if (!may_type()) return false;
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
  if (!may_type()) return;
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
  remember(start, length, by);
  text_.replace(from, to - from, by);
  selection_start_ = start + character_count(by);
  selection_length_ = 0;
  tell(ControlChange::kContent);
  run(on_change);
}

// Characters typed one behind the other go back together.
void TextBox::remember(std::size_t start, std::size_t length, std::string_view by) {
  const bool goes_on = !undo_.empty() && redo_.empty() && length == 0 && !by.empty() && start == typed_to_;
  typed_to_ = by.empty() ? kNowhere : start + character_count(by);
  redo_.clear();
  if (goes_on) return;
  if (undo_.size() == kMostRemembered) undo_.erase(undo_.begin());
  undo_.push_back({text_, selection_start_, selection_length_});
}

void TextBox::go_back(std::vector<Past>& from, std::vector<Past>& to) {
  if (!may_type() || from.empty()) return;
  to.push_back({text_, selection_start_, selection_length_});
  text_ = std::move(from.back().text);
  selection_start_ = from.back().selection_start;
  selection_length_ = from.back().selection_length;
  from.pop_back();
  typed_to_ = kNowhere;
  tell(ControlChange::kContent);
  run(on_change);
}

}  // namespace quor
