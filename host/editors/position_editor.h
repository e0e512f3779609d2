// The dialog of one position of an employee: category, base tariff, share of a post, from when to when. What the month
// comes to is seen while it is typed. The salary engine offers the categories, says whether the choice is complete and
// writes it; numbers and identifiers of records are its own affair and the program's.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class PositionEditor : public Form {
 public:
  TextBox txtCategory{*this, "txtCategory"};  // its tag: the category's ID
  CommandButton cmdChoose{*this, "cmdChoose", "...", ButtonRole::kChoose};
  TextBox txtFactor{*this, "txtFactor"};
  ChoiceBox chcTariff{*this, "chcTariff"};  // tags: the constant types' IDs
  TextBox txtShare{*this, "txtShare"};
  TextBox txtDateFrom{*this, "txtDateFrom", TextBox::Kind::kDate};
  TextBox txtDateTo{*this, "txtDateTo", TextBox::Kind::kDate};
  TextBox txtMonthSalary{*this, "txtMonthSalary"};
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // `position` is the engine's data object of the position, read; a new one has its employee already. Both outlive the
  // dialog.
  PositionEditor(QuorApplication& application, QuorObjectUIO& position);

  bool has_unsaved_changes() const override { return !stored_ && loaded() && shown() != shown_; }
  // Whether the position was stored since the dialog was opened.
  bool stored() const { return stored_; }
  std::string subject() const override;

 private:
  void opening() override;

  void show_position();
  void show_category(std::int32_t category);
  void show_tariffs(std::int32_t chosen);
  void show_month_salary();
  void date_changed();
  void choose_category();
  void write();
  bool move_into_fields();

  Date date() const;
  std::int32_t category() const;
  std::int32_t tariff() const;
  double tariff_value() const;
  std::string shown() const;
  std::shared_ptr<Recordset> requested(const char* name, const std::string& parameter) const;

  QuorApplication& application_;
  QuorObjectUIO& position_;
  std::shared_ptr<Recordset> tariffs_;  // with a value on `dated_`
  Date dated_;
  std::optional<double> factor_;  // of the category then; none without one
  std::string shown_;             // what stood in the fields when the dialog was opened
  bool stored_ = false;
};

// Begins a position of the employee that stands beside none, or, with the key of another one, with its category, tariff
// and share from the day after its end, or from today. Null after a failure that the user has been shown. Throws Error
// when no plug-in brings the salary engine, or the user may not view it.
std::shared_ptr<QuorObjectUIO> new_position(QuorApplication& application, std::int32_t employee,
                                            const std::string& like = "");

// Opens the dialog and answers whether the position was stored.
bool edit_position(QuorApplication& application, QuorObjectUIO& position);

}  // namespace quor
