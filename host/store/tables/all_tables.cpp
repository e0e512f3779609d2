#include "host/store/tables/shared_columns.h"

namespace quor {

std::span<const StoredTable> stored_tables() {
  static const std::vector<StoredTable> tables = [] {
    std::vector<StoredTable> all;
    for (const auto& part : {described::people_and_tariffs(), described::users_and_rights(), described::months()}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }();
  return tables;
}

}  // namespace quor
