#include "host/editors/reason_dialog.h"

#include <sstream>

#include "host/editors/entered_values.h"

namespace quor {

ReasonDialog::ReasonDialog(QuorApplication& application, std::string caption, const std::string& objections)
    : Form(std::move(caption)), application_(application) {
  std::istringstream lines(objections);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) objections_.push_back(line);
  }
  cmdOK.on_click = [this] { accept(); };
  cmdCancel.on_click = [this] { close(); };
  if (objections_.empty()) {
    set_layout(column({field("Priežastis", txtReason), row({cmdOK, cmdCancel})}));
  } else {
    set_layout(column({lvwObjections, field("Priežastis", txtReason), row({cmdOK, cmdCancel})}));
  }
}

void ReasonDialog::opening() {
  reason_.reset();
  lvwObjections.clear();
  for (const std::string& line : objections_) lvwObjections.add_row(line);
  txtReason.focus();
}

void ReasonDialog::accept() {
  EnteredValues entered(application_);
  const std::string reason = entered.text(txtReason, "Priežastis");
  if (entered.show_faults()) return;
  reason_ = reason;
  close();
}

}  // namespace quor
