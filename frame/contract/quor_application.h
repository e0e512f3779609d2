// The host application: everything that the plug-in asks of the program around it.
//
// Implemented by  the host.
// Called by       every class of the plug-in; each receives it when it is created and keeps a reference.
// States          outlives every object that it, or the plug-in, creates.
// Units           texts are UTF-8; object types are eight-character codes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "frame/contract/list_report.h"
#include "frame/contract/object_registry.h"
#include "frame/contract/open_objects.h"
#include "frame/contract/quor_main_bo.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

class Form;
class QuorObjectUI;

enum class BoxIcon { kNone, kCritical, kQuestion, kExclamation, kInformation };
enum class BoxButtons { kOk, kOkCancel, kYesNo };
enum class BoxAnswer { kOk, kCancel, kYes, kNo };

// The five rights that a user can have on an object type, in the order in which they are asked.
enum class UserRight { kView, kCreate, kDelete, kPrint, kWrite };

// What the user chose in the host's selection dialog; an empty identity means that nothing was chosen.
struct PickedObject {
  std::string Identity;  // the object's key; for types with GUIDs the key, "#" and the GUID
  std::string Name;
};

class QuorApplication {
 public:
  QuorApplication() = default;
  QuorApplication(const QuorApplication&) = delete;
  QuorApplication& operator=(const QuorApplication&) = delete;
  virtual ~QuorApplication();

  virtual std::string Title() const = 0;
  virtual Date Today() const = 0;

  // Shows the box and waits for the answer. A program without windows answers kOk, and No or Cancel to a question.
  virtual BoxAnswer MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) = 0;
  // Lets the user choose an object of the type; `current` is what is chosen now, `mode` how the host is to offer it.
  virtual PickedObject SelectObject(const std::string& object_type, const std::string& current,
                                    const std::string& mode) = 0;
  // Whether the current user has the right on the object type or group. `flag` is 0 for every query of today.
  virtual bool HasRight(UserRight right, const std::string& object_type, std::int32_t flag) = 0;

  // The data object of a key or an identity, read; null when there is no such record or no such type, and after a
  // failure to read it, which the user has been shown. Throws Error when the user may not view objects of the type.
  virtual std::shared_ptr<QuorObjectUIO> GetQuorObjectUIO(const std::string& identity) = 0;

  // The object UI of a type; null for a type that nobody has.
  virtual std::shared_ptr<QuorObjectUI> GetQuorObjectUI(const std::string& object_type) = 0;
  // One row about the company that is open; its field `Name` is the office's name.
  virtual std::shared_ptr<Recordset> CompanyRecord() = 0;

  virtual std::shared_ptr<QuorMainBO> NewMainBO() = 0;
  // A standard data object for a class of the plug-in to forward to: it keeps records of that type.
  virtual std::shared_ptr<QuorObjectUIO> NewStandardObjectUIO(const std::string& object_type) = 0;
  virtual std::shared_ptr<ObjectRegistry> NewObjectRegistry() = 0;
  // An empty report under that title, about objects of the type: who may not print them is refused when it is shown,
  // by an Error.
  virtual std::shared_ptr<ListReport> NewListReport(const std::string& title, const std::string& object_type) = 0;

  // Loads the form, lets the user act until it asks to be closed, and unloads it. The form stays its opener's.
  virtual void show_modal(Form& form) = 0;
  // Lets what waits (painting, keys) happen before the caller goes on.
  virtual void run_pending_events() = 0;
  // Shows the hourglass pointer until the object that it answers ends; scopes nest.
  [[nodiscard]] virtual std::shared_ptr<Object> hourglass() = 0;

  virtual OpenObjectRegistry& open_objects() = 0;
  // Puts the object on the user's desk top; `editor` opens it there (null: the host finds it when it is needed).
  virtual void place_on_desk_top(const std::string& object, std::shared_ptr<Form> editor) = 0;
};

}  // namespace quor
