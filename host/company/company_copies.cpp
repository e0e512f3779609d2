#include "host/company/company_copies.h"

#include "host/store/addresses.h"
#include "host/store/backup.h"

namespace quor {

void back_up_company(RightsGuard& guard, const std::string& place) {
  guard.require_administrator("daryti įmonės atsarginės kopijos");
  back_up(guard.company().database(), place);
}

void require_restore_right(RightsGuard& guard) { guard.require_administrator("atkurti įmonės iš atsarginės kopijos"); }

std::string restore_company_as(const std::string& user, const std::string& company, const std::string& copy) {
  if (!is_server_address(company)) {
    try {
      Company standing(Database::open(company));
      const Registrations none;
      RightsGuard guard(standing, none, user);
      require_restore_right(guard);
    } catch (const StoreError& error) {
      // One that is gone or damaged has nobody to ask: that is what copies are for.
      if (error.fault() != StoreFault::kMissing && error.fault() != StoreFault::kNotACompany) throw;
    }
  }
  return restore_company(company, copy);
}

}  // namespace quor
