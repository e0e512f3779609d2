#include "host/desktop/window/import_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include "host/desktop/answers/message_box.h"
#include "host/desktop/window/import_columns.h"
#include "host/exchange/table_heads.h"

namespace quor {

namespace {

QString text(std::string_view part) { return QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size())); }

template <typename Lines>
QStringList texts(const Lines& lines) {
  QStringList result;
  for (const auto& line : lines) result << QString::fromStdString(line_of(line));
  return result;
}

QString counts(const ImportedTable& table) {
  return QString("Naujų: %1, pakeistų: %2, nepakitusių: %3.").arg(table.added).arg(table.changed).arg(table.unchanged) +
         (table.warnings.empty() ? "" : QString(" Įspėjimų: %1.").arg(table.warnings.size()));
}

}  // namespace

ImportDialog::ImportDialog(DesktopApplication& application, QWidget* parent)
    : QDialog(parent),
      application_(application),
      file_(new QLineEdit(this)),
      table_(new QComboBox(this)),
      choose_columns_(new QCheckBox("&Stulpelių atitikmenys", this)),
      columns_(new ImportColumns(this)),
      state_(new QLabel("Pasirinkite failą: prieš importą matysite, kas keisis.", this)),
      lines_(new QPlainTextEdit(this)),
      choose_(new QPushButton("&Rinktis…", this)) {
  setWindowTitle("CSV failo importas");
  for (const StoredTable& each : stored_tables()) {
    table_->addItem(text(each.caption) + " (" + text(each.name) + ")", text(each.name));
  }
  table_->setCurrentIndex(-1);
  table_->setPlaceholderText("pagal failo stulpelius");
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  lines_->setReadOnly(true);
  lines_->setTabChangesFocus(true);
  lines_->setVisible(false);
  lines_->setMinimumHeight(160);
  lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
  lines_->setAccessibleName("Failo eilutės");
  columns_->setVisible(false);
  columns_->setMinimumHeight(180);
  choose_columns_->setEnabled(false);
  add_fields();
  listen();
  resize(720, sizeHint().height());
}

void ImportDialog::add_fields() {
  auto* const file_row = new QHBoxLayout;
  file_row->addWidget(file_, 1);
  file_row->addWidget(choose_);
  auto* const buttons = new QDialogButtonBox(this);
  start_ = buttons->addButton("&Importuoti", QDialogButtonBox::ActionRole);
  auto* const close = buttons->addButton("&Užverti", QDialogButtonBox::RejectRole);
  choose_->setAutoDefault(false);
  close->setAutoDefault(false);
  start_->setDefault(true);
  start_->setEnabled(false);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);

  auto* const form = new QFormLayout(this);
  auto* const file_label = new QLabel("&Failas", this);
  file_label->setBuddy(file_);
  form->addRow(file_label, file_row);
  form->addRow("&Lentelė", table_);
  form->addRow(choose_columns_);
  form->addRow(columns_);
  form->addRow(state_);
  form->addRow(lines_);
  form->addRow(buttons);
}

void ImportDialog::listen() {
  const auto at_edge = [this](void (ImportDialog::*what)()) {
    return [this, what] { application_.edge().act(this, [this, what] { (this->*what)(); }); };
  };
  connect(choose_, &QPushButton::clicked, this, [this, self = QPointer<ImportDialog>(this)] {
    const QString path =
        QFileDialog::getOpenFileName(this, "CSV failas", file_->text(), "CSV failai (*.csv);;Visi failai (*)");
    if (self && !path.isEmpty()) take_file(path);
  });
  connect(file_, &QLineEdit::textChanged, this, [this] { start_->setEnabled(false); });
  // Enter that ends the typing shows the file; the next one imports it.
  connect(
      file_, &QLineEdit::editingFinished, this,
      [this] {
        if (file_->text() != taken_ && !file_->text().isEmpty()) take_file(file_->text());
      },
      Qt::QueuedConnection);
  connect(table_, &QComboBox::activated, this, [this] {
    application_.edge().act(this, [this] {
      show_columns({});
      try_import();
    });
  });
  connect(choose_columns_, &QCheckBox::toggled, this, [this](bool shown) {
    columns_->setVisible(shown);
    grow();
  });
  columns_->on_change = at_edge(&ImportDialog::try_import);
  connect(start_, &QPushButton::clicked, this, at_edge(&ImportDialog::import_file));
}

const StoredTable* ImportDialog::table() const {
  return find_stored_table(table_->currentData().toString().toStdString());
}

QDateTime ImportDialog::time_of_file() const { return QFileInfo(taken_).lastModified(); }

// ---- the file, its table, its columns

void ImportDialog::take_file(const QString& path) {
  application_.edge().act(this, [&] {
    file_->setText(path);
    start_->setEnabled(false);
    taken_ = path;
    heads_.clear();
    columns_->show_nothing();
    table_->setCurrentIndex(-1);
    show_lines({});
    heads_ = heads_of_file(path.toStdString());
    find_table();
  });
}

void ImportDialog::find_table() {
  const HeadMapping kept = remembered_mapping(heads_);
  const StoredTable* found = nullptr;
  std::string why;
  try {
    found = &table_of_file(taken_.toStdString(), kept);
  } catch (const std::runtime_error& error) {
    why = error.what();
  }
  // Without one, the nearest with its columns to choose; when several fit, the user says which.
  const StoredTable* const shown = found != nullptr ? found : nearest_table(heads_);
  if (shown != nullptr && (found != nullptr || !fit_of(*shown, heads_, {}).fits())) {
    table_->setCurrentIndex(table_->findData(text(shown->name)));
    show_columns(kept);
  }
  if (found != nullptr) {
    try_import();
  } else {
    say(QString::fromStdString(why) + ". Pasirinkite lentelę ir nurodykite, ką reiškia failo stulpeliai.");
  }
}

void ImportDialog::show_columns(const HeadMapping& mapping) {
  choose_columns_->setEnabled(table() != nullptr);
  if (table() == nullptr || heads_.empty()) return;
  columns_->show_heads(*table(), heads_, mapping);
  choose_columns_->setChecked(!mapping.columns.empty() || !fit_of(*table(), heads_, mapping).fits());
}

// ---- what would come in

ImportedTable ImportDialog::bring_in(ImportRun run, bool into_closed_agreed) {
  const ImportSource source{table(), taken_.toStdString(), columns_->mapping()};
  return import_tables(application_.guard(), {source}, into_closed_agreed ? IntoClosed::kAgreed : IntoClosed::kRefused,
                       run)
      .front();
}

void ImportDialog::try_import() {
  show_lines({});
  start_->setEnabled(false);
  if (table() == nullptr || heads_.empty()) return;
  const HeadFit fit = fit_of(*table(), heads_, columns_->mapping());
  if (!fit.missing.empty()) {
    QStringList missing;
    for (const StoredColumn* column : fit.missing) missing << QString::fromStdString(column->words());
    say("Nurodykite, kurie failo stulpeliai yra: " + missing.join(", ") + ".");
    return;
  }
  taken_time_ = time_of_file();
  start_->setEnabled(true);
  try {
    try {
      show_tried(bring_in(ImportRun::kTry, false), 0);
    } catch (const ImportRefused& refused) {
      if (!refused.into_closed()) throw;
      show_tried(bring_in(ImportRun::kTry, true), refused.faults().size());
    }
  } catch (const ImportRefused& refused) {
    say(QString("Importuoti negalima. Klaidų: %1.").arg(refused.faults().size()));
    show_lines(texts(refused.faults()));
  }
}

void ImportDialog::show_tried(const ImportedTable& tried, std::size_t into_closed) {
  QStringList lines = texts(tried.warnings) + texts(tried.first);
  const std::size_t touched = tried.added + tried.changed;
  if (touched > tried.first.size()) lines << QString("… ir dar %1").arg(touched - tried.first.size());
  say("Dar neįrašyta. " + counts(tried) +
      (into_closed == 0 ? "" : QString(" Uždarytus mėnesius siekia eilučių: %1.").arg(into_closed)));
  show_lines(lines);
}

// ---- bringing it in

void ImportDialog::import_file() {
  if (time_of_file() != taken_time_) {
    take_file(taken_);
    say("Failas pasikeitė, peržiūrėkite iš naujo. " + state_->text());
    return;
  }
  say("Neįkelta.");
  try {
    ImportedTable done{};
    try {
      done = bring_in(ImportRun::kWrite, false);
    } catch (const ImportRefused& refused) {
      if (!refused.into_closed() || !agrees(refused)) throw;
      done = bring_in(ImportRun::kWrite, true);
    }
    // Heads that say it themselves need no memory.
    if (!fit_of(*table(), heads_, {}).fits()) remember_mapping(heads_, columns_->mapping());
    say("Įkelta. " + counts(done));
    show_lines(texts(done.warnings));
  } catch (const ImportRefused& refused) {
    say(QString("Neįkelta nieko. Klaidų: %1.").arg(refused.faults().size()));
    show_lines(texts(refused.faults()));
  }
}

void ImportDialog::say(const QString& text) {
  state_->setText(text);
  grow();
}

// To hold what it shows; it never becomes smaller under the user's hands.
void ImportDialog::grow() {
  layout()->activate();
  const int needed = qMax(layout()->totalHeightForWidth(width()), layout()->totalSizeHint().height());
  if (height() < needed) resize(width(), needed);
}

void ImportDialog::show_lines(const QStringList& lines) {
  lines_->setPlainText(lines.join('\n'));
  lines_->setVisible(!lines.empty());
  grow();
}

// The list may be long: it stands in the dialog behind the question.
bool ImportDialog::agrees(const ImportRefused& refused) {
  show_lines(texts(refused.faults()));
  const QString question = QString(
                               "Uždarytus mėnesius siekia failo eilučių: %1. Uždaryti dokumentai nesikeis. "
                               "Ar tikrai įkelti?")
                               .arg(refused.faults().size());
  const bool agreed =
      show_message_box(this, question, BoxIcon::kQuestion, BoxButtons::kYesNo, windowTitle()) == BoxAnswer::kYes;
  if (agreed) show_lines({});
  return agreed;
}

}  // namespace quor
