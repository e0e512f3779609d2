// The menus of the object UIs, whoever shows them: what a menu is asked for, which entry is for what, and its choice.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/contract/quor_object_ui.h"
#include "host/application/application.h"

namespace quor {

// What a menu is asked for.
struct MenuPlace {
  std::string object_type;
  std::string context;  // what GetMenu takes
  std::string object;   // an object's key; "" on a type or a group

  bool operator==(const MenuPlace&) const = default;
};

MenuPlace place_of_object(const std::string& key);
MenuPlace place_of_type(const std::string& object_type);
// The group that stands for the type; nothing in particular for a type without UI.
MenuPlace place_of_group(Application& application, const std::string& object_type);

// No entries for a type without UI.
std::vector<MenuEntry> menu_of(Application& application, const MenuPlace& place);
// The first entry for that of the place's menu; none when it has none. Throws Error for a type without UI.
std::optional<MenuEntry> wanted_entry(Application& application, const MenuPlace& place, MenuPurpose purpose);

// Chooses the entry for the user. Throws Error for a type without UI.
ClickResult click_entry(Application& application, const MenuPlace& place, const MenuEntry& entry);

// An entry that is called by its word, with no object chosen.
struct CalledEntry {
  MenuPlace place;
  MenuEntry entry;
};
// Those for that purpose which the plug-ins have given a word: of each group, then of each type's objects.
std::vector<CalledEntry> called_entries(Application& application, MenuPurpose purpose);

}  // namespace quor
