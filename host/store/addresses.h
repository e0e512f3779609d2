// Where a company stands: what the parts of an address mean and whether something can stand there.
// Text is UTF-8; every function throws StoreError with a line that names the address, without a password.
#pragma once

#include <string>

namespace quor {

bool is_memory_address(const std::string& address);
bool is_server_address(const std::string& address);

// The file is there, is a file, and may be changed, together with its folder (the journal of changes stands there).
void require_company_file(const std::string& path);

// The SQLite address of a file that is there: opening it never creates one. Any character may stand in `path`.
std::string existing_file_uri(const std::string& path);

struct ServerAddress {
  std::string connect_text;  // for the client library
  std::string shown;         // for people
};
ServerAddress parse_server_address(const std::string& address);

// A new empty file, removed again with the journal beside it unless kept. Refuses a path where anything stands, also
// when two programs make it at once.
class NewFile {
 public:
  explicit NewFile(std::string path);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();
  void keep() { kept_ = true; }

 private:
  std::string path_;
  bool kept_ = false;
};

}  // namespace quor
