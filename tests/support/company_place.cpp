#include "tests/support/company_place.h"

#include <filesystem>
#include <fstream>
#include <libpq-fe.h>
#include <map>
#include <stdexcept>
#include <stdlib.h>
#include <unistd.h>

namespace quor {
namespace {

class FilePlace : public CompanyPlace {
 public:
  std::string address() const override { return folder_.path("įmonė 1=\"A\" 100%.db"); }

 private:
  TemporaryFolder folder_;
};

// A database of its own in the test run's server.
class ServerPlace : public CompanyPlace {
 public:
  ServerPlace() : name_("company_" + std::to_string(::getpid()) + "_" + std::to_string(++made_)) {
    run("DROP DATABASE IF EXISTS " + name_);
    run("CREATE DATABASE " + name_ + " TEMPLATE template0");  // two tests may copy it at once
  }
  ~ServerPlace() override { run("DROP DATABASE " + name_ + " WITH (FORCE)"); }
  std::string address() const override { return server_address("quor", name_); }

 private:
  static void run(const std::string& sql) {
    PGconn* connection =
        PQconnectdb((server_address("quor", "postgres") + "&options=-c%20client_min_messages%3Dwarning").c_str());
    PGresult* result = PQexec(connection, sql.c_str());
    const bool done = PQresultStatus(result) == PGRES_COMMAND_OK;
    const std::string message = PQerrorMessage(connection);
    PQclear(result);
    PQfinish(connection);
    if (!done) throw std::runtime_error(message);
  }

  static inline int made_ = 0;
  std::string name_;
};

// In memory where the system has room there: nothing that tests write must outlive a loss of power.
std::filesystem::path place_of_folders() {
  constexpr std::uintmax_t kEnough = std::uintmax_t{512} << 20;
  const std::filesystem::path memory = "/dev/shm";
  std::error_code none;
  const bool usable = ::access(memory.c_str(), W_OK) == 0 && std::filesystem::space(memory, none).available >= kEnough;
  return usable && !none ? memory : std::filesystem::temp_directory_path();
}

}  // namespace

std::vector<Backend> backends() {
  return {
      {"SQLite", []() -> std::unique_ptr<CompanyPlace> { return std::make_unique<FilePlace>(); }},
      {"PostgreSQL", []() -> std::unique_ptr<CompanyPlace> { return std::make_unique<ServerPlace>(); }},
  };
}

std::string server_address(const std::string& user, const std::string& database) {
  // The link is resolved here: it is there only while the tests run, and its own path may be too long for a socket.
  return "postgresql://" + user + "@/" + database + "?host=" + std::filesystem::canonical(VELMORA_TEST_SERVER).string();
}

TemporaryFolder::TemporaryFolder() : folder_(place_of_folders() / "quor-test-XXXXXX") {
  if (mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("no temporary folder: " + folder_);
}

TemporaryFolder::~TemporaryFolder() {
  std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
  std::filesystem::remove_all(folder_);
}

std::string TemporaryFolder::contents() const {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
    std::ifstream file(entry.path(), std::ios::binary);
    files[entry.path()] = entry.is_regular_file() ? std::string(std::istreambuf_iterator<char>(file), {}) : "";
  }
  std::string all;
  for (const auto& [name, content] : files) all += name + "\n" + content + "\n";
  return all;
}

void fail_one(Database& database, std::uint64_t n) {
  database.set_fault([failing = database.statements() + n](std::uint64_t statement) {
    if (statement == failing) throw StoreError(StoreFault::kFailed, "ryšys nutrūko");
  });
}

std::int32_t count(Database& database, const std::string& from, const std::vector<Variant>& values) {
  return database.read("SELECT COUNT(*) FROM " + from, {{"Count", FieldType::kInt32}}, values)
      ->field("Count")
      .to_int32();
}

}  // namespace quor
