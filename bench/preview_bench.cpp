// The salary preview against a bare loop: the time from a closed SQLite file to the filled list, beside a C loop over
// the same rows of the same statements, in turns. preview_bench [PEOPLE…]; medians of eleven rounds.
//
// The people are one department's. The list counts persons in 16 bits: it holds 32,767 of them.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

#include "engine/salary_engine.h"
#include "forms/preview/salary_preview.h"
#include "forms/preview/supplement_preview.h"
#include "host/payroll/calculated_month.h"
#include "host/sample/sample_company.h"

namespace quor {
namespace {

constexpr int kRounds = 11;
// Of the sample's employees some have left and some have not begun.
constexpr double kEmployeesOfPerson = 1.0755;

void make_company(const std::string& file, std::int32_t employees) {
  Company company(Database::create(file));
  make_sample_company(company.database(), {.employees = employees, .progress = {}});
  company.database().execute("UPDATE employees SET department_id = 1");
  Application application(company, {});
  application.load_plugin(VELMORA_PLUGIN);
  (void)calculate_month(application, Month::parse("2008-01"), {});
}

double milliseconds_since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct Filled {
  double milliseconds = 0;
  std::size_t rows = 0, persons = 0;
};

template <typename Form>
Filled fill_form(const std::string& file) {
  const auto start = std::chrono::steady_clock::now();
  Company company(Database::open(file));
  Application application(company, {.today = Date::from_ymd(2008, 1, 31)});
  Form form(application);
  form.QuorObjectUIO = std::make_shared<velmora::UIO0402000>(application);
  form.load();
  form.txtDepartment.set_tag("O00016041");
  form.cmdGo.click();
  Filled filled{milliseconds_since(start), form.lvwRows.row_count(), 0};
  for (std::size_t row = 0; row < filled.rows; ++row) filled.persons += form.lvwRows.text(row) == " " ? 0U : 1U;
  return filled;
}

// Each value of each row, as the type that it has.
void walk(sqlite3* database, const char* sql, double& sum) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
  while (sqlite3_step(statement) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
      switch (sqlite3_column_type(statement, column)) {
        case SQLITE_TEXT:
          sum += sqlite3_column_text(statement, column)[0];
          break;
        case SQLITE_FLOAT:
          sum += sqlite3_column_double(statement, column);
          break;
        default:
          sum += sqlite3_column_int(statement, column);
      }
    }
  }
  sqlite3_finalize(statement);
}

double bare_loop(const std::string& file) {
  const auto start = std::chrono::steady_clock::now();
  sqlite3* database = nullptr;
  if (sqlite3_open(file.c_str(), &database) != SQLITE_OK) throw std::runtime_error(file);
  double sum = 0;
  walk(database,
       "SELECT e.id, e.name, p.category_id, p.constant_type_id, p.share"
       " FROM positions p JOIN employees e ON e.id = p.employee_id"
       " WHERE p.date_from <= 39478 AND (p.date_to IS NULL OR p.date_to >= 39478) AND +e.department_id IN (1)"
       " ORDER BY e.sort_key, e.id, p.date_from, p.id",
       sum);
  walk(database,
       "SELECT d.employee_id, SUM(CASE WHEN r.sum_type = 0 THEN r.sum_a END),"
       " SUM(CASE WHEN r.sum_type = 1 THEN r.sum_a END),"
       " SUM(CASE WHEN r.sum_type = 2 AND EXISTS (SELECT 1 FROM time_rows t WHERE t.document_id = r.document_id"
       " AND t.guid = r.time_row_guid AND t.time_code_id IN (2, 5)) THEN r.sum_a END)"
       " FROM documents d JOIN salary_rows r ON r.document_id = d.id JOIN employees e ON e.id = d.employee_id"
       " WHERE d.month = 39448 AND +e.department_id IN (1) GROUP BY d.employee_id ORDER BY d.employee_id",
       sum);
  const double taken = milliseconds_since(start);
  sqlite3_close(database);
  if (sum == 0) throw std::runtime_error("no rows");
  return taken;
}

double median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + kRounds / 2, times.end());
  return times[kRounds / 2];
}

void measure(const std::string& folder, std::int32_t people) {
  const std::string file = folder + "/" + std::to_string(people);
  make_company(file, static_cast<std::int32_t>(people * kEmployeesOfPerson));
  Filled filled;
  std::vector<double> loop, form, supplements;
  for (int round = 0; round < kRounds; ++round) {
    loop.push_back(bare_loop(file));
    filled = fill_form<velmora::frmOfficeEmployeePreview>(file);
    form.push_back(filled.milliseconds);
    supplements.push_back(fill_form<velmora::frmOfficeEmployeeExtraChargePreview>(file).milliseconds);
  }
  const double of_loop = median(loop), of_form = median(form);
  std::printf("%8zu %8zu %8.1f %8.1f %6.2f %10.2f %14.1f\n", filled.persons, filled.rows, of_loop, of_form,
              of_form / of_loop, of_form * 1000 / static_cast<double>(filled.persons), median(supplements));
}

}  // namespace
}  // namespace quor

int main(int count, char** words) {
  std::vector<std::int32_t> sizes;
  for (int i = 1; i < count; ++i) sizes.push_back(std::atoi(words[i]));
  if (sizes.empty()) sizes = {3000, 30000};
  const auto folder = std::filesystem::temp_directory_path() / ("preview_bench." + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  std::printf("%8s %8s %8s %8s %6s %10s %14s\n", "persons", "rows", "loop_ms", "form_ms", "ratio", "us/person",
              "supplements_ms");
  for (const std::int32_t people : sizes) quor::measure(folder, people);
  std::filesystem::remove_all(folder);
}
