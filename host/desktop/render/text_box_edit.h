// The widget of a text box. Qt's line edit shows the text, the caret and the selection; what the user types, pastes or
// deletes goes to the model alone, whose answer is then shown.
#pragma once

#include <QLineEdit>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class TextBoxEdit : public QLineEdit {
 public:
  TextBoxEdit(TextBox& box, FormActs& acts, QWidget* parent);

  // Shows what the model holds now.
  void show_change(ControlChange change);
  // The focus has come or gone, whoever moved it. The box is entered and left by turns, never twice. May throw what
  // the form's handler throws.
  void enter_box();
  void leave_box();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool type(const QKeyEvent& event);
  void offer_calendar();
  void undo_last();
  void redo_last();
  void cut_selection();
  void paste_text(QString text);
  void erase();
  void show_selection();
  void tell_selection();

  TextBox& box_;
  FormActs& acts_;
  bool showing_ = false;  // the widget follows the model
  bool telling_ = false;  // the model follows the widget
  bool entered_ = false;
};

}  // namespace quor
