// Draws any form from its layout and keeps what is drawn true to the form; what the user does goes to the form's
// controls as user acts, each inside the edge, and nowhere else. No form has code of its own here.
//
//   state      by
//   showing    its constructor, for a form that is loaded
//   released   release(), before the form is unloaded: nothing reaches the form any more
//
// Acts may be on their way through the view when the form asks to be closed: whoever shows it deletes it with
// deleteLater(), or after the loop in which it ran.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>
#include <map>
#include <memory>

#include "host/desktop/edge.h"
#include "host/desktop/form_acts.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"

namespace quor {

class FormLayout;

class FormView : public QWidget, private FormActs {
 public:
  enum class Place {
    kDialog,  // Enter presses the button that accepts, Esc the one that dismisses
    kWindow,  // beside other things: these two keys stay free
  };

  // The form and the edge outlive it.
  FormView(Form& form, Edge& edge, Place place, QWidget* parent = nullptr);
  ~FormView() override;

  Form& form() { return form_; }
  // The widget of the control; null for one that has none (a menu) or is not in the layout.
  QWidget* widget_of(const Control& control) const;
  // Gives the focus to the first control in which something can be entered.
  void focus_first();
  // See the table; a second call does nothing.
  void release();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Widgets;

  void act(const std::function<void()>& what) override;
  void keystroke(const std::function<void()>& what) override;
  bool acting() const override { return acts_ > 0; }
  void open_menus_at(const QPoint& place) override { menu_place_ = place; }
  bool choose_by_key(ListView& list, MenuKey key) override;

  QWidget* make_widget(Control& control, QWidget* parent);
  void watch_menus();
  void add_keys();
  void keep_tab_order();

  void show_change(Control& control, ControlChange change);
  void show_labels();
  void show_captions();

  bool press_first(ButtonRole role);
  void press(CommandButton& button);
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
  int acts_ = 0;  // on the stack
  bool released_ = false;
};

}  // namespace quor
