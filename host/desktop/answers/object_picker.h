// The selection dialog: one object out of a list, found by typing a part of any of its texts.
#pragma once

#include <QDialog>
#include <string>

#include "host/desktop/answers/object_list.h"

class QPushButton;

namespace quor {

class ObjectPicker : public QDialog {
 public:
  ObjectPicker(Recordset& list, const std::string& current, const QString& title, QWidget* parent);

  // The key of the chosen object; "" before the dialog was accepted.
  const std::string& picked() const { return picked_; }

 private:
  void pick();
  QSize size_for_columns() const;

  ObjectList* const list_;
  QPushButton* ok_ = nullptr;
  std::string picked_;
};

}  // namespace quor
