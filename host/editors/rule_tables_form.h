// The tables of cases of a folder, tried: which cases come out as their table says, which do not, and why.
#pragma once

#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/insight/rules/rule_tables.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"

namespace quor {

class RuleTablesForm : public Form {
 public:
  Panel pnlFolder{*this, "pnlFolder"};
  Label lblSummary{*this, "lblSummary"};
  ChoiceBox chcShow{*this, "chcShow"};  // all cases, or those alone that do not come out
  ListView lvwCases{*this,
                    "lvwCases",
                    {{.key = "", .caption = "Ar tinka", .width = 90},
                     {.key = "Table", .caption = "Lentelė", .width = 130},
                     {.key = "Rule", .caption = "Taisyklė", .width = 130},
                     {.key = "Line", .caption = "Eilutė", .width = 60, .alignment = CellAlignment::kRight},
                     {.key = "Case", .caption = "Atvejis", .width = 260},
                     {.key = "Facts", .caption = "Duota", .width = 330},
                     {.key = "Why", .caption = "Kodėl", .width = 420}}};
  Label lblCase{*this, "lblCase"};
  ListView lvwResults{*this,
                      "lvwResults",
                      {{.key = "", .caption = "Ar tinka", .width = 90},
                       {.key = "Column", .caption = "Stulpelis", .width = 190},
                       {.key = "Expected", .caption = "Turi būti", .width = 260},
                       {.key = "Got", .caption = "Gauta", .width = 260}}};
  ListView lvwSteps{*this, "lvwSteps", {{.key = "", .caption = "Kaip išeina", .width = 800}}};  // of the chosen case
  CommandButton cmdRun{*this, "cmdRun", "Bandyti iš naujo", ButtonRole::kFill};
  CommandButton cmdClose{*this, "cmdClose", "Užverti", ButtonRole::kDismiss};

  // `place` is a folder or one table. The application outlives the form; its plug-ins are tried, its company is not.
  RuleTablesForm(Application& application, std::string place);

 private:
  struct ShownCase {
    std::size_t table, row;
    bool of_table;  // the table itself, which was not tried
  };

  void opening() override { run(); }

  void run();
  void show_cases();
  void add_case(const ShownCase& shown);
  void show_chosen();

  Application& application_;
  const std::string place_;
  std::vector<RuleTable> tables_;
  std::vector<ShownCase> shown_;  // of each row of lvwCases
};

}  // namespace quor
