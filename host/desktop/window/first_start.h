// The page that the program shows when there is no company to open: make the sample, open a file, or name a server.
#pragma once

#include <QDialog>
#include <memory>

#include "host/desktop/edge/edge.h"
#include "host/store/database.h"

class QLineEdit;

namespace quor {

class FirstStart : public QDialog {
 public:
  // `reason` says why there is none, `sample` is where the sample company would be made. The edge outlives it.
  FirstStart(const QString& reason, const QString& sample, Edge& edge);

  // What the user has opened; null when he has given up. May be taken once.
  std::unique_ptr<Database> take_database() { return std::move(database_); }
  const QString& address() const { return address_; }

 private:
  void make_sample();
  void open_file();
  // Ends the page when it succeeds.
  void open_company(const QString& address);

  Edge& edge_;
  const QString sample_;
  QLineEdit* server_;
  std::unique_ptr<Database> database_;
  QString address_;
};

}  // namespace quor
