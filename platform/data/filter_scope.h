// The one way to ask whether a record set has a row that passes a filter, and to stand on it.
#pragma once

#include <memory>
#include <string_view>

#include "platform/data/recordset.h"

namespace quor {

// A missing or empty record set (under the filter that it has at that moment): false, and nothing is touched.
// Otherwise sets the filter. True: it stands on the first row that passes, and **the filter stays set**; whoever called
// removes it (FilterScope). False: no row passes, and the record set has no filter.
// Throws what Recordset::Filter throws.
[[nodiscard]] bool filter_test(Recordset* record_set, std::string_view text);
[[nodiscard]] bool filter_test(const std::shared_ptr<Recordset>& record_set, std::string_view text);

// Removes the filter of a record set at the end of a scope, whatever the ending. Lends the record set, which may be
// missing. A record set without a filter keeps its position.
class FilterScope {
 public:
  explicit FilterScope(Recordset* record_set) : record_set_(record_set) {}
  explicit FilterScope(const std::shared_ptr<Recordset>& record_set) : record_set_(record_set.get()) {}
  ~FilterScope();
  FilterScope(const FilterScope&) = delete;
  FilterScope& operator=(const FilterScope&) = delete;

 private:
  Recordset* record_set_;
};

}  // namespace quor
