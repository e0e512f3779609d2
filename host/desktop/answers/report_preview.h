// The print preview of a list report: its pages as they are printed, with the ways to keep or print them.
#pragma once

#include <QDialog>

#include "host/desktop/answers/file_question.h"
#include "host/desktop/edge/edge.h"
#include "host/report/report_pages.h"
#include "host/text/csv_cells.h"

class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QToolBar;

namespace quor {

class ReportPreview : public QDialog {
 public:
  // The edge outlives it.
  ReportPreview(Reports reports, Date printed_on, Edge& edge, QWidget* parent);
  ~ReportPreview() override;

  int pages() const;
  // Each throws std::runtime_error, which names the file, and leaves no half of one.
  void save_pdf(const QString& path) const;
  void save_xlsx(const QString& path) const;
  void save_csv(const QString& path, const CsvStyle& style) const;

 private:
  void add_tools(QToolBar& bar);
  void turn_to(int page);
  void show_page();
  void print();
  void ask(const QString& ending, const std::vector<SavingWay>& ways);

  const Reports reports_;
  const Date printed_on_;
  Edge& edge_;
  std::unique_ptr<QPrinter> printer_;
  QPrintPreviewWidget* view_;
  QLabel* page_;
  QAction* back_ = nullptr;
  QAction* forward_ = nullptr;
};

}  // namespace quor
