// A connection to one company: an SQLite file or a PostgreSQL database behind the same SQL text.
//
// Every statement goes through this class, so that statements can be counted, faults can be injected and no value is
// ever glued into SQL. Bulk reads and writes move whole columns. Dates are stored as whole serial day numbers, truth as
// 0 and 1. What fails throws StoreError with one line for the user; SQL and passwords are never in it.
//
//   state              leaves it by
//   open               a Transaction -> transaction open
//   transaction open   commit or roll-back -> open; a statement that fails -> doomed
//   doomed             roll-back -> open (commit refuses and rolls back)
//   reading            the end of its Snapshot -> open; nothing can be written
//   open               a Snapshot -> reading
//   broken             a roll-back failed, every further statement fails; close the Database, or reconnect()
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/store_error.h"
#include "host/store/writes.h"
#include "platform/data/column.h"
#include "platform/data/recordset.h"

namespace quor {

struct Connection;

class Database {
 public:
  // `address`: a file's path, ":memory:" (a company of its own, gone with the object), or "postgresql://…".
  // Opens a company that is there, applies the migrations that it lacks and renews sort keys of an older rule. What may
  // only be read (a file or its folder without the right to write, a server's user without it) opens too, as it is, and
  // refuses every Transaction with kNotWritable. Throws StoreError and changes nothing.
  static std::unique_ptr<Database> open(const std::string& address);
  // Makes a company with the newest schema and what `fill` writes, in one transaction that is open when it is called.
  // Refuses an address where something stands already; a server's database must be there, without our tables. A company
  // stands at the address whole or not at all, also when the program is killed on the way.
  using Fill = std::function<void(Database&)>;
  static std::unique_ptr<Database> create(const std::string& address, const Fill& fill = {});
  ~Database();

  // The address as errors show it: without a password.
  const std::string& name() const;
  // False for a file that opened only to be read.
  bool may_write() const;
  // True for PostgreSQL; for the few statements that differ.
  bool on_server() const;

  // Runs `sql` once with `values` bound to :p0, :p1, … by name; answers the number of rows touched. Null and Empty are
  // bound as NULL. A write belongs into a Transaction: outside one it stands at once and raises no change count.
  std::int64_t execute(const std::string& sql, const std::vector<Variant>& values = {});
  // Reads every row of a SELECT into a new open record set; `fields` gives names and types of the columns in order.
  // Whole numbers that do not fit their field throw Error, never wrap.
  std::shared_ptr<Recordset> read(const std::string& sql, const std::vector<FieldInfo>& fields,
                                  const std::vector<Variant>& values = {});
  // Inserts the rows of `columns` (their info.name are the table's columns) in bulk, many rows a statement, inside the
  // open transaction or one of its own: all rows or none.
  void insert(std::string_view table, const std::vector<ColumnData>& columns);
  // Reserves `count` (1 or more) IDs of the table and answers the first; the first ever is 1. Part of the open
  // transaction, if any: a roll-back gives the IDs back. Throws StoreError, and reserves none, past kStoredId.
  std::int32_t reserve_ids(std::string_view table, std::int32_t count = 1);

  // Writes the company as it is at this moment into the empty file at `path`; of files alone, not inside a transaction.
  void copy_into(const std::string& path);

  // Connects anew when the server has dropped the connection or this Database is broken, file or server; false when
  // there is nothing to mend: a connection that stands, an open transaction. Throws kMissing while the company is not
  // to be reached.
  bool reconnect();

  // A number that every committed transaction of any program raises: what was read at an equal number still holds.
  std::int64_t change_count();
  // A number that only those transactions raise that write what pay follows from (see Writes).
  std::int64_t pay_inputs_count();

  // Statements sent to the database so far by this connection.
  std::uint64_t statements() const;
  // Called before each statement with its number; what it throws is what the statement fails with. For tests.
  void set_fault(std::function<void(std::uint64_t statement)> fault);

 private:
  friend class Transaction;
  friend class Snapshot;
  explicit Database(std::unique_ptr<Connection> connection);
  static std::unique_ptr<Database> create_file(const std::string& address, const Fill& fill);

  std::unique_ptr<Connection> connection_;
};

// A transaction as a scope: rolls back unless committed; raises the change count on commit. One at a time.
class Transaction {
 public:
  // Takes the right to write at once; throws kLocked when another program keeps it too long. On a server the right is
  // the lock on the row of `company`: one writer an office, and the other offices of the server do not wait.
  explicit Transaction(Database& database, Writes writes = Writes::kPayInputs);
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();  // a roll-back that fails goes to the log and leaves the database broken
  // Throws and rolls everything back when a statement inside failed or the database refuses.
  void commit();

 private:
  enum class State { kOpen, kCommitted, kRolledBack, kFailed };
  void roll_back() noexcept;

  Database& database_;
  Writes writes_;
  State state_ = State::kOpen;
};

// A scope in which all reads see the company as it was at the first of them, whoever writes meanwhile. Writing inside
// it fails. Not inside a Transaction, and none inside it.
class Snapshot {
 public:
  explicit Snapshot(Database& database);
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;
  ~Snapshot();  // an ending that fails goes to the log and leaves the database broken

 private:
  Database& database_;
};

}  // namespace quor
