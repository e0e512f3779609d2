// What the forms of one stored record share: they show the record's fields, write all of them at once or nothing, and
// go back to what is stored. Only the write button stores; what is refused stays as it was typed.
//
// A form of its own adds the controls, calls `changed()` from their handlers, and puts `buttons()` into its layout.
#pragma once

#include <memory>
#include <string>

#include "host/application/application.h"
#include "host/editors/entered_values.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"

namespace quor {

class RecordForm : public Form {
 public:
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kWrite};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti pakeitimus"};
  CommandButton cmdClose{*this, "cmdClose", "Uždaryti", ButtonRole::kDismiss};

  bool has_unsaved_changes() const override { return changed_; }
  std::string subject() const override;

 protected:
  // `record` has been read (see read_record). The application outlives the form.
  RecordForm(std::string caption, Application& application, std::shared_ptr<QuorObjectUIO> record);

  // Puts the fields into the controls. `may_write`: whether the user may change them at all.
  virtual void show_record(bool may_write) = 0;
  // Reads the controls and puts them into the fields; after faults, which it shows, false and nothing is put.
  virtual bool take(EnteredValues& entered) = 0;

  void opening() override { show(); }
  void changed();
  LayoutNode buttons() { return row({cmdWrite, cmdCancel, cmdClose}); }
  Application& application() const { return application_; }
  QuorObjectUIO& record() const { return *record_; }

 private:
  void show();
  void write();
  void cancel();
  void set_button_states();

  Application& application_;
  std::shared_ptr<QuorObjectUIO> record_;
  bool may_write_ = false;
  bool changed_ = false;
};

// The data object of the key, or of a new record for a type's code alone, read. Null after a refusal that the user has
// been shown.
std::shared_ptr<QuorObjectUIO> read_record(Application& application, const std::string& object);

}  // namespace quor
