#include "host/desktop/render/form_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "host/desktop/edge/mnemonics.h"
#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/render/accessible_names.h"
#include "host/desktop/render/control_widgets.h"
#include "host/desktop/render/date_edit.h"
#include "host/desktop/render/form_layout.h"
#include "host/desktop/render/grid_widget.h"
#include "host/desktop/render/list_frame.h"
#include "host/desktop/render/text_box_edit.h"

namespace quor {

namespace {

struct RoleKey {
  ButtonRole role;
  QKeySequence key;
  bool in_dialogs_only;
};

const std::vector<RoleKey>& role_keys() {
  static const std::vector<RoleKey> keys = {
      {ButtonRole::kAccept, Qt::Key_Enter, true},
      {ButtonRole::kDismiss, Qt::Key_Escape, true},
      {ButtonRole::kWrite, Qt::CTRL | Qt::Key_S, false},
      {ButtonRole::kNew, Qt::CTRL | Qt::Key_N, false},
      {ButtonRole::kFill, Qt::Key_F5, false},
      {ButtonRole::kPrint, Qt::CTRL | Qt::Key_P, false},
  };
  return keys;
}

}  // namespace

FormView::FormView(Form& form, Edge& edge, Place place, QWidget* parent)
    : QWidget(parent), form_(form), edge_(edge), place_(place) {
  layout_ =
      std::make_unique<FormLayout>([this](Control& control, QWidget* inside) { return make_widget(control, inside); });
  layout_->lay_out(form.layout(), this);
  watch_menus();
  add_keys();
  keep_tab_order();
  show_labels();
  show_captions();
  name_for_readers(form, widgets_, layout_->labels());
}

FormView::~FormView() { release(); }

void FormView::release() {
  released_ = true;
  for (Control* control : form_.controls()) control->observe(nullptr);
}

// ---- the controls and their widgets

QWidget* FormView::make_widget(Control& control, QWidget* parent) {
  ControlWidget made = make_control_widget(
      control, {parent, *this, QString::fromStdString(form_.caption()), [this](CommandButton& b) { press(b); }});
  made.show(ControlChange::kContent);
  widgets_.emplace_back(&control, made.widget);
  shows_[&control] = std::move(made.show);
  control.observe([this, &control](ControlChange change) { show_change(control, change); });
  if (auto* const button = dynamic_cast<CommandButton*>(&control)) {
    buttons_.emplace_back(button, static_cast<QPushButton*>(made.widget));
  }
  return made.frame != nullptr ? made.frame : made.widget;
}

void FormView::watch_menus() {
  for (Control* control : form_.controls()) {
    auto* const menu = dynamic_cast<PopupMenu*>(control);
    if (menu == nullptr) continue;
    menus_.push_back(menu);
    // The handler that has opened it goes on first.
    menu->observe([this, menu](ControlChange) {
      if (menu->is_open() && !menus_unseen_)
        QMetaObject::invokeMethod(
            this, [this, menu] { show_menu(*menu); }, Qt::QueuedConnection);
    });
  }
}

void FormView::keep_tab_order() {
  for (std::size_t i = 1; i < widgets_.size(); ++i) setTabOrder(widgets_[i - 1].second, widgets_[i].second);
}

QWidget* FormView::widget_of(const Control& control) const {
  const auto found =
      std::find_if(widgets_.begin(), widgets_.end(), [&](const auto& each) { return each.first == &control; });
  return found == widgets_.end() ? nullptr : found->second;
}

void FormView::focus_first() {
  QWidget* button = nullptr;
  for (const auto& [control, widget] : widgets_) {
    if (!widget->isEnabled() || widget->isHidden() || widget->focusPolicy() == Qt::NoFocus) continue;
    if (dynamic_cast<const CommandButton*>(control) != nullptr) {
      if (button == nullptr) button = widget;
      continue;
    }
    const auto* const box = dynamic_cast<const TextBox*>(control);
    if (box != nullptr && box->read_only()) continue;
    widget->setFocus(Qt::TabFocusReason);
    return;
  }
  if (button != nullptr) button->setFocus(Qt::TabFocusReason);
}

void FormView::show_change(Control& control, ControlChange change) {
  if (change == ControlChange::kFocus) return show_focus(control);
  shows_[&control](change);
  if (change == ControlChange::kState) show_labels();
  if (change == ControlChange::kContent && dynamic_cast<CommandButton*>(&control) != nullptr) show_captions();
}

void FormView::show_focus(const Control& control) {
  QWidget* const widget = widget_of(control);
  if (widget == nullptr) return;
  for (QWidget* inside = widget; inside != this && inside != nullptr; inside = inside->parentWidget()) {
    auto* const pages = dynamic_cast<QTabWidget*>(inside);
    if (pages == nullptr) continue;
    for (int page = 0; page < pages->count(); ++page) {
      if (pages->widget(page)->isAncestorOf(widget)) pages->setCurrentIndex(page);
    }
  }
  widget->setFocus(Qt::OtherFocusReason);
}

void FormView::show_labels() {
  const auto visible = [](const Control* control) { return control->visible(); };
  const auto enabled = [](const Control* control) { return control->enabled() && control->visible(); };
  for (const FieldLabel& label : layout_->labels()) {
    label.label->setVisible(std::any_of(label.controls.begin(), label.controls.end(), visible));
    label.label->setEnabled(std::any_of(label.controls.begin(), label.controls.end(), enabled));
  }
}

// Buttons come first: what they do is reached most often.
void FormView::show_captions() {
  std::vector<QString> captions;
  for (const auto& [button, widget] : buttons_) captions.push_back(QString::fromStdString(button->caption()));
  for (const FieldLabel& label : layout_->labels()) captions.push_back(label.text);
  const std::vector<QString> marked = with_mnemonics(captions);
  std::size_t next = 0;
  for (const auto& [button, widget] : buttons_) widget->setText(marked[next++]);
  for (const FieldLabel& label : layout_->labels()) label.label->setText(marked[next++]);
}

// ---- the user's acts

bool FormView::run(bool (Edge::*at)(QWidget*, const std::function<void()>&), const std::function<void()>& what) {
  if (released_) return false;
  const QPointer<FormView> self(this);
  ++acts_;
  (edge_.*at)(this, what);
  return self && --acts_ == 0 && !released_;
}

void FormView::act(const std::function<void()>& what) {
  if (run(&Edge::act, what) && on_acted) on_acted();
}

void FormView::keystroke(const std::function<void()>& what) {
  if (run(&Edge::keystroke, what) && on_keystroke) on_keystroke();
}

void FormView::command(const std::function<void()>& what) {
  if (acts_ == 0) act(what);
}

void FormView::add_keys() {
  add_list_keys(*this);
  for (const RoleKey& each : role_keys()) {
    if (each.in_dialogs_only && place_ != Place::kDialog) continue;
    bool used = false;
    for (const auto& [button, widget] : buttons_) {
      if (button->role() != each.role) continue;
      widget->setToolTip(each.key.toString(QKeySequence::NativeText));
      if (each.role == ButtonRole::kAccept && !used) widget->setDefault(true);
      used = true;
    }
    if (used && !each.in_dialogs_only) add_shortcut(each.key, each.role);
  }
  // What a dialog accepts it writes, or hands over to be written.
  const auto writes = [](const auto& each) { return each.first->role() == ButtonRole::kWrite; };
  if (place_ == Place::kDialog && std::none_of(buttons_.begin(), buttons_.end(), writes)) {
    add_shortcut(Qt::CTRL | Qt::Key_S, ButtonRole::kAccept);
  }
}

void FormView::save_lists_by(const std::function<void(const ShownTable& table, TableFormat kind)>& save) {
  for (const auto& [control, widget] : widgets_) {
    auto* const list = dynamic_cast<TableView*>(widget);
    if (list == nullptr) continue;
    list->on_save = [this, list, save](TableFormat kind) {
      command([&] { save(shown_table(*list->model(), QString::fromStdString(form_.caption())), kind); });
    };
  }
}

void FormView::add_shortcut(const QKeySequence& key, ButtonRole role) {
  auto* const shortcut = new QShortcut(key, this);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, this, [this, role] { press_first(role); });
}

// What no control has used for itself.
void FormView::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  if (place_ == Place::kDialog && event->key() == Qt::Key_Escape) used = press_first(ButtonRole::kDismiss);
  if (place_ == Place::kDialog && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    auto* const focused = dynamic_cast<QPushButton*>(QApplication::focusWidget());
    if (focused != nullptr && isAncestorOf(focused)) {
      focused->click();
      used = true;
    } else {
      used = press_first(ButtonRole::kAccept);
    }
  }
  if (!used) QWidget::keyPressEvent(event);
}

CommandButton* FormView::first_button(ButtonRole role) const {
  for (const auto& [button, widget] : buttons_) {
    if (button->role() == role && button->enabled() && button->visible()) return button;
  }
  return nullptr;
}

// A dialog without a button for writing writes, or hands over to be written, what it accepts.
CommandButton* FormView::writing_button() const {
  CommandButton* const button = first_button(ButtonRole::kWrite);
  return button == nullptr && place_ == Place::kDialog ? first_button(ButtonRole::kAccept) : button;
}

bool FormView::press_first(ButtonRole role) {
  CommandButton* const button = first_button(role);
  if (button != nullptr) press(*button);
  return button != nullptr;
}

void FormView::press(CommandButton& button) {
  if (acts_ == 0) finish_and_click(button);
}

void FormView::write() {
  if (CommandButton* const button = writing_button()) finish_and_click(*button);
}

// The window's, too, while a question stands before it.
QWidget* FormView::focused_inside() const {
  QWidget* const focused = window()->focusWidget();
  return focused != nullptr && isAncestorOf(focused) ? focused : nullptr;
}

bool FormView::finish_typing() {
  QWidget* const focused = focused_inside();
  if (auto* const date = dynamic_cast<DateEdit*>(focused)) date->interpretText();
  for (QWidget* inside = focused; inside != nullptr && inside != this; inside = inside->parentWidget()) {
    if (auto* const grid = dynamic_cast<GridWidget*>(inside)) return grid->finish_typing();
  }
  return true;
}

std::string FormView::selected_tag() const {
  const QWidget* const focused = focused_inside();
  std::vector<std::string> seen;
  for (const auto& [control, widget] : widgets_) {
    const auto* const list = dynamic_cast<const ListView*>(control);
    const auto* const grid = dynamic_cast<const Grid*>(control);
    if (list == nullptr && (grid == nullptr || grid->row_count() == 0)) continue;
    const std::string& tag = list != nullptr ? list->selected_tag() : grid->row_tag(grid->range().first_row);
    if (focused != nullptr && (widget == focused || widget->isAncestorOf(focused))) return tag;
    if (widget->isVisible()) seen.push_back(tag);
  }
  return seen.size() == 1 ? seen.front() : "";
}

// A button pressed by a key has not taken the focus: what is typed in the box that has it is finished first.
void FormView::finish_and_click(CommandButton& button) {
  const QPointer<FormView> self(this);
  const QPointer<TextBoxEdit> box(dynamic_cast<TextBoxEdit*>(focused_inside()));
  const ButtonRole role = button.role();
  if (!finish_typing()) return;
  act([&] {
    if (box) box->leave_box();
    button.click();
  });
  if (box && box->hasFocus()) keystroke([&] { box->enter_box(); });
  if (self && !released_ && on_pressed) on_pressed(role);
}

}  // namespace quor
