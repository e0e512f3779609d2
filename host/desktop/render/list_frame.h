// A form's list with what every list offers below it: finding, and the marked rows alone.
#pragma once

#include <QWidget>

#include "host/desktop/render/find_bar.h"
#include "host/desktop/render/list_view_widget.h"

namespace quor {

class ListFrame : public QWidget {
 public:
  ListFrame(ListView& list, FormActs& acts, const QString& name, QWidget* parent);

  ListViewWidget& list() { return *list_; }

  void open_find();
  // The next or the previous match; opens the bar when nothing is searched for.
  void find_again(SearchFrom from);
  void show_marked_only(bool marked_only);
  bool marked_only() const { return list_->marked_only(); }
  // Every row is shown again; the user stays on his row.
  void close_bar();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::vector<ListEntry> entries();
  void show_rows();

  ListViewWidget* const list_;
  FindBar* const bar_;
};

// The keys of lists for a whole form: they go to the list that has the focus, or else to the first one in sight.
void add_list_keys(QWidget& form);

}  // namespace quor
