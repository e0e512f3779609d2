#include "host/application/host_object_ui.h"

#include "host/store/object_codes.h"

namespace quor {

namespace {

constexpr char kPlaceOnDeskTop[] = "0";

}  // namespace

std::vector<MenuEntry> HostObjectUI::GetMenu(const std::string& context, const std::string& /*object_type*/,
                                             const std::string& /*user*/) {
  if (!id_of_key(context)) return {};  // the type's own place or its group: nothing is made here
  return {{kPlaceOnDeskTop, "Padėti ant darbo stalo", MenuPurpose::kOpen}};
}

ClickResult HostObjectUI::ClickMenu(const std::string& object, const std::string& entry, const std::string& /*context*/,
                                    const std::string& /*user*/) {
  if (entry == kPlaceOnDeskTop) AddToDeskTopQuorObject(object);
  return {};
}

bool HostObjectUI::DragOK(const std::string& /*object*/, const std::string& /*context*/,
                          const std::string& /*target*/) {
  return true;
}

bool HostObjectUI::DropOK(const std::string& /*target*/) { return false; }

std::shared_ptr<Recordset> HostObjectUI::GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                           const std::string& order) {
  return bo_->GetQuorObjectList(parameter, filter, order);
}

bool HostObjectUI::AddToDeskTopQuorObject(const std::string& object) {
  if (!id_of_key(object)) return false;
  application_.place_on_desk_top(object, nullptr);
  return true;
}

std::shared_ptr<QuorObjectUIO> HostObjectUI::GetQuorObject(const std::string& object) {
  return application_.GetQuorObjectUIO(object);
}

std::vector<IconEntry> HostObjectUI::GetIconsTable() { return {{"CGroup", "stdClose"}, {"OGroup", "stdOpen"}}; }

bool HostObjectUI::DeleteQuorObject(const std::string& object) { return bo_->DeleteQuorObject(object); }

}  // namespace quor
