// Makes a company: one to start with, or the sample. It stands whole or not at all.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "host/application/long_work.h"
#include "host/desktop/edge/edge.h"
#include "host/desktop/window/next_company.h"

class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace quor {

class AddressRow;

class NewCompanyDialog : public QDialog {
 public:
  // Who shows that it takes long and hears when the user has enough of waiting.
  using BeginWork = std::function<std::unique_ptr<LongWork>(const std::string& what)>;
  // The edge outlives it.
  NewCompanyDialog(Edge& edge, BeginWork begin_work, QWidget* parent);

  // What was made; nothing when the user has given up. May be taken once.
  NextCompany take_company() { return std::move(made_); }

 private:
  void make();
  Database::Fill filling(LongWork& work) const;

  Edge& edge_;
  BeginWork begin_work_;
  AddressRow* place_;
  QRadioButton* start_;
  QRadioButton* sample_;
  QLineEdit* name_;
  QSpinBox* employees_;
  NextCompany made_;
};

// Opens a company by its address; a window of one field.
class OpenCompanyDialog : public QDialog {
 public:
  OpenCompanyDialog(Edge& edge, QWidget* parent);
  NextCompany take_company() { return std::move(opened_); }

 private:
  void open();

  Edge& edge_;
  AddressRow* place_;
  NextCompany opened_;
};

}  // namespace quor
