// The objects of a type as a person picks among them: in the explorer, in the selection dialog, on the desk top.
#pragma once

#include <memory>
#include <string>

#include "host/company/company.h"

namespace quor {

// The field of a list that holds each object's key; the object's name is in the next one.
inline constexpr char kKeyField[] = "OIDR";
inline constexpr std::size_t kNameColumn = 1;
// Of a list of objects that lie below each other, those of departments: how deep each lies, 0 at the top; behind the
// columns that are shown. An object stands behind the one above it.
inline constexpr char kLevelField[] = "Level";

// What the host calls the objects of a type; "" when it keeps no list of them.
std::string listed_caption(const std::string& object_type);

// The type that a list's parameter (see object_list) is about. Throws Error when it does not parse.
std::string listed_type(const std::string& parameter);

// `parameter` is the type code, alone or as 'O0402000','' with the key of a parent behind it: a department for
// employees and departments, an employee for positions. Names are in Lithuanian order; what changes with time is as of
// `today`. The set is a clone: its filter disturbs nobody. Throws Error for a parameter that does not parse or a type
// that has no list, StoreError.
std::shared_ptr<Recordset> object_list(Company& company, const std::string& parameter, Date today);

}  // namespace quor
