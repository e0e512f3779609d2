#include "host/company/person_of.h"

#include "host/store/object_codes.h"

namespace quor {

std::string person_of(Company& company, const std::string& key) {
  const auto id = id_of_key(key);
  if (!id) return "";
  const std::string type = type_of_key(key);
  if (type == kEmployeeType) return key;
  const char* const table = type == kSalaryExtensionType  ? "positions"
                            : type == kPersonalChargeType ? "extra_charges"
                                                          : nullptr;
  if (table == nullptr) return "";
  const auto row = company.database().read(std::string("SELECT employee_id FROM ") + table + " WHERE id = :p0",
                                           {{"Employee", FieldType::kInt32}}, {*id});
  return row->RecordCount() == 0 ? "" : object_key(kEmployeeType, row->int32(FieldHandle{0}));
}

}  // namespace quor
