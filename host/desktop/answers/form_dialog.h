// A form in a dialog of its own, shown until the form asks to be closed.
#pragma once

#include <QDialog>

#include "host/desktop/render/form_view.h"

namespace quor {

class FormDialog : public QDialog {
 public:
  // `may_close` is asked when the form is about to be closed; false keeps it open.
  FormDialog(Form& form, Edge& edge, std::function<bool()> may_close, QWidget* parent);
  ~FormDialog() override;

  FormView& view() { return *view_; }
  // Names in the title, which then has room, what the form is about.
  void name_subject(const QString& subject);

  // The close box, and Esc where no button takes it: the form hears of it and decides.
  void reject() override;

 private:
  void close_requested();

  Form& form_;
  Edge& edge_;
  std::function<bool()> may_close_;
  FormView* view_;
};

}  // namespace quor
