// The middle of the main window: the lists in the first tab, and each open form in one of its own.
//
// A form is loaded when it is opened and unloaded when its tab has gone; the registry of open objects hears of both.
#pragma once

#include <QTabWidget>
#include <memory>

#include "host/desktop/form_view.h"
#include "host/desktop/object_menu.h"

namespace quor {

class EditorTabs : public QTabWidget {
 public:
  // `lists` is what stands in the first tab, which cannot be closed. The application outlives the tabs.
  EditorTabs(DesktopApplication& application, QWidget* lists, QWidget* parent);
  ~EditorTabs() override;

  // Shows the form, which `entry` of `place` has answered, in front. `object` is what it shows: a key, the type code of
  // a new object, or "" for a form that is no editor of an object. Throws what the form's opening throws.
  void open(std::shared_ptr<Form> form, const std::string& object, const QString& opened_by);
  // Brings an open tab to the front; false when there is none.
  bool bring_forward(const std::string& object);
  bool bring_forward_opened_by(const QString& opened_by);
  void show_lists() { setCurrentIndex(0); }

  // Asks for what is not written yet; false when the user keeps the tab.
  bool close_tab(int index);
  // Closes every tab that the user does not keep; false when he keeps one.
  bool close_all();
  // The objects' names have changed.
  void show_titles();

  // The view in front; null while the lists are.
  FormView* current_view() const;

 private:
  struct Editor {
    std::shared_ptr<Form> form;
    FormView* view;
    QWidget* tab;  // around the view: a form larger than the window is scrolled
    QString opened_by;
  };
  int index_of(const Form& form) const;
  Editor* editor_at(int index);
  void set_title(const Editor& editor);
  void turned_to(int index);
  void remove(const Form& form);

  DesktopApplication& application_;
  std::vector<Editor> editors_;
};

}  // namespace quor
