#include "host/company/guid.h"

#include <algorithm>
#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <cctype>

namespace quor {

namespace {

std::string upper_text(const boost::uuids::uuid& id) {
  std::string text = boost::uuids::to_string(id);
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

// The name space of this program's named identifiers.
constexpr boost::uuids::uuid kNameSpace = {
    {0x6B, 0x1E, 0x4C, 0x52, 0x83, 0x0F, 0x4D, 0x0A, 0x9C, 0x4E, 0x27, 0xD1, 0x55, 0xA0, 0x3B, 0x7C}};

}  // namespace

std::string new_guid() {
  thread_local boost::uuids::random_generator generate;
  return upper_text(generate());
}

std::string named_guid(const std::string& name) {
  static const boost::uuids::name_generator_sha1 generate(kNameSpace);
  return upper_text(generate(name));
}

}  // namespace quor
