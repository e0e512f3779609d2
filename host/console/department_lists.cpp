#include "host/console/department_lists.h"

#include <map>
#include <string>
#include <vector>

#include "platform/data/error.h"

namespace quor {

namespace {

struct Department {
  std::int32_t id;
  std::string name;
  bool has_people;  // of its own
};

// By the department above; 0 for the first level.
using Departments = std::map<std::int32_t, std::vector<Department>>;

Departments read_departments(Company& company) {
  const auto rows = company.database().read(
      "SELECT d.id, COALESCE(d.parent_id, 0), d.name,"
      " (SELECT COUNT(*) FROM employees e WHERE e.department_id = d.id) FROM departments d ORDER BY d.sort_key, d.id",
      {{"ID", FieldType::kInt32},
       {"ParentID", FieldType::kInt32},
       {"Name", FieldType::kText},
       {"People", FieldType::kInt32}});
  Departments departments;
  for (; !rows->Eof(); rows->MoveNext()) {
    departments[rows->int32({1})].push_back({rows->int32({0}), std::string(rows->text({2})), rows->int32({3}) > 0});
  }
  return departments;
}

class Lists {
 public:
  Lists(Company& company, const DepartmentFits& fits, const DepartmentList& list_of)
      : departments_(read_departments(company)), fits_(fits), list_of_(list_of) {}

  void add_below(std::int32_t department) {
    for (const Department& below : departments_[department]) add(below);
  }
  Reports take() { return std::move(lists_); }

 private:
  void add(const Department& department) {
    if (fits_(department.id)) {
      auto list = list_of_(department.id);
      if (list->lines > 0) lists_.push_back(std::move(list));
      return;
    }
    if (department.has_people || departments_[department.id].empty()) {
      throw Error(ErrorKind::kTooMany,
                  "Padalinio „" + department.name + "“ žmonės netelpa į vieną sąrašą, o į mažesnius jis nesiskaido.");
    }
    add_below(department.id);
  }

  Departments departments_;
  const DepartmentFits& fits_;
  const DepartmentList& list_of_;
  Reports lists_;
};

}  // namespace

Reports lists_by_department(Company& company, const DepartmentFits& fits, const DepartmentList& list_of) {
  Lists lists(company, fits, list_of);
  lists.add_below(0);
  return lists.take();
}

}  // namespace quor
