#include "host/application/main_bo.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "host/company/closed_reach.h"
#include "host/objects/experience_store.h"
#include "host/objects/object_deletion.h"
#include "host/requests/object_lists.h"
#include "host/requests/parameter_text.h"
#include "host/requests/requests.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

namespace {

struct Request {
  std::string_view name;
  std::shared_ptr<Recordset> (*answer)(Company& company, ParameterText& parameter);
  ViewedWith viewed_with;
};

constexpr Request kRequests[] = {
    {"GetCategoryPreview", requests::category_preview, {kCategoryType}},
    {"GetDepartments", requests::departments, {kDepartmentType, kEmployeeType, kSalaryExtensionType}},
    {"GetEmployees", requests::employees, {kEmployeeType, kSalaryExtensionType}},
    {"GetIndications", requests::indications, {kSettingsType, kSalaryExtensionType}},
    {"GetOfficeEmployeeCategory", requests::office_employee_category, {kCategoryType, kSalaryExtensionType}},
    {"GetOfficeEmployeeExperience", requests::office_employee_experience, {kEmployeeType, kSalaryExtensionType}},
    {"GetOfficeEmployeeExtraCharges",
     requests::office_employee_extra_charges,
     {kPersonalChargeType, kSalaryExtensionType}},
    {"GetOfficeEmployeePreview", requests::office_employee_preview, {kSalaryExtensionType}},
    {"GetOfficeEmployeeSettings", requests::office_employee_settings, {kSettingsType, kSalaryExtensionType}},
    {"GetOfficeEmployeeSurcharge", requests::office_employee_surcharge, {kSalaryExtensionType}},
    {"GetPersonalExtraCharges", requests::personal_extra_charges, {kPersonalChargeType, kSalaryExtensionType}},
    {"GetSalaryCodes", requests::salary_codes, {kPersonalChargeType, kSettingsType, kSalaryExtensionType}},
    {"GetSalaryConstants", requests::salary_constants, {kConstantType, kSettingsType, kSalaryExtensionType}},
    {"GetSalaryExtraRow", requests::salary_extra_row, {kSalaryExtensionType}},
    {"GetSalaryExtraRowByID", requests::salary_extra_row_by_id, {kSalaryExtensionType}},
};

static_assert(std::all_of(std::begin(kRequests), std::end(kRequests),
                          [](const Request& request) { return !request.viewed_with.front().empty(); }),
              "somebody must be asked who may view what a request answers");

const Request* find(std::string_view name) {
  const auto* found = std::find_if(std::begin(kRequests), std::end(kRequests),
                                   [&](const Request& request) { return request.name == name; });
  return found == std::end(kRequests) ? nullptr : found;
}

// The record sets that can be stored, each with the type of the objects that its rows are about.
struct StoredSet {
  std::string_view name;
  const char* object_type;
  const char* plural;  // what the rows are called, in the genitive
  void (*store)(Company& company, const std::string& user, const Recordset& rows, const std::vector<Month>& agreed);
};

constexpr StoredSet kStoredSets[] = {
    {"OfficeEmployeeExperience", kEmployeeType, "darbuotojų tarnybos stažo", store_experience},
};

const StoredSet* find_stored(std::string_view name) {
  const auto* found = std::find_if(std::begin(kStoredSets), std::end(kStoredSets),
                                   [&](const StoredSet& set) { return set.name == name; });
  return found == std::end(kStoredSets) ? nullptr : found;
}

SaveStatus refused(const std::string& text) { return {.Failed = true, .ErrorText = text}; }

MethodResult failure(const std::string& text) { return {.Code = kRequestFailure, .Message = text, .Value = {}}; }

}  // namespace

bool MainBO::knows(const std::string& name) { return find(name) != nullptr; }

MethodResult MainBO::RunMethod(const std::string& name, const std::string& parameter, std::int32_t /*flag*/) {
  const Request* request = find(name);
  if (request == nullptr) return failure("Nėra užklausos „" + name + "“.");
  try {
    if (const std::string text = view_refusal(request->viewed_with); !text.empty()) return failure(text);
    ParameterText reader(parameter);
    return {.Code = 0, .Message = {}, .Value = request->answer(company_, reader)};
  } catch (const Error& error) {
    return failure(error.what());
  } catch (const StoreError& error) {
    return failure(error.what());
  }
}

std::shared_ptr<Recordset> MainBO::GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                     const std::string& order) {
  try {
    const std::string object_type = listed_type(parameter);
    if (const std::string text = view_refusal(viewed_with(object_type)); !text.empty()) {
      show(text);
      return nullptr;
    }
    if (!order.empty()) throw Error(ErrorKind::kRefused, "Sąrašo rikiuoti pagal „" + order + "“ negalima.");
    const auto list = object_list(company_, parameter, application_.Today());
    if (!filter.empty()) list->Filter(filter);
    return list;
  } catch (const Error& error) {
    show(error.what());
  } catch (const StoreError& error) {
    show(error.what());
  }
  return nullptr;
}

bool MainBO::DeleteQuorObject(const std::string& object) {
  try {
    delete_object(application_, company_, object);
    return false;
  } catch (const StoreError& error) {
    show(error.what());
    return true;
  }
}

SaveStatus MainBO::SaveRecordset(const std::string& name, Recordset& rows) {
  const StoredSet* const set = find_stored(name);
  if (set == nullptr) return refused("Duomenų „" + name + "“ čia įrašyti negalima.");
  try {
    if (!application_.HasRight(UserRight::kWrite, set->object_type, 0)) {
      return refused(refusal_text(company_, user_, std::string("keisti ") + set->plural));
    }
    // What is being typed is part of the save, wherever the cursor stands.
    if (!rows.Bof() && !rows.Eof()) rows.Update();
    write_as_agreed(application_, [&](const std::vector<Month>& agreed) { set->store(company_, user_, rows, agreed); });
    rows.AcceptBatch();
    return {};
  } catch (const StoreError& error) {
    return refused(error.what());
  }
}

// Why the user may not view what is of these types; "" when he may.
std::string MainBO::view_refusal(const ViewedWith& types) {
  if (may_view(application_, types)) return "";
  return refusal_text(company_, user_, std::string("peržiūrėti ") + viewed_plural(types.front()));
}

void MainBO::show(const std::string& text) {
  application_.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application_.Title());
}

}  // namespace quor
