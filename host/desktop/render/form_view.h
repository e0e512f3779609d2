// Draws any form from its layout and keeps what is drawn true to the form; what the user does goes to the form's
// controls as user acts, each inside the edge, and nowhere else. No form has code of its own here.
//
//   state      by
//   showing    its constructor, for a form that is loaded
//   released   release(), before the form is unloaded: nothing reaches the form any more
//
// Acts may be on their way through the view when the form asks to be closed: whoever shows it deletes it with
// deleteLater(), and never in the loop of a dialog that such an act has opened.
#pragma once

#include <QGroupBox>
#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <map>
#include <memory>

#include "host/desktop/edge/edge.h"
#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"

namespace quor {

class FormLayout;
class PassingMenu;

// What a window offers for a row of any list, by the row's tag.
using RowEntries = std::function<std::vector<ListEntry>(const std::string& tag)>;

class FormView : public QWidget, private FormActs {
 public:
  enum class Place {
    kDialog,  // Enter presses the button that accepts, Esc the one that dismisses
    kWindow,  // beside other things: these two keys stay free
  };

  // The form and the edge outlive it.
  FormView(Form& form, Edge& edge, Place place, QWidget* parent = nullptr);
  ~FormView() override;

  Form& form() const { return form_; }
  // The widget of the control; null for one that has none (a menu) or is not in the layout.
  QWidget* widget_of(const Control& control) const;
  // Gives the focus to the first control in which something can be entered.
  void focus_first();
  // The tag of the row chosen in the list or grid that has the focus, or else in the only one in sight; "" without one.
  std::string selected_tag() const;
  // What is typed into a date or a cell counts when it is left; this is such a moment. False when it was refused, which
  // the user is told.
  bool finish_typing();
  // Whether the form offers to write now; and writes, as its button does.
  bool can_write() const { return writing_button() != nullptr; }
  void write();
  // Keeps what a list shows as a file: `save` runs as a command. Without it lists do not offer that.
  void save_lists_by(const std::function<void(const ShownTable& table, TableFormat kind)>& save);
  // See the table; a second call does nothing.
  void release();

  // Told after each act of the user; after each key typed and the like; and after each button pressed.
  std::function<void()> on_acted;
  std::function<void()> on_keystroke;
  std::function<void(ButtonRole)> on_pressed;
  // Asked for the menu of a row.
  RowEntries row_entries;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Widgets;

  void act(const std::function<void()>& what) override;
  void command(const std::function<void()>& what) override;
  void keystroke(const std::function<void()>& what) override;
  bool acting() const override { return acts_ > 0; }
  void right_click(ListView& list, std::optional<std::size_t> row, const QPoint& place,
                   const std::vector<ListEntry>& own) override;
  void show_entries(const QPoint& place, const std::vector<ListEntry>& entries) override;
  bool choose_by_key(ListView& list, MenuKey key) override;

  QWidget* make_widget(Control& control, QWidget* parent);
  void watch_menus();
  void add_keys();
  void add_shortcut(const QKeySequence& key, ButtonRole role);
  void keep_tab_order();

  void show_change(Control& control, ControlChange change);
  void show_focus(const Control& control);
  void show_labels();
  void show_captions();

  // True when it has run and the view still shows its form.
  bool run(bool (Edge::*at)(QWidget*, const std::function<void()>&), const std::function<void()>& what);
  CommandButton* first_button(ButtonRole role) const;
  CommandButton* writing_button() const;
  bool press_first(ButtonRole role);
  void press(CommandButton& button);
  QWidget* focused_inside() const;
  void finish_and_click(CommandButton& button);
  void show_menu(PopupMenu& menu);

  Form& form_;
  Edge& edge_;
  const Place place_;
  std::unique_ptr<FormLayout> layout_;
  std::vector<std::pair<Control*, QWidget*>> widgets_;  // in the order of the layout
  std::map<const Control*, std::function<void(ControlChange)>> shows_;
  std::vector<std::pair<CommandButton*, QPushButton*>> buttons_;
  std::vector<PopupMenu*> menus_;
  QPoint menu_place_;
  std::vector<ListEntry> list_entries_;  // below what the form's menu offers next
  QPointer<PassingMenu> shown_menu_;
  bool menus_unseen_ = false;  // a menu that opens is used without being shown
  int acts_ = 0;               // on the stack
  bool released_ = false;
};

}  // namespace quor
