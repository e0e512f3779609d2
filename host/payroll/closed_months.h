// Closed months: what is paid out is not calculated again, and is shown as it was calculated.
//
//   open    --close_month--> closed    refused unless its documents are those of today, or with a reason
//   closed  --reopen_month-> open      with a reason
//
// Who did it, when and why is kept for ever.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/month_calculation.h"
#include "platform/data/month.h"

namespace quor {

// The month was never calculated, or its documents are not those of today. The text lists what speaks against closing,
// a line each, with the first names and counts; it ends without a line break.
class MonthNotReady : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Closes the month as the application's user. Calculates it first without storing; what that finds and the closing are
// of one state of the company. With `despite`, the reason why the month is closed as it stands, nothing is calculated.
// Throws MonthNotReady; quor::Error when the user is no administrator, when it is closed already or the reason is
// blank, too long or of several lines; StoreError, also when others write again and again meanwhile; what the
// calculation throws; Error when `watching` cancels the calculation. It stays open then. `watching` is told how far the
// calculation is; whom it is about is always everybody.
void close_month(Application& application, const Month& month, const std::optional<std::string>& despite = {},
                 const MonthOptions& watching = {});

// Opens it again as the application's user. Throws quor::Error when the user is no administrator, when it is not
// closed, or for the reason as above.
void reopen_month(Application& application, const Month& month, const std::string& reason);

// Deletes the documents of an open month and the faults noted in it: it is as if it had never been calculated. Throws
// quor::Error when the user is no administrator or the month is closed.
void delete_documents_of(Application& application, const Month& month);

struct MonthClosing {
  bool closed;  // or opened again
  std::string by;
  std::string at;      // "2008.02.05 14:05"
  std::string reason;  // "" of a closing that nothing spoke against
};

// Every closing and reopening of the month, the first one first. Throws StoreError.
std::vector<MonthClosing> closings_of(Database& database, const Month& month);

// "Adomas, Benas ir dar 3": the first names of many.
std::string first_of(const std::vector<std::string>& names);

}  // namespace quor
