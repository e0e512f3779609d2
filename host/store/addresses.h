// Where a company stands: what the parts of an address mean and whether something can stand there.
// Text is UTF-8; what fails throws StoreError with a line that names the address, without a password.
#pragma once

#include <string>

namespace quor {

bool is_memory_address(const std::string& address);
// The scheme in letters of any case, blanks around the address allowed.
bool is_server_address(const std::string& address);

// The address, or any file name, as people may see it: without a password, also where the address has a slip.
std::string shown_address(const std::string& address);

// Refuses what was meant for a server and is no address of one: another scheme, "host=… user=…". Nothing stands there
// as a file.
void refuse_mistaken_address(const std::string& address);

// The file is there, is a file, and may be read. Answers why it may not be changed (it or its folder, where the journal
// of changes stands); "" when it may.
std::string require_company_file(const std::string& path);

// The SQLite address of a file that is there: opening it never creates one. Any character may stand in `path`.
std::string existing_file_uri(const std::string& path, bool read_only);

struct ServerAddress {
  std::string connect_text;  // for the client library
  std::string shown;         // for people
};
ServerAddress parse_server_address(const std::string& address);

}  // namespace quor
