// Database::insert: whole columns as INSERT statements of many rows each. One statement for many rows, since a
// server is asked over the network for each.
#include <algorithm>
#include <optional>

#include "host/store/connection.h"
#include "host/store/database.h"
#include "platform/data/column.h"
#include "platform/data/error.h"

namespace quor {
namespace {

// Bound values a statement: many for a server, which is asked over the network for each; fewer for a file, where
// SQLite looks every name of a statement up among all before it.
constexpr std::size_t kValuesPerStatement = 1000;
constexpr std::size_t kValuesPerFileStatement = 200;

// Names cannot be bound: only what can be nothing else than a name gets into SQL.
std::string_view checked_name(std::string_view name) {
  const bool plain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
  });
  if (!plain)
    throw Error(ErrorKind::kNoSuchField, "duomenų bazėje negali būti tokio vardo: „" + std::string(name) + "“");
  return name;
}

std::string insert_text(std::string_view table, const std::vector<ColumnData>& columns, std::size_t rows) {
  std::string sql = "INSERT INTO " + std::string(checked_name(table)) + " (";
  for (std::size_t column = 0; column < columns.size(); ++column) {
    sql += column == 0 ? "" : ", ";
    sql += checked_name(columns[column].info.name);
  }
  sql += ") VALUES ";
  for (std::size_t value = 0; value < rows * columns.size(); ++value) {
    if (value % columns.size() == 0)
      sql += value == 0 ? "(" : "), (";
    else
      sql += ", ";
    sql += ":p" + std::to_string(value);
  }
  return sql + ")";
}

// The cells of one column that one statement takes, at fixed places, since the statement keeps their addresses.
struct Cells {
  std::variant<std::vector<long long>, std::vector<double>, std::vector<std::string>> values;
  std::vector<soci::indicator> indicators;

  Cells(const ColumnData& column, std::size_t rows) : indicators(rows) {
    switch (column.info.type) {
      case FieldType::kDouble:
        values.emplace<std::vector<double>>(rows);
        break;
      case FieldType::kText:
        values.emplace<std::vector<std::string>>(rows);
        break;
      case FieldType::kRecordSet:
        throw Error(ErrorKind::kTypeMismatch, "tokio lauko duomenų bazė nelaiko: „" + column.info.name + "“");
      default:
        values.emplace<std::vector<long long>>(rows);
        break;
    }
  }

  void fill(const ColumnData& column, std::size_t first) {
    for (std::size_t row = 0; row < indicators.size(); ++row) {
      indicators[row] = column.nulls[first + row] ? soci::i_null : soci::i_ok;
    }
    std::visit(
        [&](auto& target) { std::visit([&](const auto& source) { copy(source, first, target); }, column.values); },
        values);
  }

 private:
  template <typename Source, typename Target>
  static void copy(const Source& source, std::size_t first, std::vector<Target>& target) {
    for (std::size_t row = 0; row < target.size(); ++row) {
      if constexpr (std::is_same_v<Target, std::string> && std::is_same_v<Source, TextColumn>) {
        target[row] = source[first + row];
      } else if constexpr (std::is_arithmetic_v<Target> && std::is_arithmetic_v<typename ValueOf<Source>::Type>) {
        target[row] = static_cast<Target>(source[first + row]);  // a date's time of day is not kept
      }
    }
  }

  template <typename Source>
  struct ValueOf {
    using Type = void;
  };
  template <typename T>
  struct ValueOf<std::vector<T>> {
    using Type = T;
  };
};

// A prepared INSERT of a fixed number of rows.
class InsertStatement {
 public:
  InsertStatement(soci::session& session, std::string_view table, const std::vector<ColumnData>& columns,
                  std::size_t rows)
      : statement_(session) {
    cells_.reserve(columns.size());
    for (const ColumnData& column : columns) cells_.emplace_back(column, rows);
    statement_.alloc();
    statement_.prepare(insert_text(table, columns, rows));
    for (std::size_t row = 0; row < rows; ++row) {
      for (Cells& cells : cells_) {
        std::visit([&](auto& values) { statement_.exchange(soci::use(values[row], cells.indicators[row])); },
                   cells.values);
      }
    }
    statement_.define_and_bind();
  }

  void run(const std::vector<ColumnData>& columns, std::size_t first) {
    for (std::size_t column = 0; column < columns.size(); ++column) cells_[column].fill(columns[column], first);
    statement_.execute(true);
  }

 private:
  std::vector<Cells> cells_;  // outlives the statement that points into it
  soci::statement statement_;
};

}  // namespace

void Database::insert(std::string_view table, const std::vector<ColumnData>& columns) {
  const std::size_t rows = columns.empty() ? 0 : columns.front().size();
  for (const ColumnData& column : columns) {
    if (column.size() != rows)
      throw Error(ErrorKind::kIndexOutOfRange, "nevienodo ilgio stulpelis: „" + column.info.name + "“");
  }
  if (rows == 0) return;

  std::optional<Transaction> own;
  if (connection_->state == Connection::State::kOpen) own.emplace(*this);
  const std::size_t values = on_server() ? kValuesPerStatement : kValuesPerFileStatement;
  const std::size_t batch = std::clamp<std::size_t>(values / columns.size(), 1, rows);
  const std::size_t whole = rows - rows % batch;
  {
    std::optional<InsertStatement> statement;
    for (std::size_t first = 0; first < rows; first += batch) {
      connection_->run([&](soci::session& session) {
        if (first == 0) statement.emplace(session, table, columns, batch);
        if (first == whole) statement.emplace(session, table, columns, rows - whole);
        statement->run(columns, first);
      });
    }
  }
  if (own) own->commit();
}

}  // namespace quor
