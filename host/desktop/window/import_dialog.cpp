#include "host/desktop/window/import_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "host/desktop/answers/message_box.h"
#include "host/exchange/import.h"

namespace quor {

ImportDialog::ImportDialog(DesktopApplication& application, QWidget* parent)
    : QDialog(parent),
      application_(application),
      table_(new QComboBox(this)),
      file_(new QLineEdit(this)),
      state_(new QLabel("Įkeliama visa arba nieko.", this)),
      faults_(new QPlainTextEdit(this)) {
  setWindowTitle("CSV failo importas");
  for (const StoredTable& table : stored_tables()) {
    const auto text = [](std::string_view part) {
      return QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()));
    };
    table_->addItem(text(table.caption) + " (" + text(table.name) + ")", text(table.name));
  }
  auto* const choose = new QPushButton("&Rinktis…", this);
  auto* const file_row = new QHBoxLayout;
  file_row->addWidget(file_, 1);
  file_row->addWidget(choose);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  faults_->setReadOnly(true);
  faults_->setTabChangesFocus(true);
  faults_->setVisible(false);
  faults_->setMinimumHeight(160);
  auto* const buttons = new QDialogButtonBox(this);
  start_ = buttons->addButton("Į&kelti", QDialogButtonBox::ActionRole);
  auto* const close = buttons->addButton("&Užverti", QDialogButtonBox::RejectRole);
  choose->setAutoDefault(false);
  close->setAutoDefault(false);
  start_->setDefault(true);
  start_->setEnabled(false);

  auto* const form = new QFormLayout(this);
  auto* const file_label = new QLabel("&Failas", this);
  file_label->setBuddy(file_);
  form->addRow(file_label, file_row);
  form->addRow("&Lentelė", table_);
  form->addRow(state_);
  form->addRow(faults_);
  form->addRow(buttons);
  setMinimumWidth(560);
  connect(choose, &QPushButton::clicked, this, [this] {
    const QString path =
        QFileDialog::getOpenFileName(this, "CSV failas", file_->text(), "CSV failai (*.csv);;Visi failai (*)");
    if (!path.isEmpty()) take_file(path);
  });
  connect(file_, &QLineEdit::textChanged, this, [this](const QString& text) { start_->setEnabled(!text.isEmpty()); });
  connect(start_, &QPushButton::clicked, this, [this] { application_.edge().act(this, [this] { import_file(); }); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void ImportDialog::take_file(const QString& path) {
  file_->setText(path);
  const int named_like_it = table_->findData(QFileInfo(path).completeBaseName());
  if (named_like_it >= 0) table_->setCurrentIndex(named_like_it);
}

void ImportDialog::import_file() {
  const StoredTable* const table = find_stored_table(table_->currentData().toString().toStdString());
  faults_->clear();
  faults_->setVisible(false);
  state_->setText("Neįkelta.");
  const auto bring_in = [&](IntoClosed into_closed) {
    for (const ImportedTable& done :
         import_tables(application_.guard(), {{table, file_->text().toStdString()}}, into_closed)) {
      state_->setText(QString("Įkelta. Naujų: %1, pakeistų: %2, nepakitusių: %3.")
                          .arg(done.added)
                          .arg(done.changed)
                          .arg(done.unchanged) +
                      (done.warnings.empty() ? "" : QString(" Įspėjimų: %1.").arg(done.warnings.size())));
      list(done.warnings);
    }
  };
  try {
    try {
      bring_in(IntoClosed::kRefused);
    } catch (const ImportRefused& refused) {
      if (!refused.into_closed() || !agrees(refused)) throw;
      bring_in(IntoClosed::kAgreed);
    }
  } catch (const ImportRefused& refused) {
    state_->setText(QString("Neįkelta nieko. Klaidų: %1.").arg(refused.faults().size()));
    list(refused.faults());
  }
}

void ImportDialog::list(const std::vector<ImportFault>& lines) {
  faults_->clear();
  for (const ImportFault& line : lines) faults_->appendPlainText(QString::fromStdString(line_of(line)));
  faults_->setVisible(!lines.empty());
}

// The list may be long: it stands in the dialog behind the question.
bool ImportDialog::agrees(const ImportRefused& refused) {
  list(refused.faults());
  const QString text = QString(
                           "Uždarytus mėnesius siekia failo eilučių: %1. Uždaryti dokumentai nesikeis. "
                           "Ar tikrai įkelti?")
                           .arg(refused.faults().size());
  const bool agreed =
      show_message_box(this, text, BoxIcon::kQuestion, BoxButtons::kYesNo, windowTitle()) == BoxAnswer::kYes;
  if (agreed) list({});
  return agreed;
}

}  // namespace quor
