#include "host/application/host_object_ui.h"

#include "platform/toolkit/form.h"

namespace quor {

namespace {

constexpr char kPlaceOnDeskTop[] = "0", kOpen[] = "1", kNew[] = "2", kDelete[] = "3";

}  // namespace

std::vector<MenuEntry> HostObjectUI::GetMenu(const std::string& context, const std::string& /*object_type*/,
                                             const std::string& /*user*/) {
  const bool on_object = id_of_key(context).has_value();
  std::vector<MenuEntry> menu;
  if (on_object && acts_.open) menu.push_back({kOpen, "Atverti", MenuPurpose::kOpen});
  if ((on_object || is_type_context(context)) && !acts_.new_caption.empty()) {
    menu.push_back({kNew, acts_.new_caption, MenuPurpose::kNew});
  }
  if (!on_object) return menu;
  if (acts_.removable) menu.push_back({kDelete, "Panaikinti", MenuPurpose::kDelete});
  if (!menu.empty()) menu.push_back(menu_separator());
  const MenuPurpose purpose = acts_.open ? MenuPurpose::kPlain : MenuPurpose::kOpen;
  menu.push_back({kPlaceOnDeskTop, "Padėti ant darbo stalo", purpose});
  return menu;
}

ClickResult HostObjectUI::ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                                    const std::string& /*user*/) {
  if (entry == kPlaceOnDeskTop) AddToDeskTopQuorObject(object);
  if (entry == kOpen) return form_of(object);
  if (entry == kNew) return form_of(type_of_key(object.empty() ? context : object));
  if (entry == kDelete) return remove(object);
  return {};
}

ClickResult HostObjectUI::form_of(const std::string& object) {
  auto form = acts_.open ? acts_.open(object) : nullptr;
  if (!form) return {};
  return {ClickAction::kShowForm, std::move(form)};
}

ClickResult HostObjectUI::remove(const std::string& object) {
  const auto answer = application_.MessageBox("Ar tikrai norite panaikinti?", BoxIcon::kQuestion, BoxButtons::kYesNo,
                                              application_.Title());
  if (answer != BoxAnswer::kYes || DeleteQuorObject(object)) return {};
  return {ClickAction::kRemoved, nullptr};
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

bool HostObjectUI::DeleteQuorObject(const std::string& object) {
  if (!acts_.remove) return bo_->DeleteQuorObject(object);
  acts_.remove(object);
  return false;
}

}  // namespace quor
