// The middle of the main window: the lists in the first tab, and each open form in one of its own. Beside it a second
// one may stand, without lists, in which a preview is seen next to another.
//
// A form is loaded when it is opened and unloaded when its tab has gone; the registry of open objects hears of both.
#pragma once

#include <QTabWidget>
#include <memory>

#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/answers/object_menu.h"
#include "host/desktop/render/form_view.h"
#include "host/desktop/window/month_band.h"

namespace quor {

class EditorTabs : public QTabWidget {
 public:
  // `lists` is what stands in the first tab, which cannot be closed; null: none, and the tabs are seen only while there
  // is one. The application outlives the tabs.
  EditorTabs(DesktopApplication& application, QWidget* lists, QWidget* parent);
  ~EditorTabs() override;

  // Shows the form, which `entry` of `place` has answered, in front. `object` is what it shows: a key, the type code of
  // a new object, or "" for a form that is no editor of an object. Throws what the form's opening throws.
  void open(std::shared_ptr<Form> form, const std::string& object, const QString& opened_by);
  // Brings an open tab to the front; false when there is none.
  bool bring_forward(const std::string& object);
  bool bring_forward_opened_by(const QString& opened_by);
  void show_lists() { setCurrentIndex(0); }

  // Asks what to do with what is not written yet; false when the tab stays: the user keeps it, the writing did not
  // succeed, or a dialog is open.
  bool close_tab(int index);
  // Closes every tab that the user does not keep; false when he keeps one.
  bool close_all();
  // The objects' names have changed.
  void show_titles();
  // What bands above previews say from now on of a month.
  void say_of_months(MonthLine line) { month_line_ = std::move(line); }
  // What the menu of a row offers beside what form and list do, by the row's tag.
  void offer_for_rows(RowEntries entries) { row_entries_ = std::move(entries); }
  // Something may have been written: the band in front is asked again, the others when they come to the front.
  void refresh_band();

  // The view in front; null while the lists are.
  FormView* current_view() const;

 protected:
  void tabInserted(int index) override;
  void tabRemoved(int index) override;

 private:
  struct Editor {
    std::shared_ptr<Form> form;
    FormView* view;
    QWidget* tab;     // around the view and its band: a form larger than the window is scrolled
    MonthBand* band;  // null for what is no preview of a month
    QString opened_by;
    QString title = {};  // without the mark of a changed form
  };
  int index_of(const Form& form) const;
  Editor* editor_at(int index);
  MonthBand* make_band(Form& form, FormView& view, QWidget* parent);
  void find_title(Editor& editor);
  void show_title(const Editor& editor);
  void turned_to(int index);
  void turn_to(QWidget& tab);
  bool may_close(const Editor& editor);
  void remove(const Form& form);

  DesktopApplication& application_;
  const int fixed_;  // tabs that stay
  std::vector<Editor> editors_;
  MonthLine month_line_;
  RowEntries row_entries_;
  int written_ = 0;  // objects since the start
};

}  // namespace quor
