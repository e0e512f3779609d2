#include "frame/dll_header.h"

#include "frame/object_types.h"

namespace velmora {

void DLLHeader::DllInicialize() {
  registry_ = application_.NewObjectRegistry();
  add_layout();
  register_object_types();
  add_icons();
}

void DLLHeader::add_layout() {
  const auto layout = registry_->AddLayout(kLayoutCode, kLayoutCode, kLayoutCaption, kLayoutKey);
  const auto group = layout->AddGroup(kCategoryType, kGroupCaption, kGroupKey);
  group->AddGroupObject(kCategoryType);
}

void DLLHeader::register_object_types() {
  registry_->RegisterObjectType(kLibraryName, kEngineType, kEngineCaption);
  registry_->RegisterObjectType(kLibraryName, kTarificationType, kTarificationCaption);
  registry_->RegisterObjectType(kLibraryName, kCategoryType, kCategoryCaption);
  registry_->RegisterObjectType(kLibraryName, kSettingsType, kSettingsCaption);
}

// The host keeps two icon tables: one for objects, one for its layout. Each picture is loaded right before its call.
void DLLHeader::add_icons() {
  registry_->AddObjectIcon("CategoryType", find_icon_("CategoryType"));
  registry_->AddObjectIcon("OfficeEmployeeSettings", find_icon_("OfficeEmployeeSettings"));
  registry_->AddObjectIcon("OfficeEmployeePreview", find_icon_("OFFICEEMPLOYEEPREVIEW"));

  registry_->AddLayoutIcon(kLayoutCode, find_icon_("LAYOUT"));
  registry_->AddLayoutIcon("CategoryType", find_icon_("CategoryType"));
  registry_->AddLayoutIcon("OfficeEmployeeSettings", find_icon_("OfficeEmployeeSettings"));
  registry_->AddLayoutIcon("OfficeEmployeePreview", find_icon_("OFFICEEMPLOYEEPREVIEW"));
}

}  // namespace velmora
