#include "host/desktop/answers/object_menu.h"

#include "host/desktop/edge/mnemonics.h"
#include "host/requests/object_lists.h"
#include "platform/data/quoted_text.h"

namespace quor {

// Qt shows no separator at an end.
void add_entries(PassingMenu& menu, const std::vector<MenuEntry>& entries, const MenuPlace& place,
                 const ChooseEntry& choose) {
  for (const MenuEntry& entry : entries) {
    if (is_separator(entry)) {
      menu.addSeparator();
      continue;
    }
    QString caption = without_mnemonic(QString::fromStdString(entry.Caption));
    if (entry.Purpose == MenuPurpose::kNew) caption += "\tIns";
    if (entry.Purpose == MenuPurpose::kDelete) caption += "\tDel";
    menu.add_choice(caption, [choose, place, entry] { choose(place, entry); });
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
