// `ObjectUI`: what the plug-in's object UIs share. A class adds its data object and, where it has one, its menu.
//
// Held by std::shared_ptr: the data objects that it makes keep it as their UI. It keeps none of them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_ui.h"

namespace velmora {

class ObjectUI : public quor::QuorObjectUI, public std::enable_shared_from_this<ObjectUI> {
 public:
  std::string OID() const override { return oid_; }
  void OID(const std::string& value) override { oid_ = value; }
  std::string OName() const override { return oname_; }

  // A type without a menu: no entries, and a click does nothing.
  std::vector<quor::MenuEntry> GetMenu(const std::string& context, const std::string& object_type,
                                       const std::string& user) override;
  quor::ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                              const std::string& user) override;

  // An object may always be dragged; nothing may be dropped on one.
  bool DragOK(const std::string& object, const std::string& context, const std::string& target) override;
  bool DropOK(const std::string& target) override;

  // The business object's list. Filter and order play no part.
  std::shared_ptr<quor::Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                     const std::string& order) override;
  // True when the class has an editor for the object: the host's desk top has it then.
  bool AddToDeskTopQuorObject(const std::string& object) override;
  // Eight characters or fewer (the type code, or nothing) give a new record.
  std::shared_ptr<quor::QuorObjectUIO> GetQuorObject(const std::string& object) override;
  std::vector<quor::IconEntry> GetIconsTable() override { return icons_; }
  bool DeleteQuorObject(const std::string& object) override;

  // The host's shared services; kept for the host.
  void QuorS(std::shared_ptr<quor::Object> services) override { services_ = std::move(services); }
  std::shared_ptr<quor::Object> QuorS() const { return services_; }
  void BO(std::shared_ptr<quor::QuorMainBO> value) override { bo_ = std::move(value); }
  std::shared_ptr<quor::QuorMainBO> BO() const override { return bo_; }

 protected:
  // A data object that was read; `data` is null when the record is gone, and after a failure that was shown.
  struct Opened {
    std::shared_ptr<quor::QuorObjectUIO> data;
    bool gone = false;
  };

  // `name` is the type's display name; `icons` are the type's own, shown before those of its group.
  ObjectUI(quor::QuorApplication& application, const char* name, std::vector<quor::IconEntry> icons = {});

  quor::QuorApplication& application() const { return application_; }
  Opened open(const std::string& object);
  // Shows a box under the adapter's title.
  quor::BoxAnswer show(const std::string& text, quor::BoxIcon icon, quor::BoxButtons buttons) const;

 private:
  // A new data object of the type, not read yet.
  virtual std::shared_ptr<quor::QuorObjectUIO> new_data_object() = 0;
  // What the business object's list takes, made of the first argument of the call.
  virtual std::string list_parameter(const std::string& parameter) const { return parameter; }
  // The editor that the desk top opens for an object; null when the type has none or the record is gone.
  virtual std::shared_ptr<quor::Form> desk_top_editor(const std::string& object);

  quor::QuorApplication& application_;
  const std::string title_;  // of every box, taken once
  const std::string oname_;
  std::string oid_;
  std::vector<quor::IconEntry> icons_;
  std::shared_ptr<quor::Object> services_;
  std::shared_ptr<quor::QuorMainBO> bo_;
};

// The list parameter of a type whose records belong to a parent: here, those of no parent in particular.
std::string list_without_parent(const std::string& object_type);

}  // namespace velmora
