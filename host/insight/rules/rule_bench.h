// Where rules are tried: an application of its own over companies in memory, which have nothing to do with the open
// one. What the engine asks is answered from the facts of the case.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "host/application/application.h"
#include "host/payroll/document_calculation.h"

namespace quor {

// Loads the plug-ins into an application that has none.
using PluginLoader = std::function<void(Application&)>;

// A person with one position in one month, of whom the calculation is asked.
struct RulePerson {
  Month month;
  double norm_hours;
  double tariff, factor, share;
  std::optional<Date> from = {}, to = {};        // of the position; none: always
  std::optional<double> worked_hours = {};       // of the basic code in the month; none: nothing is said of time
  double charge_percentage = 0, charge_sum = 0;  // of one charge; none when both are 0
};

class RuleBench {
 public:
  // Throws PluginError, and what `load` throws.
  explicit RuleBench(const PluginLoader& load);
  ~RuleBench();

  using Answers = std::map<std::string, std::shared_ptr<Recordset>>;  // by request name

  // What the engine answers by method name; requests go to `answers` first. Throws quor::Error with the text of what
  // it shows or of a Code above 0, unless `codes_answer`.
  MethodResult ask(const std::string& method, const Parameters& parameters, Answers answers = {},
                   bool codes_answer = false);
  // The identity under which the engine looks for a document's rows.
  static constexpr char kDocument[] = "D1";

  // The month's calculation of the person. Throws quor::Error with the reason when it refuses him, or when the
  // position is in force on no day of the month.
  PersonMonth month_of(const RulePerson& person);

 private:
  struct Place;

  const std::unique_ptr<Place> place_;
  const std::shared_ptr<Answers> answers_;
  std::shared_ptr<QuorObjectUIO> engine_;
};

}  // namespace quor
