#include "host/desktop/window/first_start.h"

#include <QCommandLinkButton>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/help_pages.h"
#include "host/desktop/window/help_window.h"
#include "host/desktop/window/new_company_dialog.h"
#include "host/desktop/window/recent_companies.h"
#include "host/sample/sample_company.h"
#include "host/store/addresses.h"

namespace quor {

FirstStart::FirstStart(const QString& reason, const QString& sample, Edge& edge)
    : edge_(edge), sample_(sample), server_(new QLineEdit(this)) {
  setWindowTitle("Valstybės tarnautojų darbo užmokestis");
  auto* const said = new QLabel(reason, this);
  said->setTextFormat(Qt::PlainText);
  said->setWordWrap(true);
  auto* const make = new QCommandLinkButton(
      "&Sukurti pavyzdinę įmonę",
      "Trisdešimt išgalvotų darbuotojų: " + QString::fromStdString(shown_address(sample.toStdString())), this);
  auto* const make_other =
      new QCommandLinkButton("&Nauja įmonė…", "Tuščia, su įprastais nustatymais, arba didesnė pavyzdinė", this);
  auto* const file = new QCommandLinkButton("&Atverti įmonės failą…", "Įmonė, laikoma viename faile", this);
  auto* const label = new QLabel("&PostgreSQL adresas", this);
  label->setBuddy(server_);
  server_->setPlaceholderText("postgresql://naudotojas@serveris/bazė");
  auto* const connect_to = new QPushButton("P&risijungti", this);
  auto* const row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(server_, 1);
  row->addWidget(connect_to);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(said);
  column->addWidget(make);
  column->addWidget(make_other);
  column->addWidget(file);
  column->addLayout(row);
  if (QWidget* const last = recent()) column->addWidget(last);
  connect(make_other, &QPushButton::clicked, this, [this] { edge_.act(this, [this] { make_new(); }); });
  for (QPushButton* button : std::initializer_list<QPushButton*>{make_other, file, connect_to})
    button->setAutoDefault(false);
  make->setDefault(true);
  make->setFocus();
  setMinimumWidth(560);
  new HelpKey([](QWidget& window) { return help_page_of(window.windowTitle(), "company"); }, this);
  connect(make, &QPushButton::clicked, this, [this] { edge_.act(this, [this] { make_sample(); }); });
  connect(file, &QPushButton::clicked, this, [this] { open_file(); });
  const auto connect_server = [this] {
    if (!server_->text().isEmpty()) edge_.act(this, [this] { open_company(server_->text().trimmed()); });
  };
  connect(connect_to, &QPushButton::clicked, this, connect_server);
}

void FirstStart::make_sample() {
  const std::string address = sample_.toStdString();
  opened_ = {.database = Database::create(address, [](Database& made) { fill_sample_company(made); }),
             .address = address};
  accept();
}

void FirstStart::make_new() {
  NewCompanyDialog dialog(edge_, {}, this);
  const FreePointer pointer;
  dialog.exec();
  opened_ = dialog.take_company();
  if (opened_.database) accept();
}

// Null without any.
QWidget* FirstStart::recent() {
  const QStringList addresses = recent_companies();
  if (addresses.isEmpty()) return nullptr;
  auto* const box = new QGroupBox("Paskutinės įmonės", this);
  auto* const column = new QVBoxLayout(box);
  for (const QString& address : addresses) {
    auto* const button = new QPushButton(QString(address).replace('&', "&&"), box);
    button->setStyleSheet("text-align: left; padding: 4px");
    button->setAutoDefault(false);
    column->addWidget(button);
    connect(button, &QPushButton::clicked, this,
            [this, address] { edge_.act(this, [this, address] { open_company(address); }); });
  }
  return box;
}

void FirstStart::open_file() {
  const QString path =
      QFileDialog::getOpenFileName(this, "Įmonės failas", QDir::currentPath(), "Įmonės (*.quor);;Visi failai (*)");
  if (!path.isEmpty()) edge_.act(this, [&] { open_company(path); });
}

void FirstStart::open_company(const QString& address) {
  opened_ = {.database = Database::open(address.toStdString()), .address = address.toStdString()};
  accept();
}

}  // namespace quor
