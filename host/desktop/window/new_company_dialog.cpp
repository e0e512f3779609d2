#include "host/desktop/window/new_company_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "host/desktop/window/address_row.h"
#include "host/sample/sample_company.h"
#include "host/sample/start_company.h"
#include "platform/data/error.h"

namespace quor {

namespace {

constexpr int kMostEmployees = 100000;

// The user has enough of waiting.
struct Cancelled {};

QPushButton& add_buttons(QDialog& dialog, QFormLayout& form, const QString& caption) {
  auto* const buttons = new QDialogButtonBox(&dialog);
  QPushButton* const accept = buttons->addButton(caption, QDialogButtonBox::ActionRole);
  auto* const cancel = buttons->addButton("A&tšaukti", QDialogButtonBox::RejectRole);
  cancel->setAutoDefault(false);
  accept->setDefault(true);
  form.addRow(buttons);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  return *accept;
}

std::string required_text(const QString& text, const char* what) {
  if (text.trimmed().isEmpty()) throw Error(ErrorKind::kRefused, std::string("Rašykite ") + what + ".");
  return text.trimmed().toStdString();
}

}  // namespace

NewCompanyDialog::NewCompanyDialog(Edge& edge, BeginWork begin_work, QWidget* parent)
    : QDialog(parent),
      edge_(edge),
      begin_work_(std::move(begin_work)),
      place_(new AddressRow(AddressRow::For::kMaking, this)),
      start_(new QRadioButton("T&uščia, su įprasta stažo skale, ribomis, kodais ir kategorijomis", this)),
      sample_(new QRadioButton("Pa&vyzdinė, su išgalvotais darbuotojais", this)),
      name_(new QLineEdit(this)),
      employees_(new QSpinBox(this)) {
  setWindowTitle("Nauja įmonė");
  employees_->setRange(1, kMostEmployees);
  employees_->setValue(30);
  employees_->setEnabled(false);
  start_->setChecked(true);
  auto* const form = new QFormLayout(this);
  form->addRow("&Failas arba serveris", place_);
  form->addRow(start_);
  form->addRow("Įstaigos &pavadinimas", name_);
  form->addRow(sample_);
  form->addRow("&Darbuotojų skaičius", employees_);
  QPushButton& accept = add_buttons(*this, *form, "&Sukurti");
  setMinimumWidth(600);
  connect(start_, &QRadioButton::toggled, this, [this](bool start) {
    name_->setEnabled(start);
    employees_->setEnabled(!start);
  });
  connect(&accept, &QPushButton::clicked, this, [this] { edge_.act(this, [this] { make(); }); });
}

Database::Fill NewCompanyDialog::filling(LongWork& work) const {
  if (!sample_->isChecked()) {
    const std::string name = required_text(name_->text(), "įstaigos pavadinimą");
    return [name](Database& made) { fill_start_company(made, name); };
  }
  SampleOptions options;
  options.employees = employees_->value();
  options.progress = [&work](std::int32_t done, std::int32_t all) {
    work.progress(done, all);
    if (work.cancelled()) throw Cancelled();
  };
  return [options](Database& made) { fill_sample_company(made, options); };
}

void NewCompanyDialog::make() {
  const std::string address = required_text(place_->address(), "failo vardą arba serverio adresą");
  const auto work = begin_work_ ? begin_work_("Kuriama įmonė") : std::make_unique<LongWork>();
  try {
    made_ = {.database = Database::create(address, filling(*work)), .address = address};
  } catch (const Cancelled&) {
    return;
  }
  accept();
}

OpenCompanyDialog::OpenCompanyDialog(Edge& edge, QWidget* parent)
    : QDialog(parent), edge_(edge), place_(new AddressRow(AddressRow::For::kOpening, this)) {
  setWindowTitle("Atverti įmonę");
  auto* const form = new QFormLayout(this);
  form->addRow("&Failas arba serveris", place_);
  QPushButton& accept = add_buttons(*this, *form, "&Atverti");
  setMinimumWidth(560);
  connect(&accept, &QPushButton::clicked, this, [this] { edge_.act(this, [this] { open(); }); });
}

void OpenCompanyDialog::open() {
  const std::string address = required_text(place_->address(), "failo vardą arba serverio adresą");
  opened_ = {.database = Database::open(address), .address = address};
  accept();
}

}  // namespace quor
