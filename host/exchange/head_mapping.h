// What the columns of a foreign file are called, and which of ours they are: kept by whoever brings such a file in
// again and again, as JSON that people can write:
//
//   {"table": "worked_time", "columns": {"Tab. Nr.": "employee_id", "Val.": "valandos", "Pastaba": ""}}
//
// A head stands for a column of ours by its name or by what people call it; "" leaves the column of the file out. What
// the mapping does not name is looked for by its own head.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quor {

struct HeadMapping {
  std::string table;                                         // "" when it does not say
  std::vector<std::pair<std::string, std::string>> columns;  // the file's head, the name of ours

  // What stands for the head, whose case, marks and signs do not matter; none when it is not named.
  std::optional<std::string> column_of(std::string_view head) const;
};

// Throws std::runtime_error that says what is wrong with the text; `name` is where it comes from.
HeadMapping read_mapping(std::string_view json, const std::string& name);
// The same from a file.
HeadMapping read_mapping_file(const std::string& file);
std::string mapping_json(const HeadMapping& mapping);

// Letters without case and marks, and digits: "Etato dalis" and "etato_dalis" are "etatodalis".
std::string folded_name(std::string_view text);

}  // namespace quor
