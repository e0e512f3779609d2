#include "host/payroll/month_calculation.h"

#include <algorithm>

#include "platform/data/error.h"

namespace quor {

namespace {

constexpr std::size_t kPeopleOfPart = 1000;
constexpr int kAttempts = 3;

enum class Ending { kDone, kCancelled, kStale };

// What one attempt calculates with, all of it read in one snapshot.
struct World {
  MonthInputs inputs;
  DocumentCalculation calculation;
};

World read_world(Application& application, const Month& month, const MonthOptions& options) {
  Company& company = application.company();
  company.refresh();  // mends a dropped connection, which cannot be done inside a snapshot
  const Snapshot snapshot(company.database());
  company.refresh();
  MonthInputs inputs = read_month_inputs(company, month, options.whom());
  DocumentCalculation calculation(application, month, inputs, options.watch);
  return {std::move(inputs), std::move(calculation)};
}

void calculate_person(World& world, const PersonInput& person, RunWatch* watch, CalculatedPeople& part,
                      MonthTaker& taker) {
  if (watch != nullptr) watch->begin(person);
  try {
    PersonMonth month = world.calculation.calculate(person);
    taker.take(person, month);
    part.documents.push_back(std::move(month.document));
  } catch (const Error& error) {
    part.faults.push_back({person.employee, person.name, error.what()});
  }
}

Ending attempt(World world, const MonthOptions& options, MonthTaker& taker) {
  const std::vector<PersonInput>& people = world.inputs.people;
  taker.begin(world.inputs);
  for (std::size_t next = 0; next < people.size();) {
    const std::size_t first = next, last = std::min(first + kPeopleOfPart, people.size());
    CalculatedPeople part{.documents = {}, .faults = {}, .settings = world.calculation.settings()};
    bool cancelled = false;
    for (; next < last; ++next) {
      cancelled = options.cancelled && options.cancelled();
      if (cancelled) break;
      calculate_person(world, people[next], options.watch, part, taker);
      if (options.progress) {
        options.progress(static_cast<std::int32_t>(next + 1), static_cast<std::int32_t>(people.size()));
      }
    }
    const bool stands = next == first || taker.take_part(part);
    if (cancelled) return Ending::kCancelled;
    if (!stands) return Ending::kStale;
  }
  return taker.take_end() ? Ending::kDone : Ending::kStale;
}

}  // namespace

bool calculate_people(Application& application, const Month& month, const MonthOptions& options, MonthTaker& taker) {
  const RightsGuard::ForProgram calculating(application.guard());
  for (int i = 0; i < kAttempts; ++i) {
    const Ending ending = attempt(read_world(application, month, options), options, taker);
    if (ending != Ending::kStale) return ending == Ending::kDone;
  }
  throw StoreError(StoreFault::kChangedElsewhere,
                   "Mėnesio " + month.text() +
                       " skaičiavimas nutrauktas: duomenys skaičiavimo metu keičiami. Pakartokite, kai niekas nieko "
                       "neįrašinės.");
}

}  // namespace quor
