#include "host/editors/chart_windows.h"

#include "host/payroll/month_overview.h"
#include "platform/data/error.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/chart.h"

namespace quor {

namespace {

class ChartWindow : public Form {
 public:
  Chart chart;
  CommandButton cmdClose{*this, "cmdClose", "Užverti", ButtonRole::kDismiss};

  ChartWindow(Chart::Kind kind, ChartData data) : Form("Diagrama"), chart(*this, "chart", kind) {
    chart.set_data(std::move(data));
    cmdClose.on_click = [this] { close(); };
    set_layout(column({chart, row({cmdClose})}));
  }
};

std::int32_t id_of(const std::string& key) {
  const auto id = id_of_key(key);
  if (!id) throw Error(ErrorKind::kNotFound, "„" + key + "“ nėra įrašo raktas.");
  return *id;
}

}  // namespace

ChartData person_pay_data(Application& application, std::int32_t employee, const std::string& name) {
  ChartData data{.title = name + ": darbo užmokestis",
                 .unit = "",
                 .labels = {},
                 .series = {{"Pareiginė alga", {}}, {"Priedai", {}}, {"Priemokos", {}}}};
  for (const MonthPay& each : pay_of_person(application, employee)) {
    data.labels.push_back(each.month.text());
    data.series[0].values.emplace_back(each.pay.base);
    data.series[1].values.emplace_back(each.pay.supplements);
    data.series[2].values.emplace_back(each.pay.surcharges);
  }
  return data;
}

std::shared_ptr<Form> person_pay_chart(Application& application, const std::string& key, const std::string& name) {
  return std::make_shared<ChartWindow>(Chart::Kind::kStackedColumns, person_pay_data(application, id_of(key), name));
}

std::shared_ptr<Form> category_factor_chart(Application& application, const std::string& key, const std::string& name) {
  ChartData data{.title = name + ": koeficientas", .unit = "", .labels = {}, .series = {{"Koeficientas", {}}}};
  for (const DatedFactor& each : factors_of_category(application, id_of(key))) {
    data.labels.push_back(date_text(each.from));
    data.places.push_back(each.from.serial());
    data.series[0].values.emplace_back(each.factor);
  }
  return std::make_shared<ChartWindow>(Chart::Kind::kSteps, std::move(data));
}

}  // namespace quor
