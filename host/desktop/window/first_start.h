// The page that the program shows when there is no company to open: make the sample or another one, open a file, one
// that was open lately, or name a server.
#pragma once

#include <QDialog>

#include "host/desktop/edge/edge.h"
#include "host/desktop/window/next_company.h"

class QLineEdit;

namespace quor {

class FirstStart : public QDialog {
 public:
  // `reason` says why there is none, `sample` is where the sample company would be made. The edge outlives it.
  FirstStart(const QString& reason, const QString& sample, Edge& edge);

  // What the user has opened; of no database when he has given up. May be taken once.
  NextCompany take_company() { return std::move(opened_); }

 private:
  QWidget* recent();
  void make_sample();
  void make_new();
  void open_file();
  // Ends the page when it succeeds.
  void open_company(const QString& address);

  Edge& edge_;
  const QString sample_;
  QLineEdit* server_;
  NextCompany opened_;
};

}  // namespace quor
