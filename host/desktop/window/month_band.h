// The band above a preview: what is to be known of the month whose pay the preview shows. It is the window's; the form
// knows nothing of it.
#pragma once

#include <QLabel>
#include <functional>
#include <optional>

#include "platform/data/month.h"
#include "platform/toolkit/form.h"

namespace quor {

class DatePicker;

// A line about the month's state; "" when there is nothing to say. May throw.
using MonthLine = std::function<std::string(const Month&)>;

// The date by which the form is filled and printed; null for a form that is no preview of a month.
DatePicker* month_of_preview(const Form& form);

class MonthBand : public QLabel {
 public:
  // `line` and `count`, which changes whenever something was written, are asked as long as the band lives.
  MonthBand(MonthLine line, std::function<std::int64_t()> count, QWidget* parent);

  // The preview has been filled with that month.
  void show_month(const Month& month);
  // Asks again if something was written since, or the month is another. Where the state cannot be read, it says why.
  void refresh();

 private:
  const MonthLine line_;
  const std::function<std::int64_t()> count_;
  std::optional<Month> month_;
  std::optional<std::int64_t> asked_at_;
};

}  // namespace quor
