// What a field of a record set is called and holds.
#pragma once

#include <cstddef>
#include <string>

namespace quor {

enum class FieldType { kInt16, kInt32, kDouble, kDate, kBool, kText, kRecordSet };

struct FieldInfo {
  std::string name;
  FieldType type;
  std::size_t size = 0;  // longest text in characters; 0 = no bound
};

}  // namespace quor
