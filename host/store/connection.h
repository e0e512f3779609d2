// The open connection behind a Database: the SOCI session, its transaction's state and the one way that every
// statement takes. Included only by the sources of this folder.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <soci/soci.h>
#include <string>
#include <variant>
#include <vector>

#include "host/store/failures.h"
#include "host/store/writes.h"
#include "platform/data/variant.h"

namespace quor {

// Values of one statement, bound by name to :p0, :p1, … ; must live until the statement has run.
class Bindings {
 public:
  explicit Bindings(const std::vector<Variant>& values);
  void attach(soci::statement& statement);

 private:
  struct Value {
    std::string name;
    std::variant<long long, double, std::string> value;
    soci::indicator indicator = soci::i_ok;
  };
  std::deque<Value> values_;
};

struct Connection {
  enum class State { kOpen, kTransaction, kDoomed, kReading, kBroken };

  Connection(const soci::backend_factory& backend, const std::string& connect_text, std::string shown_name);

  // Each connects or throws StoreError; the schema is not looked at.
  static std::unique_ptr<Connection> to_memory();
  static std::unique_ptr<Connection> to_file(const std::string& path, const std::string& read_only_reason = "");
  static std::unique_ptr<Connection> to_new_file(const std::string& path, const std::string& shown_name);
  static std::unique_ptr<Connection> to_server(const std::string& address);

  // Counts, asks the fault hook, runs `work(session)`, translates what fails and dooms the open transaction.
  template <typename Work>
  auto run(Work&& work) {
    if (state == State::kBroken) throw lost();
    ++statements;
    try {
      if (fault) fault(statements);
      return work(session);
    } catch (const soci::soci_error& error) {
      doom();
      if (is_lost()) throw lost();
      throw translated(error, name);
    } catch (...) {
      doom();
      throw;
    }
  }

  void command(const std::string& sql);  // without values and answer
  std::optional<std::int64_t> whole_number(const std::string& sql, const std::vector<Variant>& values = {});

  // Of files: a copy of this moment's content into the empty file at `path`; others may write meanwhile.
  void copy_into(const std::string& path);
  // Of files: the whole content becomes that of `from` in one transaction, which other programs see as any other.
  // Throws, and nothing has changed, when somebody writes or reads too long.
  void become(Connection& from);

  void begin();
  void begin_reading();
  void end_reading();          // broken when it throws
  void commit(Writes writes);  // the transaction stays open when it throws
  void roll_back();            // broken when it throws
  // See Database::reconnect.
  bool reconnect();

  soci::session session;
  std::string name;
  bool on_server;
  std::string read_only_reason;  // why a file may not be written; "" when it may
  State state = State::kOpen;
  std::uint64_t statements = 0;
  std::function<void(std::uint64_t)> fault;

 private:
  void prepare_file_session();
  void prepare_server_session();
  void require_no_transaction() const;
  void lock_for_writing();
  bool has_company();
  void doom();
  bool is_lost() { return on_server && !session.is_connected(); }  // asks the server
  std::string server_text_;                                        // how the server is reached, with its password
  bool has_company_ = false;                                       // as far as this connection has seen

  StoreError lost() const { return {StoreFault::kLost, "ryšys su įmonės duomenimis nutrūko: „" + name + "“"}; }
};

}  // namespace quor
