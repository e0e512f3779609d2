// The object UI of the types that the host keeps itself (see host_types.h) and of those whose plug-in brings none. Its
// menus offer what can be done with the type; without any, there are lists and the desk top.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_ui.h"

namespace quor {

// What can be done with the type's objects: see HostTypeActs.
struct ObjectActs {
  std::function<std::shared_ptr<Form>(const std::string& object)> open = {};
  std::string new_caption = {};
  bool removable = false;
  std::function<void(const std::string& key)> remove = {};
};

class HostObjectUI : public QuorObjectUI {
 public:
  // The application outlives the object.
  HostObjectUI(QuorApplication& application, ObjectActs acts)
      : application_(application), acts_(std::move(acts)), bo_(application.NewMainBO()) {}

  std::string OID() const override { return oid_; }
  void OID(const std::string& value) override { oid_ = value; }
  std::string OName() const override { return ""; }  // its objects are named by their list
  std::vector<MenuEntry> GetMenu(const std::string& context, const std::string& object_type,
                                 const std::string& user) override;
  ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                        const std::string& user) override;
  bool DragOK(const std::string& object, const std::string& context, const std::string& target) override;
  bool DropOK(const std::string& target) override;
  std::shared_ptr<Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                               const std::string& order) override;
  bool AddToDeskTopQuorObject(const std::string& object) override;
  std::shared_ptr<QuorObjectUIO> GetQuorObject(const std::string& object) override;
  std::vector<IconEntry> GetIconsTable() override;
  bool DeleteQuorObject(const std::string& object) override;
  void QuorS(std::shared_ptr<Object> services) override { services_ = std::move(services); }
  void BO(std::shared_ptr<QuorMainBO> value) override { bo_ = std::move(value); }
  std::shared_ptr<QuorMainBO> BO() const override { return bo_; }

 private:
  ClickResult form_of(const std::string& object);
  ClickResult remove(const std::string& object);

  QuorApplication& application_;
  const ObjectActs acts_;
  std::shared_ptr<QuorMainBO> bo_;
  std::shared_ptr<Object> services_;
  std::string oid_;
};

}  // namespace quor
