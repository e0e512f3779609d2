#include "host/store/free_place.h"

#include <cerrno>
#include <filesystem>

#include "host/store/addresses.h"
#include "host/store/whole_file.h"

namespace quor {

StoreError not_made(const std::string& address, int error) {
  const std::string quoted = "„" + shown_address(address) + "“";
  switch (error) {
    case EEXIST:
      return {StoreFault::kAlreadyThere, "toks failas jau yra: " + quoted};
    case ENOENT:
    case ENOTDIR:
      return {StoreFault::kMissing, "nėra aplanko įmonės failui: " + quoted};
    case EACCES:
    case EPERM:
    case EROFS:
      return {StoreFault::kNotWritable, "į aplanką negalima rašyti: " + quoted};
    default:
      return {StoreFault::kFailed, "nepavyko sukurti įmonės failo: " + quoted + ": " + reason_of(error)};
  }
}

void require_free_place(const std::string& address) {
  refuse_mistaken_address(address);
  for (const std::string& place : {address, address + "-journal", address + "-wal"}) {
    std::error_code none;
    if (std::filesystem::exists(std::filesystem::symlink_status(place, none))) throw not_made(place, EEXIST);
  }
  refuse_company_files(address);
}

}  // namespace quor
