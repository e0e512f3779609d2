// How one person's amounts are told: a part for each kind of them, over what the recorder has written down. See
// told_pay.h for what comes of it.
#pragma once

#include <algorithm>
#include <string_view>

#include "host/insight/restatement.h"
#include "host/insight/told_pay.h"
#include "host/insight/words.h"

namespace quor {

inline std::string from_text(Date from) { return "nuo " + date_text(from); }

// The calls in the order in which they were made.
class RecordedCalls {
 public:
  explicit RecordedCalls(const std::vector<RecordedCall>& calls) : calls_(calls), next_(calls.begin()) {}

  // The next one of the method; of others in between nothing is told. An empty call when there is none.
  const RecordedCall& next(std::string_view method) {
    static const RecordedCall kNone{};
    next_ = std::find_if(next_, calls_.end(), [&](const RecordedCall& call) { return call.method == method; });
    return next_ == calls_.end() ? kNone : *next_++;
  }
  // The last one of the method, wherever the walk stands.
  const RecordedCall* last(std::string_view method) const {
    const auto found =
        std::find_if(calls_.rbegin(), calls_.rend(), [&](const RecordedCall& call) { return call.method == method; });
    return found == calls_.rend() ? nullptr : &*found;
  }

 private:
  const std::vector<RecordedCall>& calls_;
  std::vector<RecordedCall>::const_iterator next_;
};

class PayTeller {
 public:
  PayTeller(const MonthInputs& inputs, const PersonInput& person, const PersonMonth& month,
            const std::vector<RecordedCall>& calls, const StoredSources& sources)
      : inputs_(inputs),
        person_(person),
        month_(month),
        document_(month.document),
        base_(document_.sum_of(SumType::kBasePay)),
        calls_(calls),
        sources_(sources) {}

  ToldPay tell();

 private:
  // Told when the steps end in what was calculated.
  void take(ExplainedAmount amount, double restated);
  // The same of a sum that is paid.
  void take_paid(ExplainedAmount amount, double restated);

  void tell_position(std::size_t at);
  void tell_worked_part(std::size_t at, double five_fold);
  void tell_service();
  void tell_percentage(std::int32_t years);
  void tell_charge(const ChargeInput& charge);
  void tell_surcharge(const SalaryRow& row);
  void tell_limits();
  void tell_total();

  ExplainedAmount tariff(const char* what, const RecordedCall& call) const;
  ExplainedAmount factor(const RecordedCall& call) const;
  ExplainedAmount hours(const PositionInput& position, const WorkedPartSteps& steps,
                        const std::vector<const WorkedTime*>& worked) const;
  ExplainedAmount norm() const;
  ExplainedAmount worked(const WorkedTime& time) const;
  std::vector<const WorkedTime*> basic_time(const PositionInput& position) const;
  std::string of_position(std::size_t at) const;

  const MonthInputs& inputs_;
  const PersonInput& person_;
  const PersonMonth& month_;
  const MonthDocument& document_;
  const double base_;
  RecordedCalls calls_;
  const StoredSources& sources_;
  ExplainedAmount first_factor_;  // of the first position, which surcharges are paid by
  std::size_t next_row_ = 0;      // among the document's rows of base pay
  double paid_ = 0;               // what was told of it so far
  ToldPay told_;
};

}  // namespace quor
