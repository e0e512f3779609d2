#include "platform/toolkit/chart.h"

#include "platform/data/number_text.h"

namespace quor {

void Chart::accept(ControlVisitor& visitor) { visitor.visit(*this); }

std::string Chart::description() const {
  std::string text = data_.title;
  for (std::size_t label = 0; label < data_.labels.size(); ++label) {
    std::string line;
    for (const ChartSeries& series : data_.series) {
      if (label >= series.values.size() || !series.values[label]) continue;
      line += (line.empty() ? " " : "; ") + series.name + " " + fixed_text(*series.values[label], data_.decimals);
    }
    if (!line.empty()) text += "\n" + data_.labels[label] + ":" + line;
  }
  return text;
}

}  // namespace quor
