#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/data/case_folding.h"
#include "platform/data/filter_scope.h"
#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

// "no" numbers the rows.
std::shared_ptr<Recordset> four_rows() {
  return record_set(
      {{"no", FieldType::kInt32}, {"id", FieldType::kInt32}, {"name", FieldType::kText}, {"d", FieldType::kDate}},
      {{1, 1, "Ab", "2008.01.01"}, {2, 2, kNull, "2008.01.31"}, {3, 3, "ab", kNull}, {4, 2, "x", "2008.02.01"}});
}

std::string rows_that_pass(Recordset& set, const char* filter) {
  return outcome([&] { return set.Filter(filter), walked(set, "no"); });
}

struct FilterCase {
  const char *filter, *expected;
};

// What passes, and by which filters. A refused one differs from an accepted one in the one respect that it tests.
const std::pair<const char*, std::vector<const char*>> kFilters[] = {
    {"1 2 3 4", {""}},
    {"4", {"id=2AND no=4", "d > #2008.01.31#", "name > 'AB'", "name LIKE '%X%'", "name LIKE'x'"}},
    {"2 4",
     {" \t\r\n[ID]\n=\n2 ", "id = 2", "id = 2.0", "id = 0.2E1", "id = 20e-1", "id = '002'", "id = ' 2,0 '",
      "id = '2.0'", "d <> '2008.01.01'", "d >= #2008-1-31#"}},
    {"2 3 4", {"id >= 2"}},
    {"3", {"id > 2", "d = nULL"}},
    {"1 2 4", {"id <= 2", "(no = 1 OR no = 2) OR (no = 4)", "d <> Null"}},
    {"1", {"id < 2", "id > -2.5 AND id < 1.5"}},
    {"1 3",
     {"id <> 2", "name = 'AB'", "name <> 'x'", "name < 'B'", "name LIKE 'A*'", "name LIKE 'a%'", "name LIKE '*B*'",
      "name LIKE 'aB'"}},
    {"1 4", {"id = 2 and no = 4 oR no = 1", "no = 1 OR id = 2 AND no = 4"}},
    {"1 2", {"((no = 1 OR no = 2))", "d <= '2008.01.31'"}},
    {"2", {"(id = 2 AND no > 1) AND (no < 4)", "d = '2008/1/31 0:00'"}},
    {"3 4", {"no = 3 OR (id = 2 AND no > 2)"}},
    {"", {"id = 2.5", "id = 99999999999", "name = ''", "name = 'x '", "name LIKE 'b*'"}},
    {"1 3 4", {"name >= ''", "name LIKE '*'"}},
    {"NoSuchField", {"nosuch = 1"}},
    {"BadFilter",
     {"   ",
      "id",
      "id =",
      "[]=2",
      "[id=2",
      "id = 2 2",
      "id = 2 AND",
      "AND id = 2",
      "id = 2 ANDno = 4",
      "id == 2",
      "id => 2",
      "id < > 2",
      "nosuch =",
      "(id = 1 OR id = 2) AND name = 'x'",
      "name = 'x' AND (id = 2 OR id = 1)",
      "name = 'x' AND ((id = 2 OR id = 1))",
      "(id = 2",
      "id = 2)",
      "()",
      "id = 2,0",
      "id = 2.",
      "id = .2",
      "id = +2",
      "id = - 2",
      "id = 2E",
      "id = 1E400",
      "id = '2.0,0'",
      "id = '1E400'",
      "id = 'x'",
      "id = ''",
      "id = #2008.01.01#",
      "id LIKE '2'",
      "d < Null",
      "d >= Null",
      "d = Nulls",
      "d = #2008/01/31#",
      "d = #2008.01.31 0:00#",
      "d = #2008.02.30#",
      "d = 'soon'",
      "d = #2008.01.31",
      "d = 39478",
      "name = #2008.01.31#",
      "name = 'x",
      "name LIKE '*b'",
      "name LIKE 'a*b'",
      "name LIKE 'a**'",
      "name LIKE 2",
      "name LIKE Null",
      "nameLIKE 'x'"}},
};

TEST(Filter, ReadsItsGrammarToTheLetter) {
  const auto set = four_rows();
  for (const auto& [rows, filters] : kFilters) {
    for (const char* filter : filters) EXPECT_EQ(rows_that_pass(*set, filter), rows) << filter;
  }
}

TEST(Filter, ComparesTextsByFoldedCharacters) {
  const auto set =
      record_set({{"no", FieldType::kInt32}, {"t", FieldType::kText}},
                 {{1, "Ąžuolas"}, {2, "ąŽUOLAS"}, {3, "O'Neil"}, {4, "12.50"}, {5, "12.5"}, {6, ""}, {7, "Zuolas"}});
  const FilterCase cases[] = {
      {"t = 'ĄŽuoLAS'", "1 2"},         {"t LIKE '*žU*'", "1 2"}, {"t > 'zuolas'", "1 2"}, {"t = 'o''NEIL'", "3"},
      {"t = 'o'NEIL'", "BadFilter"},    {"t = 12.50", "4"},       {"t = ''", "6"},         {"t LIKE ''", "6"},
      {"t LIKE '%%'", "1 2 3 4 5 6 7"},
  };
  for (const FilterCase& c : cases) EXPECT_EQ(rows_that_pass(*set, c.filter), c.expected) << c.filter;
  EXPECT_EQ(compare_folded("ĄČĘĖĮŠŲŪŽ ŹŻ ΣΊΣΥΦΟΣ ЁЖ ÀÿĹŸ", "ąčęėįšųūž źż σίσυφος ёж àŸĺÿ"), 0);
  EXPECT_NE(compare_folded("e", "ė"), 0);
  EXPECT_GT(compare_folded("\xC4", "ž"), 0) << "half a character";
}

TEST(Filter, TakesTrueForMinusOne) {
  const auto set =
      record_set({{"no", FieldType::kInt32}, {"b", FieldType::kBool}}, {{1, true}, {2, false}, {3, kNull}});
  const FilterCase cases[] = {
      {"b = -1", "1"}, {"b = 1", ""}, {"b = 0", "2"}, {"b <> 0", "1"}, {"b = 'True'", "BadFilter"}};
  for (const FilterCase& c : cases) EXPECT_EQ(rows_that_pass(*set, c.filter), c.expected) << c.filter;
}

TEST(Filter, TakesMinusZeroForZeroWithAnIndexToo) {
  std::vector<std::vector<Variant>> rows(20, {1.0});
  rows[3] = {-0.0};
  rows[7] = {0.0};
  const auto set = record_set({{"x", FieldType::kDouble}}, rows);
  for (const char* filter : {"x = 0", "x = -0", "x = '-0,0'"}) {
    set->Filter(filter);
    EXPECT_EQ(set->RecordCount(), 2) << filter;
  }
}

TEST(Filter, ReplacesTheOldOneAndStandsOnTheFirstRow) {
  const auto set = ids({1, 2, 3});
  set->Filter("id >= 2");
  set->MoveLast();
  EXPECT_EQ(outcome([&] { return set->Filter("id ="), "set"; }), "BadFilter");
  EXPECT_EQ(outcome([&] { return set->Filter("nosuch = 1"), "set"; }), "NoSuchField");
  EXPECT_EQ(set->Filter(), "id >= 2");
  EXPECT_EQ(standing(*set), "row 3 of 2");
  set->Filter(set->Filter());
  EXPECT_EQ(standing(*set), "row 2 of 2");
  set->Filter("id <= 2");
  EXPECT_EQ(walked(*set, "id"), "1 2");
  set->Filter("id = 7");
  EXPECT_EQ(standing(*set), "none 0");
  EXPECT_EQ(outcome([&] { return set->Filter(std::string(5000, '(')), "set"; }), "BadFilter");
}

TEST(Filter, NamesTheFaultForTheUser) {
  EXPECT_EQ(error_text([] { four_rows()->Filter("id = 'x'"); }),
            "Netinkamas filtras „id = 'x'“: laukas „id“ nelyginamas su „x“.");
}

// ---- the filter test

TEST(FilterTest, LeavesAMissingOrEmptySetAlone) {
  EXPECT_FALSE(filter_test(nullptr, "id ="));
  EXPECT_FALSE(filter_test(std::shared_ptr<Recordset>(), "id ="));
  const auto empty = ids({1});
  empty->Filter("id = 2");
  EXPECT_FALSE(filter_test(empty, "id = 1"));
  EXPECT_EQ(empty->Filter(), "id = 2") << "empty is judged under the filter that is set";
}

TEST(FilterTest, LeavesTheFilterSetOnlyWhenARowPasses) {
  const auto set = ids({1, 2, 2});
  set->Filter("id = 1");
  EXPECT_TRUE(filter_test(set, "id = 2"));
  EXPECT_EQ(set->Filter(), "id = 2");
  EXPECT_EQ(standing(*set), "row 2 of 2");
  EXPECT_FALSE(filter_test(set, "id = 3"));
  EXPECT_EQ(set->Filter(), "");
  EXPECT_EQ(standing(*set), "row 1 of 3");
}

TEST(FilterScope, RemovesTheFilterInEveryEnding) {
  const auto set = ids({1, 2, 3});
  try {
    const FilterScope scope(set);
    set->Filter("id = 2");
    throw std::runtime_error("an ending");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(standing(*set), "row 1 of 3");
  }
  set->MoveLast();
  { const FilterScope unused(set); }
  EXPECT_EQ(standing(*set), "row 3 of 3") << "no filter, nothing to remove";
  { const FilterScope missing(nullptr); }
}

}  // namespace
}  // namespace quor
