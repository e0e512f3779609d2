#include "host/desktop/window/registered_icons.h"

#include <QApplication>
#include <QPixmap>
#include <QStyle>

#include "host/store/object_codes.h"

namespace quor {

namespace {

// Icons are registered by what their records are called.
constexpr char kCategoryRecord[] = "CategoryType";
constexpr char kPreviewRecord[] = "OfficeEmployeePreview";

QIcon icon_of(const std::map<std::string, Picture>& icons, const std::string& key) {
  const auto found = icons.find(key);
  if (found == icons.end()) return {};
  QPixmap picture;
  const Picture& bytes = found->second;
  picture.loadFromData(bytes.bytes.data(), static_cast<uint>(bytes.bytes.size()), "ICO");
  return QIcon(picture);
}

}  // namespace

QIcon layout_icon(const Registrations& registrations, const std::string& layout_code) {
  return icon_of(registrations.layout_icons, layout_code);
}

QIcon object_icon(Application& application, const std::string& object_type) {
  const auto& icons = application.registrations().object_icons;
  if (object_type == kCategoryType) return icon_of(icons, kCategoryRecord);
  if (const auto ui = application.GetQuorObjectUI(object_type)) {
    for (const IconEntry& entry : ui->GetIconsTable()) {
      if (QIcon icon = icon_of(icons, entry.Icon); !icon.isNull()) return icon;
    }
  }
  return QApplication::style()->standardIcon(object_type == kDepartmentType ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
}

QIcon group_command_icon(const Registrations& registrations) {
  return icon_of(registrations.layout_icons, kPreviewRecord);
}

}  // namespace quor
