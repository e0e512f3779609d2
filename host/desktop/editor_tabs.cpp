#include "host/desktop/editor_tabs.h"

#include <QScrollArea>
#include <QTabBar>
#include <algorithm>

#include "host/desktop/mnemonics.h"
#include "host/desktop/registered_icons.h"

namespace quor {

EditorTabs::EditorTabs(DesktopApplication& application, QWidget* lists, QWidget* parent)
    : QTabWidget(parent), application_(application) {
  setDocumentMode(true);
  setMovable(false);
  setTabsClosable(true);
  setElideMode(Qt::ElideRight);
  addTab(lists, "Sąrašas");
  for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) tabBar()->setTabButton(0, side, nullptr);
  connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) { close_tab(index); });
  connect(this, &QTabWidget::currentChanged, this, [this](int index) { turned_to(index); });
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
  auto* const tab = new QScrollArea;
  tab->setFrameShape(QFrame::NoFrame);
  tab->setWidgetResizable(true);
  auto* const view = new FormView(*form, application_.edge(), FormView::Place::kWindow);
  tab->setWidget(view);
  // The view's last breath needs the form.
  connect(view, &QObject::destroyed, [form] {});
  form->on_close_request([this, &shown = *form] { close_tab(index_of(shown)); });
  editors_.push_back({form, view, tab, opened_by});
  const int index = addTab(tab, "");
  set_title(editors_.back());
  setCurrentIndex(index);
  view->focus_first();
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
  setCurrentIndex(index);
  return true;
}

bool EditorTabs::bring_forward_opened_by(const QString& opened_by) {
  const auto found =
      std::find_if(editors_.begin(), editors_.end(), [&](const Editor& each) { return each.opened_by == opened_by; });
  if (opened_by.isEmpty() || found == editors_.end()) return false;
  setCurrentWidget(found->tab);
  return true;
}

void EditorTabs::turned_to(int index) {
  if (const Editor* const editor = editor_at(index)) application_.open_objects().activate(*editor->form);
}

// ---- titles

void EditorTabs::set_title(const Editor& editor) {
  const QString caption = QString::fromStdString(editor.form->caption()).trimmed();
  const std::string object = application_.open_objects().object_of(*editor.form);
  const QString name = object.empty() ? QString() : object_name(application_, object);
  const int index = indexOf(editor.tab);
  // A date alone does not say of what.
  const QString title = name.isEmpty() ? caption : name.front().isDigit() ? caption + ' ' + name : name;
  setTabText(index, without_mnemonic(title));
  setTabToolTip(index, name.isEmpty() ? caption : caption + ": " + name);
  setTabIcon(index, object.empty() ? QIcon() : object_icon(application_, object.substr(0, kTypeCodeLength)));
}

void EditorTabs::show_titles() {
  for (const Editor& editor : editors_) set_title(editor);
}

// ---- closing

bool EditorTabs::close_tab(int index) {
  const Editor* const editor = editor_at(index);
  // A form that is at work lets events through: it is not closed under its feet.
  if (editor == nullptr || application_.busy() > 0) return editor == nullptr;
  const std::shared_ptr<Form> form = editor->form;
  bool may = false;
  application_.edge().act(editor->view, [&] { may = application_.may_close(*form); });
  if (may) remove(*form);
  return may;
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
  for (int index = count() - 1; index > 0; --index) {
    setCurrentIndex(index);
    if (!close_tab(index)) return false;
  }
  return true;
}

}  // namespace quor
