// The columns of a file beside those of a table: which of ours each of the file's is, chosen from a list.
#pragma once

#include <QTableWidget>
#include <functional>
#include <string>
#include <vector>

#include "host/exchange/head_mapping.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

class ImportColumns : public QTableWidget {
 public:
  explicit ImportColumns(QWidget* parent);

  // Shows what the mapping says, or the heads themselves. The table outlives what is shown.
  void show_heads(const StoredTable& table, const std::vector<std::string>& heads, const HeadMapping& mapping);
  void show_nothing();
  // What is chosen, for every head.
  HeadMapping mapping() const;

  // The user has chosen another column.
  std::function<void()> on_change;

 private:
  const StoredTable* table_ = nullptr;
  std::vector<std::string> heads_;
};

// What was chosen last for files with these heads, in whatever order; nothing without it.
HeadMapping remembered_mapping(const std::vector<std::string>& heads);
void remember_mapping(const std::vector<std::string>& heads, const HeadMapping& mapping);

}  // namespace quor
