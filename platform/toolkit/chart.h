// A chart: values under labels, as columns whose parts stand on each other, or as steps that hold until the next one.
// It is only looked at.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/toolkit/control.h"

namespace quor {

struct ChartSeries {
  std::string name;
  std::vector<std::optional<double>> values;  // one a label; none: nothing is drawn there

  bool operator==(const ChartSeries&) const = default;
};

struct ChartData {
  std::string title;
  std::string unit;  // behind the values: "Lt"; "" for none
  int decimals = 2;  // of the values
  std::vector<std::string> labels;
  std::vector<ChartSeries> series;
  // Where the labels stand beside each other, as numbers that rise; empty: at equal distances.
  std::vector<double> places = {};

  bool operator==(const ChartData&) const = default;
};

class Chart : public Control {
 public:
  enum class Kind { kStackedColumns, kSteps };

  Chart(ControlSet& owner, std::string name, Kind kind) : Control(owner, std::move(name)), kind_(kind) {}
  Kind kind() const { return kind_; }
  const ChartData& data() const { return data_; }
  void set_data(ChartData data) { put(data_, std::move(data), ControlChange::kContent); }
  void accept(ControlVisitor& visitor) override;

  // All it shows in words, a line a label, for whoever does not see it: "2008.01: Pareiginė alga 1260,00; …".
  std::string description() const;

 private:
  const Kind kind_;
  ChartData data_;
};

}  // namespace quor
