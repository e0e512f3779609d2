// The worked time of a month in a grid: people down, time codes across, or the days of the month for one code. All of
// it is written together or not at all; a closed month is only looked at.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/worked_time.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/grid.h"

namespace quor {

class WorkedTimeEditor : public Form {
 public:
  Panel pnlMonth{*this, "pnlMonth"};
  Label lblState{*this, "lblState"};
  ChoiceBox chcDepartment{*this, "chcDepartment"};
  ChoiceBox chcShape{*this, "chcShape"};  // all codes of the month, or a code by days, which is its tag
  Grid grdTime{*this, "grdTime"};
  Label lblTotals{*this, "lblTotals"};
  CommandButton cmdFillAll{*this, "cmdFillAll", "Užpildyti normą visiems"};
  CommandButton cmdFillChosen{*this, "cmdFillChosen", "Užpildyti normą pažymėtiems"};
  CommandButton cmdWrite{*this, "cmdWrite", "Įrašyti", ButtonRole::kWrite};

  // The application outlives the form.
  WorkedTimeEditor(Application& application, const Month& month);
  std::string subject() const override;
  bool has_unsaved_changes() const override { return hours_ != stored_; }

 private:
  using Hours = std::map<TimePlace, double>;

  void opening() override;

  void write();
  void fill_norm(bool chosen);
  std::string check(std::size_t row, std::size_t column, std::string& text) const;
  void take_over(const std::vector<std::size_t>& rows);

  void read();
  void show_choices();
  void show_columns();
  void show_people();
  void show_row(std::size_t row);
  void show_totals();
  // Of one row: what stands in the cells of its places, and its sums.
  void show_codes(std::size_t row, std::int32_t employee);
  void show_days(std::size_t row, std::int32_t employee);
  void show_sum(std::size_t row, std::size_t column, double hours);

  bool by_days() const { return day_code_ != 0; }
  std::optional<TimePlace> place(std::size_t row, std::size_t column) const;
  std::int32_t employee_of(std::size_t row) const;
  double of_month(std::int32_t employee, std::int32_t code) const;
  double of_days(std::int32_t employee, std::int32_t code) const;
  double of_all(std::int32_t employee) const;

  Application& application_;
  const Month month_;
  MonthTime time_;
  Hours stored_, hours_;           // as read, and as they are to be; of everybody
  std::int32_t day_code_ = 0;      // whose days are shown; 0: all codes of the month
  std::vector<TimePerson> shown_;  // of the chosen department, a row each
};

// The window of a month's time by its key, or of the month after the latest one with time for the type code.
std::shared_ptr<Form> worked_time_editor(Application& application, const std::string& object);
// Deletes the time of the month. Throws as delete_month_time does.
void delete_worked_time(Application& application, const std::string& key);

}  // namespace quor
