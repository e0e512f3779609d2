// Checks of a month's salary rows: supplements, surcharges and both together against the limits of the settings.
#include <string_view>

#include "engine/salary_engine.h"
#include "frame/catalogue.h"
#include "frame/charge_limits.h"
#include "frame/contract/over_limit.h"
#include "platform/data/number_text.h"

namespace velmora {

using quor::MethodResult;
using quor::Recordset;

namespace {

constexpr std::int32_t kUnusable = 16;

MethodResult unusable(const std::string& message) { return {.Code = kUnusable, .Message = message, .Value = false}; }

// The value says nothing about the limit: callers decide on the code.
MethodResult over_limit(const std::string& what, double limit) {
  return {.Code = quor::kOverLimit,
          .Message = "CheckSalaryRows: " + what + " suma viršija " + quor::general_text(limit) + "%!",
          .Value = true};
}

MethodResult within_limits() { return {.Code = 0, .Message = {}, .Value = true}; }

// The rows of one check. A time row counts with the first salary row that belongs to it.
class MonthRows {
 public:
  MonthRows(Recordset& time_rows, Recordset& salary_rows)
      : time_rows_(time_rows),
        salary_rows_(salary_rows),
        guid_(time_rows.handle("GUID")),
        time_code_(time_rows.handle("SalaryTimeCodeID")),
        sum_(salary_rows.handle("SumA")),
        charge_(salary_rows.handle("PersonalExtraChargeID")) {}

  double base(const std::string& salary_extra_oid, std::int32_t fd_code) {
    return sum_of_time_rows("SalaryExtraOID = " + catalogue::quoted(salary_extra_oid) +
                                " AND SalaryTimeCodeID = " + std::to_string(fd_code),
                            [] { return true; });
  }

  double supplements() {
    double sum = 0;
    salary_rows_.Filter("");
    for (; !salary_rows_.Eof(); salary_rows_.MoveNext()) {
      if (catalogue::null_to_int32(salary_rows_.field(charge_)) > 0) sum += amount();
    }
    return sum;
  }

  // Of all time rows, also those of other documents.
  double surcharges(const std::string& wrapped_codes) {
    return sum_of_time_rows("", [&] {
      const std::int32_t code = catalogue::null_to_int32(time_rows_.field(time_code_));
      return wrapped_codes.find("," + std::to_string(code) + ",") != std::string::npos;
    });
  }

 private:
  double amount() const { return catalogue::null_to_double(salary_rows_.field(sum_)); }

  template <typename Counts>
  double sum_of_time_rows(const std::string& filter, const Counts& counts) {
    double sum = 0;
    time_rows_.Filter(filter);
    for (; !time_rows_.Eof(); time_rows_.MoveNext()) {
      if (!counts()) continue;
      salary_rows_.Filter("TimeRowGUID = " + catalogue::quoted(catalogue::null_to_text(time_rows_.field(guid_))));
      if (salary_rows_.RecordCount() > 0) sum += amount();
    }
    return sum;
  }

  Recordset& time_rows_;
  Recordset& salary_rows_;
  quor::FieldHandle guid_, time_code_, sum_, charge_;
};

// `time_codes` are those of surcharges, between commas: ",12,15,".
MethodResult check_limits(MonthRows& rows, const ChargeLimits& limits, const std::string& time_codes, double base) {
  double supplements = 0;
  double surcharges = 0;
  if (limits.supplement > 0) {
    supplements = rows.supplements();
    if (quor::share_exceeds(supplements, base, limits.supplement)) return over_limit("Priedų", limits.supplement);
  }
  if (limits.surcharge > 0) {
    surcharges = rows.surcharges(time_codes);
    if (quor::share_exceeds(surcharges, base, limits.surcharge)) return over_limit("Priemokų", limits.surcharge);
  }
  // A kind whose own limit is off counts as 0 here too.
  if (limits.total > 0 && quor::share_exceeds(supplements + surcharges, base, limits.total)) {
    return over_limit("Priedų ir priemokų", limits.total);
  }
  return within_limits();
}

}  // namespace

MethodResult UIO0402000::check_salary_rows(const std::shared_ptr<Recordset>& time_rows,
                                           const std::shared_ptr<Recordset>& salary_rows, quor::Date date,
                                           std::int32_t fd_code) {
  if (fd_code == 0) return unusable("CheckSalaryRows: Nenustatytas FD kodas!");
  if (!time_rows || !salary_rows) return unusable("CheckSalaryRows: Klaidingi parametrai!");

  const MethodResult& settings = request("OfficeEmployeeSettings", catalogue::quoted(date));
  if (settings.Code != 0) return unusable("GetOfficeEmployeeSettings: ");
  const auto& settings_rows = settings.Value.record_set();
  if (!settings_rows || settings_rows->RecordCount() == 0) return within_limits();
  const ChargeLimits limits = charge_limits(*settings_rows);
  const std::string codes = "," + catalogue::null_to_text(settings_rows->field("PersonalTimeCodeIDList")) + ",";

  const quor::FilterScope time_rows_end(time_rows);
  const quor::FilterScope salary_rows_end(salary_rows);
  MonthRows rows(*time_rows, *salary_rows);
  const double base = rows.base(OID(), fd_code);
  return quor::is_no_base(base) ? within_limits() : check_limits(rows, limits, codes, base);
}

}  // namespace velmora
