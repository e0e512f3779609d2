#include "host/objects/employee_object.h"

#include "host/objects/object_deletion.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

EmployeeObject::EmployeeObject(QuorApplication& application, Company& company, std::string user,
                               RecordEditor edit_charge)
    : StandardObjectUIO(application, company, std::move(user), kEmployeeType), edit_charge_(std::move(edit_charge)) {}

SaveStatus EmployeeObject::Read() {
  if (carries_object(OIDR())) return StandardObjectUIO::Read();
  return {.Failed = true, .ErrorText = "Įrašo „" + OIDR() + "“ nėra.", .Gone = true};
}

MethodResult EmployeeObject::Methods(const std::string& name, const Parameters& parameters) {
  const bool deletes = name == "DeletePersonalExtraCharge";
  if (!deletes && name != "PersonalExtraCharge") return StandardObjectUIO::Methods(name, parameters);
  if (parameters.empty()) throw Error(ErrorKind::kIndexOutOfRange, "Parametras Nr. 0 nepateiktas.");
  const std::string guid = parameters.front().to_text();
  const auto employee = id_of_key(OIDR());
  if (!employee) throw Error(ErrorKind::kTypeMismatch, "„" + OIDR() + "“ nėra darbuotojo raktas.");
  bool done = false;
  try {
    done = deletes ? delete_charge(*employee, guid) : edit_charge(*employee, guid);
  } catch (const StoreError& error) {
    show(error.what());
  }
  return {.Code = 0, .Message = {}, .Value = done};
}

bool EmployeeObject::edit_charge(std::int32_t employee, const std::string& guid) {
  StandardObjectUIO charge(application(), company(), user(), kPersonalChargeType);
  charge.OIDR(guid.empty() ? kPersonalChargeType : charge_key(employee, guid));
  if (const SaveStatus status = charge.Read(); status.Failed) throw StoreError(StoreFault::kFailed, status.ErrorText);
  if (guid.empty()) {
    charge.Fields()["GUID"].Value(charge.GetGUID());
    charge.Fields()["PersonalID"].Value(employee);
  }
  if (!edit_charge_) throw StoreError(StoreFault::kRefused, "Priedo redagavimo lango čia nėra.");
  return edit_charge_(application(), charge);
}

bool EmployeeObject::delete_charge(std::int32_t employee, const std::string& guid) {
  delete_object(application(), company(), charge_key(employee, guid));
  return true;
}

std::string EmployeeObject::charge_key(std::int32_t employee, const std::string& guid) {
  const auto charge = company().database().read("SELECT id FROM extra_charges WHERE employee_id = :p0 AND guid = :p1",
                                                {{"ID", FieldType::kInt32}}, {employee, guid});
  if (charge->RecordCount() > 0) return object_key(kPersonalChargeType, charge->int32(FieldHandle{0}));
  throw StoreError(StoreFault::kChangedElsewhere, "Priedo nebėra: jį panaikino kitas vartotojas.");
}

void EmployeeObject::show(const std::string& text) {
  application().MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application().Title());
}

}  // namespace quor
