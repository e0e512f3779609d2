// Database::read: rows through SOCI's vector binding into typed columns.
#include <limits>
#include <soci/sqlite3/soci-sqlite3.h>
#include <type_traits>

#include "host/store/connection.h"
#include "host/store/database.h"
#include "platform/data/error.h"

namespace quor {
namespace {

// Rows a fetch. Large enough that the cost of a fetch vanishes, small enough for a cache and for reading one row.
constexpr std::size_t kBatch = 250;

// One column on its way: SOCI fills the buffer, take() moves it behind the rows that are there.
class ColumnReader {
 public:
  explicit ColumnReader(const FieldInfo& field) : column_(field) {
    switch (field.type) {
      case FieldType::kDouble:
        buffer_.emplace<Reals>();
        break;
      case FieldType::kText:
        buffer_.emplace<Texts>();
        break;
      case FieldType::kRecordSet:
        throw Error(ErrorKind::kTypeMismatch, "tokio lauko duomenų bazė nelaiko: „" + field.name + "“");
      default:
        buffer_.emplace<Wholes>();
        break;
    }
  }

  soci::data_type database_type() const {
    if (std::holds_alternative<Reals>(buffer_)) return soci::dt_double;
    return std::holds_alternative<Texts>(buffer_) ? soci::dt_string : soci::dt_long_long;
  }

  void attach(soci::statement& statement) {
    std::visit([&](auto& values) { statement.exchange(soci::into(values, indicators_)); }, buffer_);
  }

  void resize(std::size_t rows) {
    indicators_.resize(rows);
    std::visit([&](auto& values) { values.resize(rows); }, buffer_);
  }

  void take() {
    const std::size_t first = column_.size();
    std::visit([this](auto& target) { append(target); }, column_.values);
    for (std::size_t row = 0; row < indicators_.size(); ++row) {
      if (indicators_[row] == soci::i_null) column_.nulls.set(first + row, true);
    }
  }

  ColumnData release() { return std::move(column_); }

 private:
  // Whole numbers travel with 64 bits, so that a number too large for its field is seen.
  using Wholes = std::vector<long long>;
  using Reals = std::vector<double>;
  using Texts = std::vector<std::string>;

  bool is_null(std::size_t row) const { return indicators_[row] == soci::i_null; }

  template <typename T>
  void append(std::vector<T>& target) {
    if constexpr (std::is_arithmetic_v<T>) {
      if (const auto* reals = std::get_if<Reals>(&buffer_)) {
        for (std::size_t row = 0; row < reals->size(); ++row)
          target.push_back(is_null(row) ? T{} : static_cast<T>((*reals)[row]));
      } else {
        const auto& wholes = std::get<Wholes>(buffer_);
        for (std::size_t row = 0; row < wholes.size(); ++row)
          target.push_back(is_null(row) ? T{} : narrowed<T>(wholes[row]));
      }
    }
  }

  void append(TextColumn& target) {
    const auto& texts = std::get<Texts>(buffer_);
    for (std::size_t row = 0; row < texts.size(); ++row)
      target.push_back(is_null(row) ? std::string_view() : texts[row]);
  }

  template <typename T>
  T narrowed(long long value) const {
    if (column_.info.type == FieldType::kBool) return static_cast<T>(value != 0 ? 1 : 0);
    if constexpr (std::is_integral_v<T>) {
      if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max()) {
        throw Error(ErrorKind::kOverflow,
                    "reikšmė " + std::to_string(value) + " netelpa į lauką „" + column_.info.name + "“");
      }
    }
    return static_cast<T>(value);
  }

  ColumnData column_;
  std::variant<Wholes, Reals, Texts> buffer_;
  std::vector<soci::indicator> indicators_;
};

// Left alone, the SQLite backend guesses the type of an expression by running the statement once more, and reads the
// doubles of what it takes for text through fifteen digits. The sanitizer cannot look at the backend's class: its
// library keeps the type information to itself.
[[gnu::no_sanitize("vptr")]] void declare_sqlite_types(soci::statement& statement,
                                                       const std::vector<ColumnReader>& readers) {
  auto* backend = static_cast<soci::sqlite3_statement_backend*>(statement.get_backend());
  if (static_cast<std::size_t>(backend->prepare_for_describe()) != readers.size()) {
    throw Error(ErrorKind::kIndexOutOfRange, "užklausos stulpelių skaičius nesutampa su laukų skaičiumi");
  }
  backend->columns_.clear();
  for (const ColumnReader& reader : readers) backend->columns_.push_back({reader.database_type(), ""});
}

}  // namespace

std::shared_ptr<Recordset> Database::read(const std::string& sql, const std::vector<FieldInfo>& fields,
                                          const std::vector<Variant>& values) {
  std::vector<ColumnReader> readers;
  readers.reserve(fields.size());
  for (const FieldInfo& field : fields) readers.emplace_back(field);

  connection_->run([&](soci::session& session) {
    Bindings bindings(values);
    soci::statement statement(session);
    statement.alloc();
    statement.prepare(sql, soci::details::st_one_time_query);
    bindings.attach(statement);
    const auto resize = [&] {
      for (ColumnReader& reader : readers) reader.resize(kBatch);
    };
    resize();
    for (ColumnReader& reader : readers) reader.attach(statement);
    if (!connection_->on_server) declare_sqlite_types(statement, readers);
    statement.define_and_bind();
    statement.execute();
    for (; statement.fetch(); resize()) {
      for (ColumnReader& reader : readers) reader.take();
    }
  });

  std::vector<ColumnData> columns;
  columns.reserve(readers.size());
  for (ColumnReader& reader : readers) columns.push_back(reader.release());
  return Recordset::from_columns(std::move(columns));
}

}  // namespace quor
