// A list of objects with a line in which one searches: what the selection dialog and the pane of a type's objects show.
//
// A search or a new reading leaves the user on his object, or else on the first row: what was searched for is mostly
// there. The keys that move in the list work while one types.
#pragma once

#include <QIcon>
#include <QWidget>
#include <functional>
#include <string>

#include "host/desktop/render/table_view.h"
#include "platform/data/recordset.h"

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;

namespace quor {

class ObjectListModel;

class ObjectList : public QWidget {
 public:
  enum class Sorting { kAsItCame, kByTheUser };  // by a click on a column's head

  // The rows' icon may be null. `list` as of object_lists.h.
  ObjectList(Recordset& list, Sorting sorting, const QIcon& icon, QWidget* parent);

  void show_list(Recordset& list);
  // The key of the object on which the user stands; "" when on none.
  std::string current() const;
  void stand_on(const std::string& key);
  // The key of the object at that place of the view; "" beside the rows.
  std::string key_at(const QPoint& place) const;
  // Is shown instead of how many objects there are; "" for the number.
  void show_instead_of_count(const std::string& text);

  // The next or the previous row of those that hold what is searched for, and around.
  void find_again(SearchFrom from);

  QLineEdit& search() { return *search_; }
  TableView& view() { return *view_; }
  QLabel& count() { return *count_; }  // beside the search, unless somebody places it elsewhere

  // Told of each key that the view gets, and of Enter in the search: true when it was meant for whoever listens.
  std::function<bool(int key)> on_key;
  // The user stands on another object, or on none.
  std::function<void()> on_current;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void set_up_view(Sorting sorting);
  void show_matches();
  void show_count();

  ObjectListModel* model_ = nullptr;
  QSortFilterProxyModel* const rows_;
  QLineEdit* const search_;
  TableView* const view_;
  QLabel* const count_;
  std::string instead_of_count_;
};

}  // namespace quor
