// Where the values that a month is calculated from are stored: the row, since when it holds, who stored it and when,
// and the object in whose editor it is kept. Each question is one statement that finds its row by a key.
//
// Who and when are those of the record that the row belongs to: a category's for its factors. Rows that are no part of
// a record (worked time, norms) tell nobody.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/insight/recorded_call.h"
#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

class StoredSources {
 public:
  // Belongs into a Snapshot while it is asked. Every question throws StoreError.
  explicit StoredSources(Database& database) : database_(database) {}

  // A row that is gone, as those that a closed month keeps a copy of may be, has the ID 0.
  StoredSource constant_value(std::int32_t type, Date from) const;
  StoredSource category_row(std::int32_t category, Date from) const;
  StoredSource settings(std::int32_t id, Date from) const;
  StoredSource scale_row(std::int32_t settings, const std::string& guid, Date from) const;
  StoredSource position(std::int32_t id, std::int32_t employee) const;
  StoredSource service(std::int32_t employee) const;
  StoredSource charge(std::int32_t id, std::int32_t employee) const;
  StoredSource worked_time(std::int32_t employee, const Month& month, std::int32_t code, std::optional<Date> day) const;
  // The ID is 0 when the month has no norm of its own: that is where it would be kept.
  StoredSource norm(const Month& month) const;

  // Of the row at which a recorded request stood; none for a row of no table, or on none.
  std::optional<StoredSource> of_request(const RecordedRequest& request) const;

  // What a charge is called: its salary code's name, without one its comment; "" for neither.
  std::string charge_name(std::int32_t id) const;
  // "VD Viršvalandžiai"; the number of a code that is gone.
  std::string time_code_name(std::int32_t code) const;
  // "" for nobody of that ID.
  std::string employee_name(std::int32_t employee) const;

 private:
  StoredSource row(const char* table, const std::string& sql, const std::vector<Variant>& values) const;
  std::string text(const std::string& sql, const std::vector<Variant>& values) const;

  Database& database_;
};

}  // namespace quor
