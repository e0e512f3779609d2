// Columns that stand in several tables, each described once. Included only by the sources of this folder.
#pragma once

#include "host/store/tables/stored_tables.h"

namespace quor::described {

using enum ColumnKind;
using enum Presence;

inline constexpr StoredColumn required(StoredColumn column) {
  column.presence = kRequired;
  return column;
}

inline constexpr StoredColumn kRowId{"id", kId, "ID", kRequired, &kStoredId};
inline constexpr StoredColumn kGuid{"guid", kText, "GUID", kRequired};
inline constexpr StoredColumn kName{"name", kText, "pavadinimas"};
inline constexpr StoredColumn kCode{"code", kText, "kodas", kRequired};
inline constexpr StoredColumn kEmployee{"employee_id", kId, "darbuotojas", kRequired, &kStoredId, "employees"};
inline constexpr StoredColumn kDocument{"document_id", kId, "dokumentas", kRequired, &kStoredId, "documents"};
inline constexpr StoredColumn kFrom{"date_from", kDate, "galioja nuo"};
inline constexpr StoredColumn kTo{"date_to", kDate, "galioja iki"};
inline constexpr StoredColumn kOfMonth{"month", kMonth, "mėnuo", kRequired};
inline constexpr StoredColumn kHourTariff{"base_hour_tariff_id", kWhole, "bazinė valandinė alga", kOptional,
                                          &kStoredIdOrNone};
inline constexpr StoredColumn kSurchargeCodes{
    "personal_time_code_id_list", kText, "priemokų laiko kodai", kOptional, nullptr, "", TextForm::kTimeCodeList};
inline constexpr StoredColumn kExtraLimit{"extra_charge_percentage", kNumber, "priedų riba", kOptional, &kPercentage};
inline constexpr StoredColumn kSurchargeLimit{"surcharge_percentage", kNumber, "priemokų riba", kOptional,
                                              &kPercentage};
inline constexpr StoredColumn kTotalLimit{"total_charge_percentage", kNumber, "bendra priedų ir priemokų riba",
                                          kOptional, &kPercentage};
inline constexpr StoredColumn kStepFrom{"year_from", kWhole, "stažas nuo", kOptional, &kScaleYear};
inline constexpr StoredColumn kStepTo{"year_to", kWhole, "stažas iki", kOptional, &kScaleYear};
inline constexpr StoredColumn kStepPercentage{"percentage", kNumber, "priedo procentas", kOptional, &kPercentage};
inline constexpr StoredColumn kSettingsGuid{"settings_guid", kText, "nustatymų GUID"};

// The parts of stored_tables(), in its order.
std::vector<StoredTable> people_and_tariffs();
std::vector<StoredTable> users_and_rights();
std::vector<StoredTable> months();

}  // namespace quor::described
