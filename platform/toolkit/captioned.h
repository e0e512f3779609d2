// The controls that are a caption: a label, a heading panel, a group's frame, and the button that is pressed by it.
#pragma once

#include <functional>
#include <string>

#include "platform/toolkit/control.h"

namespace quor {

class Captioned : public Control {
 public:
  Captioned(ControlSet& owner, std::string name, std::string caption)
      : Control(owner, std::move(name)), caption_(std::move(caption)) {}
  const std::string& caption() const { return caption_; }
  void set_caption(std::string caption);

 private:
  std::string caption_;
};

class Label : public Captioned {
 public:
  Label(ControlSet& owner, std::string name, std::string caption = {})
      : Captioned(owner, std::move(name), std::move(caption)) {}
  void accept(ControlVisitor& visitor) override;
};

// The heading of a form.
class Panel : public Captioned {
 public:
  Panel(ControlSet& owner, std::string name) : Captioned(owner, std::move(name), {}) {}
  void accept(ControlVisitor& visitor) override;
};

// A frame around the controls that its group in the layout holds. Hidden, it hides them.
class GroupFrame : public Captioned {
 public:
  GroupFrame(ControlSet& owner, std::string name, std::string caption)
      : Captioned(owner, std::move(name), std::move(caption)) {}
  void accept(ControlVisitor& visitor) override;
};

// What a button is for, so that whoever shows the form can give it the usual key.
enum class ButtonRole {
  kPlain,
  kAccept,   // the dialog's OK: Enter
  kDismiss,  // the dialog's Cancel or Close: Esc
  kWrite,    // Ctrl+S
  kNew,      // Ctrl+N
  kFill,     // F5
  kPrint,    // Ctrl+P
  kChoose,   // lets the user choose what the form is about; no key
};

class CommandButton : public Captioned {
 public:
  CommandButton(ControlSet& owner, std::string name, std::string caption, ButtonRole role = ButtonRole::kPlain)
      : Captioned(owner, std::move(name), std::move(caption)), role_(role) {}
  ButtonRole role() const { return role_; }
  void accept(ControlVisitor& visitor) override;

  // The user presses it.
  void click();
  std::function<void()> on_click;

 private:
  const ButtonRole role_;
};

}  // namespace quor
