#include "host/desktop/edge/error_dialog.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <cxxabi.h>
#include <memory>
#include <typeinfo>

#include "host/store/database.h"
#include "platform/data/error.h"

namespace quor {

namespace {

QString type_name(const std::exception& error) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(error).name(), nullptr, nullptr, &status), &std::free);
  return status == 0 ? name.get() : typeid(error).name();
}

struct Described {
  QString text;
  QString kind;
};

Described described(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const Error& error) {
    return {error.what(), QString("%1 %2").arg(type_name(error)).arg(static_cast<int>(error.kind()))};
  } catch (const StoreError& error) {
    return {error.what(), QString("%1 %2").arg(type_name(error)).arg(static_cast<int>(error.fault()))};
  } catch (const std::exception& error) {
    return {QString("Nenumatyta klaida: ") + error.what(), type_name(error)};
  } catch (...) {
    return {"Nenumatyta klaida.", "?"};
  }
}

QString as_sentence(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text;
}

}  // namespace

ErrorDialog::ErrorDialog(QWidget* parent)
    : QDialog(parent), text_(new QLabel(this)), more_(new QLabel(this)), details_(new QPlainTextEdit(this)) {
  setWindowTitle("Klaida");
  auto* const icon = new QLabel(this);
  const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(size, size));
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setMinimumWidth(360);
  more_->setVisible(false);
  details_->setReadOnly(true);
  details_->setTabChangesFocus(true);
  details_->setMinimumHeight(140);
  details_->setVisible(false);

  auto* const buttons = new QDialogButtonBox(this);
  auto* const show = buttons->addButton("&Išsamiau", QDialogButtonBox::ActionRole);
  auto* const copy = buttons->addButton("&Kopijuoti", QDialogButtonBox::ActionRole);
  auto* const close = buttons->addButton("&Gerai", QDialogButtonBox::AcceptRole);
  close->setDefault(true);
  show->setCheckable(true);
  connect(show, &QPushButton::toggled, this, [this](bool shown) { show_details(shown); });
  connect(copy, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(details()); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  auto* const grid = new QGridLayout(this);
  grid->setHorizontalSpacing(16);
  grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
  grid->addWidget(text_, 0, 1);
  grid->addWidget(more_, 1, 1);
  grid->addWidget(details_, 2, 0, 1, 2);
  grid->addWidget(buttons, 3, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
  close->setFocus();
}

void ErrorDialog::add(const std::exception_ptr& error) {
  const Described described_error = described(error);
  if (++count_ == 1) {
    text_->setText(as_sentence(described_error.text));
  } else {
    more_->setText(QString("Po jos įvyko dar klaidų: %1.").arg(count_ - 1));
    more_->setVisible(true);
  }
  QStringList details = {QDateTime::currentDateTime().toString("yyyy.MM.dd HH:mm:ss"),
                         "Programos versija: " + QCoreApplication::applicationVersion()};
  if (parentWidget() != nullptr) details << "Langas: " + parentWidget()->windowTitle();
  details << "Rūšis: " + described_error.kind << described_error.text << "";
  details_->appendPlainText(details.join('\n'));
}

QString ErrorDialog::text() const { return text_->text(); }
QString ErrorDialog::details() const { return details_->toPlainText(); }

void ErrorDialog::show_details(bool shown) {
  details_->setVisible(shown);
  adjustSize();
}

}  // namespace quor
