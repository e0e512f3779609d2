// What every control of a form has in common. A control is a model: it holds what is shown, whoever shows the form
// draws it. Two directions, never mixed:
//
//   the form changes a control   the setters: they tell the observer and run no handler of the form
//   the user acts on a control   click(), type_key(), pick(), ... run the form's handlers (`on_click`, `on_change`,
//   ...)
//                                as a person's act does; a control that is disabled or hidden does nothing
//
// A handler may throw; the act's caller, the edge of whoever shows the form, catches it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quor {

class Control;
class ControlVisitor;

// The controls of one form, by name and in the order in which they were made.
class ControlSet {
 public:
  ControlSet() = default;
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

  const std::vector<Control*>& controls() const { return controls_; }
  // Null when there is none of exactly that name.
  Control* find(std::string_view name) const;

 private:
  friend class Control;
  std::vector<Control*> controls_;
};

enum class ControlChange {
  kState,      // enabled, visible, read-only
  kContent,    // text, caption, value, rows, cells; a menu that opens or closes
  kSelection,  // caret and selected text, the selected row
  kFocus,      // the form wants the cursor here
};

class Control {
 public:
  // Enters itself into the set, which outlives it.
  Control(ControlSet& owner, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& name() const { return name_; }
  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled);
  bool visible() const { return visible_; }
  void set_visible(bool visible);
  // Puts the cursor here, where it can stand.
  void focus() const { tell(ControlChange::kFocus); }

  // One observer, told after every change by either side; null takes it away.
  void observe(std::function<void(ControlChange)> observer) { observer_ = std::move(observer); }
  virtual void accept(ControlVisitor& visitor) = 0;

 protected:
  bool can_act() const { return enabled_ && visible_; }
  void tell(ControlChange change) const;
  // Puts `value` into `member` and tells; an equal value is no change.
  template <typename T>
  void put(T& member, T value, ControlChange change) {
    if (member == value) return;
    member = std::move(value);
    tell(change);
  }
  static void run(const std::function<void()>& handler) {
    if (handler) handler();
  }

 private:
  const std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  std::function<void(ControlChange)> observer_;
};

class Chart;
class CheckBox;
class ChoiceBox;
class CommandButton;
class DatePicker;
class Grid;
class GroupFrame;
class Label;
class ListView;
class MenuItem;
class Panel;
class PopupMenu;
class TextBox;

// Every kind of control: a renderer that forgets one does not compile.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void visit(Chart& chart) = 0;
  virtual void visit(CheckBox& box) = 0;
  virtual void visit(ChoiceBox& box) = 0;
  virtual void visit(CommandButton& button) = 0;
  virtual void visit(DatePicker& picker) = 0;
  virtual void visit(Grid& grid) = 0;
  virtual void visit(GroupFrame& frame) = 0;
  virtual void visit(Label& label) = 0;
  virtual void visit(ListView& list) = 0;
  virtual void visit(MenuItem& item) = 0;
  virtual void visit(Panel& panel) = 0;
  virtual void visit(PopupMenu& menu) = 0;
  virtual void visit(TextBox& box) = 0;
};

}  // namespace quor
