// A company with the person "Pirmoji", whose first day of service is 2003-03-15, for the editors of a person.
#pragma once

#include <gtest/gtest.h>
#include <map>

#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace velmora {

using quor::day;
using quor::kNull;
using quor::Variant;
using Texts = std::vector<std::string>;

// What stands in the store; `types` has a letter for each column: i(nteger), n(umber), d(ate), t(ext).
inline std::string stored(quor::Database& database, const std::string& sql, std::string_view types) {
  using quor::FieldType;
  const std::map<char, FieldType> type_of = {
      {'i', FieldType::kInt32}, {'n', FieldType::kDouble}, {'d', FieldType::kDate}, {'t', FieldType::kText}};
  std::vector<quor::FieldInfo> fields;
  for (const char type : types) fields.push_back({std::to_string(fields.size()), type_of.at(type)});
  return rows_text(*database.read(sql, fields));
}

class PersonalEditors : public testing::TestWithParam<quor::Backend> {
 protected:
  PersonalEditors() { execute("UPDATE employees SET usr_acc_date = :p0", {day("2003.03.15")}); }

  quor::TestApplication& application() { return company_.application(); }
  void execute(const char* sql, const std::vector<Variant>& values = {}) { company_.database().execute(sql, values); }
  // The boxes since the last call.
  Texts last_boxes() {
    const Texts all = application().boxes();
    return {all.begin() + static_cast<std::ptrdiff_t>(std::exchange(boxes_seen_, all.size())), all.end()};
  }

  quor::TestCompany company_{GetParam()};
  std::int32_t person_ = company_.given_employee("Pirmoji");
  std::size_t boxes_seen_ = 0;
};

}  // namespace velmora
