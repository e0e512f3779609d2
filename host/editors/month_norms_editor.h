// The form of a year's norms: each month with its working days, its public holidays, the norm that follows from them
// and the one that is stored. What is written is the clerk's; a proposal is taken over by a button.
//
//   year       can be chosen
//   new        in txtYear, while nothing is unsaved
//   stored     no more: the form is that year's
#pragma once

#include <array>
#include <memory>
#include <string>

#include "host/application/application.h"
#include "host/company/month_norms.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/check_box.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class EnteredValues;

class MonthNormsEditor : public Form {
 public:
  TextBox txtYear{*this, "txtYear"};
  CheckBox shorten_days{*this, "shorten_days", "Trumpinti dieną prieš šventę viena valanda"};
  ListView lvwMonths{*this,
                     "lvwMonths",
                     {{.key = "", .caption = "Mėnuo", .width = 130},
                      {.key = "Days", .caption = "Darbo dienos", .width = 80, .alignment = CellAlignment::kRight},
                      {.key = "Short", .caption = "Iš jų trumpesnės", .width = 90, .alignment = CellAlignment::kRight},
                      {.key = "Proposed", .caption = "Siūloma norma", .width = 90, .alignment = CellAlignment::kRight},
                      {.key = "Norm", .caption = "Norma", .width = 80, .alignment = CellAlignment::kRight},
                      {.key = "Holidays", .caption = "Šventės", .width = 420}}};
  Label lblMonth{*this, "lblMonth"};
  TextBox txtNorm{*this, "txtNorm"};  // of the chosen month; empty: none is stored
  CommandButton cmdProposeMonth{*this, "cmdProposeMonth", "Siūloma mėnesio norma"};
  CommandButton cmdProposeAll{*this, "cmdProposeAll", "Siūlomos normos", ButtonRole::kFill};
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kWrite};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti pakeitimus"};
  CommandButton cmdClose{*this, "cmdClose", "Uždaryti", ButtonRole::kDismiss};

  MonthNormsEditor(Application& application, int year, bool is_new);

  bool has_unsaved_changes() const override { return texts_ != read_texts(); }
  std::string subject() const override;

 private:
  using Texts = std::array<std::string, std::tuple_size_v<YearNorms>>;

  void opening() override { read(); }

  void turn_to_year();
  void show_chosen();
  void norm_typed();
  void propose_all();
  void propose(std::size_t month);
  void write();

  void read();
  void fill();
  void show_norms();
  void set_states();
  Texts read_texts() const;
  double proposed(std::size_t month) const;
  YearNorms entered_norms(EnteredValues& entered);

  Application& application_;
  int year_;
  bool is_new_;
  YearNorms read_;
  Texts texts_;  // as typed
};

// Of the year in the key, or of a new one: the next without all its norms.
std::shared_ptr<Form> month_norms_editor(Application& application, const std::string& object);
// Takes all norms of the year away. Throws Error when the user may not, StoreError.
void delete_month_norms(Application& application, const std::string& key);

}  // namespace quor
