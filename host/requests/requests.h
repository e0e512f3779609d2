// The record sets that the business object answers by name. Each reads its whole parameter text and throws quor::Error
// when it does not parse; what it returns is the caller's own set or clone.
#pragma once

#include <memory>

#include "host/company/company.h"
#include "host/requests/parameter_text.h"

namespace quor::requests {

using Answer = std::shared_ptr<Recordset>;

// None. ID, ParentID, Name: every department.
Answer departments(Company& company, ParameterText& parameter);
// None. ID, DepartmentID, Preview (display name), UsrAccDate: every employee, in alphabetical order.
Answer employees(Company& company, ParameterText& parameter);

// None. IndicationCode, CodeID, Code, CodeName: work-time codes ("WorkTime") and the other indications.
Answer indications(Company& company, ParameterText& parameter);
// None. ID, Code, Name.
Answer salary_codes(Company& company, ParameterText& parameter);
// 'date'. ConstantTypeID, Code, Name, DateFrom, ConstantValue: each salary constant in force at the date.
Answer salary_constants(Company& company, ParameterText& parameter);

// id,'date'. ID, GUID, Name, DateFrom, Factor: the category with its factor in force at the date; no row without one.
Answer office_employee_category(Company& company, ParameterText& parameter);
// 'date'. The settings in force at the date, one line a scale row: the settings' fields, then RowGUID, YearFrom,
// YearTo, Percentage; one line with these null when the scale is empty. Of a date in a closed month, the settings that
// its documents were calculated by (see closed_month_basis.h).
Answer office_employee_settings(Company& company, ParameterText& parameter);

// None. UserID, DateExperience, ExperienceYears, ExperienceMonthes: at most one row an employee.
Answer office_employee_experience(Company& company, ParameterText& parameter);
// None. ID, PersonalID, DateFrom, DateTo, SalaryExtraOID, SumA, Percentage, SalaryCodeID: every charge of everybody.
// Open bounds are those of frame/contract/open_bounds.h.
Answer office_employee_extra_charges(Company& company, ParameterText& parameter);
// 'employee key' (O0400100 + ID). The charges of one employee; open bounds are null. Throws for an unknown employee.
Answer personal_extra_charges(Company& company, ParameterText& parameter);

// 'key','date'. ID, OIDR, PersonalContractGUID, SalaryPersonalNormGUID, SalaryConstantTypeID,
// OfficeEmployeeCategoryID, Share, Key, DateFrom, DateTo: the position of that key that is in force at the date.
Answer salary_extra_row(Company& company, ParameterText& parameter);
// id,'date'. The same fields of the stored position with that ID, whatever its dates.
Answer salary_extra_row_by_id(Company& company, ParameterText& parameter);

// 'date',department (0 for all; a department stands for those below it too). UserID, Preview (display name),
// CategoryName, Factor, ConstantValue (the base tariff), RoundedSalary (of the whole month, by the share): a row a
// position in force on a day of the date's month, a person's rows together, persons in alphabetical order. Factor and
// tariff are those of the position's last day within the month, as the month pays it; what is not in force then is
// null. Of a closed month, what its documents were calculated from (see closed_month_basis.h): who has no document is
// not listed then.
Answer office_employee_preview(Company& company, ParameterText& parameter);
// 'date',department,',12,15,' (the time codes whose pay is a surcharge). UserID, Alga (the month's base pay), SumType
// (0 base pay, 1 supplements, 2 surcharges), SumA, Percentage (of the base pay, not rounded; 0 without any): from the
// stored documents of the date's month, one row a person and sum type, by UserID.
Answer office_employee_surcharge(Company& company, ParameterText& parameter);
// None. ID, Name, Factor: every factor row, categories in alphabetical order, the rows of each by date.
Answer category_preview(Company& company, ParameterText& parameter);

}  // namespace quor::requests
