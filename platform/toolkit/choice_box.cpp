#include "platform/toolkit/choice_box.h"

#include <algorithm>

namespace quor {

namespace {

const ChoiceBox::Item kNoItem;

}  // namespace

void ChoiceBox::accept(ControlVisitor& visitor) { visitor.visit(*this); }

const std::string& ChoiceBox::selected_tag() const { return selected_ ? items_[*selected_].tag : kNoItem.tag; }
const std::string& ChoiceBox::selected_text() const { return selected_ ? items_[*selected_].text : kNoItem.text; }

std::optional<std::size_t> ChoiceBox::tagged(std::string_view tag) const {
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.tag == tag; });
  if (found == items_.end()) return {};
  return static_cast<std::size_t>(found - items_.begin());
}

void ChoiceBox::set_items(std::vector<Item> items) {
  const std::optional<std::string> chosen = selected_ ? std::optional(selected_tag()) : std::nullopt;
  items_ = std::move(items);
  selected_ = chosen ? tagged(*chosen) : std::nullopt;
  tell(ControlChange::kContent);
}

void ChoiceBox::add_item(std::string text, std::string tag) {
  items_.push_back({std::move(text), std::move(tag)});
  tell(ControlChange::kContent);
}

void ChoiceBox::select_item(std::optional<std::size_t> item) {
  if (item && *item >= items_.size()) item.reset();
  put(selected_, item, ControlChange::kSelection);
}

bool ChoiceBox::select_tag(std::string_view tag) {
  const auto item = tagged(tag);
  if (item) select_item(item);
  return item.has_value();
}

void ChoiceBox::choose(std::size_t item) {
  if (!can_act() || item >= items_.size() || selected_ == item) return;
  select_item(item);
  run(on_change);
}

}  // namespace quor
