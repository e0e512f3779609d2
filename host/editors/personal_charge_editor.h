// The dialog of one personal extra charge: its dates, the code under which it is paid, and either a fixed sum, or a
// percentage, or the tie to the length-of-service supplement. What it stores is what it shows, nothing beside it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "host/insight/room_for_charge.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class PersonalChargeEditor : public Form {
 public:
  TextBox txtDateFrom{*this, "txtDateFrom", TextBox::Kind::kDate};  // empty: an open bound, as in txtDateTo
  TextBox txtDateTo{*this, "txtDateTo", TextBox::Kind::kDate};
  ListView lvwKind{*this, "lvwKind", {{.key = "", .caption = "Priedas skiriamas", .width = 260}}};  // by its row
  TextBox txtSum{*this, "txtSum"};
  TextBox txtPercentage{*this, "txtPercentage"};
  Label lblRoom{*this, "lblRoom"};  // what the limits leave for it, and whether it goes over them
  ListView lvwSalaryCodes{
      *this,
      "lvwSalaryCodes",
      {{.key = "", .caption = "Kodas", .width = 80}, {.key = "Name", .caption = "Pavadinimas", .width = 240}}};
  TextBox txtComment{*this, "txtComment"};
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // The rows of lvwKind.
  enum Kind : std::size_t { kSum, kPercentage, kLengthOfService };

  // `charge` is the charge's data object, read; a new one has its GUID and its employee already. All three outlive the
  // dialog.
  PersonalChargeEditor(QuorApplication& application, QuorObjectUIO& charge, std::shared_ptr<Recordset> salary_codes);

  bool has_unsaved_changes() const override { return !stored_ && loaded() && shown() != shown_; }
  // Whether the charge was stored since the dialog was opened.
  bool stored() const { return stored_; }
  std::string subject() const override;

 private:
  void opening() override;

  void show_kind();
  void measure();
  void show_room();
  void write();

  void show_charge();
  void show_salary_codes();
  Kind kind() const;
  std::string shown() const;
  bool move_into_fields();

  QuorApplication& application_;
  QuorObjectUIO& charge_;
  std::shared_ptr<Recordset> salary_codes_;
  std::optional<RoomForCharge> room_;  // none for a user who may not see pay
  Kind read_kind_ = kSum;              // as it was when the dialog was opened
  std::string shown_;                  // what stood in the fields then
  bool stored_ = false;
};

// Opens the dialog for the charge and answers whether it was stored. Throws StoreError when the codes cannot be read.
bool edit_personal_charge(QuorApplication& application, QuorObjectUIO& charge);

}  // namespace quor
