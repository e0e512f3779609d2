// Holds the rows of the files to each other and to what the company has, and finds out what there is to write.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/exchange/import_file.h"
#include "host/exchange/imported_row.h"
#include "host/exchange/time_codes.h"
#include "host/store/database.h"

namespace quor {

// What becomes of the rows of a file. Rows to change have all their cells, also those that the file does not have.
struct TablePlan {
  const StoredTable* table;
  std::vector<FileRow> added;  // in an order in which they can be written
  std::vector<FileRow> changed;
  std::size_t unchanged = 0;
  // Up to ImportedRow::kMostShown of each in words.
  std::vector<ImportedRow> first_added = {};
  std::vector<ImportedRow> first_changed = {};
  std::set<std::int32_t> owners;  // of the rows added and changed, also those that a changed row has left
};

class ImportCheck {
 public:
  // All files of one import, in the order of their tables; faults go to `faults`. Reads whole tables, never one row.
  ImportCheck(Database& database, std::vector<TableFile>& files, std::vector<ImportFault>& faults);

  // Checks one of the files. The plan is of use only when there are no faults at all.
  TablePlan check(TableFile& file);

 private:
  using RowByKey = std::unordered_map<std::string, std::size_t>;

  // A row that is stored already, and one that is not.
  void compare(const TableFile& file, FileRow& row, const std::vector<Variant>& stored, std::int32_t id,
               TablePlan& plan);
  void add(const TableFile& file, FileRow& row, TablePlan& plan);
  // In words; `stored` is null for a row to add.
  ImportedRow described(const StoredTable& table, const FileRow& row, const std::vector<Variant>* stored) const;
  std::string words_of(const StoredColumn& column, const Variant& value) const;
  static void note_owner(const std::vector<Variant>& cells, TablePlan& plan);
  void resolve_time_codes(TableFile& file);
  // What one row's values say together, once it has all its cells.
  void check_row_rules(const TableFile& file);
  void check_references(TableFile& file);
  // The file's rows by that key; a row with the key of an earlier one is a fault.
  RowByKey rows_by_key(TableFile& file, const StoredTable::Names& key);
  // Departments must form a tree. Puts the higher ones first.
  void check_tree(TableFile& file, std::vector<FileRow>& added);

  const std::unordered_set<std::int32_t>& known_ids(std::string_view table);
  // The months or documents that are closed, as the table's column names them.
  const std::unordered_set<std::int32_t>& closed(const StoredTable& table);
  bool is_closed(const StoredTable& table, const std::vector<Variant>& cells);

  Database& database_;
  std::vector<TableFile>& files_;
  std::vector<ImportFault>& faults_;
  TimeCodes codes_;
  std::map<std::string_view, std::unordered_set<std::int32_t>> known_ids_;
  std::map<std::string_view, std::unordered_set<std::int32_t>> closed_;
};

}  // namespace quor
