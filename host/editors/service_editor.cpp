#include "host/editors/service_editor.h"

#include "frame/contract/host_types.h"
#include "frame/contract/object_key.h"
#include "host/editors/entered_values.h"
#include "host/editors/record_saving.h"

namespace quor {

namespace {

constexpr char kServices[] = "OfficeEmployeeExperience";

}  // namespace

bool find_service(Recordset& services, std::int32_t employee) {
  services.Filter("UserID = " + std::to_string(employee));
  return services.RecordCount() > 0;
}

ServiceEditor::ServiceEditor(QuorApplication& application, std::int32_t employee, std::shared_ptr<Recordset> services,
                             std::string began)
    : Form("Darbuotojo tarnybos stažas"),
      application_(application),
      employee_(employee),
      services_(std::move(services)),
      began_(std::move(began)) {
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Stažas šiai dienai", txtDate), field("Metai", txtYears), field("Mėnesiai", txtMonths),
                     row({cmdWrite, cmdCancel})}));
}

std::string ServiceEditor::subject() const { return object_key(kEmployeeType, employee_); }

void ServiceEditor::opening() {
  stored_ = false;
  cmdWrite.set_enabled(application_.HasRight(UserRight::kWrite, kEmployeeType, 0));
  recorded_ = find_service(*services_, employee_);
  const auto shown_field = [&](const char* name, const std::string& otherwise) {
    return recorded_ ? null_to_text(services_->field(name)) : otherwise;
  };
  txtDate.set_text(shown_field("DateExperience", began_));
  txtYears.set_text(shown_field("ExperienceYears", "0"));
  txtMonths.set_text(shown_field("ExperienceMonthes", "0"));
  shown_ = shown();
}

void ServiceEditor::write() {
  EnteredValues entered(application_);
  const Date date = entered.date(txtDate, "Stažas šiai dienai");
  const auto whole = [&](const TextBox& box, const char* what, const NumberRange& range) {
    const double number = entered.number(box, what, range);
    const auto rounded = static_cast<std::int32_t>(range.holds(number) ? number : 0);
    if (range.holds(number) && number != rounded) {
      entered.refuse(box, std::string(what) + ": „" + box.text() + "“ nėra sveikasis skaičius.");
    }
    return rounded;
  };
  const std::int32_t years = whole(txtYears, "Metai", kServiceYears);
  const std::int32_t months = whole(txtMonths, "Mėnesiai", kServiceMonths);
  if (entered.show_faults()) return;

  if (!find_service(*services_, employee_)) {
    services_->AddNew();
    services_->set_field("UserID", employee_);
  }
  services_->set_field("DateExperience", date);
  services_->set_field("ExperienceYears", years);
  services_->set_field("ExperienceMonthes", months);
  services_->Update();
  const SaveStatus status = application_.NewMainBO()->SaveRecordset(kServices, *services_);
  if (status.Failed) services_->CancelBatch();
  if (!stored_or_told(application_, status)) return;
  stored_ = true;
  close();
}

}  // namespace quor
