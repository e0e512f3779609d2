#include "host/desktop/window/month_dialog.h"

#include <QCoreApplication>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

#include "host/payroll/calculated_month.h"

namespace quor {

namespace {

constexpr int kPause = 50;  // ms between two looks at what the user does

QString summary(const CalculatedMonth& calculated) {
  return QString("%1Apskaičiuota žmonių: %2 iš %3; pakeista dokumentų: %4; viršija ribą: %5; klaidų: %6.")
      .arg(calculated.cancelled ? "Nutraukta. " : "")
      .arg(calculated.done)
      .arg(calculated.all)
      .arg(calculated.changed)
      .arg(calculated.over_limit)
      .arg(calculated.faults.size());
}

void show_faults(QTreeWidget& list, const std::vector<PersonFault>& faults) {
  for (const PersonFault& fault : faults) {
    new QTreeWidgetItem(&list, {QString::fromStdString(fault.person), QString::fromStdString(fault.reason)});
  }
  list.resizeColumnToContents(0);
  list.setVisible(!faults.empty());
}

}  // namespace

MonthDialog::MonthDialog(DesktopApplication& application, const Month& month, QWidget* parent)
    : QDialog(parent),
      application_(application),
      month_(new QDateEdit(this)),
      state_(new QLabel("Pasirinkite mėnesį ir pradėkite.", this)),
      progress_(new QProgressBar(this)),
      faults_(new QTreeWidget(this)) {
  setWindowTitle("Mėnesio skaičiavimas");
  month_->setDisplayFormat("yyyy.MM");
  month_->setDate(QDate::fromString(QString::fromStdString(month.text()), "yyyy.MM"));
  month_->setCurrentSection(QDateTimeEdit::MonthSection);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  faults_->setHeaderLabels({"Pavardė, vardas", "Kodėl neapskaičiuota"});
  faults_->setRootIsDecorated(false);
  faults_->setVisible(false);
  faults_->setMinimumHeight(160);

  auto* const buttons = new QDialogButtonBox(this);
  start_ = buttons->addButton("&Skaičiuoti", QDialogButtonBox::ActionRole);
  close_ = buttons->addButton("&Užverti", QDialogButtonBox::RejectRole);
  start_->setDefault(true);
  close_->setAutoDefault(false);
  auto* const form = new QFormLayout(this);
  form->addRow("&Mėnuo", month_);
  form->addRow(progress_);
  form->addRow(state_);
  form->addRow(faults_);
  form->addRow(buttons);
  connect(start_, &QPushButton::clicked, this, [this] { application_.edge().act(this, [this] { calculate(); }); });
  connect(close_, &QPushButton::clicked, this, [this] { reject(); });
  setMinimumWidth(520);
}

void MonthDialog::reject() {
  if (running_) {
    cancelled_ = true;
  } else {
    QDialog::reject();
  }
}

void MonthDialog::calculate() {
  const Month month = Month::parse(month_->date().toString("yyyy-MM").toStdString());
  faults_->clear();
  cancelled_ = false;
  const auto set_running = [this](bool running) {
    running_ = running;
    start_->setEnabled(!running);
    month_->setEnabled(!running);
    close_->setText(running ? "&Nutraukti" : "&Užverti");
  };
  set_running(true);
  state_->setText("Skaičiuojama…");
  try {
    QElapsedTimer since;
    since.start();
    const CalculatedMonth calculated =
        calculate_month(application_, month,
                        {.department = {},
                         .progress = [this](std::int32_t done, std::int32_t all) { show_progress(done, all); },
                         .cancelled =
                             [this, &since] {
                               if (since.elapsed() >= kPause) {
                                 QCoreApplication::processEvents();
                                 since.restart();
                               }
                               return cancelled_;
                             }});
    set_running(false);
    state_->setText(summary(calculated));
    show_faults(*faults_, calculated.faults);
  } catch (...) {
    set_running(false);
    state_->setText("Neapskaičiuota.");
    throw;
  }
  close_->setFocus();
}

void MonthDialog::show_progress(int done, int all) {
  progress_->setRange(0, qMax(1, all));
  progress_->setValue(done);
}

}  // namespace quor
