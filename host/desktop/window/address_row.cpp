#include "host/desktop/window/address_row.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace quor {

namespace {

constexpr char kFiles[] = "Įmonės (*.quor);;Visi failai (*)";

}  // namespace

AddressRow::AddressRow(For purpose, QWidget* parent) : QWidget(parent), purpose_(purpose), field_(new QLineEdit(this)) {
  field_->setPlaceholderText("imone.quor arba postgresql://naudotojas@serveris/bazė");
  auto* const button = new QPushButton("&Rinktis…", this);
  button->setAutoDefault(false);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(field_, 1);
  row->addWidget(button);
  setFocusProxy(field_);
  connect(button, &QPushButton::clicked, this, [this] { choose(); });
}

QString AddressRow::address() const { return field_->text().trimmed(); }

void AddressRow::choose() {
  const QPointer<AddressRow> self(this);
  QString path = purpose_ == For::kOpening
                     ? QFileDialog::getOpenFileName(this, "Įmonės failas", field_->text(), kFiles)
                     : QFileDialog::getSaveFileName(this, "Naujos įmonės failas", field_->text(), kFiles);
  if (!self || path.isEmpty()) return;
  if (purpose_ == For::kMaking && !path.contains('.')) path += ".quor";
  field_->setText(path);
}

}  // namespace quor
