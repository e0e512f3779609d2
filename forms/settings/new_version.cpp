#include "forms/settings/new_version.h"

#include "frame/catalogue.h"

namespace velmora {

namespace {

void fill_first_version(quor::Fields fields) {
  fields["ExtraChargePercentage"].Value(55.0);
  fields["SurChargePercentage"].Value(60.0);
  fields["TotalChargePercentage"].Value(70.0);
}

void copy_band(quor::QuorObjectUIO& settings, quor::Recordset& rows, const quor::Recordset& in_force) {
  rows.AddNew();
  rows.set_field("GUID", settings.GetGUID());
  rows.set_field("OfficeEmployeeSettingGUID", settings.Fields()["GUID"].Value());
  for (const char* name : {"YearFrom", "YearTo", "Percentage"}) rows.set_field(name, in_force.field(name));
  rows.Update();
}

}  // namespace

void start_as_copy(quor::QuorObjectUIO& settings, quor::Recordset& in_force) {
  const quor::Fields fields = settings.Fields();
  if (in_force.RecordCount() == 0) {
    fill_first_version(fields);
    return;
  }
  in_force.MoveFirst();
  for (const char* name : {"BaseMonthTariffID", "BaseHourTariffID", "PersonalTimeCodeIDList", "ExtraChargePercentage",
                           "SurChargePercentage", "TotalChargePercentage"}) {
    fields[name].Value(in_force.field(name));
  }
  const auto rows = catalogue::rows_of(settings);
  if (!rows) return;
  const std::string guid = in_force.field("GUID").to_text();
  // A version without a scale has one line, which carries no band.
  in_force.Filter("GUID = " + catalogue::quoted(guid) + " AND RowGUID <> Null");
  for (; !in_force.Eof(); in_force.MoveNext()) copy_band(settings, *rows, in_force);
}

}  // namespace velmora
