#include "host/store/addresses.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <libpq-fe.h>
#include <memory>
#include <unistd.h>

#include "host/store/database.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

std::string in_quotes(const std::string& text) { return "„" + text + "“"; }

fs::path folder_of(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

// By the effective user: what the database will be allowed, not what a privileged caller might be.
bool may_access(const fs::path& path, int mode) { return ::faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0; }

}  // namespace

bool is_memory_address(const std::string& address) { return address == ":memory:"; }

bool is_server_address(const std::string& address) {
  return address.starts_with("postgresql://") || address.starts_with("postgres://");
}

void require_company_file(const std::string& path) {
  std::error_code failure;
  const fs::file_status status = fs::status(path, failure);
  if (status.type() == fs::file_type::not_found) {
    throw StoreError(StoreFault::kMissing, "nėra tokio įmonės failo: " + in_quotes(path));
  }
  if (failure) throw StoreError(StoreFault::kMissing, "įmonės failas nepasiekiamas: " + in_quotes(path));
  if (fs::is_directory(status)) {
    throw StoreError(StoreFault::kNotACompany, "tai aplankas, o ne įmonės failas: " + in_quotes(path));
  }
  if (!fs::is_regular_file(status))
    throw StoreError(StoreFault::kNotACompany, "tai ne įmonės failas: " + in_quotes(path));
  if (!may_access(path, R_OK | W_OK)) {
    throw StoreError(StoreFault::kNotWritable, "įmonės failo negalima skaityti ir keisti: " + in_quotes(path));
  }
  if (!may_access(folder_of(path), W_OK | X_OK)) {
    throw StoreError(StoreFault::kNotWritable, "į įmonės failo aplanką negalima rašyti: " + in_quotes(path));
  }
}

std::string existing_file_uri(const std::string& path) {
  // Everything unusual is escaped: SOCI splits its text at blanks, quotes and '='.
  std::string uri = "file:";
  for (const char c : fs::absolute(path).lexically_normal().string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 && (std::isalnum(byte) != 0 || c == '/' || c == '.' || c == '-' || c == '_')) {
      uri += c;
    } else {
      char escaped[4];
      std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned>(byte));
      uri += escaped;
    }
  }
  return uri + "?mode=rw";
}

ServerAddress parse_server_address(const std::string& address) {
  char* message = nullptr;
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(PQconninfoParse(address.c_str(), &message),
                                                                             &PQconninfoFree);
  const std::unique_ptr<char, decltype(&PQfreemem)> freed(message, &PQfreemem);
  // The library's message would repeat the address, a password in it included.
  if (!options)
    throw StoreError(StoreFault::kMissing, "nesuprantamas serverio adresas (postgresql://naudotojas@serveris/bazė)");

  const auto option = [&](std::string_view keyword) -> std::string {
    for (const PQconninfoOption* each = options.get(); each->keyword != nullptr; ++each) {
      if (keyword == each->keyword && each->val != nullptr) return each->val;
    }
    return "";
  };
  const std::string host = option("host");
  const bool socket = host.starts_with("/");
  ServerAddress server{address, "postgresql://"};
  if (!option("user").empty()) server.shown += option("user") + "@";
  if (!socket) server.shown += host;
  if (!option("port").empty()) server.shown += ":" + option("port");
  server.shown += "/" + option("dbname");
  if (socket) server.shown += "?host=" + host;
  if (option("connect_timeout").empty()) {
    server.connect_text += address.find('?') == std::string::npos ? "?connect_timeout=5" : "&connect_timeout=5";
  }
  return server;
}

NewFile::NewFile(std::string path) : path_(std::move(path)) {
  std::FILE* file = std::fopen(path_.c_str(), "wx");
  if (file != nullptr) {
    std::fclose(file);
    return;
  }
  switch (errno) {
    case EEXIST:
    case EISDIR:
      throw StoreError(StoreFault::kAlreadyThere, "toks failas jau yra: " + in_quotes(path_));
    case ENOENT:
    case ENOTDIR:
      throw StoreError(StoreFault::kMissing, "nėra aplanko įmonės failui: " + in_quotes(path_));
    case EACCES:
    case EPERM:
    case EROFS:
      throw StoreError(StoreFault::kNotWritable, "į aplanką negalima rašyti: " + in_quotes(path_));
    default:
      throw StoreError(StoreFault::kFailed, "nepavyko sukurti įmonės failo: " + in_quotes(path_));
  }
}

NewFile::~NewFile() {
  if (kept_) return;
  std::error_code ignored;
  fs::remove(path_, ignored);
  fs::remove(path_ + "-journal", ignored);
}

}  // namespace quor
