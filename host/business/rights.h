// What a user may do, by the company's tables `users` and `rights`.
//
// A company without users lets everybody do everything. Else an administrator may do everything, an unknown user
// nothing, and any other what is granted: of the components that enclose each other, the innermost that the user has
// an entry for decides.
#pragma once

#include <string>
#include <vector>

#include "frame/contract/quor_application.h"
#include "host/business/company.h"
#include "host/business/registry.h"

namespace quor {

// The components that decide about `asked`, innermost first: a group, its layout section, its library. `asked` is a
// component's key or an object-type code; a code stands for the group that holds the type, or else for the section of
// the plug-in that registered it. Either may also be granted itself.
std::vector<std::string> deciding_components(const Registrations& registrations, const std::string& asked);

// Reads the company's tables once and keeps what it read. Throws StoreError.
bool has_right(Company& company, const std::string& user, UserRight right, const std::vector<std::string>& components);

}  // namespace quor
