#include "host/desktop/answers/report_preview.h"

#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QVBoxLayout>

#include "host/desktop/edge/pointer.h"
#include "host/report/report_pdf.h"
#include "host/report/report_text.h"
#include "host/report/report_xlsx.h"
#include "host/store/whole_file.h"

namespace quor {

namespace {

// What the report shows (list, month, department); whose it is, where it does not say that.
QString file_name(const ReportData& report) {
  QStringList parts;
  for (const std::string& heading : report.headings) parts << QString::fromStdString(heading).simplified();
  if (parts.isEmpty()) parts << QString::fromStdString(report.title).simplified();
  return file_name_of(parts.join(' '));
}

}  // namespace

ReportPreview::ReportPreview(Reports reports, Date printed_on, Edge& edge, QWidget* parent)
    : QDialog(parent),
      reports_(std::move(reports)),
      printed_on_(printed_on),
      edge_(edge),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      view_(new QPrintPreviewWidget(printer_.get(), this)),
      page_(new QLabel(this)) {
  setWindowTitle(reports_.empty() ? QString() : QString::fromStdString(reports_.front()->title));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* const bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  add_tools(*bar);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(bar);
  column->addWidget(view_, 1);
  connect(view_, &QPrintPreviewWidget::paintRequested, this,
          [this](QPrinter* printer) { edge_.act(this, [&] { paint_reports(reports_, printed_on_, *printer); }); });
  connect(view_, &QPrintPreviewWidget::previewChanged, this, [this] { show_page(); });
  resize(900, 700);
  view_->fitToWidth();
  view_->setFocus();
}

ReportPreview::~ReportPreview() { delete view_; }  // before its printer

void ReportPreview::add_tools(QToolBar& bar) {
  const auto add = [&](const char* caption, const QKeySequence& key, auto run) {
    QAction* const action = bar.addAction(caption);
    action->setShortcut(key);
    action->setToolTip(key.isEmpty() ? QString() : key.toString(QKeySequence::NativeText));
    connect(action, &QAction::triggered, this, [this, run] { edge_.act(this, run); });
    return action;
  };
  add("Spausdinti…", QKeySequence::Print, [this] { print(); });
  add("Įrašyti PDF…", QKeySequence::Save, [this] {
    ask("pdf", {{"PDF failai", [this](const QString& path) { save_pdf(path); }}});
  });
  add("Įrašyti XLSX…", {}, [this] {
    ask("xlsx", {{"XLSX failai", [this](const QString& path) { save_xlsx(path); }}});
  });
  add("Įrašyti CSV…", {}, [this] {
    ask("csv", {{"CSV skaičiuoklei", [this](const QString& path) { save_csv(path, kSpreadsheetCsv); }},
                {"CSV kitoms programoms", [this](const QString& path) { save_csv(path, kProgramCsv); }}});
  });
  bar.addSeparator();
  back_ = add("◀", QKeySequence(Qt::CTRL | Qt::Key_PageUp), [this] { turn_to(view_->currentPage() - 1); });
  page_->setMargin(6);
  bar.addWidget(page_);
  forward_ = add("▶", QKeySequence(Qt::CTRL | Qt::Key_PageDown), [this] { turn_to(view_->currentPage() + 1); });
  bar.addSeparator();
  add("−", QKeySequence::ZoomOut, [this] { view_->zoomOut(); });
  add("+", QKeySequence::ZoomIn, [this] { view_->zoomIn(); });
  add("Visas plotis", {}, [this] { view_->fitToWidth(); });
  add("Visas puslapis", {}, [this] { view_->fitInView(); });
  bar.addSeparator();
  add("Uždaryti", {}, [this] { accept(); });
}

int ReportPreview::pages() const { return view_->pageCount(); }

void ReportPreview::turn_to(int page) {
  view_->setCurrentPage(page);
  show_page();
}

void ReportPreview::show_page() {
  page_->setText(QString("%1 iš %2").arg(view_->currentPage()).arg(pages()));
  back_->setEnabled(view_->currentPage() > 1);
  forward_->setEnabled(view_->currentPage() < pages());
}

void ReportPreview::print() {
  const FreePointer pointer;
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle("Spausdinti");
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  if (dialog.exec() == QDialog::Accepted) paint_reports(reports_, printed_on_, printer);
}

void ReportPreview::ask(const QString& ending, const std::vector<SavingWay>& ways) {
  ask_and_save(file_name(*reports_.front()), ending, ways, this);
}

void ReportPreview::save_pdf(const QString& path) const {
  write_whole_file(path.toStdString(), report_pdf(reports_, printed_on_, "Quor"));
}

void ReportPreview::save_xlsx(const QString& path) const {
  write_whole_file(path.toStdString(), report_xlsx(reports_, printed_on_));
}

void ReportPreview::save_csv(const QString& path, const CsvStyle& style) const {
  std::string text;
  for (const auto& report : reports_) text += text.empty() ? csv_text(*report, style) : csv_lines(*report, style);
  write_whole_file(path.toStdString(), text);
}

}  // namespace quor
