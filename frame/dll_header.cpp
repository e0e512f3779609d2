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
  registry_->AddObjectIcon(kCategoryRecord, find_icon_(kCategoryRecord));
  registry_->AddObjectIcon(kSettingsRecord, find_icon_(kSettingsRecord));
  registry_->AddObjectIcon(kPreviewRecord, find_icon_("OFFICEEMPLOYEEPREVIEW"));

  registry_->AddLayoutIcon(kLayoutCode, find_icon_("LAYOUT"));
  registry_->AddLayoutIcon(kCategoryRecord, find_icon_(kCategoryRecord));
  registry_->AddLayoutIcon(kSettingsRecord, find_icon_(kSettingsRecord));
  registry_->AddLayoutIcon(kPreviewRecord, find_icon_("OFFICEEMPLOYEEPREVIEW"));
}

}  // namespace velmora
