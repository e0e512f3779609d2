#include "host/desktop/answers/message_box.h"

#include <QMessageBox>
#include <QPushButton>

#include "host/desktop/edge/pointer.h"

namespace quor {

namespace {

QMessageBox::Icon icon_of(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kCritical:
      return QMessageBox::Critical;
    case BoxIcon::kQuestion:
      return QMessageBox::Question;
    case BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

BoxAnswer show_message_box(QWidget* parent, const QString& text, BoxIcon icon, BoxButtons buttons,
                           const QString& title) {
  const FreePointer pointer;
  QMessageBox box(parent);
  box.setWindowTitle(title);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString(text).replace("\r\n", "\n"));
  box.setIcon(icon_of(icon));
  const bool yes_no = buttons == BoxButtons::kYesNo;
  const BoxAnswer agreed = yes_no ? BoxAnswer::kYes : BoxAnswer::kOk;
  QPushButton* const agree = box.addButton(yes_no ? "&Taip" : "&Gerai", QMessageBox::AcceptRole);
  if (buttons == BoxButtons::kOk) {
    box.setEscapeButton(agree);
    box.exec();
    return agreed;
  }
  QPushButton* const refuse = box.addButton(yes_no ? "&Ne" : "&Atšaukti", QMessageBox::RejectRole);
  box.setDefaultButton(refuse);
  box.setEscapeButton(refuse);
  box.exec();
  if (box.clickedButton() == agree) return agreed;
  return yes_no ? BoxAnswer::kNo : BoxAnswer::kCancel;
}

SaveAnswer ask_to_save(QWidget* parent, const QString& name) {
  const FreePointer pointer;
  QMessageBox box(QMessageBox::Question, name, QString("„%1“: pakeitimai neįrašyti. Ar juos išsaugoti?").arg(name),
                  QMessageBox::NoButton, parent);
  box.setTextFormat(Qt::PlainText);
  QPushButton* const save = box.addButton("&Išsaugoti", QMessageBox::AcceptRole);
  QPushButton* const discard = box.addButton("&Neišsaugoti", QMessageBox::DestructiveRole);
  box.setEscapeButton(box.addButton("&Atšaukti", QMessageBox::RejectRole));
  box.setDefaultButton(save);
  box.exec();
  if (box.clickedButton() == save) return SaveAnswer::kSave;
  return box.clickedButton() == discard ? SaveAnswer::kDiscard : SaveAnswer::kStay;
}

bool ask_to_discard(QWidget* parent, const QString& name) {
  return show_message_box(parent, "Pakeitimai neįrašyti. Uždaryti jų neįrašius?", BoxIcon::kQuestion,
                          BoxButtons::kYesNo, name) == BoxAnswer::kYes;
}

}  // namespace quor
