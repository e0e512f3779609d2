// A field for the address of a company, with a button to choose a file.
#pragma once

#include <QWidget>

class QLineEdit;

namespace quor {

class AddressRow : public QWidget {
 public:
  enum class For { kOpening, kMaking };
  AddressRow(For purpose, QWidget* parent);

  QLineEdit& field() { return *field_; }
  QString address() const;

 private:
  void choose();

  const For purpose_;
  QLineEdit* field_;
};

}  // namespace quor
