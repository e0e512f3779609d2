// The form of a time code or of a salary code: the code and its name. The number by which rows of time name a time code
// is the program's own.
#pragma once

#include "host/editors/record_form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class CodeEditor : public RecordForm {
 public:
  TextBox txtCode{*this, "txtCode"};
  TextBox txtName{*this, "txtName"};

  CodeEditor(std::string caption, Application& application, std::shared_ptr<QuorObjectUIO> record);

 private:
  void show_record(bool may_write) override;
  bool take(EnteredValues& entered) override;
};

// Each: of the code with the key, or of a new one; null after a refusal that has been shown.
std::shared_ptr<Form> time_code_editor(Application& application, const std::string& object);
std::shared_ptr<Form> salary_code_editor(Application& application, const std::string& object);

}  // namespace quor
