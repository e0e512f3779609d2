// `frmOfficeEmployeePreview`: the month's salary, supplements and surcharges of every civil servant, with what exceeds
// the limits of the settings in red. It reads and shows; it changes nothing.
#pragma once

#include <memory>

#include "forms/preview/persons.h"
#include "forms/preview/preview_form.h"
#include "forms/preview/salary_charges.h"
#include "frame/charge_limits.h"

namespace velmora {

class frmOfficeEmployeePreview : public PreviewForm {
 public:
  explicit frmOfficeEmployeePreview(quor::QuorApplication& application);

 private:
  struct Columns;

  void load_records() override;
  void release_records() override { surcharges_.reset(); }
  void fill_list() override;

  ChargeLimits limits() const;
  void show_limits(const ChargeLimits& limits);
  ByPerson<ChargeRecord> charges_by_person() const;
  void show_charges(std::size_t row, const PersonCharges& charges, const ChargeLimits& limits, const Columns& columns);

  std::shared_ptr<quor::Recordset> surcharges_;
};

}  // namespace velmora
