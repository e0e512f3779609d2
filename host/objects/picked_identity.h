// The identity that the selection dialog answers.
#pragma once

#include <string>

#include "host/company/company.h"

namespace quor {

// How the selection dialog names the object of a key: with "#" and its GUID behind the key where the record has one.
std::string picked_identity(Company& company, const std::string& key);

}  // namespace quor
