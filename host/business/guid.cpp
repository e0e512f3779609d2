#include "host/business/guid.h"

#include <algorithm>
#include <boost/uuid/random_generator.hpp>
#include <boost/uuid/uuid_io.hpp>
#include <cctype>

namespace quor {

std::string new_guid() {
  thread_local boost::uuids::random_generator generate;
  std::string text = boost::uuids::to_string(generate());
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

}  // namespace quor
