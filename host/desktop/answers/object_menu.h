// The menus of the object UIs as the explorer, the lists and the desk top show them: exactly the entries that a type's
// UI answers for the place that was clicked.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/contract/quor_object_ui.h"
#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/edge/passing_menu.h"

namespace quor {

// What a menu is asked for.
struct MenuPlace {
  std::string object_type;
  std::string context;  // an object's key, the type code and "K", or the group's context
  std::string object;   // an object's key; "" on a type or a group

  bool operator==(const MenuPlace&) const = default;
};

MenuPlace place_of_object(const std::string& key);
MenuPlace place_of_type(const std::string& object_type);
// The group that stands for the type; nothing in particular for a type without UI.
MenuPlace place_of_group(DesktopApplication& application, const std::string& object_type);

// No entries for a type without UI.
std::vector<MenuEntry> menu_of(DesktopApplication& application, const MenuPlace& place);

// The entry by which an object is opened, the same in every menu of objects.
inline constexpr char kOpenEntry[] = "0";
// The captions by which keys find their entry: identifiers differ from type to type.
inline constexpr char kNewCaption[] = "Naujas įrašas";
inline constexpr char kDeleteCaption[] = "Panaikinti";
// The identifier of the entry with that caption; "" when there is none.
std::string entry_captioned(const std::vector<MenuEntry>& entries, const std::string& caption);

// Told which entry of which place was chosen.
using ChooseEntry = std::function<void(const MenuPlace& place, const std::string& entry)>;
// Adds the entries to the menu.
void add_entries(PassingMenu& menu, const std::vector<MenuEntry>& entries, const MenuPlace& place,
                 const ChooseEntry& choose);

// The objects of a type; null when there is no such list, and after a failure, which the user has been shown.
std::shared_ptr<Recordset> list_of_type(DesktopApplication& application, const std::string& object_type);
// What a list calls an object; "" when the list does not have it any more. Leaves its filter on the list.
QString name_in(Recordset& list, const std::string& key);
// The same in the list of the object's type; "" also when that cannot be read.
QString object_name(DesktopApplication& application, const std::string& key);

}  // namespace quor
