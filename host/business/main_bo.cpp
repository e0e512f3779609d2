#include "host/business/main_bo.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/business/parameter_text.h"
#include "host/business/requests.h"
#include "platform/data/error.h"

namespace quor {

namespace {

struct Request {
  std::string_view name;
  std::shared_ptr<Recordset> (*answer)(Company& company, ParameterText& parameter);
};

constexpr Request kRequests[] = {
    {"GetDepartments", requests::departments},
    {"GetEmployees", requests::employees},
    {"GetIndications", requests::indications},
    {"GetOfficeEmployeeCategory", requests::office_employee_category},
    {"GetOfficeEmployeeExperience", requests::office_employee_experience},
    {"GetOfficeEmployeeExtraCharges", requests::office_employee_extra_charges},
    {"GetOfficeEmployeeSettings", requests::office_employee_settings},
    {"GetPersonalExtraCharges", requests::personal_extra_charges},
    {"GetSalaryCodes", requests::salary_codes},
    {"GetSalaryConstants", requests::salary_constants},
    {"GetSalaryExtraRow", requests::salary_extra_row},
    {"GetSalaryExtraRowByID", requests::salary_extra_row_by_id},
};

const Request* find(std::string_view name) {
  const auto* found = std::find_if(std::begin(kRequests), std::end(kRequests),
                                   [&](const Request& request) { return request.name == name; });
  return found == std::end(kRequests) ? nullptr : found;
}

MethodResult failure(const std::string& text) { return {.Code = kRequestFailure, .Message = text, .Value = {}}; }

}  // namespace

bool MainBO::knows(const std::string& name) { return find(name) != nullptr; }

MethodResult MainBO::RunMethod(const std::string& name, const std::string& parameter, std::int32_t /*flag*/) {
  const Request* request = find(name);
  if (request == nullptr) return failure("Nėra užklausos „" + name + "“.");
  try {
    ParameterText reader(parameter);
    return {.Code = 0, .Message = {}, .Value = request->answer(company_, reader)};
  } catch (const Error& error) {
    return failure(error.what());
  } catch (const StoreError& error) {
    return failure(error.what());
  }
}

}  // namespace quor
