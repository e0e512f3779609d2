#include "host/desktop/window/month_band.h"

#include <algorithm>

#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"

namespace quor {

DatePicker* month_of_preview(const Form& form) {
  DatePicker* date = nullptr;
  bool fills = false, prints = false;
  for (Control* control : form.controls()) {
    if (date == nullptr) date = dynamic_cast<DatePicker*>(control);
    const auto* const button = dynamic_cast<const CommandButton*>(control);
    fills = fills || (button != nullptr && button->role() == ButtonRole::kFill);
    prints = prints || (button != nullptr && button->role() == ButtonRole::kPrint);
  }
  return fills && prints ? date : nullptr;
}

MonthBand::MonthBand(MonthLine line, std::function<std::int64_t()> count, QWidget* parent)
    : QLabel(parent), line_(std::move(line)), count_(std::move(count)) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setMargin(6);
  // A pair that can be read on every theme, and stands apart from lists and fields.
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  hide();
}

void MonthBand::show_month(const Month& month) {
  month_ = month;
  asked_at_.reset();
  refresh();
}

void MonthBand::refresh() {
  if (!month_ || !line_) return;
  QString text;
  try {
    const std::int64_t now = count_();
    if (asked_at_ == now) return;
    text = QString::fromStdString(line_(*month_));
    asked_at_ = now;
  } catch (const std::exception& error) {
    asked_at_.reset();
    text = QString("Mėnesio būsena nežinoma: ") + error.what();
  }
  setText(text);
  setVisible(!text.isEmpty());
}

}  // namespace quor
