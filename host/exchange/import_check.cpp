#include "host/exchange/import_check.h"

#include <algorithm>

#include "host/exchange/cell_values.h"
#include "host/exchange/stored_rows.h"
#include "host/store/tables/column_values.h"
#include "host/store/tables/row_rules.h"

namespace quor {

namespace {

constexpr char kClosed[] = "mėnuo uždarytas";
constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);

bool has_values(const StoredTable& table, const StoredTable::Names& columns, const FileRow& row) {
  return std::none_of(columns.begin(), columns.end(), [&](std::string_view name) {
    const Variant& value = row.cells[table.column(name)];
    return value.is_empty() || value.is_null();
  });
}

std::unordered_set<std::int32_t> read_numbers(Database& database, const std::string& sql) {
  std::unordered_set<std::int32_t> numbers;
  const auto rows = database.read(sql, {{"Number", FieldType::kInt32}});
  for (; !rows->Eof(); rows->MoveNext()) numbers.insert(rows->int32(FieldHandle{0}));
  return numbers;
}

}  // namespace

ImportCheck::ImportCheck(Database& database, std::vector<TableFile>& files, std::vector<ImportFault>& faults)
    : database_(database), files_(files), faults_(faults), codes_(database) {
  for (const TableFile& file : files_) {
    if (file.table->name != "indications") continue;
    for (const FileRow& row : file.rows) {
      if (row.sound) codes_.put(row.cells);
    }
  }
}

TablePlan ImportCheck::check(TableFile& file) {
  const StoredTable& table = *file.table;
  TablePlan plan{.table = &table, .added = {}, .changed = {}, .owners = {}};
  resolve_time_codes(file);
  check_references(file);
  const RowByKey by_key = rows_by_key(file, table.key);
  std::vector<RowByKey> by_unique;
  for (const auto& unique : table.uniques) by_unique.push_back(rows_by_key(file, unique));

  std::vector<bool> stored_too(file.rows.size());
  read_stored(database_, table, [&](const std::vector<Variant>& cells, std::int32_t id) {
    const auto same = by_key.find(key_text(table, table.key, cells));
    const std::size_t row = same == by_key.end() ? kNoRow : same->second;
    for (std::size_t n = 0; n < by_unique.size(); ++n) {
      const auto taken = by_unique[n].find(key_text(table, table.uniques[n], cells));
      if (taken == by_unique[n].end() || taken->second == row) continue;
      file.add_fault(faults_, file.rows[taken->second], table.uniques[n].back(),
                     "„" + key_words(table, table.uniques[n], cells) +
                         "“ jau turi kitas įrašas: " + key_words(table, table.key, cells));
    }
    if (row == kNoRow) return;
    stored_too[row] = true;
    compare(file, file.rows[row], cells, id, plan);
  });
  for (std::size_t row = 0; row < file.rows.size(); ++row) {
    if (!stored_too[row] && file.rows[row].sound) add(file, file.rows[row], plan);
  }
  if (table.name == "departments") check_tree(file, plan.added);
  check_row_rules(file);
  return plan;
}

void ImportCheck::compare(const TableFile& file, FileRow& row, const std::vector<Variant>& stored, std::int32_t id,
                          TablePlan& plan) {
  bool differs = false;
  for (std::size_t at = 0; at < stored.size(); ++at) {
    if (!file.present[at]) {
      row.cells[at] = stored[at];
    } else if (!same_value(row.cells[at], stored[at])) {
      differs = true;
    }
  }
  if (!differs) {
    ++plan.unchanged;
  } else if (row.sound) {
    if (is_closed(*file.table, row.cells) || is_closed(*file.table, stored))
      file.add_fault(faults_, row, file.table->closed_by, kClosed);
    row.id = id;
    if (plan.first_changed.size() < ImportedRow::kMostShown)
      plan.first_changed.push_back(described(*file.table, row, &stored));
    plan.changed.push_back(row);
    note_owner(stored, plan);
    note_owner(row.cells, plan);
  }
}

void ImportCheck::add(const TableFile& file, FileRow& row, TablePlan& plan) {
  if (is_closed(*file.table, row.cells)) file.add_fault(faults_, row, file.table->closed_by, kClosed);
  for (std::size_t at = 0; at < row.cells.size(); ++at) {
    if (!file.present[at]) row.cells[at] = kNull;
  }
  if (plan.first_added.size() < ImportedRow::kMostShown)
    plan.first_added.push_back(described(*file.table, row, nullptr));
  plan.added.push_back(row);
  note_owner(row.cells, plan);
}

ImportedRow ImportCheck::described(const StoredTable& table, const FileRow& row,
                                   const std::vector<Variant>* stored) const {
  ImportedRow words{.line = row.line, .added = stored == nullptr, .key = {}, .cells = {}};
  for (std::size_t at = 0; at < row.cells.size(); ++at) {
    const StoredColumn& column = table.columns[at];
    const std::string to = words_of(column, row.cells[at]);
    if (std::find(table.key.begin(), table.key.end(), column.name) != table.key.end()) {
      words.key += (words.key.empty() ? "" : ", ") + std::string(column.caption) + " " + to;
    } else if (stored == nullptr ? !to.empty() : !same_value(row.cells[at], (*stored)[at])) {
      words.cells.push_back(
          {std::string(column.caption), stored == nullptr ? "" : words_of(column, (*stored)[at]), to});
    }
  }
  return words;
}

std::string ImportCheck::words_of(const StoredColumn& column, const Variant& value) const {
  if (value.is_empty() || value.is_null()) return {};
  return column.kind == ColumnKind::kTimeCode ? codes_.text(value.to_int32()) : cell_text(column.kind, value);
}

void ImportCheck::note_owner(const std::vector<Variant>& cells, TablePlan& plan) {
  if (plan.table->owner.empty()) return;
  const Variant& owner = cells[plan.table->column(plan.table->owner)];
  if (!owner.is_empty()) plan.owners.insert(owner.to_int32());
}

void ImportCheck::resolve_time_codes(TableFile& file) {
  for (std::size_t at = 0; at < file.table->columns.size(); ++at) {
    if (file.table->columns[at].kind != ColumnKind::kTimeCode) continue;
    for (FileRow& row : file.rows) {
      if (row.cells[at].is_empty()) continue;
      const auto resolved = codes_.resolve(row.cells[at].to_text());
      if (resolved.code_id) {
        row.cells[at] = *resolved.code_id;
      } else {
        file.add_fault(faults_, row, file.table->columns[at].name, resolved.fault);
        row.cells[at] = Variant();
        row.sound = false;
      }
    }
  }
}

void ImportCheck::check_row_rules(const TableFile& file) {
  for (const RowRule& rule : row_rules()) {
    if (rule.table != file.table->name) continue;
    for (const FileRow& row : file.rows) {
      std::vector<Variant> values;
      for (const std::string_view column : rule.columns) values.push_back(row.cells[file.table->column(column)]);
      if (std::any_of(values.begin(), values.end(), [](const Variant& value) { return value.is_empty(); })) continue;
      if (const auto fault = rule.broken(values)) file.add_fault(faults_, row, fault->column, fault->text);
    }
  }
}

void ImportCheck::check_references(TableFile& file) {
  for (std::size_t at = 0; at < file.table->columns.size(); ++at) {
    const StoredColumn& column = file.table->columns[at];
    if (column.references.empty() || !file.present[at]) continue;
    // What a file that broke off would have brought is not known: its gaps would be told as faults of others.
    const bool unknown = std::any_of(files_.begin(), files_.end(), [&](const TableFile& each) {
      return each.table->name == column.references && !each.whole;
    });
    if (unknown) continue;
    const auto& known = known_ids(column.references);
    for (FileRow& row : file.rows) {
      const Variant& id = row.cells[at];
      if (id.is_empty() || id.is_null() || known.contains(id.to_int32())) continue;
      file.add_fault(
          faults_, row, column.name,
          "„" + id.to_text() + "“: lentelėje " + find_stored_table(column.references)->words() + " tokio įrašo nėra");
      row.sound = false;
    }
  }
}

ImportCheck::RowByKey ImportCheck::rows_by_key(TableFile& file, const StoredTable::Names& key) {
  RowByKey rows;
  rows.reserve(file.rows.size());
  for (std::size_t at = 0; at < file.rows.size(); ++at) {
    FileRow& row = file.rows[at];
    if (!has_values(*file.table, key, row)) continue;
    const auto [first, is_new] = rows.emplace(key_text(*file.table, key, row.cells), at);
    if (is_new) continue;
    file.add_fault(faults_, row, key.back(),
                   "„" + key_words(*file.table, key, row.cells) + "“ jau yra " +
                       std::to_string(file.rows[first->second].line) + " eilutėje");
  }
  return rows;
}

void ImportCheck::check_tree(TableFile& file, std::vector<FileRow>& added) {
  const std::size_t id_at = file.table->column("id"), parent_at = file.table->column("parent_id");
  std::unordered_map<std::int32_t, std::int32_t> parents;  // 0 for none
  const auto take = [&](const std::vector<Variant>& cells) {
    if (!cells[id_at].is_empty()) parents[cells[id_at].to_int32()] = null_to_int32(cells[parent_at]);
  };
  read_stored(database_, *file.table, [&](const std::vector<Variant>& cells, std::int32_t /*id*/) { take(cells); });
  for (const FileRow& row : file.rows) take(row.cells);

  std::unordered_map<std::int32_t, std::int32_t> levels;  // 0: on no way to the top
  const auto find_level = [&](std::int32_t id) {
    std::vector<std::int32_t> way;
    for (; id != 0 && parents.contains(id) && levels.emplace(id, 0).second; id = parents[id]) way.push_back(id);
    // The way ended at the top, at a department whose level is known, or at one of its own.
    std::int32_t level = id == 0 || !parents.contains(id) ? 1 : levels[id] == 0 ? 0 : levels[id] + 1;
    for (auto each = way.rbegin(); each != way.rend(); ++each) levels[*each] = level == 0 ? 0 : level++;
  };
  for (const FileRow& row : file.rows) {
    const Variant& id = row.cells[id_at];
    if (id.is_empty()) continue;
    find_level(id.to_int32());
    if (levels[id.to_int32()] == 0)
      file.add_fault(faults_, row, "parent_id", "padaliniai priklausytų vienas kitam ratu");
  }
  std::stable_sort(added.begin(), added.end(), [&](const FileRow& a, const FileRow& b) {
    return levels[a.cells[id_at].to_int32()] < levels[b.cells[id_at].to_int32()];
  });
}

const std::unordered_set<std::int32_t>& ImportCheck::known_ids(std::string_view table) {
  const auto [entry, is_new] = known_ids_.try_emplace(table);
  std::unordered_set<std::int32_t>& ids = entry->second;
  if (!is_new) return ids;
  ids = read_numbers(database_, "SELECT id FROM " + std::string(table));
  for (const TableFile& file : files_) {
    if (file.table->name != table) continue;
    for (const FileRow& row : file.rows) {
      const Variant& id = row.cells[file.table->column("id")];
      if (!id.is_empty()) ids.insert(id.to_int32());
    }
  }
  return ids;
}

const std::unordered_set<std::int32_t>& ImportCheck::closed(const StoredTable& table) {
  const bool by_document = table.closed_by == "document_id";
  const auto [entry, is_new] = closed_.try_emplace(by_document ? "documents" : "months");
  if (is_new) {
    entry->second =
        read_numbers(database_, by_document ? "SELECT d.id FROM documents d JOIN closed_months c ON c.month = d.month"
                                            : "SELECT month FROM closed_months");
  }
  return entry->second;
}

bool ImportCheck::is_closed(const StoredTable& table, const std::vector<Variant>& cells) {
  if (table.closed_by.empty()) return false;
  const std::size_t at = table.column(table.closed_by);
  if (table.columns[at].kind == ColumnKind::kId) return closed(table).contains(cells[at].to_int32());
  return closed(table).contains(static_cast<std::int32_t>(month_of_cell(cells[at]).serial()));
}

}  // namespace quor
