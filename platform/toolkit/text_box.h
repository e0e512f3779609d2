// A text box: the text, a tag that the form keeps with it, and the selection. A model: whoever shows it draws it.
#pragma once

#include <cstddef>
#include <string>

namespace quor {

class TextBox {
 public:
  const std::string& text() const { return text_; }
  // Puts the caret before the text; nothing is selected then.
  void set_text(std::string text);

  const std::string& tag() const { return tag_; }
  void set_tag(std::string tag) { tag_ = std::move(tag); }

  // In characters. A selection past the end of the text is cut there.
  std::size_t selection_start() const { return selection_start_; }
  std::size_t selection_length() const { return selection_length_; }
  void select(std::size_t start, std::size_t length);

 private:
  std::string text_;
  std::string tag_;
  std::size_t selection_start_ = 0;
  std::size_t selection_length_ = 0;
};

}  // namespace quor
