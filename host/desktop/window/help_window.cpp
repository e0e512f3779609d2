#include "host/desktop/window/help_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "host/desktop/window/help_pages.h"

namespace quor {

HelpWindow::HelpWindow(QWidget* above)
    : QDialog(above, Qt::Window),
      search_(new QLineEdit(this)),
      contents_(new QListWidget(this)),
      text_(new QTextBrowser(this)) {
  setWindowTitle("Pagalba");
  setAttribute(Qt::WA_DeleteOnClose);
  search_->setPlaceholderText("Ieškoti pagalboje");
  search_->setAccessibleName("Ieškoti pagalboje");
  search_->setClearButtonEnabled(true);
  contents_->setAccessibleName("Pagalbos turinys");
  text_->setAccessibleName("Pagalbos puslapis");
  text_->setOpenLinks(false);
  auto* const left = new QWidget(this);
  auto* const column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  auto* const label = new QLabel("&Turinys", left);
  label->setBuddy(contents_);
  for (QWidget* each : std::initializer_list<QWidget*>{search_, label, contents_}) column->addWidget(each);
  auto* const across = new QSplitter(this);
  across->addWidget(left);
  across->addWidget(text_);
  across->setStretchFactor(1, 1);
  across->setSizes({240, 620});
  auto* const whole = new QVBoxLayout(this);
  whole->addWidget(across);
  resize(880, 640);
  fill_contents();
  connect(search_, &QLineEdit::textChanged, this, [this] { fill_contents(); });
  connect(contents_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (item != nullptr) text_->setMarkdown(help_text(item->data(Qt::UserRole).toString()));
  });
  connect(text_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { show_page(link.path().remove(".md")); });
}

HelpWindow& HelpWindow::show_above(QWidget& above, const QString& page) {
  HelpWindow* window = nullptr;
  for (QObject* const child : above.children()) {
    if (auto* const open = dynamic_cast<HelpWindow*>(child)) window = open;
  }
  if (window == nullptr) window = new HelpWindow(&above);
  window->show_page(page);
  window->show();
  window->raise();
  window->activateWindow();
  window->text_->setFocus();
  return *window;
}

// The page that is shown stays, found or not.
void HelpWindow::fill_contents() {
  const QSignalBlocker silent(contents_);
  const QString shown = page();
  contents_->clear();
  for (const QString& found : pages_with(search_->text())) {
    auto* const item = new QListWidgetItem(help_title(found), contents_);
    item->setData(Qt::UserRole, found);
    if (found == shown) contents_->setCurrentItem(item);
  }
}

QString HelpWindow::page() const {
  return contents_->currentItem() == nullptr ? QString() : contents_->currentItem()->data(Qt::UserRole).toString();
}

void HelpWindow::show_page(const QString& page) {
  search_->clear();
  for (int row = 0; row < contents_->count(); ++row) {
    if (contents_->item(row)->data(Qt::UserRole).toString() == page) contents_->setCurrentRow(row);
  }
}

HelpKey::HelpKey(std::function<QString(QWidget& window)> page, QObject* parent)
    : QObject(parent), page_(std::move(page)) {
  qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return QObject::eventFilter(watched, event);
  show_help();
  return true;
}

// The help of the help is the help.
void HelpKey::show_help() const {
  QWidget* const window = QApplication::activeWindow();
  if (window != nullptr && dynamic_cast<HelpWindow*>(window) == nullptr)
    HelpWindow::show_above(*window, page_(*window));
}

}  // namespace quor
