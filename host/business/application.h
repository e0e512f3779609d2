// The host application without windows: services for the console and for tests, and the base of the desktop's.
//
//   states   created -> plug-in loaded (its header has registered what it contributes)
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_header.h"
#include "host/business/company.h"
#include "host/business/plugin_library.h"
#include "host/business/registry.h"

namespace quor {

struct ShownBox {
  std::string text;
  BoxIcon icon;
  BoxButtons buttons;
  std::string title;
};

struct ApplicationOptions {
  std::string title = "Quor";
  std::string user = "konsolė";
  std::optional<Date> today = {};  // the system's date when none is given
  std::string pick = {};           // what the object picker answers where nobody is there to choose
};

class Application : public QuorApplication {
 public:
  // The company outlives the application.
  Application(Company& company, ApplicationOptions options);

  // Loads the library and lets its header register what it contributes. Throws PluginError or quor::Error.
  void load_plugin(const std::string& file);
  // A new object of a plug-in's class; null when no loaded plug-in has it.
  std::shared_ptr<Object> create(const std::string& class_id);
  // A new data object of a registered type ("O0402000"); throws PluginError when no plug-in has registered it.
  std::shared_ptr<QuorObjectUIO> new_data_object(const std::string& object_type);

  Company& company() { return company_; }
  const std::string& user() const { return options_.user; }
  const Registrations& registrations() const { return registrations_; }

  // Every box shown so far, and who else is told of each.
  const std::vector<ShownBox>& shown_boxes() const { return shown_boxes_; }
  void on_box(std::function<void(const ShownBox&)> listener) { box_listener_ = std::move(listener); }

  std::string Title() const override { return options_.title; }
  Date Today() const override;
  BoxAnswer MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;
  PickedObject SelectObject(const std::string& object_type, const std::string& current,
                            const std::string& mode) override;
  bool HasRight(UserRight right, const std::string& object_type, std::int32_t flag) override;
  std::shared_ptr<QuorObjectUIO> GetQuorObjectUIO(const std::string& key) override;
  std::shared_ptr<QuorMainBO> NewMainBO() override;
  std::shared_ptr<QuorObjectUIO> NewStandardObjectUIO() override;
  std::shared_ptr<ObjectRegistry> NewObjectRegistry() override;

 private:
  Company& company_;
  ApplicationOptions options_;
  Registrations registrations_;
  std::vector<PluginLibrary> plugins_;
  std::vector<std::shared_ptr<QuorHeader>> headers_;  // one instance per loaded library, as long as it is loaded
  std::vector<ShownBox> shown_boxes_;
  std::function<void(const ShownBox&)> box_listener_;
};

}  // namespace quor
