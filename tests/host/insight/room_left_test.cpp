// What may still be given, beside the engine's check of salary rows.
#include "host/insight/room_left.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

#include "host/insight/room_of_month.h"
#include "host/store/object_codes.h"
#include "platform/data/column.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(RoomLeft, IsWhatTheLimitsLeave) {
  struct Case {
    const char* name;
    Pay pay;
    ChargeLimits limits;
    const char* supplement;
    const char* surcharge;
    const char* both;
  };
  const Case kCases[] = {
      {"its own limit", {1000, 100, 0}, {55, 60, 0}, "450,00", "600,00", "1050,00"},
      {"the limit of both is lower", {1000, 100, 50}, {55, 60, 70}, "450,00", "550,00", "550,00"},
      {"a tie is within", {1000, 550, 0}, {55, 60, 70}, "0,00", "150,00", "150,00"},
      {"one cent over", {1000, 550.01, 0}, {55, 60, 70}, "viršyta 0,01", "viršyta 0,01", "viršyta 0,01"},
      {"part of a cent does not count", {333.33, 0, 0}, {7, 7, 0}, "23,33", "23,33", "46,66"},
      {"no limit of supplements: not counted in both", {1000, 900, 0}, {0, 60, 70}, "be ribos", "600,00", "be ribos"},
      {"no limit of surcharges", {1000, 0, 900}, {55, 0, 70}, "550,00", "be ribos", "be ribos"},
      {"the product is a hair too low", {1310, 0, 0}, {5.6, 0, 0}, "73,36", "be ribos", "be ribos"},
      {"no limits", {1000, 900, 900}, {0, 0, 0}, "be ribos", "be ribos", "be ribos"},
      {"the limit of both alone counts nothing", {1000, 900, 900}, {0, 0, 10}, "be ribos", "be ribos", "be ribos"},
      {"no base: no check", {0, 100, 0}, {55, 60, 70}, "be ribos", "be ribos", "be ribos"},
      {"both over, each within", {1000, 500, 300}, {55, 60, 70}, "viršyta 100,00", "viršyta 100,00", "viršyta 100,00"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    const RoomLeft left = room_left(c.pay, c.limits);
    EXPECT_EQ(room_text(left.supplement, left.over), c.supplement);
    EXPECT_EQ(room_text(left.surcharge, left.over), c.surcharge);
    EXPECT_EQ(room_text(left.both, left.over), c.both);
  }
}

// One basic row, then the other sums, as a document's rows stand: what the engine says of them.
class Judge {
 public:
  Judge() {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    engine_ = company_.application().new_data_object(kSalaryExtensionType);
    engine_->OID("A");
  }
  void set_limits(const ChargeLimits& limits) {
    company_.database().execute(
        "UPDATE settings SET personal_time_code_id_list = '2', extra_charge_percentage = :p0,"
        " surcharge_percentage = :p1, total_charge_percentage = :p2",
        {limits.supplements, limits.surcharges, limits.both});
    company_.company().forget();
  }
  bool passes(double base, const std::vector<double>& supplements, const std::vector<double>& surcharges) {
    std::vector<ColumnData> times(3, ColumnData({"GUID", FieldType::kText}));
    times[1] = ColumnData({"SalaryExtraOID", FieldType::kText});
    times[2] = ColumnData({"SalaryTimeCodeID", FieldType::kInt32});
    std::vector<ColumnData> sums(3, ColumnData({"TimeRowGUID", FieldType::kText}));
    sums[1] = ColumnData({"SumA", FieldType::kDouble});
    sums[2] = ColumnData({"PersonalExtraChargeID", FieldType::kInt32});
    const auto add = [&](std::int32_t code, double sum, std::int32_t charge) {
      const std::string guid = "T" + std::to_string(sums[0].size());
      if (code != 0) {
        times[0].append(guid);
        times[1].append("A");
        times[2].append(code);
      }
      sums[0].append(code == 0 ? "" : guid);
      sums[1].append(sum);
      sums[2].append(charge);
    };
    add(1, base, 0);
    for (const double sum : supplements) add(0, sum, 7);
    for (const double sum : surcharges) add(2, sum, 0);
    const MethodResult result = engine_->Methods(
        "CheckSalaryRows",
        {Recordset::from_columns(std::move(times)), Recordset::from_columns(std::move(sums)), day("2008.01.31"), 1});
    EXPECT_TRUE(result.Code == 0 || result.Code == 4) << result.Message;
    return result.Code == 0;
  }

 private:
  TestCompany company_;
  std::shared_ptr<QuorObjectUIO> engine_;
};

// VELMORA_TRIAL_PEOPLE is how many.
TEST(RoomLeft, PassesTheEnginesCheckAndOneCentMoreFails) {
  const char* const asked = std::getenv("VELMORA_TRIAL_PEOPLE");
  const int people = asked == nullptr ? 2000 : std::atoi(asked);
  std::mt19937 random(20080131);
  const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  Judge judge;
  int limited = 0, over = 0;
  for (int i = 0; i < people; ++i) {
    static ChargeLimits limits;
    if (i % 200 == 0) {
      limits = {pick(0, 3) == 0 ? 0 : pick(1, 1000) / 10.0, pick(0, 3) == 0 ? 0 : pick(1, 1000) / 10.0,
                pick(0, 3) == 0 ? 0 : pick(1, 1500) / 10.0};
      judge.set_limits(limits);
    }
    const double base = pick(0, 40) == 0 ? 0 : pick(1, 500'000) / 100.0;
    std::vector<double> supplements, surcharges;
    Pay pay{base, 0, 0};
    for (int left = pick(0, 3); left > 0; --left)
      supplements.push_back(pick(1, 1 + static_cast<int>(base * 20)) / 100.0);
    for (int left = pick(0, 2); left > 0; --left)
      surcharges.push_back(pick(1, 1 + static_cast<int>(base * 20)) / 100.0);
    for (const double sum : supplements) pay += {0, sum, 0};
    for (const double sum : surcharges) pay += {0, 0, sum};
    const RoomLeft left = room_left(pay, limits);
    const auto with = [&](double supplement, double surcharge) {
      auto more_supplements = supplements, more_surcharges = surcharges;
      if (supplement > 0) more_supplements.push_back(supplement);
      if (surcharge > 0) more_surcharges.push_back(surcharge);
      return judge.passes(base, more_supplements, more_surcharges);
    };
    ASSERT_EQ(with(0, 0), left.over == 0) << i;
    if (left.over > 0) {
      ++over;
      continue;
    }
    constexpr double kCent = 0.01;
    const auto to_cents = [](double sum) { return std::nearbyint(sum * 100) / 100; };
    if (left.supplement) {
      ++limited;
      ASSERT_TRUE(with(*left.supplement, 0)) << i;
      ASSERT_FALSE(with(to_cents(*left.supplement + kCent), 0)) << i;
    } else {
      ASSERT_TRUE(with(1'000'000, 0)) << i;
    }
    if (left.surcharge) {
      ASSERT_TRUE(with(0, *left.surcharge)) << i;
      ASSERT_FALSE(with(0, to_cents(*left.surcharge + kCent))) << i;
    }
    if (left.both) {  // as much of it as a supplement as there may be, the rest as a surcharge
      const double first = std::min(*left.both, *left.supplement), rest = to_cents(*left.both - first);
      ASSERT_TRUE(with(first, rest)) << i;
      ASSERT_FALSE(with(first, to_cents(rest + kCent))) << i;
      ASSERT_FALSE(with(to_cents(first + kCent), rest)) << i;
    }
  }
  EXPECT_GT(limited, people / 4);
  EXPECT_GT(over, people / 20);
}

}  // namespace
}  // namespace quor
