// `UIO0402000`: the data object of the salary extension, and the salary engine of civil servants.
//
// The host's payroll and the plug-in's editors ask it by method name (engine/method_table.cpp has the whole table).
// Its computations stand one subject a file:
//
//   salary_constants.cpp   base tariffs from the dated salary constants
//   salary_components.cpp  tariff, category and factor of a position
//   month_salary.h         the rounded month salary (a pure rule)
//   length_of_service.cpp  the length-of-service supplement (rules in length_of_service.h)
//   extra_rows.cpp         the extra-row object of an identifier, and its completeness
//   salary_row_checks.cpp  a month's rows against the limits (the rule in frame/contract/over_limit.h)
//   category_selection.cpp the choice of a category for a row, and the row's own fields
#pragma once

#include <memory>
#include <string>

#include "frame/contract/named_members.h"
#include "frame/forwarding_object.h"
#include "platform/data/date.h"

namespace velmora {

class UIO0402000 : public ForwardingObject {
 public:
  explicit UIO0402000(quor::QuorApplication& application);

  // Its named data, and the names of its methods.
  quor::MethodResult Properties(const std::string& name, const std::string& parameter) override;

  // The methods of the table. A result with the plug-in's own failure code is shown once, here.
  quor::MethodResult Methods(const std::string& name, const quor::Parameters& parameters) override;

  // The methods themselves, as the table calls them. Each answers a result and shows no box of its own, except where
  // its comment says so.

  // Base tariff at the date: one row of ConstantID and ConstantValue, both 0 when there is none. A constant type of 0
  // means the base tariff of the settings in force.
  quor::MethodResult salary_constant(bool hourly, quor::Date date, std::int32_t constant_type);

  // Tariff, category and factor of the position that `key` names in the document (or else in the store), as one row.
  // Shows a failed look-up of the position itself and goes on with what the settings give.
  quor::MethodResult salary_components(quor::QuorObjectUIO& document, const std::string& key, bool hourly,
                                       quor::Date date);
  quor::MethodResult salary_components_by_id(std::int32_t row_id, bool hourly, quor::Date date);

  // The supplement of the scale for whole years of service. Leaves its filter on the caller's record set.
  static quor::MethodResult percentage_by_experience(std::int16_t years,
                                                     const std::shared_ptr<quor::Recordset>& settings);
  // A person's whole years of service at the date, the number that the supplement's comment ends with; 0 without
  // recorded service. Code 16 with the cause when there is no telling.
  quor::MethodResult years_of_service(std::int32_t person, quor::Date date);
  // A person's length-of-service supplement at the date: one row of ExtraChargePercentage and Comment.
  quor::MethodResult personal_extra_charge_components(std::int32_t person, quor::Date date);
  static quor::MethodResult action_components(const std::string& action);

  quor::MethodResult extra_uio_by_guid(const std::string& row_id, quor::Date date);
  static quor::MethodResult check_extra_components(const quor::NamedMembers& extra_row);

  // A month's supplements and surcharges against the limits in force at the date. The base is the time of `fd_code` of
  // the documents whose rows carry this object's OID. Code 4 is over a limit, 16 unusable parameters or settings; both
  // sets may be missing, and end without a filter.
  quor::MethodResult check_salary_rows(const std::shared_ptr<quor::Recordset>& time_rows,
                                       const std::shared_ptr<quor::Recordset>& salary_rows, quor::Date date,
                                       std::int32_t fd_code);

  // Lets the user pick a category: one row with the constant passed in, the category and its factor at the date. Empty
  // when nothing usable or the same category was picked.
  quor::MethodResult handle_select_event(quor::Date date, std::int32_t constant_id, double constant_value,
                                         std::int32_t current_category);
  // Writes what `source` chose into this object's own record, with `record_id` as its contract or else its norm.
  quor::MethodResult fill_extra_uio_fields(const quor::NamedMembers& source, const std::string& record_id,
                                           bool contract);

 private:
  struct Position {
    std::int32_t constant_type = 0;
    std::int32_t category = 0;
  };

  // Asks `Properties` and keeps the answer in LastPropertiesResult, where the caller reads it.
  const quor::MethodResult& request(const std::string& name, const std::string& parameter);

  std::int32_t base_tariff_type(bool hourly, quor::Date date);
  static bool find_in_document(quor::QuorObjectUIO& document, const std::string& key, Position& position);
  Position requested_position(const std::string& request_name, const std::string& parameter);
  quor::MethodResult components_of(const Position& position, bool hourly, quor::Date date);

  quor::MethodResult last_properties_result_;
};

}  // namespace velmora
