#include "host/report/report_pdf.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPdfWriter>
#include <stdexcept>

namespace quor {

namespace {

// The library's fonts need an application object; the desktop has its own. What the library has to say about a display
// that is not there is not for the user of a command.
class ApplicationObject {
 public:
  ApplicationObject() {
    if (QCoreApplication::instance() != nullptr) return;
    former_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    own_ = std::make_unique<QGuiApplication>(count_, words_);
  }
  ApplicationObject(const ApplicationObject&) = delete;
  ApplicationObject& operator=(const ApplicationObject&) = delete;
  ~ApplicationObject() {
    if (!own_) return;
    own_.reset();
    qInstallMessageHandler(former_);
  }

 private:
  char program_[5] = "quor", option_[10] = "-platform", platform_[10] = "offscreen";
  char* words_[4] = {program_, option_, platform_, nullptr};
  int count_ = 3;  // by reference: the application keeps it
  std::unique_ptr<QGuiApplication> own_;
  QtMessageHandler former_ = nullptr;
};

}  // namespace

std::string report_pdf(const Reports& reports, Date printed_on, const std::string& creator) {
  const ApplicationObject application;
  if (QFontDatabase::families().isEmpty()) throw std::runtime_error("PDF nesukurtas: sistemoje nėra nė vieno šrifto.");
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&file);
    writer.setCreator(QString::fromStdString(creator));
    if (!reports.empty()) writer.setTitle(QString::fromStdString(reports.front()->title));
    paint_reports(reports, printed_on, writer);
  }
  return file.data().toStdString();
}

}  // namespace quor
