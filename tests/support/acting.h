// What a person does to a form, in one word each.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/data/utf8.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"
#include "platform/toolkit/text_box.h"

namespace quor {

// Clears the box and types into it, without leaving it.
inline void type_over(TextBox& box, std::string_view keys) {
  box.enter();
  box.select(0, character_count(box.text()));
  box.type_key(TextBox::kBackspace);
  while (!keys.empty()) box.type_key(take_character(keys));
}

inline void type_and_leave(TextBox& box, std::string_view keys) {
  type_over(box, keys);
  box.leave();
}

// Right-clicks the row (or beside the rows) and chooses from the menu that opens.
inline void choose_on(ListView& list, std::optional<std::size_t> row, MenuItem& item) {
  list.right_click(row);
  item.choose();
}

// The rows as the list shows them: "1;2;10% | 2;5;20%".
inline std::string shown(const ListView& list) {
  std::string text;
  for (std::size_t row = 0; row < list.row_count(); ++row) {
    if (row > 0) text += " | ";
    for (std::size_t column = 0; column < list.columns().size(); ++column) {
      text += (column > 0 ? ";" : "") + list.text(row, column);
    }
  }
  return text;
}

}  // namespace quor
