// Extra rows: the salary-extension object of a row identifier, and whether a row is complete.
#include "engine/salary_engine.h"
#include "frame/catalogue.h"

namespace velmora {

using quor::MethodResult;

MethodResult UIO0402000::extra_uio_by_guid(const std::string& row_id, quor::Date date) {
  const MethodResult& rows = request("SalaryExtraRow", catalogue::quoted(row_id) + "," + catalogue::quoted(date));
  if (rows.Code != 0) {
    return {.Code = quor::kPluginFailure,
            .Message = std::string("CreateExtraUIO/SalaryExtraRow: Klaida!") + quor::kLineBreak + rows.Message,
            .Value = {}};
  }
  const auto& row = rows.Value.record_set();
  if (!row || row->RecordCount() == 0) return {};
  const std::string identity = catalogue::null_to_text(row->field("OIDR"));
  if (!quor::carries_object(identity)) return {};
  return {.Code = 0, .Message = {}, .Value = application().GetQuorObjectUIO(identity)};
}

MethodResult UIO0402000::check_extra_components(const quor::NamedMembers& extra_row) {
  std::string reason;
  if (catalogue::null_to_int32(extra_row.member("mConstantID")) == 0) {
    reason = "Nenurodyta bazinė alga!";
  } else if (catalogue::null_to_int32(extra_row.member("mTariffFactorID")) == 0) {
    reason = "Nenurodyta pareigybių kategoriją!";  // the case of the last word is the one that users know
  }
  return {.Code = 0, .Message = {}, .Value = reason};
}

}  // namespace velmora
