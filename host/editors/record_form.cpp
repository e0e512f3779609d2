#include "host/editors/record_form.h"

#include "host/editors/record_saving.h"

namespace quor {

RecordForm::RecordForm(std::string caption, Application& application, std::shared_ptr<QuorObjectUIO> record)
    : Form(std::move(caption)), application_(application), record_(std::move(record)) {
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { cancel(); };
  cmdClose.on_click = [this] { close(); };
}

std::string RecordForm::subject() const { return carries_object(record_->OIDR()) ? record_->OIDR() : ""; }

void RecordForm::show() {
  changed_ = false;
  may_write_ = application_.HasRight(UserRight::kWrite, record_->OType(), 0);
  show_record(may_write_);
  set_button_states();
}

void RecordForm::changed() {
  changed_ = true;
  set_button_states();
}

void RecordForm::set_button_states() {
  cmdWrite.set_enabled(may_write_ && changed_);
  cmdCancel.set_enabled(changed_);
}

void RecordForm::write() {
  EnteredValues entered(application_);
  if (!take(entered)) return;
  if (!stored_or_told(application_, record_->Save(0, ""))) return;
  application_.open_objects().written(*record_);
  show();
}

void RecordForm::cancel() {
  record_->CancelUpdate();
  show();
}

std::shared_ptr<QuorObjectUIO> read_record(Application& application, const std::string& object) {
  if (carries_object(object)) return application.GetQuorObjectUIO(object);
  auto record = application.NewStandardObjectUIO(object);
  const SaveStatus status = record->Read();
  if (!status.Failed) return record;
  application.MessageBox(status.ErrorText, BoxIcon::kExclamation, BoxButtons::kOk, application.Title());
  return nullptr;
}

}  // namespace quor
