// The user-interface side of one object type: menus, lists, the way to a data object, deletion.
//
// Implemented by  the plug-in, one class for each object type.
// Called by       the host's explorer and desk top.
// States          created -> QuorS and BO set by the host -> driven.
// Units           identifiers are ASCII keys; captions UTF-8.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/contract/quor_main_bo.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

class Form;

struct MenuEntry {
  std::string Identifier;
  std::string Caption;  // "-" is a separator
};

struct IconEntry {
  std::string Key;
  std::string Icon;
};

enum class ClickAction : std::int32_t { kNothing = 0, kShowForm = 1, kRemoved = 2 };

struct ClickResult {
  ClickAction Action = ClickAction::kNothing;
  std::shared_ptr<Form> EditorForm;  // with kShowForm
};

class QuorObjectUI : public Object {
 public:
  ~QuorObjectUI() override;

  virtual std::string OID() const = 0;
  virtual void OID(const std::string& value) = 0;
  virtual std::string OName() const = 0;

  // The menu for what was clicked. `context` is the key of an object, the type code and "K" on the type's own place, or
  // the business object's GroupContext on the group that holds the type.
  virtual std::vector<MenuEntry> GetMenu(const std::string& context, const std::string& object_type,
                                         const std::string& user) = 0;
  virtual ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                                const std::string& user) = 0;
  virtual bool DragOK(const std::string& object, const std::string& context, const std::string& target) = 0;
  virtual bool DropOK(const std::string& target) = 0;
  virtual std::shared_ptr<Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                       const std::string& order) = 0;
  virtual bool AddToDeskTopQuorObject(const std::string& object) = 0;
  // The data object of an identity, read; null when its record is gone, and after a failure to read it, which the user
  // has been shown.
  virtual std::shared_ptr<QuorObjectUIO> GetQuorObject(const std::string& object) = 0;
  virtual std::vector<IconEntry> GetIconsTable() = 0;
  // False when the object was deleted, true when it was refused.
  virtual bool DeleteQuorObject(const std::string& object) = 0;

  virtual void QuorS(std::shared_ptr<Object> services) = 0;
  virtual void BO(std::shared_ptr<QuorMainBO> value) = 0;
  virtual std::shared_ptr<QuorMainBO> BO() const = 0;
};

}  // namespace quor
