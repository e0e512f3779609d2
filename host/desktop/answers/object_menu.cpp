#include "host/desktop/answers/object_menu.h"

#include <algorithm>

#include "host/desktop/edge/mnemonics.h"
#include "host/requests/object_lists.h"
#include "platform/data/quoted_text.h"

namespace quor {

MenuPlace place_of_object(const std::string& key) { return {type_of_key(key), key, key}; }

MenuPlace place_of_type(const std::string& object_type) { return {object_type, object_type + "K", ""}; }

MenuPlace place_of_group(DesktopApplication& application, const std::string& object_type) {
  const auto ui = application.GetQuorObjectUI(object_type);
  return {object_type, ui ? ui->BO()->GroupContext() : "", ""};
}

std::vector<MenuEntry> menu_of(DesktopApplication& application, const MenuPlace& place) {
  const auto ui = application.GetQuorObjectUI(place.object_type);
  return ui ? ui->GetMenu(place.context, place.object_type, application.user()) : std::vector<MenuEntry>();
}

std::string entry_captioned(const std::vector<MenuEntry>& entries, const std::string& caption) {
  const auto found =
      std::find_if(entries.begin(), entries.end(), [&](const MenuEntry& entry) { return entry.Caption == caption; });
  return found == entries.end() ? "" : found->Identifier;
}

// Qt shows no separator at an end.
void add_entries(PassingMenu& menu, const std::vector<MenuEntry>& entries, const MenuPlace& place,
                 const ChooseEntry& choose) {
  for (const MenuEntry& entry : entries) {
    if (entry.Caption == "-") {
      menu.addSeparator();
      continue;
    }
    QString caption = without_mnemonic(QString::fromStdString(entry.Caption));
    if (entry.Caption == kNewCaption) caption += "\tIns";
    if (entry.Caption == kDeleteCaption) caption += "\tDel";
    menu.add_choice(caption, [choose, place, id = entry.Identifier] { choose(place, id); });
  }
}

std::shared_ptr<Recordset> list_of_type(DesktopApplication& application, const std::string& object_type) {
  if (!application.guard().view_refusal(object_type).empty()) return nullptr;
  const auto ui = application.GetQuorObjectUI(object_type);
  return ui ? ui->GetQuorObjectList(object_type, "", "") : nullptr;
}

QString name_in(Recordset& list, const std::string& key) {
  list.Filter(std::string(kKeyField) + " = " + quoted(key));
  if (list.RecordCount() == 0) return {};
  return QString::fromStdString(null_to_text(list.field(FieldHandle{kNameColumn})));
}

QString object_name(DesktopApplication& application, const std::string& key) {
  const auto list = list_of_type(application, type_of_key(key));
  return list ? name_in(*list, key) : QString();
}

}  // namespace quor
