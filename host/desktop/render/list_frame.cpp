#include "host/desktop/render/list_frame.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace quor {

ListFrame::ListFrame(ListView& list, FormActs& acts, const QString& name, QWidget* parent)
    : QWidget(parent), list_(new ListViewWidget(list, acts, name, this)), bar_(new FindBar(this)) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(list_, 1);
  column->addWidget(bar_);
  bar_->hide();
  bar_->on_find = [this](const QString& text, SearchFrom from) { return list_->find(text, from); };
  bar_->on_marked = [this](bool marked_only) { show_marked_only(marked_only); };
  bar_->on_close = [this] { close_bar(); };
  bar_->on_move = [this](QKeyEvent& event) { QCoreApplication::sendEvent(list_, &event); };
  list_->own_entries = [this] { return entries(); };
  list_->on_rows = [this] { show_rows(); };
}

void ListFrame::open_find() {
  bar_->show();
  bar_->focus_text();
}

void ListFrame::find_again(SearchFrom from) {
  if (bar_->isHidden() || !bar_->searches()) return open_find();
  bar_->find(from);
}

void ListFrame::show_marked_only(bool marked_only) {
  if (marked_only != list_->marked_only()) list_->show_marked_only(marked_only);
  if (marked_only) {
    bar_->show();
  } else if (!bar_->searches()) {
    close_bar();
  }
}

void ListFrame::close_bar() {
  const bool had_focus = bar_->isAncestorOf(window()->focusWidget());
  bar_->forget_text();
  bar_->hide();
  list_->find({}, SearchFrom::kThisRow);
  if (list_->marked_only()) list_->show_marked_only(false);
  if (had_focus) list_->setFocus();
}

void ListFrame::show_rows() {
  bar_->show_rows(list_->marked_only(), list_->model()->rowCount(), static_cast<int>(list_->all_rows()));
}

std::vector<ListEntry> ListFrame::entries() {
  std::vector<ListEntry> entries = {
      {"Ieškoti sąraše…\tCtrl+F", [this] { open_find(); }},
      {"Tik pažymėtas eilutes\tCtrl+Shift+F", [this] { show_marked_only(!marked_only()); }, true, marked_only()}};
  for (ListEntry& entry : list_->copy_and_save_entries()) entries.push_back(std::move(entry));
  return entries;
}

// What the list has not used.
void ListFrame::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || bar_->isHidden()) return QWidget::keyPressEvent(event);
  close_bar();
}

void add_list_keys(QWidget& form) {
  const auto add = [&form](const QKeySequence& key, const std::function<void(ListFrame&)>& act) {
    auto* const shortcut = new QShortcut(key, &form);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &form, [&form, act] {
      ListFrame* used = nullptr;
      for (QWidget* child : form.findChildren<QWidget*>()) {
        auto* const frame = dynamic_cast<ListFrame*>(child);
        if (frame == nullptr || !frame->list().isVisible() || !frame->list().isEnabled()) continue;
        if (used == nullptr || frame->isAncestorOf(form.window()->focusWidget())) used = frame;
      }
      if (used != nullptr) act(*used);
    });
  };
  add(QKeySequence::Find, [](ListFrame& frame) { frame.open_find(); });
  add(Qt::Key_F3, [](ListFrame& frame) { frame.find_again(SearchFrom::kNextRow); });
  add(Qt::SHIFT | Qt::Key_F3, [](ListFrame& frame) { frame.find_again(SearchFrom::kPreviousRow); });
  add(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [](ListFrame& frame) { frame.show_marked_only(!frame.marked_only()); });
}

}  // namespace quor
