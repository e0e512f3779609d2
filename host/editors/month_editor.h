// A month of pay in one window: how it stands, everybody's sums and what is wrong with them, sums by department, what
// changed since the month before, the fund of the year. From here it is calculated, closed and opened again.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "host/application/application.h"
#include "host/editors/month_lists.h"
#include "host/payroll/calculated_month.h"
#include "platform/data/month.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/chart.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"

namespace quor {

class MonthEditor : public Form {
 public:
  Panel pnlMonth{*this, "pnlMonth"};
  Label lblState{*this, "lblState"};
  Label lblSummary{*this, "lblSummary"};  // of the last calculation in this window
  ChoiceBox chcShow{*this, "chcShow"};
  ChoiceBox chcDepartment{*this, "chcDepartment"};
  ListView lvwPeople{*this, "lvwPeople", people_columns(), ListView::CheckBoxes::kOnRows};
  ListView lvwDepartments{*this, "lvwDepartments", department_columns()};
  ListView lvwDifferences{*this, "lvwDifferences", difference_columns()};
  ListView lvwHistory{*this,
                      "lvwHistory",
                      {{.key = "", .caption = "Kada", .width = 130},
                       {.key = "What", .caption = "Kas padaryta", .width = 110},
                       {.key = "By", .caption = "Kas", .width = 140},
                       {.key = "Reason", .caption = "Priežastis", .width = 360}}};
  Chart chtFund{*this, "chtFund", Chart::Kind::kStackedColumns};
  CommandButton cmdCalculate{*this, "cmdCalculate", "Skaičiuoti visus", ButtonRole::kFill};
  CommandButton cmdCalculateDepartment{*this, "cmdCalculateDepartment", "Skaičiuoti padalinį"};
  CommandButton cmdCalculateChosen{*this, "cmdCalculateChosen", "Skaičiuoti pažymėtus"};
  CommandButton cmdClose{*this, "cmdClose", "Uždaryti mėnesį…"};
  CommandButton cmdReopen{*this, "cmdReopen", "Atverti mėnesį…"};
  CommandButton cmdPrint{*this, "cmdPrint", "Spausdinti", ButtonRole::kPrint};

  // The application outlives the form.
  MonthEditor(Application& application, const Month& month);
  std::string subject() const override;

 private:
  void opening() override;

  void calculate(const MonthOptions& whom);
  void calculate_chosen();
  void close_month_of_form();
  void reopen();
  void print();

  void read();
  void read_fund();
  void show_choices();
  void show_state();
  void enable_commands();
  void show_history();
  void show_rows();
  std::optional<std::int32_t> chosen_department() const;
  std::vector<std::int32_t> checked_people() const;
  void say(const std::string& text);

  Application& application_;
  const Month month_;
  std::vector<PersonPay> people_;  // of the chosen department
  std::set<std::int32_t> changed_;
  bool closed_ = false;
};

// The window of a month by its key, or of the month after the latest one for the type code.
std::shared_ptr<Form> month_editor(Application& application, const std::string& object);
// Deletes what was calculated of the month. Throws as delete_documents_of does.
void delete_month(Application& application, const std::string& key);

}  // namespace quor
