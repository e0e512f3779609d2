#include "host/application/menu_places.h"

#include <algorithm>

#include "platform/data/error.h"

namespace quor {

MenuPlace place_of_object(const std::string& key) { return {type_of_key(key), key, key}; }

MenuPlace place_of_type(const std::string& object_type) { return {object_type, type_context(object_type), ""}; }

MenuPlace place_of_group(Application& application, const std::string& object_type) {
  const auto ui = application.GetQuorObjectUI(object_type);
  return {object_type, ui ? ui->BO()->GroupContext() : "", ""};
}

namespace {

QuorObjectUI& ui_at(Application& application, const MenuPlace& place) {
  const auto ui = application.GetQuorObjectUI(place.object_type);  // the application keeps it
  if (!ui) throw Error(ErrorKind::kNotFound, "Tipo „" + place.object_type + "“ niekas neregistravo.");
  return *ui;
}

}  // namespace

std::vector<MenuEntry> menu_of(Application& application, const MenuPlace& place) {
  const auto ui = application.GetQuorObjectUI(place.object_type);
  return ui ? ui->GetMenu(place.context, place.object_type, application.user()) : std::vector<MenuEntry>();
}

std::optional<MenuEntry> wanted_entry(Application& application, const MenuPlace& place, MenuPurpose purpose) {
  const auto menu = ui_at(application, place).GetMenu(place.context, place.object_type, application.user());
  const auto found =
      std::find_if(menu.begin(), menu.end(), [&](const MenuEntry& entry) { return entry.Purpose == purpose; });
  return found == menu.end() ? std::nullopt : std::optional(*found);
}

ClickResult click_entry(Application& application, const MenuPlace& place, const MenuEntry& entry) {
  return ui_at(application, place).ClickMenu(place.object, entry.Identifier, place.context, application.user());
}

std::vector<CalledEntry> called_entries(Application& application, MenuPurpose purpose) {
  std::vector<MenuPlace> places;
  for (const auto& layout : application.registrations().layouts) {
    for (const auto& group : layout->groups) places.push_back(place_of_group(application, group->object_type));
  }
  // The type code alone is an object that is not there yet: the menu is that of the type's objects.
  for (const auto& [code, type] : application.registrations().types) places.push_back({code, code, ""});
  std::vector<CalledEntry> called;
  for (const MenuPlace& place : places) {
    for (const MenuEntry& entry : menu_of(application, place)) {
      if (entry.Purpose == purpose && !entry.Word.empty()) called.push_back({place, entry});
    }
  }
  return called;
}

}  // namespace quor
