// The explanation of one person in companies that grow: explanation_bench [EMPLOYEES…]. The first one of a company that
// was just opened, and the median of a hundred that follow, each of somebody else; what a month of the steps ahead and
// of the room left takes beside them.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "host/insight/explanation.h"
#include "host/insight/room_of_month.h"
#include "host/insight/steps_ahead.h"
#include "host/payroll/calculated_month.h"
#include "host/sample/sample_company.h"

namespace quor {
namespace {

constexpr int kPeople = 100;

template <typename Work>
double milliseconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void measure(const std::string& file, std::int32_t employees) {
  const Month month = Month::parse("2008-01");
  {
    Company company(Database::create(file));
    make_sample_company(company.database(), {.employees = employees, .progress = {}});
    Application application(company, {});
    application.load_plugin(VELMORA_PLUGIN);
    (void)calculate_month(application, month, {});
  }
  Company company(Database::open(file));
  Application application(company, {});
  application.load_plugin(VELMORA_PLUGIN);
  std::size_t amounts = 0;
  std::int32_t person = 0;
  const auto explain_next = [&] {
    for (;;) {
      person += employees / kPeople / 2 + 1;
      try {
        amounts += explain(application, month, person % employees + 1).amounts.size();
        return;
      } catch (const std::runtime_error&) {  // some have left and some have not begun
      }
    }
  };
  const double first = milliseconds(explain_next);
  std::vector<double> next;
  for (int i = 0; i < kPeople; ++i) next.push_back(milliseconds(explain_next));
  std::sort(next.begin(), next.end());
  const double room = milliseconds([&] { amounts += room_of_month(application, month, {}).people.size(); });
  const double steps = milliseconds([&] { amounts += steps_ahead(application, month, 3).steps.size(); });
  std::printf("%10d %10.2f %10.2f %10.2f %10.0f %10.0f\n", employees, first, next[kPeople / 2], next[kPeople - 1], room,
              steps);
  if (amounts == 0) throw std::runtime_error("nothing was explained");
}

}  // namespace
}  // namespace quor

int main(int argc, char** argv) {
  std::vector<std::int32_t> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes = {1000, 10'000, 100'000};
  std::printf("%10s %10s %10s %10s %10s %10s\n", "employees", "first_ms", "next_ms", "worst_ms", "room_ms", "steps_ms");
  for (const std::int32_t employees : sizes) {
    const std::string file =
        (std::filesystem::temp_directory_path() / ("explanation_bench." + std::to_string(getpid()))).string();
    quor::measure(file, employees);
    std::filesystem::remove(file);
  }
}
