// A drop-down list: one of some texts, each with a tag that names what it stands for.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/control.h"

namespace quor {

class ChoiceBox : public Control {
 public:
  struct Item {
    std::string text;
    std::string tag = {};
    bool operator==(const Item&) const = default;
  };

  ChoiceBox(ControlSet& owner, std::string name) : Control(owner, std::move(name)) {}

  const std::vector<Item>& items() const { return items_; }
  // The number of the chosen item; none before the first choice.
  std::optional<std::size_t> selected() const { return selected_; }
  // "" while none is chosen.
  const std::string& selected_tag() const;
  const std::string& selected_text() const;

  // Takes the place of all items; what was chosen stays chosen when its tag is still there, else nothing is.
  void set_items(std::vector<Item> items);
  void add_item(std::string text, std::string tag = {});
  // None for an item that is not there.
  void select_item(std::optional<std::size_t> item);
  // The first item with the tag; false, and nothing has changed, when no item has it.
  bool select_tag(std::string_view tag);
  void accept(ControlVisitor& visitor) override;

  // The user chooses an item; the same again, or one that is not there, is no change.
  void choose(std::size_t item);
  std::function<void()> on_change;

 private:
  std::optional<std::size_t> tagged(std::string_view tag) const;

  std::vector<Item> items_;
  std::optional<std::size_t> selected_;
};

}  // namespace quor
