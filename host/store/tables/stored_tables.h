// The tables of a company, each described once: what its columns are called and may hold, its keys and references, how
// its rows travel as CSV. Imports, exports, data objects and payroll read it here; the migrations alone say it again,
// in SQL, and a test holds the two together.
//
// A column is named as the database's, but for a day or month and a time code, which a file has in one cell and the
// database in other columns. Messages say the name, for who has the file before him, and beside it what people call it.
// What the program keeps for itself (sort keys, row versions, who changed a record) is told by the table and does not
// travel. The order of the tables is that of their references: a table stands behind every table that it refers to.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/tables/value_ranges.h"
#include "platform/data/field_info.h"

namespace quor {

enum class ColumnKind {
  kId,          // 1 … 2000000000
  kWhole,       // any 32-bit whole number
  kFlag,        // 0 or 1
  kNumber,      // a finite double
  kDate,        // "2008-01-31"
  kMonth,       // "2008-01", stored as its first day
  kDayOrMonth,  // either; stored in two columns: month, and day (none for a whole month)
  kTimeCode,    // the code or the code_id of an indication "WorkTime"; stored as time_code_id
  kText,
};

enum class Presence { kOptional, kRequired };

enum class TextForm {
  kPlain,         // up to kLongestText characters, none of them a control character
  kProgramsOwn,   // written by the program: line breaks and any length
  kTimeCodeList,  // IDs joined by ",": "12,15,40"
  kServiceTie,    // empty, or the type of what a charge is tied to, alone or with an ID behind it
};

struct StoredColumn {
  std::string_view name;
  ColumnKind kind;
  std::string_view caption;  // "etato dalis"
  Presence presence = Presence::kOptional;
  const NumberRange* range = nullptr;  // of its numbers; null: as its kind has it
  std::string_view references = {};    // the table whose id it holds
  TextForm form = TextForm::kPlain;    // of its texts

  bool required() const { return presence == Presence::kRequired; }
  std::string words() const;  // "„hours“ (valandos)"; "„id“" alone
};

struct StoredTable {
  using Names = std::vector<std::string_view>;

  std::string_view name;
  std::string_view caption;       // "Darbo laikas"
  const char* about = nullptr;    // the object type whose rights decide about its rows; null: the administrator's
  bool result_of_months = false;  // what months have calculated or closed: an administrator's to import
  std::vector<StoredColumn> columns;
  Names key;                        // tells one row from another
  std::vector<Names> uniques = {};  // no two rows have the same values here either
  bool named = false;               // has a sort_key of its name
  bool versioned = false;           // has row_version, changed_by, changed_at
  bool hidden_id = false;           // has an id that does not travel
  std::string_view closed_by = {};  // the column (a month or a document) by which a closed month holds the row
  std::string_view owner = {};      // the column with the versioned record that the row is a part of

  std::size_t column(std::string_view column_name) const;  // its place; the number of columns without it
  std::string words() const;                               // "„Darbo laikas“ (worked_time)"
};

std::span<const StoredTable> stored_tables();
// Null when there is no such table.
const StoredTable* find_stored_table(std::string_view name);
// Throws std::logic_error for a table or a column that is not described.
const StoredTable& stored_table(std::string_view name);
const StoredColumn& stored_column(std::string_view table, std::string_view column);

// The database's columns behind the described ones, in order; a day or month is two of them.
std::vector<FieldInfo> stored_fields(const StoredTable& table);
// One of them, or one that the program keeps in tables for itself. Throws std::logic_error for any other.
FieldInfo stored_field(std::string_view table, std::string_view column);

}  // namespace quor
