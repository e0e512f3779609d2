// What record sets cost: bulk building, walking, filtering by index and by scan, cloning, editing.
//
// The argument is the number of rows. filter_by_equality and clone must not grow with it; the others grow in
// proportion.
#include <benchmark/benchmark.h>

#include "platform/data/column.h"
#include "platform/data/filter_scope.h"
#include "platform/data/recordset.h"

namespace quor {
namespace {

constexpr FieldHandle kPerson{0};
constexpr FieldHandle kSum{1};
constexpr FieldHandle kName{2};
constexpr std::int32_t kRowsPerPerson = 5;

// Detail rows of rows/5 persons, not grouped by person.
std::vector<ColumnData> detail_columns(std::int64_t rows) {
  const auto persons = static_cast<std::int32_t>(rows / kRowsPerPerson);
  std::vector<std::int32_t> person;
  std::vector<double> sum;
  TextColumn name;
  person.reserve(static_cast<std::size_t>(rows));
  sum.reserve(static_cast<std::size_t>(rows));
  name.reserve(static_cast<std::size_t>(rows), static_cast<std::size_t>(rows) * 16);
  for (std::int32_t i = 0; i < rows; ++i) {
    person.push_back(i % persons);
    sum.push_back(i * 0.25);
    name.push_back("Vardas Pavardė " + std::to_string(i % persons));
  }
  std::vector<ColumnData> columns{ColumnData({"PersonID", FieldType::kInt32}), ColumnData({"SumA", FieldType::kDouble}),
                                  ColumnData({"Name", FieldType::kText, 100})};
  columns[0].values = std::move(person);
  columns[1].values = std::move(sum);
  columns[2].values = std::move(name);
  return columns;
}

std::shared_ptr<Recordset> details(const benchmark::State& state) {
  return Recordset::from_columns(detail_columns(state.range(0)));
}

double walk(Recordset& set) {
  double total = 0.0;
  for (; !set.Eof(); set.MoveNext()) total += set.number(kSum);
  return total;
}

void build_from_columns(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(details(state));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(build_from_columns)->Arg(10'000)->Arg(100'000);

void walk_all_rows(benchmark::State& state) {
  const auto set = details(state);
  for (auto _ : state) {
    std::size_t letters = 0;
    for (set->MoveFirst(); !set->Eof(); set->MoveNext()) {
      letters += set->text(kName).size() + static_cast<std::size_t>(set->int32(kPerson)) +
                 static_cast<std::size_t>(set->number(kSum));
    }
    benchmark::DoNotOptimize(letters);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(walk_all_rows)->Arg(10'000)->Arg(100'000);

// One filter and the walk over its five rows; the index stands.
void filter_by_equality(benchmark::State& state) {
  const auto set = details(state);
  set->Filter("PersonID = 0");
  const std::int64_t persons = state.range(0) / kRowsPerPerson;
  std::int64_t person = 0;
  for (auto _ : state) {
    person = (person + 7919) % persons;
    set->Filter("PersonID = " + std::to_string(person));
    benchmark::DoNotOptimize(walk(*set));
  }
}
BENCHMARK(filter_by_equality)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);

void filter_by_text(benchmark::State& state) {
  const auto set = details(state);
  for (auto _ : state) {
    benchmark::DoNotOptimize(filter_test(set, "SumA >= 0 AND Name = 'vardas PAVARDĖ 77'"));
    benchmark::DoNotOptimize(walk(*set));
    set->Filter("");
  }
}
BENCHMARK(filter_by_text)->Arg(1'000)->Arg(100'000);

void first_equality_filter(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    const auto set = details(state);
    state.ResumeTiming();
    set->Filter("PersonID = 7");
    benchmark::DoNotOptimize(set->RecordCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(first_equality_filter)->Arg(10'000)->Arg(100'000);

void filter_by_range(benchmark::State& state) {
  const auto set = details(state);
  for (auto _ : state) {
    set->Filter("SumA >= 100.5 AND SumA < 200");
    benchmark::DoNotOptimize(set->RecordCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(filter_by_range)->Arg(10'000)->Arg(100'000);

void clone(benchmark::State& state) {
  const auto set = details(state);
  for (auto _ : state) benchmark::DoNotOptimize(set->Clone());
}
BENCHMARK(clone)->Arg(1'000)->Arg(100'000);

void add_rows(benchmark::State& state) {
  for (auto _ : state) {
    const auto set = Recordset::from_columns(detail_columns(kRowsPerPerson));
    for (std::int32_t i = 0; i < state.range(0); ++i) {
      set->AddNew();
      set->set_field(kPerson, i);
      set->set_field(kSum, i * 0.5);
      set->Update();
    }
    benchmark::DoNotOptimize(set->RecordCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(add_rows)->Arg(10'000)->Arg(100'000);

// Every row of an indexed field is changed under a filter.
void edit_rows(benchmark::State& state) {
  const auto set = details(state);
  for (auto _ : state) {
    set->Filter("SumA >= 0");
    for (; !set->Eof(); set->MoveNext()) set->set_field(kPerson, set->int32(kPerson) + 1);
    set->Filter("PersonID = 7");
    set->AcceptBatch();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(edit_rows)->Arg(10'000)->Arg(100'000);

}  // namespace
}  // namespace quor
