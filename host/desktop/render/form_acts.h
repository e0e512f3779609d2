// What the widgets of a form ask of the view that holds them: the way to the form.
#pragma once

#include <QPoint>
#include <functional>

#include "host/desktop/render/table_view.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"

namespace quor {

class FormActs {
 public:
  virtual ~FormActs() = default;

  // Runs a user's act at the edge; nothing once the view has let go of its form. A widget's handler ends with it: the
  // act may have opened dialogs.
  virtual void act(const std::function<void()>& what) = 0;
  // The same for a command, which may open a dialog: nothing while another act runs, whose dialog is the one open.
  virtual void command(const std::function<void()>& what) = 0;
  virtual void keystroke(const std::function<void()>& what) = 0;
  // Whether an act runs now: what the focus does meanwhile is the form's doing.
  virtual bool acting() const = 0;

  // The right button on the row of a list, or beside its rows. What the form's menu offers is shown there with the
  // list's own entries below it; without a menu of the form these alone.
  virtual void right_click(ListView& list, std::optional<std::size_t> row, const QPoint& place,
                           const std::vector<ListEntry>& own) = 0;
  // The entries alone.
  virtual void show_entries(const QPoint& place, const std::vector<ListEntry>& entries) = 0;
  // Runs the list's command of that key, without showing its menu. False when its menu has no such command.
  virtual bool choose_by_key(ListView& list, MenuKey key) = 0;
};

}  // namespace quor
