// A text box: the text, a tag that the form keeps with it, and the selection. Positions and lengths count characters.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/control.h"

namespace quor {

class TextBox : public Control {
 public:
  enum class Kind {
    kText,
    kDate,  // "2008.01.31", or nothing; whoever shows it lends a calendar
  };

  TextBox(ControlSet& owner, std::string name, Kind kind = Kind::kText)
      : Control(owner, std::move(name)), kind_(kind) {}

  Kind kind() const { return kind_; }

  const std::string& text() const { return text_; }
  // Puts the caret before the text; nothing is selected then, and another text than before cannot be undone.
  void set_text(std::string text);

  // What the form keeps with the text: the key of the object that the text names.
  const std::string& tag() const { return tag_; }
  void set_tag(std::string tag) { tag_ = std::move(tag); }

  // A selection of length 0 is the caret.
  std::size_t selection_start() const { return selection_start_; }
  std::size_t selection_length() const { return selection_length_; }
  // Cut at the text's end.
  void select(std::size_t start, std::size_t length);

  // Shown, selected and copied, never typed into.
  bool read_only() const { return read_only_; }
  void set_read_only(bool read_only) { put(read_only_, read_only, ControlChange::kState); }
  void accept(ControlVisitor& visitor) override;

  // The user types a character over the selection; kBackspace takes the selection or the character before the caret.
  void type_key(char32_t key);
  // As if each character were typed.
  void paste(std::string_view text);
  // The user deletes the selection, or the character behind the caret.
  void erase();
  // Takes back what the user did last, typing without a pause of the caret as one; and does it again.
  void undo() { go_back(undo_, redo_); }
  void redo() { go_back(redo_, undo_); }
  bool can_undo() const { return !undo_.empty(); }
  bool can_redo() const { return !redo_.empty(); }
  void enter();
  void leave();

  // Answers the character to take in the typed one's place, or 0 to swallow it; every character is taken without it.
  std::function<char32_t(char32_t)> on_key;
  std::function<void()> on_change;  // after each act that has changed the text
  std::function<void()> on_enter;
  std::function<void()> on_leave;

  static constexpr char32_t kBackspace = 8;

 private:
  struct Past {
    std::string text;
    std::size_t selection_start;
    std::size_t selection_length;
  };

  bool may_type() const { return can_act() && !read_only_; }
  bool accepts(char32_t& key) const;
  void remember(std::size_t start, std::size_t length, std::string_view by);
  void go_back(std::vector<Past>& from, std::vector<Past>& to);
  void replace(std::size_t start, std::size_t length, std::string_view by);

  const Kind kind_;
  std::string text_;
  std::string tag_;
  std::size_t selection_start_ = 0;
  std::size_t selection_length_ = 0;
  bool read_only_ = false;
  std::vector<Past> undo_, redo_;    // the latest last
  std::size_t typed_to_ = kNowhere;  // where typing would go on

  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);
};

}  // namespace quor
