#include "host/desktop/window/registered_icons.h"

#include <QApplication>
#include <QPixmap>
#include <QStyle>

#include "host/application/menu_places.h"
#include "host/store/object_codes.h"

namespace quor {

namespace {

QIcon icon_of(const std::map<std::string, Picture>& icons, const std::string& key) {
  const auto found = icons.find(key);
  if (found == icons.end()) return {};
  QPixmap picture;
  const Picture& bytes = found->second;
  picture.loadFromData(bytes.bytes.data(), static_cast<uint>(bytes.bytes.size()), "ICO");
  return QIcon(picture);
}

}  // namespace

QIcon layout_icon(const Registrations& registrations, const std::string& key) {
  return icon_of(registrations.layout_icons, key);
}

QIcon object_icon(Application& application, const std::string& object_type) {
  const auto& icons = application.registrations().object_icons;
  if (const auto ui = application.GetQuorObjectUI(object_type)) {
    std::vector<IconEntry> entries = ui->GetIconsTable();
    const auto add = wanted_entry(application, place_of_type(object_type), MenuPurpose::kNew);
    if (add) entries.push_back({.Key = object_type, .Icon = add->Icon});
    for (const IconEntry& entry : entries) {
      if (QIcon icon = icon_of(icons, entry.Icon); !icon.isNull()) return icon;
    }
  }
  return QApplication::style()->standardIcon(object_type == kDepartmentType ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
}

}  // namespace quor
