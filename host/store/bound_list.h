// Lists of values in a statement.
#pragma once

#include <string>
#include <vector>

#include "platform/data/variant.h"

namespace quor {

// ":p2, :p3, :p4" for a list that is bound behind `values`, where it is put.
template <typename List>
std::string bound_list(const List& list, std::vector<Variant>& values) {
  std::string binds;
  for (const auto& each : list) {
    binds += (binds.empty() ? ":p" : ", :p") + std::to_string(values.size());
    values.emplace_back(each);
  }
  return binds;
}

}  // namespace quor
