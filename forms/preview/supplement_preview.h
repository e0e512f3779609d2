// `frmOfficeEmployeeExtraChargePreview`: the length of service and the personal extra charges of every civil servant in
// a month. From a person's row the editors of both open; after an edit the list is made anew.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/preview/persons.h"
#include "forms/preview/preview_form.h"
#include "forms/preview/supplements.h"
#include "frame/service_years.h"

namespace velmora {

class frmOfficeEmployeeExtraChargePreview : public PreviewForm {
 public:
  quor::MenuItem mnuEdit{*this, mnuMenu, "mnuEdit", "Priedų sąrašas", quor::MenuKey::kEnter};
  quor::MenuItem mnuExperience{*this, mnuMenu, "mnuExperience", "Tarnybos stažas"};

  explicit frmOfficeEmployeeExtraChargePreview(quor::QuorApplication& application);

 private:
  struct Filling;
  struct ListedPerson {
    std::int32_t user = -1;
    std::int16_t rows = 0;  // the last ones of the list
    std::int16_t service_years = 0;
    bool service_is_known = true;
  };

  void run_action(const std::string& code);
  void edit_charges(const std::string& employee);
  void edit_experience(const std::string& employee);
  void fill_again();

  void load_records() override;
  void release_records() override;
  void fill_list() override;

  void gather_services(ByPerson<RecordedService>& services) const;
  void gather_charges(ByPerson<ExtraCharge>& charges) const;
  void count_service(ListedPerson& person, std::string_view name, Filling& filling);
  void tell_faults(const std::vector<std::string>& faults);
  void show_charges(const ListedPerson& person, Filling& filling);
  double percentage_of_service(const ListedPerson& person, Filling& filling);

  std::shared_ptr<quor::Recordset> extra_charges_;
  std::shared_ptr<quor::Recordset> experience_;
};

}  // namespace velmora
