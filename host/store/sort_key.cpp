#include "host/store/sort_key.h"

#include <memory>
#include <stdexcept>
#include <unicode/coll.h>
#include <unicode/unistr.h>
#include <unicode/uversion.h>
#include <vector>

namespace quor {
namespace {

std::unique_ptr<icu::Collator> make_collator() {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("lt"), status));
  // U_USING_DEFAULT_WARNING: ICU's data lack Lithuanian; names would silently be ordered by another alphabet.
  if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING)
    throw std::runtime_error("nėra lietuvių kalbos rikiavimo taisyklių (ICU)");
  collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
  return collator;
}

}  // namespace

std::int32_t sort_key_rule() {
  constexpr std::int32_t kOurRule = 2;  // 1: digits one by one
  UVersionInfo release;
  u_getVersion(release);
  return kOurRule * 1000 + release[0];
}

std::string lithuanian_sort_key(std::string_view utf8) {
  static const std::unique_ptr<icu::Collator> collator = make_collator();
  const auto text = icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<std::int32_t>(utf8.size())));
  std::vector<std::uint8_t> bytes(64);
  const auto room = [&] { return static_cast<std::int32_t>(bytes.size()); };
  const std::int32_t length = collator->getSortKey(text, bytes.data(), room());
  if (length > room()) {
    bytes.resize(static_cast<std::size_t>(length));
    collator->getSortKey(text, bytes.data(), room());
  }
  bytes.resize(static_cast<std::size_t>(length - 1));  // the key's closing zero

  std::string key;
  key.reserve(bytes.size() * 3);
  for (const std::uint8_t byte : bytes) {
    key += static_cast<char>('0' + byte / 100);
    key += static_cast<char>('0' + byte / 10 % 10);
    key += static_cast<char>('0' + byte % 10);
  }
  return key;
}

}  // namespace quor
