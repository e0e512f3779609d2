#include "adapters/object_ui.h"

#include <utility>

#include "platform/data/quoted_text.h"

namespace velmora {

ObjectUI::ObjectUI(quor::QuorApplication& application, const char* name, std::vector<quor::IconEntry> icons)
    : application_(application),
      title_(application.Title()),
      oname_(name),
      icons_(std::move(icons)),
      bo_(application.NewMainBO()) {
  icons_.push_back({.Key = "CGroup", .Icon = "stdClose"});
  icons_.push_back({.Key = "OGroup", .Icon = "stdOpen"});
}

std::vector<quor::MenuEntry> ObjectUI::GetMenu(const std::string& /*context*/, const std::string& /*object_type*/,
                                               const std::string& /*user*/) {
  return {};
}

quor::ClickResult ObjectUI::ClickMenu(const std::string& /*object*/, const std::string& /*entry*/,
                                      const std::string& /*context*/, const std::string& /*user*/) {
  return {};
}

bool ObjectUI::DragOK(const std::string& /*object*/, const std::string& /*context*/, const std::string& /*target*/) {
  return true;
}

bool ObjectUI::DropOK(const std::string& /*target*/) { return false; }

std::shared_ptr<quor::Recordset> ObjectUI::GetQuorObjectList(const std::string& parameter,
                                                             const std::string& /*filter*/,
                                                             const std::string& /*order*/) {
  return bo_->GetQuorObjectList(list_parameter(parameter), "", "");
}

bool ObjectUI::AddToDeskTopQuorObject(const std::string& object) {
  auto editor = desk_top_editor(object);
  if (!editor) return false;
  application_.place_on_desk_top(object, std::move(editor));
  return true;
}

std::shared_ptr<quor::QuorObjectUIO> ObjectUI::GetQuorObject(const std::string& object) { return open(object).data; }

ObjectUI::Opened ObjectUI::open(const std::string& object) {
  auto data = new_data_object();
  data->UI(shared_from_this());
  data->OIDR(object);
  const quor::SaveStatus status = data->Read();
  if (!status.Failed) return {.data = std::move(data)};
  if (!status.Gone) show(status.ErrorText, quor::BoxIcon::kExclamation, quor::BoxButtons::kOk);
  return {.data = nullptr, .gone = status.Gone};
}

bool ObjectUI::DeleteQuorObject(const std::string& object) { return bo_->DeleteQuorObject(object); }

quor::BoxAnswer ObjectUI::show(const std::string& text, quor::BoxIcon icon, quor::BoxButtons buttons) const {
  return application_.MessageBox(text, icon, buttons, title_);
}

std::shared_ptr<quor::Form> ObjectUI::desk_top_editor(const std::string& /*object*/) { return nullptr; }

std::string list_without_parent(const std::string& object_type) {
  return quor::quoted(object_type) + "," + quor::quoted("");
}

}  // namespace velmora
