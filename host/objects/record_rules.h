// What a stored record must keep to beside the values of its own fields: rules that need the other records. Asked
// inside the writing transaction, before the record is written and once it stands.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "host/company/tariff_gaps.h"
#include "host/objects/record_types.h"
#include "host/store/tables/statements.h"

namespace quor {

// What the program itself puts into a new record, in the open transaction: the number of a time code.
std::vector<ColumnValue> program_values(Database& database, const RecordType& type);

class RecordRules {
 public:
  // Before the record is written. Type and database outlive the object.
  RecordRules(Database& database, const RecordType& type);

  // Once it is written. Throws StoreError: a department below itself, a time code that another has, the basic time code
  // under another name, settings whose tariff would lose its value.
  void require(std::int32_t id);

 private:
  bool has_basic_code();

  Database& database_;
  const RecordType& type_;
  std::vector<TariffGap> gaps_;  // as they were
  bool had_basic_code_ = false;
};

// What keeps a record from being deleted that nothing names: throws StoreError. `name` is the record's.
void refuse_needed_record(Database& database, const RecordType& type, std::int32_t id, const std::string& name);

}  // namespace quor
