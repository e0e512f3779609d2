// The menus of the object UIs as the explorer, the lists and the desk top show them: exactly the entries that a type's
// UI answers for the place that was clicked.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/application/menu_places.h"
#include "host/desktop/edge/passing_menu.h"

namespace quor {

// Told which entry of which place was chosen.
using ChooseEntry = std::function<void(const MenuPlace& place, const MenuEntry& entry)>;
// Told for what the entry of a place is wanted: a key or a double click names no entry.
using WantEntry = std::function<void(const MenuPlace& place, MenuPurpose purpose)>;
// Adds the entries to the menu.
void add_entries(PassingMenu& menu, const std::vector<MenuEntry>& entries, const MenuPlace& place,
                 const ChooseEntry& choose);

}  // namespace quor
