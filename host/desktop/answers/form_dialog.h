// A form in a dialog of its own, shown until the form asks to be closed.
#pragma once

#include <QDialog>

#include "host/desktop/answers/message_box.h"
#include "host/desktop/render/form_view.h"

namespace quor {

class FormDialog : public QDialog {
 public:
  // Before what is not written is lost, the user is asked: he has it written, gives it up, or goes back.
  FormDialog(Form& form, Edge& edge, QWidget* parent);
  ~FormDialog() override;

  FormView& view() { return *view_; }
  // Names in the title, which then has room, what the form is about.
  void name_subject(const QString& subject);

  // The close box, and Esc where no button takes it: the form hears of it and decides.
  void reject() override;

 private:
  void close_requested();
  SaveAnswer answer_to_closing();

  Form& form_;
  Edge& edge_;
  FormView* view_;
};

}  // namespace quor
