// The codes of worked time, the indications "WorkTime": how a file names them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/database.h"
#include "platform/data/variant.h"

namespace quor {

class TimeCodes {
 public:
  explicit TimeCodes(Database& database);
  // An indication as the file of the table brings it; it stands for the stored one with that ID.
  void put(const std::vector<Variant>& indication);

  // The code_id that the text names, as a code or as the number itself; a fault when none or more than one.
  struct Resolved {
    std::optional<std::int32_t> code_id;
    std::string fault;
  };
  Resolved resolve(std::string_view text) const;
  bool has(std::int32_t code_id) const;
  // The code's text, or the number when that would not lead back to it.
  std::string text(std::int32_t code_id) const;

 private:
  struct Code {
    std::int32_t code_id;
    std::string code;
  };
  std::map<std::int32_t, Code> codes_;  // by the indication's ID
};

}  // namespace quor
