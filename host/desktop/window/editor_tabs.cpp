#include "host/desktop/window/editor_tabs.h"

#include <QApplication>
#include <QPointer>
#include <QScrollArea>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "host/desktop/answers/file_question.h"
#include "host/desktop/answers/message_box.h"
#include "host/desktop/answers/object_names.h"
#include "host/desktop/edge/mnemonics.h"
#include "host/desktop/window/registered_icons.h"
#include "platform/toolkit/date_picker.h"

namespace quor {

namespace {

constexpr int kWidestTitle = 220;

}  // namespace

EditorTabs::EditorTabs(DesktopApplication& application, QWidget* lists, QWidget* parent)
    : QTabWidget(parent), application_(application), fixed_(lists == nullptr ? 0 : 1) {
  setDocumentMode(true);
  setMovable(false);
  setTabsClosable(true);
  setElideMode(Qt::ElideNone);  // rather scrolled than unreadable
  setVisible(lists != nullptr);
  if (lists != nullptr) {
    addTab(lists, "Sąrašas");
    for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) tabBar()->setTabButton(0, side, nullptr);
  }
  connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) { close_tab(index); });
  connect(this, &QTabWidget::currentChanged, this, [this](int index) { turned_to(index); });
  application.open_objects().on_written([self = QPointer<EditorTabs>(this)](const std::string&) {
    if (self) ++self->written_;
  });
}

// The window goes at once: nothing is asked any more.
EditorTabs::~EditorTabs() {
  disconnect();
  while (!editors_.empty()) {
    const Editor editor = editors_.back();
    editors_.pop_back();
    application_.open_objects().leave(*editor.form);
    editor.form->on_close_request(nullptr);
    editor.view->release();
    delete editor.tab;
    try {
      editor.form->unload();
    } catch (const std::exception&) {
      // The program ends; there is nobody to tell.
    }
  }
}

void EditorTabs::open(std::shared_ptr<Form> form, const std::string& object, const QString& opened_by) {
  if (bring_forward(object)) return;
  if (!object.empty()) application_.open_objects().enter(object, *form);
  try {
    form->load();
  } catch (...) {
    application_.open_objects().leave(*form);
    throw;
  }
  if (form->close_requested()) {
    application_.open_objects().leave(*form);
    form->unload();
    return;
  }
  auto* const tab = new QWidget;
  auto* const scrolled = new QScrollArea(tab);
  scrolled->setFrameShape(QFrame::NoFrame);
  scrolled->setWidgetResizable(true);
  auto* const view = new FormView(*form, application_.edge(), FormView::Place::kWindow);
  view->save_lists_by([this, view](const ShownTable& table, TableFormat kind) {
    ask_and_save_table(table, kind, application_.Today(), view);
  });
  view->row_entries = row_entries_;
  scrolled->setWidget(view);
  MonthBand* const band = make_band(*form, *view, tab);
  auto* const column = new QVBoxLayout(tab);
  column->setContentsMargins(0, 0, 0, 0);
  if (band != nullptr) column->addWidget(band);
  column->addWidget(scrolled, 1);
  // The view's last breath needs the form.
  connect(view, &QObject::destroyed, [form] {});
  form->on_close_request([this, &shown = *form] { close_tab(index_of(shown)); });
  editors_.push_back({form, view, tab, band, opened_by});
  const int index = addTab(tab, "");
  view->on_keystroke = [this, tab] {
    if (const Editor* const editor = editor_at(indexOf(tab))) show_title(*editor);
  };
  view->on_acted = [this, show = view->on_keystroke] {
    show();
    refresh_band();
  };
  find_title(editors_.back());
  setCurrentIndex(index);
  view->focus_first();
}

MonthBand* EditorTabs::make_band(Form& form, FormView& view, QWidget* parent) {
  const DatePicker* const month = month_of_preview(form);
  if (month == nullptr) return nullptr;
  auto* const band = new MonthBand(
      month_line_, [this] { return application_.company().database().change_count(); }, parent);
  view.on_pressed = [band, month](ButtonRole role) {
    if (role == ButtonRole::kFill) band->show_month(Month::of(month->value()));
  };
  return band;
}

void EditorTabs::tabInserted(int index) {
  QTabWidget::tabInserted(index);
  setVisible(true);
}

void EditorTabs::tabRemoved(int index) {
  QTabWidget::tabRemoved(index);
  setVisible(count() > 0);
}

// ---- finding

int EditorTabs::index_of(const Form& form) const {
  const auto found =
      std::find_if(editors_.begin(), editors_.end(), [&](const Editor& each) { return each.form.get() == &form; });
  return found == editors_.end() ? -1 : indexOf(found->tab);
}

EditorTabs::Editor* EditorTabs::editor_at(int index) {
  const QWidget* const tab = widget(index);
  const auto found =
      std::find_if(editors_.begin(), editors_.end(), [&](const Editor& each) { return each.tab == tab; });
  return found == editors_.end() ? nullptr : &*found;
}

FormView* EditorTabs::current_view() const {
  const auto found = std::find_if(editors_.begin(), editors_.end(),
                                  [this](const Editor& each) { return each.tab == currentWidget(); });
  return found == editors_.end() ? nullptr : found->view;
}

bool EditorTabs::bring_forward(const std::string& object) {
  const Form* const form = application_.open_objects().find(object);
  const int index = form == nullptr ? -1 : index_of(*form);
  if (index < 0) return false;
  turn_to(*widget(index));
  return true;
}

bool EditorTabs::bring_forward_opened_by(const QString& opened_by) {
  const auto found =
      std::find_if(editors_.begin(), editors_.end(), [&](const Editor& each) { return each.opened_by == opened_by; });
  if (opened_by.isEmpty() || found == editors_.end()) return false;
  turn_to(*found->tab);
  return true;
}

// The keys go there, too, where the user was in it.
void EditorTabs::turn_to(QWidget& tab) {
  setCurrentWidget(&tab);
  if (tab.isAncestorOf(QApplication::focusWidget())) return;
  if (QWidget* const last = tab.focusWidget()) {
    last->setFocus(Qt::OtherFocusReason);
  } else if (FormView* const view = current_view()) {
    view->focus_first();
  }
}

void EditorTabs::turned_to(int index) {
  if (const Editor* const editor = editor_at(index)) application_.open_objects().activate(*editor->form);
  refresh_band();
}

void EditorTabs::refresh_band() {
  const Editor* const editor = editor_at(currentIndex());
  if (editor != nullptr && editor->band != nullptr) editor->band->refresh();
}

// ---- titles

void EditorTabs::find_title(Editor& editor) {
  const QString caption = QString::fromStdString(editor.form->caption()).trimmed();
  const std::string object = application_.open_objects().object_of(*editor.form);
  const QString name = object.empty() ? QString() : object_name(application_, object);
  const int index = indexOf(editor.tab);
  // A date alone does not say of what.
  editor.title = name.isEmpty() ? caption : name.front().isDigit() ? caption + ' ' + name : name;
  show_title(editor);
  setTabToolTip(index, name.isEmpty() ? caption : caption + ": " + name);
  setTabIcon(index, object.empty() ? QIcon() : object_icon(application_, type_of_key(object)));
}

void EditorTabs::show_title(const Editor& editor) {
  const int index = indexOf(editor.tab);
  const QString title = fontMetrics().elidedText(editor.title, Qt::ElideRight, kWidestTitle);
  const QString text = without_mnemonic(title) + (editor.form->has_unsaved_changes() ? " *" : "");
  if (text != tabText(index)) setTabText(index, text);
}

void EditorTabs::show_titles() {
  for (Editor& editor : editors_) find_title(editor);
}

// ---- closing

bool EditorTabs::close_tab(int index) {
  const Editor* const found = editor_at(index);
  if (found == nullptr) return true;
  // A form that is at work lets events through, and behind a dialog stands what has opened it: neither is closed under
  // its feet.
  if (application_.busy() > 0 || QApplication::activeModalWidget() != nullptr) return false;
  const Editor editor = *found;
  bool may = false;
  application_.edge().act(editor.view, [&] { may = may_close(editor); });
  if (may) remove(*editor.form);
  return may;
}

bool EditorTabs::may_close(const Editor& editor) {
  editor.view->finish_typing();
  if (!editor.form->has_unsaved_changes()) return true;
  if (!editor.view->can_write()) return application_.may_close(*editor.form);
  const SaveAnswer answer = ask_to_save(window(), editor.title);
  if (answer != SaveAnswer::kSave) return answer == SaveAnswer::kDiscard;
  // A form that could not write may show what is stored again: only its word that it wrote counts.
  const int written_before = written_;
  editor.view->write();
  return written_ > written_before && !editor.form->has_unsaved_changes();
}

// The act that has asked for it ends first.
void EditorTabs::remove(const Form& form) {
  const auto found =
      std::find_if(editors_.begin(), editors_.end(), [&](const Editor& each) { return each.form.get() == &form; });
  if (found == editors_.end()) return;
  const Editor closed = *found;
  editors_.erase(found);
  closed.form->on_close_request(nullptr);
  closed.view->release();
  application_.open_objects().leave(*closed.form);
  removeTab(indexOf(closed.tab));
  closed.tab->deleteLater();
  QMetaObject::invokeMethod(
      this, [this, closed] { application_.edge().act(this, [&] { closed.form->unload(); }); }, Qt::QueuedConnection);
}

bool EditorTabs::close_all() {
  while (count() > fixed_) {
    setCurrentIndex(count() - 1);
    if (!close_tab(count() - 1)) return false;
  }
  return true;
}

}  // namespace quor
