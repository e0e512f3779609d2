#include "host/desktop/window/rights_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>

#include "host/company/rights.h"

namespace quor {

namespace {

constexpr int kFirstRight = 1;  // the column

std::string component_of(const QTreeWidgetItem& item) { return item.data(0, Qt::UserRole).toString().toStdString(); }

}  // namespace

RightsDialog::RightsDialog(DesktopApplication& application, QWidget* parent)
    : QDialog(parent),
      application_(application),
      users_(company_users(application)),
      list_(new QListWidget(this)),
      administrator_(new QCheckBox("&Administratorius: viskas leidžiama", this)),
      rights_(new QTreeWidget(this)) {
  setWindowTitle("Naudotojai ir teisės");
  auto* const users_label = new QLabel("&Naudotojai", this);
  users_label->setBuddy(list_);
  auto* const note = new QLabel("Kol naudotojų nėra, visiems leidžiama viskas.", this);
  auto* const grid = new QGridLayout(this);
  grid->addWidget(users_label, 0, 0, 1, 2);
  grid->addWidget(list_, 1, 0, 2, 2);
  grid->addWidget(administrator_, 1, 2);
  grid->addWidget(rights_, 2, 2);
  grid->addWidget(note, 4, 0, 1, 3);
  grid->setColumnStretch(2, 1);
  add_components();
  add_buttons();
  connect(list_, &QListWidget::currentRowChanged, this, [this] { show_user(); });
  connect(rights_, &QTreeWidget::itemChanged, this,
          [this](QTreeWidgetItem* item, int column) { take_check(item, column); });
  connect(administrator_, &QCheckBox::clicked, this, [this](bool checked) {
    if (CompanyUser* const user = current()) user->administrator = checked;
    show_user();
  });
  show_users(0);
  resize(860, 380);
}

void RightsDialog::add_components() {
  rights_->setHeaderLabels({"Dalis", "Peržiūrėti", "Kurti", "Naikinti", "Spausdinti", "Keisti"});
  rights_->setRootIsDecorated(false);
  for (const SecurityComponent& component : grantable_components(application_)) {
    auto* const item = new QTreeWidgetItem(rights_, {QString::fromStdString(component.Caption)});
    item->setData(0, Qt::UserRole, QString::fromStdString(component.Key));
    item->setToolTip(0, QString::fromStdString(component.Key));
  }
  for (int column = 0; column < rights_->columnCount(); ++column) rights_->resizeColumnToContents(column);
}

void RightsDialog::add_buttons() {
  auto* const grid = static_cast<QGridLayout*>(layout());
  auto* const add = new QPushButton("Nau&jas…", this);
  auto* const remove = new QPushButton("&Pašalinti", this);
  grid->addWidget(add, 3, 0);
  grid->addWidget(remove, 3, 1);
  auto* const buttons = new QDialogButtonBox(this);
  auto* const store_button = buttons->addButton("Į&rašyti", QDialogButtonBox::ActionRole);
  auto* const cancel = buttons->addButton("A&tšaukti", QDialogButtonBox::RejectRole);
  for (QPushButton* button : {add, remove, cancel}) button->setAutoDefault(false);
  store_button->setDefault(true);
  grid->addWidget(buttons, 3, 2);
  connect(add, &QPushButton::clicked, this, [this] { ask_new_user(); });
  connect(remove, &QPushButton::clicked, this, [this] { remove_user(); });
  connect(store_button, &QPushButton::clicked, this, [this] { application_.edge().act(this, [this] { store(); }); });
  connect(new QShortcut(Qt::CTRL | Qt::Key_S, this), &QShortcut::activated, store_button, &QPushButton::click);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

// ---- users

CompanyUser* RightsDialog::current() {
  const int row = list_->currentRow();
  return row < 0 || static_cast<std::size_t>(row) >= users_.size() ? nullptr : &users_[static_cast<std::size_t>(row)];
}

void RightsDialog::show_users(int current) {
  list_->clear();
  for (const CompanyUser& user : users_) list_->addItem(QString::fromStdString(user.name));
  list_->setCurrentRow(qMin(current, list_->count() - 1));
  show_user();
}

// Whoever is the first must be able to let others in.
void RightsDialog::ask_new_user() {
  QInputDialog question(this);
  question.setWindowTitle("Naujas naudotojas");
  question.setLabelText("Vardas");
  question.setTextValue(users_.empty() ? QString::fromStdString(application_.user()) : QString());
  question.setOkButtonText("&Gerai");
  question.setCancelButtonText("&Atšaukti");
  const QString name = question.exec() == QDialog::Accepted ? question.textValue().trimmed() : QString();
  if (name.isEmpty()) return;
  users_.push_back({name.toStdString(), users_.empty()});
  show_users(static_cast<int>(users_.size()) - 1);
}

void RightsDialog::remove_user() {
  const int row = list_->currentRow();
  if (current() == nullptr) return;
  users_.erase(users_.begin() + row);
  show_users(row);
}

// ---- rights of the user

void RightsDialog::show_user() {
  const QSignalBlocker silent(rights_);
  const CompanyUser* const user = current();
  administrator_->setEnabled(user != nullptr);
  administrator_->setChecked(user != nullptr && user->administrator);
  rights_->setEnabled(user != nullptr && !user->administrator);
  for (int i = 0; i < rights_->topLevelItemCount(); ++i) {
    QTreeWidgetItem& item = *rights_->topLevelItem(i);
    for (std::size_t right = 0; right < GrantedRights().size(); ++right) {
      bool granted = user != nullptr && user->administrator;
      if (user != nullptr && !granted) {
        const auto found = user->rights.find(component_of(item));
        granted = found != user->rights.end() && found->second[right];
      }
      item.setCheckState(kFirstRight + static_cast<int>(right), granted ? Qt::Checked : Qt::Unchecked);
    }
  }
}

void RightsDialog::take_check(QTreeWidgetItem* item, int column) {
  CompanyUser* const user = current();
  if (user == nullptr || column < kFirstRight) return;
  user->rights[component_of(*item)][static_cast<std::size_t>(column - kFirstRight)] =
      item->checkState(column) == Qt::Checked;
}

void RightsDialog::store() {
  store_company_users(application_, users_);
  accept();
}

}  // namespace quor
