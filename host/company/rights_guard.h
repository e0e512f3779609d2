// Asks before a service is given to a user: may he? One guard stands for one user in one open company; whoever serves
// something (a month, an import, a list, a card) asks it first, whoever calls.
#pragma once

#include <string>

#include "frame/contract/quor_application.h"
#include "host/company/company.h"
#include "host/company/registrations.h"
#include "host/company/rights.h"

namespace quor {

class RightsGuard {
 public:
  // Company and registrations outlive the guard; what a plug-in registers later counts from then on.
  RightsGuard(Company& company, const Registrations& registrations, std::string user)
      : company_(company), registrations_(registrations), user_(std::move(user)) {}
  RightsGuard(const RightsGuard&) = delete;
  RightsGuard& operator=(const RightsGuard&) = delete;

  Company& company() { return company_; }
  const std::string& user() const { return user_; }

  // In a company without users everybody may everything.
  bool allows(UserRight right, const std::string& object_type);

  // Each throws Error with a text that names what the user may not ("skaičiuoti darbo užmokesčio"), before anything is
  // done.
  void require_right(UserRight right, const std::string& object_type, const std::string& what);
  void require_view(const std::string& object_type);  // see viewed_with
  void require_view(const std::string& object_type, const std::string& what);
  void require_administrator(const std::string& what);

  // The text with which require_view refuses; "" when the type may be viewed.
  std::string view_refusal(const std::string& object_type);

  // While it lives, the program looks for itself and not for the user: everything may be viewed. For work that the
  // user may start, and that would half fail on records that he may not see.
  class ForProgram {
   public:
    explicit ForProgram(RightsGuard& guard) : guard_(guard) { ++guard_.for_program_; }
    ForProgram(const ForProgram&) = delete;
    ForProgram& operator=(const ForProgram&) = delete;
    ~ForProgram() { --guard_.for_program_; }

   private:
    RightsGuard& guard_;
  };

 private:
  bool may_view(const std::string& object_type);

  Company& company_;
  const Registrations& registrations_;
  std::string user_;
  int for_program_ = 0;  // open scopes
};

}  // namespace quor
