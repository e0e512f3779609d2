// What a command works with: the opened company, the application around it and the loaded plug-in.
#pragma once

#include <memory>
#include <string>

#include "host/application/application.h"
#include "host/console/call.h"
#include "host/report/record_text.h"
#include "platform/data/month.h"

namespace quor {

class Session {
 public:
  // Opens the company and loads the plug-ins; one that was left out is told on standard error. Message boxes go to
  // standard error; `pick` is what the object picker answers.
  explicit Session(const CommonOptions& options, const std::string& pick = "");

  Application& application() { return *application_; }

  // The named record set of the business object; throws std::runtime_error with its text when it fails, or when there
  // is no such record set.
  std::shared_ptr<Recordset> named_record_set(const std::string& name, const std::string& parameter);

 private:
  std::unique_ptr<Company> company_;
  std::unique_ptr<Application> application_;
};

// The day that replaces today, if the options name one; throws UsageError.
std::optional<Date> today_of(const CommonOptions& options);

// The month that a word of the call names; throws UsageError.
Month month_of(const std::string& word);

// The rows in the format of the call: a table, CSV of either style, or JSON.
void write_rows(Recordset& rows, const std::vector<TextColumnLayout>& columns, const std::string& format,
                std::ostream& out);

// The names of a box's icon and buttons, as programs read them.
const char* icon_name(BoxIcon icon);
const char* buttons_name(BoxButtons buttons);

}  // namespace quor
