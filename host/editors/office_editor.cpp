#include "host/editors/office_editor.h"

#include "host/company/office_name.h"
#include "host/editors/entered_values.h"

namespace quor {

OfficeEditor::OfficeEditor(Application& application) : Form("Įstaigos pavadinimas"), application_(application) {
  cmdOK.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Pavadinimas", txtName), row({cmdOK, cmdCancel})}));
}

void OfficeEditor::opening() {
  read_ = office_name(application_.company().database());
  txtName.set_text(read_);
}

void OfficeEditor::write() {
  EnteredValues entered(application_);
  const std::string name = entered.text(txtName, "Pavadinimas");
  if (entered.show_faults()) return;
  rename_office(application_.guard(), read_, name);
  read_ = name;
  txtName.set_text(name);
  close();
}

std::shared_ptr<Form> office_editor(Application& application) {
  application.guard().require_administrator("keisti įstaigos pavadinimo");
  return std::make_shared<OfficeEditor>(application);
}

}  // namespace quor
