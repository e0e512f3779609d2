#include "host/exchange/head_mapping.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "host/store/addresses.h"
#include "host/store/file_text.h"

namespace quor {

namespace {

using Json = nlohmann::ordered_json;

// Without a text there: "".
std::string text_at(const Json& object, const char* name, const std::string& from) {
  const auto found = object.find(name);
  if (found == object.end()) return {};
  if (!found->is_string()) throw std::runtime_error(from + ": „" + name + "“ turi būti tekstas");
  return found->get<std::string>();
}

}  // namespace

std::string folded_name(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* const fold = icu::Normalizer2::getNFKCCasefoldInstance(status);
  const icu::Normalizer2* const divide = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) throw std::runtime_error("nėra raidžių lyginimo taisyklių (ICU)");
  const auto whole =
      icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
  const icu::UnicodeString divided = divide->normalize(fold->normalize(whole, status), status);
  icu::UnicodeString kept;
  for (std::int32_t at = 0; at < divided.length(); at = divided.moveIndex32(at, 1)) {
    const UChar32 each = divided.char32At(at);
    if (u_isalnum(each) != 0) kept.append(each);
  }
  std::string result;
  kept.toUTF8String(result);
  return result;
}

std::optional<std::string> HeadMapping::column_of(std::string_view head) const {
  const std::string folded = folded_name(head);
  // Heads of signs alone ("%", "Nr.?") are told apart as they are written.
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const auto& each) {
    return each.first == head || (!folded.empty() && folded_name(each.first) == folded);
  });
  return found == columns.end() ? std::nullopt : std::optional(found->second);
}

HeadMapping read_mapping(std::string_view json, const std::string& name) {
  const std::string from = "atitikmenys „" + shown_address(name) + "“";
  const Json read = Json::parse(json, nullptr, /*allow_exceptions=*/false);
  if (!read.is_object()) throw std::runtime_error(from + ": tai ne JSON objektas");
  HeadMapping mapping{.table = text_at(read, "table", from), .columns = {}};
  const auto columns = read.find("columns");
  if (columns == read.end() || !columns->is_object()) {
    throw std::runtime_error(from + R"(: trūksta „columns“, pvz., {"columns": {"Tab. Nr.": "employee_id"}})");
  }
  for (const auto& [head, column] : columns->items()) {
    if (!column.is_string()) throw std::runtime_error(from + ": „" + head + "“ atitinka ne stulpelio vardas");
    mapping.columns.emplace_back(head, column.get<std::string>());
  }
  return mapping;
}

HeadMapping read_mapping_file(const std::string& file) { return read_mapping(text_of_file(file), file); }

std::string mapping_json(const HeadMapping& mapping) {
  Json columns = Json::object();
  for (const auto& [head, column] : mapping.columns) columns[head] = column;
  Json whole = Json::object();
  if (!mapping.table.empty()) whole["table"] = mapping.table;
  whole["columns"] = std::move(columns);
  return whole.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace quor
