#include "host/insight/room_for_charge.h"

#include "frame/contract/over_limit.h"
#include "host/payroll/month_calculation.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

class WithoutCharge : public MonthTaker {
 public:
  WithoutCharge(const Month& month, std::int32_t charge) : charge_(charge), room_{.month = month} {}

  void begin(const MonthInputs& inputs) override {
    room_ = {.month = room_.month};
    if (inputs.people.empty()) room_.fault = "mėnesį pareigų nėra";
  }
  void take(const PersonInput& /*person*/, const PersonMonth& month) override {
    for (const SalaryRow& row : month.document.salary_rows) {
      if (row.extra_charge == charge_ && charge_ != 0) continue;
      room_.pay += {row.type == SumType::kBasePay ? row.sum : 0, row.type == SumType::kSupplement ? row.sum : 0,
                    row.type == SumType::kSurcharge ? row.sum : 0};
    }
    room_.service_percentage = month.supplement_percentage;
  }
  bool take_part(const CalculatedPeople& part) override {
    room_.limits = limits_of(*part.settings.lines);
    if (!part.faults.empty()) room_.fault = part.faults.front().reason;
    return true;
  }
  bool take_end() override { return true; }

  const RoomForCharge& room() const { return room_; }

 private:
  const std::int32_t charge_;
  RoomForCharge room_;
};

}  // namespace

RoomForCharge room_for_charge(Application& application, const Month& month, std::int32_t employee,
                              std::int32_t charge) {
  application.guard().require_view(kSalaryExtensionType);
  WithoutCharge measuring(month, charge);
  calculate_people(application, month, {.people = {employee}}, measuring);
  return measuring.room();
}

std::string room_for_charge_text(const RoomForCharge& room, double typed) {
  std::string text = room.month.text() + ": ";
  if (!room.fault.empty()) return text + room.fault;
  const RoomLeft left = room_left(room.pay, room.limits);
  text += "pagrindas " + fixed_text(room.pay.base, 2) + ", ";
  if (left.over > 0) return text + "riba jau viršyta " + fixed_text(left.over, 2);
  if (!left.supplement) return text + "priedams ribos nėra";
  text += "priedams dar galima " + fixed_text(*left.supplement, 2) + " (" +
          fixed_text(percentage_of(*left.supplement, room.pay.base), 2) + " %)";
  const double over = nearest_cents(typed) - nearest_cents(*left.supplement);
  return over > 0 ? text + " – šis priedas " + fixed_text(typed, 2) + " ribą viršytų " + fixed_text(over / 100, 2) + "!"
                  : text;
}

}  // namespace quor
