// What a user may do, by the company's tables `users` and `rights`.
//
// A company without users lets everybody do everything. Else an administrator may do everything, an unknown user
// nothing, and any other what is granted: of the components that enclose each other, the innermost that the user has
// an entry for decides.
//
// Every service of the host asks where it is served, whoever calls: record sets, lists, cards and exports ask for View,
// a calculated month for Write of the salary extension, a new record for Create and Write, paper for Print, an import
// for Create and Write of what the table holds. What only an administrator may do says so.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/contract/quor_application.h"
#include "host/company/company.h"
#include "host/company/registrations.h"

namespace quor {

// The components that decide about `asked`, innermost first: a group, its layout section, its library. `asked` is a
// component's key or an object-type code; a code stands for the group that holds the type, or else for the section of
// the plug-in that registered it. Either may also be granted itself. A group's key stands for the type that the group
// was added for: whoever asks by the key hears what the type's data object will say.
std::vector<std::string> deciding_components(const Registrations& registrations, const std::string& asked);

// The type whose rights decide about the objects of a type: a charge is part of what is known of its employee, worked
// time, norms and months of pay; the codes belong to the settings.
std::string deciding_type(const std::string& object_type);

// Reads the company's tables once and keeps what it read. Throws StoreError.
bool has_right(Company& company, const std::string& user, UserRight right, const std::vector<std::string>& components);

// Whether the user may change users and rights: in a company without users anybody may.
bool may_administer(Company& company, const std::string& user);

// Inside the transaction that has written users: throws Error when one has no name, or when there are some and no
// administrator among them: nobody could change them any more.
void require_administrator_among_users(Database& database);

// What somebody is told who may not do `what` ("keisti darbuotojų priedų"), also that the company does not know him.
std::string refusal_text(Company& company, const std::string& user, const std::string& what);

// The object types of which View of one is enough, what is viewed first, unused places empty: people, their charges
// and the tariffs are part of what the salary extension shows of everybody.
using ViewedWith = std::array<std::string_view, 3>;
// For the objects of a type, as cards and in lists.
ViewedWith viewed_with(std::string_view object_type);
bool any_allowed(const ViewedWith& types, const std::function<bool(const std::string&)>& allowed);
bool may_view(QuorApplication& application, const ViewedWith& types);
// What is viewed, in the genitive: "padalinių".
const char* viewed_plural(std::string_view object_type);

}  // namespace quor
