// Reads what was typed into the fields of a dialog. Every fault is collected with the field at fault, and all are shown
// at once, with the cursor in the first; nothing is to be written before.
//
//   EnteredValues entered(application);
//   const Date from = entered.date(txtDateFrom, "Galioja nuo");
//   const double share = entered.number(txtShare, "Etato dalis", kShare);
//   if (entered.show_faults()) return;
//
// What cannot be read comes out as an empty value beside its fault. `what` names the field as the form does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/contract/quor_application.h"
#include "host/store/tables/value_ranges.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class EnteredValues {
 public:
  explicit EnteredValues(QuorApplication& application) : application_(application) {}

  // A fault that the form itself has found.
  void refuse(const Control& where, std::string fault);

  // Null for a blank box.
  std::optional<std::string> optional_text(const TextBox& box, const std::string& what);
  std::optional<Date> optional_date(const TextBox& box, const std::string& what);
  std::optional<double> optional_number(const TextBox& box, const std::string& what, const NumberRange& range);
  // A blank box is a fault.
  std::string text(const TextBox& box, const std::string& what);
  Date date(const TextBox& box, const std::string& what);
  double number(const TextBox& box, const std::string& what, const NumberRange& range);
  // The end may not be before the start; either may be missing.
  void in_order(std::optional<Date> from, std::optional<Date> to, const TextBox& end);

  // Shows them and answers true, or answers false when there are none.
  bool show_faults();

 private:
  struct Fault {
    const Control* where;
    std::string text;
  };
  template <typename Value>
  Value required(std::optional<Value> value, const TextBox& box, const std::string& what);

  QuorApplication& application_;
  std::vector<Fault> faults_;
};

}  // namespace quor
