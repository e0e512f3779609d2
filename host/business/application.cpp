#include "host/business/application.h"

#include <chrono>
#include <ctime>

#include "host/business/main_bo.h"
#include "host/business/standard_object_uio.h"

namespace quor {

Application::Application(Company& company, ApplicationOptions options)
    : company_(company), options_(std::move(options)) {}

void Application::load_plugin(const std::string& file) {
  plugins_.emplace_back(file);
  auto header = plugins_.back().create<QuorHeader>("Velmora.DLLHeader", *this);
  header->DllInicialize();
  headers_.push_back(std::move(header));
}

std::shared_ptr<Object> Application::create(const std::string& class_id) {
  for (const PluginLibrary& plugin : plugins_) {
    if (auto object = plugin.create_object(class_id, *this)) return object;
  }
  return nullptr;
}

std::shared_ptr<QuorObjectUIO> Application::new_data_object(const std::string& object_type) {
  const auto type = registrations_.types.find(object_type);
  if (type == registrations_.types.end()) throw PluginError("Objekto tipo „" + object_type + "“ niekas neregistravo.");
  const std::string class_id = type->second.class_id("UIO", object_type);
  auto object = std::dynamic_pointer_cast<QuorObjectUIO>(create(class_id));
  if (!object) throw PluginError("Įskiepis neturi klasės „" + class_id + "“.");
  return object;
}

Date Application::Today() const {
  if (options_.today) return *options_.today;
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return Date::from_ymd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

// Nobody is there to answer: a notice is taken as read, a question is not agreed to.
BoxAnswer Application::MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) {
  shown_boxes_.push_back({text, icon, buttons, title});
  if (box_listener_) box_listener_(shown_boxes_.back());
  switch (buttons) {
    case BoxButtons::kOk:
      return BoxAnswer::kOk;
    case BoxButtons::kOkCancel:
      return BoxAnswer::kCancel;
    case BoxButtons::kYesNo:
      return BoxAnswer::kNo;
  }
  return BoxAnswer::kCancel;
}

PickedObject Application::SelectObject(const std::string& /*object_type*/, const std::string& /*current*/,
                                       const std::string& /*mode*/) {
  return {.Identity = options_.pick, .Name = {}};  // nobody is there to choose
}

// Whoever can open the company from the console may do everything in it.
bool Application::HasRight(UserRight /*right*/, const std::string& /*object_type*/, std::int32_t /*flag*/) {
  return true;
}

std::shared_ptr<QuorObjectUIO> Application::GetQuorObjectUIO(const std::string& key) {
  const std::string object_type = key.substr(0, kTypeCodeLength);
  const auto type = registrations_.types.find(object_type);
  if (type == registrations_.types.end()) return nullptr;
  auto object = std::dynamic_pointer_cast<QuorObjectUIO>(create(type->second.class_id("UIO", object_type)));
  // A type whose plug-in brings no data class of its own is served by the standard object.
  if (!object) object = NewStandardObjectUIO();
  object->OIDR(key);
  return object->Read().Failed ? nullptr : object;
}

std::shared_ptr<QuorMainBO> Application::NewMainBO() { return std::make_shared<MainBO>(company_); }

std::shared_ptr<QuorObjectUIO> Application::NewStandardObjectUIO() {
  return std::make_shared<StandardObjectUIO>(company_, NewMainBO(), options_.user);
}

std::shared_ptr<ObjectRegistry> Application::NewObjectRegistry() { return std::make_shared<Registry>(registrations_); }

}  // namespace quor
