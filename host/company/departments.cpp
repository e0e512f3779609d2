#include "host/company/departments.h"

#include "platform/data/error.h"

namespace quor {

std::string in_department(const std::string& department_column, const std::string& bind) {
  return department_column + " IN (WITH RECURSIVE tree (id) AS (SELECT id FROM departments WHERE id = " + bind +
         " UNION SELECT d.id FROM departments d JOIN tree ON d.parent_id = tree.id) SELECT id FROM tree)";
}

void require_department(Company& company, std::int32_t department) {
  const auto found =
      company.database().read("SELECT id FROM departments WHERE id = :p0", {{"ID", FieldType::kInt32}}, {department});
  if (found->RecordCount() == 0) {
    throw Error(ErrorKind::kNotFound, "Nėra padalinio, kurio ID yra " + std::to_string(department) + ".");
  }
}

}  // namespace quor
