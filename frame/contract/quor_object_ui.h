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

// What a menu entry is for, so that whoever shows the menu can give it the usual key.
enum class MenuPurpose {
  kPlain,
  kOpen,     // the object: a double click, Enter
  kNew,      // another object of the type: Insert
  kDelete,   // the object: Del
  kPrint,    // a list report
  kPreview,  // a form that fills a list for a month and prints it
};

struct MenuEntry {
  std::string Identifier;  // for ClickMenu; nobody else reads it
  std::string Caption;     // "-" is a separator
  MenuPurpose Purpose = MenuPurpose::kPlain;
  // The key of a registered icon, "" for none: a layout icon on a group, else an object icon. The icon of a new object
  // stands for all of a type that has none in its GetIconsTable.
  std::string Icon = {};
  // ASCII, for a program without windows: what it calls a list or preview by, with no object chosen; "" for none.
  std::string Word = {};
};

inline MenuEntry menu_separator() { return {.Identifier = "", .Caption = "-"}; }
inline bool is_separator(const MenuEntry& entry) { return entry.Caption == "-"; }

struct IconEntry {
  std::string Key;
  std::string Icon;
};

enum class ClickAction : std::int32_t { kNothing = 0, kShowForm = 1, kRemoved = 2 };

struct ClickResult {
  ClickAction Action = ClickAction::kNothing;
  std::shared_ptr<Form> EditorForm;  // with kShowForm
};

// What GetMenu is asked with on the type's own place, where no object is.
inline std::string type_context(const std::string& object_type) { return object_type + 'K'; }
inline bool is_type_context(const std::string& context) { return context.ends_with('K'); }

class QuorObjectUI : public Object {
 public:
  ~QuorObjectUI() override;

  virtual std::string OID() const = 0;
  virtual void OID(const std::string& value) = 0;
  virtual std::string OName() const = 0;

  // The menu for what was clicked. `context` is the key of an object, the type_context on the type's own place, or the
  // business object's GroupContext on the group that holds the type.
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
