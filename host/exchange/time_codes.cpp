#include "host/exchange/time_codes.h"

#include <algorithm>
#include <set>

#include "host/exchange/stored_rows.h"
#include "platform/data/variant.h"

namespace quor {

TimeCodes::TimeCodes(Database& database) {
  read_stored(database, *find_stored_table("indications"),
              [this](const std::vector<Variant>& cells, std::int32_t /*id*/) { put(cells); });
}

void TimeCodes::put(const std::vector<Variant>& indication) {
  const auto& [id, kind, code_id, code] =
      std::tie(indication.at(0), indication.at(1), indication.at(2), indication.at(3));
  codes_.erase(id.to_int32());
  if (kind.to_text() == "WorkTime") codes_[id.to_int32()] = {code_id.to_int32(), code.to_text()};
}

TimeCodes::Resolved TimeCodes::resolve(std::string_view text) const {
  std::set<std::int32_t> found;
  for (const auto& [id, each] : codes_) {
    if (each.code == text || std::to_string(each.code_id) == text) found.insert(each.code_id);
  }
  const std::string quoted = "„" + std::string(text) + "“";
  if (found.empty()) return {std::nullopt, quoted + ": tokio darbo laiko kodo nėra"};
  if (found.size() > 1) return {std::nullopt, quoted + ": tokių darbo laiko kodų yra keli"};
  return {*found.begin(), {}};
}

bool TimeCodes::has(std::int32_t code_id) const {
  return std::any_of(codes_.begin(), codes_.end(), [&](const auto& each) { return each.second.code_id == code_id; });
}

std::string TimeCodes::text(std::int32_t code_id) const {
  for (const auto& [id, each] : codes_) {
    if (each.code_id == code_id && resolve(each.code).code_id == code_id) return each.code;
  }
  return std::to_string(code_id);
}

}  // namespace quor
