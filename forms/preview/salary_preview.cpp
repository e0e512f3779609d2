#include "forms/preview/salary_preview.h"

#include "frame/catalogue.h"
#include "frame/contract/over_limit.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

constexpr quor::CellAlignment kRight = quor::CellAlignment::kRight;
constexpr PreviewColumn kColumns[] = {
    {"Nr", "Eil. Nr.", 0.8, kRight},
    {"Preview", "Pavardė, vardas", 6},
    {"Category", "Pareigybių kategorija", 4},
    {"Factor", "Pareiginių algų koeficientai", 1.7, kRight},
    {"BaseTariff", "Bazinė alga", 1.3, kRight},
    {"RoundedSalary", "Pareiginė alga", 1.5, kRight},
    {"Salary", "Darbo užmokestis", 2, kRight, "Salary"},
    {"ExtraCharge", "Priedų suma", 2, kRight},
    {"ExtraChargePercentage", "%", 1.5, kRight, "ExtraChargePercentage"},
    {"SurCharge", "Priemokų suma", 2, kRight},
    {"SurChargePercentage", "%", 1.5, kRight, "SurChargePercentage"},
    {"TotalCharge", "Priemokų ir priedų suma", 2, kRight},
    {"TotalChargePercentage", "%", 1.5, kRight, "TotalChargePercentage"},
};

std::string money(double amount) { return quor::fixed_text(amount, 2); }

}  // namespace

struct frmOfficeEmployeePreview::Columns {
  explicit Columns(const quor::ListView& list)
      : preview(list.column("Preview")),
        category(list.column("Category")),
        factor(list.column("Factor")),
        base_tariff(list.column("BaseTariff")),
        rounded_salary(list.column("RoundedSalary")),
        salary(list.column("Salary")),
        supplement(list.column("ExtraCharge")),
        supplement_percentage(list.column("ExtraChargePercentage")),
        surcharge(list.column("SurCharge")),
        surcharge_percentage(list.column("SurChargePercentage")),
        total(list.column("TotalCharge")),
        total_percentage(list.column("TotalChargePercentage")) {}

  std::size_t preview, category, factor, base_tariff, rounded_salary, salary;
  std::size_t supplement, supplement_percentage, surcharge, surcharge_percentage, total, total_percentage;
};

frmOfficeEmployeePreview::frmOfficeEmployeePreview(quor::QuorApplication& application)
    : PreviewForm(application, " Valstybės tarnautojų sąrašas", kColumns, quor::MenuKey::kEnter) {
  lvwRows.on_double_click = [this] { commands().run([this] { place_on_desk_top(); }); };
}

void frmOfficeEmployeePreview::load_records() {
  std::string time_codes;
  if (settings() && settings()->RecordCount() > 0) {
    time_codes = "," + catalogue::null_to_text(settings()->field("PersonalTimeCodeIDList")) + ",";
  }
  surcharges_ =
      requested("OfficeEmployeeSurcharge", catalogue::quoted(last_day()) + "," + std::to_string(department()) + "," +
                                               catalogue::quoted(time_codes));
}

void frmOfficeEmployeePreview::fill_list() {
  const ChargeLimits limits = this->limits();
  show_limits(limits);
  quor::Recordset* rows = preview_rows().get();
  if (rows == nullptr) return;
  auto charges = charges_by_person();
  lvwRows.reserve(static_cast<std::size_t>(rows->RecordCount()));
  const Columns columns(lvwRows);
  const quor::FieldHandle user = rows->handle("UserID"), preview = rows->handle("Preview"),
                          category = rows->handle("CategoryName"), factor = rows->handle("Factor"),
                          tariff = rows->handle("ConstantValue"), salary = rows->handle("RoundedSalary");
  PersonRun persons;
  for_each_record(rows, [&] {
    const bool first = persons.begins(rows->int32(user));
    const std::size_t row = add_row(persons.user());
    if (first) {
      lvwRows.set_text(row, 0, std::to_string(persons.number()));
      lvwRows.set_text(row, columns.preview, std::string(rows->text(preview)));
      PersonCharges of_person;
      for (const auto& entry : charges.of(persons.user())) of_person.take(entry.record);
      show_charges(row, of_person, limits, columns);
    }
    lvwRows.set_text(row, columns.category, std::string(rows->text(category)));
    lvwRows.set_text(row, columns.factor, money(rows->number(factor)));
    lvwRows.set_text(row, columns.base_tariff, money(rows->number(tariff)));
    lvwRows.set_text(row, columns.rounded_salary, catalogue::null_to_text(rows->field(salary)));
  });
}

ChargeLimits frmOfficeEmployeePreview::limits() const {
  if (!settings() || settings()->RecordCount() == 0) return {};
  settings()->MoveFirst();
  return charge_limits(*settings());
}

// Only the supplements' head goes without a limit of 0; the other two show it.
void frmOfficeEmployeePreview::show_limits(const ChargeLimits& limits) {
  const auto show = [this](const char* header, std::string caption) {
    lvwRows.set_caption(lvwRows.header(header), std::move(caption));
  };
  show("Salary", month().text() + " darbo užmokestis");
  show("ExtraChargePercentage", limits.supplement > 0 ? limit_caption(limits.supplement) : "%");
  show("SurChargePercentage", limit_caption(limits.surcharge));
  show("TotalChargePercentage", limit_caption(limits.total));
}

// Walked once, instead of filtered once a person.
ByPerson<ChargeRecord> frmOfficeEmployeePreview::charges_by_person() const {
  ByPerson<ChargeRecord> charges;
  quor::Recordset* records = surcharges_.get();
  if (records == nullptr) return charges;
  charges.reserve(static_cast<std::size_t>(records->RecordCount()));
  const quor::FieldHandle user = records->handle("UserID"), pay = records->handle("Alga"),
                          type = records->handle("SumType"), sum = records->handle("SumA"),
                          percentage = records->handle("Percentage");
  for_each_record(records, [&] {
    charges.add(records->int32(user),
                {records->number(pay), records->int32(type), records->number(sum), records->number(percentage)});
  });
  return charges;
}

void frmOfficeEmployeePreview::show_charges(std::size_t row, const PersonCharges& charges, const ChargeLimits& limits,
                                            const Columns& columns) {
  const auto show = [&](std::size_t column, double value) {
    if (value != 0) lvwRows.set_text(row, column, money(value));
  };
  const auto show_percentage = [&](std::size_t sum_column, std::size_t column, double percentage, double limit) {
    show(column, percentage);
    if (percentage == 0 || !quor::percentage_exceeds(percentage, limit)) return;
    for (const std::size_t red : {std::size_t{0}, sum_column, column}) {
      lvwRows.set_colour(row, red, quor::CellColour::kRed);
    }
  };
  show(columns.salary, charges.pay);
  show(columns.supplement, charges.supplement);
  show(columns.surcharge, charges.surcharge);
  show(columns.total, charges.total());
  show_percentage(columns.supplement, columns.supplement_percentage, charges.supplement_percentage, limits.supplement);
  show_percentage(columns.surcharge, columns.surcharge_percentage, charges.surcharge_percentage, limits.surcharge);
  show_percentage(columns.total, columns.total_percentage, charges.total_percentage(), limits.total);
}

}  // namespace velmora
