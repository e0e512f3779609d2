#include "host/store/addresses.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <libpq-fe.h>
#include <memory>
#include <unistd.h>

#include "host/store/store_error.h"
#include "platform/data/case_folding.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

std::string in_quotes(const std::string& text) { return "„" + shown_address(text) + "“"; }

// The letters that words of an address have, a byte for a byte: what is found there stands in the text at that place.
std::string lower_case(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), fold_ascii);
  return text;
}

std::string trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kBlanks);
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

// The scheme of a server's address in small letters, "" when it has none of ours.
std::string scheme_of(const std::string& address) {
  for (const std::string scheme : {"postgresql://", "postgres://"}) {
    if (lower_case(address.substr(0, scheme.size())) == scheme) return scheme;
  }
  return "";
}

std::string normal_form(const std::string& address) {
  const std::string text = trimmed(address), scheme = scheme_of(text);
  return scheme + text.substr(scheme.size());
}

// The client library takes what stands behind an unescaped sign of a password for another part of the address: what is
// shown as the host, the port or the database would then be a piece of the password.
bool parts_are_clear(const std::string& text) {
  const std::string parts = text.substr(scheme_of(text).size(), text.find('?') - scheme_of(text).size());
  const std::string authority = parts.substr(0, parts.find('/'));
  if (std::count(parts.begin(), parts.end(), '@') != std::count(authority.begin(), authority.end(), '@')) return false;
  if (std::count(authority.begin(), authority.end(), '@') > 1) return false;
  const std::string hosts = authority.substr(authority.find('@') + 1);
  const std::size_t port = hosts.find(':', hosts.find(']') == std::string::npos ? 0 : hosts.find(']'));
  return port == std::string::npos || hosts.find_first_not_of("0123456789,:", port) == std::string::npos ||
         hosts.find(',') != std::string::npos;
}

// The words of a server's address in the client library's other form, "host=… password=…".
bool has_keywords(const std::string& text) {
  for (const std::string word : {"host", "hostaddr", "port", "dbname", "user", "password", "service", "passfile"}) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
      const std::size_t behind = text.find_first_not_of(' ', at + word.size());
      const bool begins = at == 0 || text[at - 1] == ' ' || text[at - 1] == '\t';
      if (begins && behind != std::string::npos && text[behind] == '=') return true;
    }
  }
  return false;
}

bool resembles_server(const std::string& address) {
  const std::string text = lower_case(trimmed(address));
  const std::size_t colon = text.find(':');
  return text.find("://") != std::string::npos || has_keywords(text) ||
         (colon != std::string::npos && text.find('@', colon) != std::string::npos) ||
         text.starts_with("postgresql:") || text.starts_with("postgres:");
}

// Of a text that may not parse: rather too little is shown than a piece of the password.
std::string without_password(const std::string& text) {
  constexpr const char* kHidden = "…";
  const std::size_t word = lower_case(text).find("password");
  std::string shown = text.substr(0, word);
  if (shown.find('?') != std::string::npos) shown.resize(shown.find('?'));
  if (shown.size() < text.size()) shown += kHidden;
  const std::size_t scheme = shown.find("://");
  const std::size_t colon = shown.find(':', scheme == std::string::npos ? 0 : scheme + 3);
  if (colon == std::string::npos) return shown;
  const std::size_t at = shown.rfind('@');
  if (at != std::string::npos && at > colon) return shown.substr(0, colon + 1) + kHidden + shown.substr(at);
  return shown.substr(0, colon + 1) + kHidden;
}

StoreError mistaken(const std::string& address) {
  return {
      StoreFault::kMissing,
      "nesuprantamas įmonės adresas „" + without_password(trimmed(address)) +
          "“: rašykite failo vardą arba postgresql://naudotojas@serveris/bazė (ženklus / : @ ? # % jo dalyse – kaip "
          "%2F %3A %40 %3F %23 %25)"};
}

fs::path folder_of(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

// By the effective user: what the database will be allowed, not what a privileged caller might be.
bool may_access(const fs::path& path, int mode) { return ::faccessat(AT_FDCWD, path.c_str(), mode, AT_EACCESS) == 0; }

}  // namespace

bool is_memory_address(const std::string& address) { return address == ":memory:"; }

bool is_server_address(const std::string& address) { return !scheme_of(trimmed(address)).empty(); }

std::string shown_address(const std::string& address) {
  std::error_code ignored;
  if (is_memory_address(address) || (!is_server_address(address) && fs::exists(address, ignored))) return address;
  if (!is_server_address(address)) return resembles_server(address) ? without_password(address) : address;
  try {
    return parse_server_address(address).shown;
  } catch (const StoreError&) {
    return without_password(trimmed(address));
  }
}

void refuse_mistaken_address(const std::string& address) {
  std::error_code ignored;
  if (resembles_server(address) && !fs::exists(fs::symlink_status(address, ignored))) throw mistaken(address);
}

std::string require_company_file(const std::string& path) {
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
  if (!may_access(path, R_OK)) {
    throw StoreError(StoreFault::kNotWritable, "įmonės failo negalima skaityti: " + in_quotes(path));
  }
  if (!may_access(path, W_OK)) return "įmonės failo negalima keisti: " + in_quotes(path);
  if (!may_access(folder_of(path), W_OK | X_OK)) return "į įmonės failo aplanką negalima rašyti: " + in_quotes(path);
  return "";
}

std::string existing_file_uri(const std::string& path, bool read_only) {
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
  return uri + (read_only ? "?mode=ro" : "?mode=rw");
}

ServerAddress parse_server_address(const std::string& address) {
  const std::string text = normal_form(address);
  char* message = nullptr;
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(PQconninfoParse(text.c_str(), &message),
                                                                             &PQconninfoFree);
  const std::unique_ptr<char, decltype(&PQfreemem)> freed(message, &PQfreemem);
  // The library's message would repeat the address, a password in it included.
  if (!options || !parts_are_clear(text)) throw mistaken(address);

  const auto option = [&](std::string_view keyword) -> std::string {
    for (const PQconninfoOption* each = options.get(); each->keyword != nullptr; ++each) {
      if (keyword == each->keyword && each->val != nullptr) return each->val;
    }
    return "";
  };
  const std::string host = option("host");
  const bool socket = host.starts_with("/");
  ServerAddress server{text, "postgresql://"};
  if (!option("user").empty()) server.shown += option("user") + "@";
  if (!socket) server.shown += host;
  if (!option("port").empty()) server.shown += ":" + option("port");
  server.shown += "/" + option("dbname");
  if (socket) server.shown += "?host=" + host;
  if (option("connect_timeout").empty()) {
    server.connect_text += text.find('?') == std::string::npos ? "?connect_timeout=5" : "&connect_timeout=5";
  }
  return server;
}

}  // namespace quor
