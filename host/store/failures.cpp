#include "host/store/failures.h"

#include <algorithm>
#include <libpq-fe.h>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <soci/postgresql/soci-postgresql.h>
#include <soci/sqlite3/soci-sqlite3.h>

namespace quor {
namespace {

using Clock = std::chrono::steady_clock;

// A server that has not answered for so long is not asked a second time, and is asked no longer than that.
constexpr std::chrono::milliseconds kNoAnswer{3000};

struct Meaning {
  const char* code;  // an SQLSTATE, or the class that it begins with
  StoreFault fault;
  const char* reason;
};
// By the beginning of the SQLSTATE; the first entry that fits counts.
constexpr Meaning kServerMeanings[] = {
    {"55P03", StoreFault::kLocked, ""},  // lock wait, deadlock, two that cannot be put in a row
    {"40P01", StoreFault::kLocked, ""},
    {"40001", StoreFault::kLocked, ""},
    {"25006", StoreFault::kNotWritable, ""},  // read-only, no right
    {"42501", StoreFault::kNotWritable, ""},
    {"23505", StoreFault::kFailed, "toks įrašas jau yra"},
    {"23503", StoreFault::kFailed, "įrašas susijęs su kitu, o to kito nėra arba jis dar reikalingas"},
    {"23502", StoreFault::kFailed, "trūksta būtinos reikšmės"},
    {"23", StoreFault::kFailed, "reikšmė neatitinka lentelės taisyklių"},
    {"22003", StoreFault::kFailed, "skaičius netelpa"},
    {"22", StoreFault::kFailed, "netinkama reikšmė"},
    {"3D000", StoreFault::kFailed, "tokios bazės nėra"},
    {"42", StoreFault::kFailed, "trūksta lentelės ar stulpelio arba užklausa netinkama"},
    {"53100", StoreFault::kFailed, "serverio diske nebėra vietos"},
    {"53", StoreFault::kFailed, "serveriui trūksta išteklių"},
    {"57014", StoreFault::kFailed, "veiksmas nutrauktas"},
    {"57P", StoreFault::kFailed, "serveris stabdomas"},
    {"58", StoreFault::kFailed, "serverio disko klaida"},
    {"XX", StoreFault::kFailed, "vidinė serverio klaida"},
};

Meaning meaning_of_state(const std::string& state) {
  for (const Meaning& each : kServerMeanings) {
    if (state.starts_with(each.code)) return each;
  }
  return {"", StoreFault::kFailed, "serveris veiksmo neatliko"};
}

Meaning meaning_of_code(int code) {
  switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {"", StoreFault::kLocked, ""};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return {"", StoreFault::kNotWritable, ""};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return {"", StoreFault::kNotACompany, ""};
    case SQLITE_FULL:
      return {"", StoreFault::kFailed, "diske nebėra vietos"};
    case SQLITE_IOERR:
      return {"", StoreFault::kFailed, "disko klaida"};
    case SQLITE_NOMEM:
      return {"", StoreFault::kFailed, "trūksta atminties"};
    case SQLITE_CONSTRAINT:
      return {"", StoreFault::kFailed, "įrašas neatitinka lentelės taisyklių"};
    case SQLITE_TOOBIG:
      return {"", StoreFault::kFailed, "reikšmė per didelė"};
    default:
      return {"", StoreFault::kFailed, "trūksta lentelės ar stulpelio arba užklausa netinkama"};
  }
}

// A connection that tells its failures by their SQLSTATE.
using Attempt = std::unique_ptr<PGconn, decltype(&PQfinish)>;

enum class Ending { kConnected, kRefused, kAnswered, kSilent };

Ending connect_slowly(PGconn* connection) {
  bool answered = false;
  PostgresPollingStatusType wanted = PGRES_POLLING_WRITING;
  for (const auto end = Clock::now() + kNoAnswer; PQstatus(connection) != CONNECTION_BAD;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    pollfd socket{PQsocket(connection), static_cast<short>(wanted == PGRES_POLLING_READING ? POLLIN : POLLOUT), 0};
    if (left <= 0 || ::poll(&socket, 1, static_cast<int>(left)) == 0) return Ending::kSilent;
    wanted = PQconnectPoll(connection);
    if (wanted == PGRES_POLLING_OK) return Ending::kConnected;
    if (wanted == PGRES_POLLING_FAILED) break;
    answered = answered || PQstatus(connection) != CONNECTION_STARTED;
  }
  return answered ? Ending::kAnswered : Ending::kRefused;
}

// The last word of "…: FATAL:  28P01"; "" when the server has not said one.
std::string state_of(PGconn* connection) {
  const std::string message = PQerrorMessage(connection);
  const std::size_t end = message.find_last_not_of(" \r\n") + 1, begin = message.find_last_of(' ', end - 1) + 1;
  const std::string word = message.substr(begin, end - begin);
  const bool is_state = word.size() == 5 && std::all_of(word.begin(), word.end(), [](char c) {
                          return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
                        });
  return is_state ? word : "";
}

std::string reason_of_no_way(PGconn* connection) {
  const std::string host = PQhost(connection) == nullptr ? "" : PQhost(connection);
  addrinfo* found = nullptr;
  if (!host.empty() && !host.starts_with('/') && ::getaddrinfo(host.c_str(), nullptr, nullptr, &found) != 0)
    return "serverio „" + host + "“ rasti nepavyko";
  if (found != nullptr) ::freeaddrinfo(found);
  return "serveris ten neveikia arba neįsileidžia: patikrinkite adresą ir prievadą";
}

std::string reason_of_refusal(PGconn* connection) {
  const std::string state = state_of(connection);
  const std::string user = std::string("„") + PQuser(connection) + "“",
                    base = std::string("„") + PQdb(connection) + "“";
  if (PQconnectionNeedsPassword(connection) != 0) return "serveris prašo naudotojo " + user + " slaptažodžio";
  if (state == "28P01") return "serveris nepriėmė naudotojo " + user + " slaptažodžio";
  if (state.starts_with("28")) return "serveris neįsileidžia naudotojo " + user;
  if (state == "3D000") return "serveryje nėra bazės " + base;
  if (state == "42501") return "naudotojas " + user + " neturi teisės jungtis prie bazės " + base;
  if (state == "55000") return "bazė " + base + " dabar neįsileidžia";
  if (state == "53300") return "serveryje per daug prisijungusių";
  if (state == "57P03") return "serveris dar nepasirengęs arba stabdomas";
  return "serveris ryšį nutraukė" + (state.empty() ? "" : " (" + state + ")");
}

std::string why_unreachable(const std::string& connect_text) {
  const Attempt attempt(PQconnectStart(connect_text.c_str()), &PQfinish);
  PQsetErrorVerbosity(attempt.get(), PQERRORS_SQLSTATE);
  switch (connect_slowly(attempt.get())) {
    case Ending::kSilent:
      return "serveris neatsiliepia";
    case Ending::kRefused:
      return reason_of_no_way(attempt.get());
    case Ending::kAnswered:
      return reason_of_refusal(attempt.get());
    case Ending::kConnected:
      break;
  }
  return "serveris ryšį nutraukė, bandykite dar kartą";
}

}  // namespace

StoreError translated(const soci::soci_error& error, const std::string& name) {
  Meaning meaning{"", StoreFault::kFailed, "veiksmas neatliktas"};
  if (const auto* sqlite = dynamic_cast<const soci::sqlite3_soci_error*>(&error)) {
    meaning = meaning_of_code(sqlite->result());
  } else if (const auto* server = dynamic_cast<const soci::postgresql_soci_error*>(&error)) {
    meaning = meaning_of_state(server->sqlstate());
  }
  const std::string quoted = "„" + name + "“";
  switch (meaning.fault) {
    case StoreFault::kLocked:
      return {meaning.fault, "įmonės duomenis dabar laiko kita programa: " + quoted};
    case StoreFault::kNotWritable:
      return {meaning.fault, "įmonės duomenų negalima keisti: " + quoted};
    case StoreFault::kNotACompany:
      return {meaning.fault, "tai ne įmonės duomenys arba jie sugadinti: " + quoted};
    default:
      return {meaning.fault, "duomenų bazės klaida (" + quoted + "): " + meaning.reason};
  }
}

StoreError unreachable(const std::string& name, const std::string& connect_text, std::chrono::milliseconds waited) {
  return {StoreFault::kMissing, "nepavyko pasiekti įmonės „" + name + "“: " +
                                    (waited >= kNoAnswer ? "serveris neatsiliepia" : why_unreachable(connect_text))};
}

}  // namespace quor
