#include "host/editors/code_editor.h"

namespace quor {

namespace {

std::shared_ptr<Form> code_editor(const char* caption, Application& application, const std::string& object) {
  auto record = read_record(application, object);
  return record ? std::make_shared<CodeEditor>(caption, application, std::move(record)) : nullptr;
}

}  // namespace

CodeEditor::CodeEditor(std::string caption, Application& application, std::shared_ptr<QuorObjectUIO> record)
    : RecordForm(std::move(caption), application, std::move(record)) {
  for (TextBox* box : {&txtCode, &txtName}) box->on_change = [this] { changed(); };
  set_layout(column({field("Kodas", txtCode), field("Pavadinimas", txtName), buttons()}));
}

void CodeEditor::show_record(bool may_write) {
  txtCode.set_text(null_to_text(record().Fields()["Code"].Value()));
  txtName.set_text(null_to_text(record().Fields()["Name"].Value()));
  for (TextBox* box : {&txtCode, &txtName}) box->set_read_only(!may_write);
}

bool CodeEditor::take(EnteredValues& entered) {
  const std::string code = entered.text(txtCode, "Kodas"), name = entered.text(txtName, "Pavadinimas");
  if (entered.show_faults()) return false;
  record().Fields()["Code"].Value(code);
  record().Fields()["Name"].Value(name);
  return true;
}

std::shared_ptr<Form> time_code_editor(Application& application, const std::string& object) {
  return code_editor("Laiko kodas", application, object);
}

std::shared_ptr<Form> salary_code_editor(Application& application, const std::string& object) {
  return code_editor("Darbo užmokesčio kodas", application, object);
}

}  // namespace quor
