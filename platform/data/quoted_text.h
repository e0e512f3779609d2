// Texts and dates between single quotes, as the parameters of requests and filters carry them.
#pragma once

#include <string>
#include <string_view>

#include "platform/data/date.h"

namespace quor {

// A quote inside is doubled: "it''s" stands for it's.
std::string quoted(std::string_view text);
std::string quoted(Date date);  // in the short date form: "'2008.01.31'"

}  // namespace quor
