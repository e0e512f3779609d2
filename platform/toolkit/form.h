// A form: its controls, how they stand, and its life. A form class owns its controls as public members, fills them and
// handles their events; it knows nothing of windows. Whoever shows it draws the layout and passes on what the user
// does.
//
//   state      by
//   created    its opener, who then sets its properties
//   loaded     load(), by whoever shows it: the form has filled its controls
//   closing    close(), by the form, or close_box(), by the user: whoever shows it is asked to unload it
//   created    unload(): the form has released what it took at loading; its opener may read what it left
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/variant.h"
#include "platform/toolkit/control.h"
#include "platform/toolkit/layout.h"

namespace quor {

class Form : public Object, public ControlSet {
 public:
  explicit Form(std::string caption) : caption_(std::move(caption)) {}

  const std::string& caption() const { return caption_; }
  const LayoutNode& layout() const { return layout_; }

  // Nothing for a loaded form. What its opening throws leaves it not loaded.
  void load();
  // Nothing for a form that is not loaded.
  void unload();
  bool loaded() const { return loaded_; }

  // The user presses the window's close box.
  void close_box() { close(); }
  bool close_requested() const { return close_requested_; }
  // Told when the form wants to be closed; null takes it away.
  void on_close_request(std::function<void()> listener) { close_listener_ = std::move(listener); }

  // Whether closing it now loses what the user has typed.
  virtual bool has_unsaved_changes() const { return false; }
  // The key of the object that it is about, for whoever shows it to name; "" when it is about none.
  virtual std::string subject() const { return {}; }

 protected:
  virtual void opening() {}
  virtual void closing() {}
  // Asks whoever shows the form to close it.
  void close();

  void set_layout(LayoutNode layout) { layout_ = std::move(layout); }
  static LayoutNode column(std::vector<LayoutNode> children) {
    return {LayoutNode::Kind::kColumn, nullptr, {}, std::move(children)};
  }
  static LayoutNode row(std::vector<LayoutNode> children) {
    return {LayoutNode::Kind::kRow, nullptr, {}, std::move(children)};
  }
  static LayoutNode group(GroupFrame& frame, std::vector<LayoutNode> children) {
    return {LayoutNode::Kind::kGroup, &frame, {}, std::move(children)};
  }
  static LayoutNode field(std::string label, LayoutNode child) {
    return {LayoutNode::Kind::kField, nullptr, std::move(label), {std::move(child)}};
  }
  static LayoutNode pages(std::vector<LayoutNode> children) {
    return {LayoutNode::Kind::kPages, nullptr, {}, std::move(children)};
  }
  static LayoutNode page(std::string label, std::vector<LayoutNode> children) {
    return {LayoutNode::Kind::kPage, nullptr, std::move(label), std::move(children)};
  }

 private:
  const std::string caption_;
  LayoutNode layout_;
  bool loaded_ = false;
  bool close_requested_ = false;
  std::function<void()> close_listener_;
};

}  // namespace quor
