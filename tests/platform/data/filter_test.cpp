#include "platform/data/filter_test.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/data/case_folding.h"
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
  const char* filter;
  const char* expected;
};

const FilterCase kExamples[] = {
    {"id = 2", "2 4"},
    {"id = '2'", "2 4"},
    {"name = 'AB'", "1 3"},
    {"name <> Null", "1 3 4"},
    {"name <> 'x'", "1 3"},
    {"d <= '2008.01.31'", "1 2"},
    {"id = 2 AND name = Null", "2"},
    {"id = 1 OR id = 3 AND d = Null", "1 3"},
    {"(id = 1 OR id = 2) AND name = 'x'", "BadFilter"},
    {"id = 'x'", "BadFilter"},
    {"id = ''", "BadFilter"},
    {"d = 'soon'", "BadFilter"},
    {"nosuch = 1", "NoSuchField"},
    {"", "1 2 3 4"},
};

// A refused row differs from an accepted one in the one respect it tests.
const FilterCase kGrammar[] = {
    {"id=2AND no=4", "4"},
    {" \t\r\n[ID]\n=\n2 ", "2 4"},
    {"[]=2", "BadFilter"},
    {"[id=2", "BadFilter"},
    {"   ", "BadFilter"},
    {"id", "BadFilter"},
    {"id =", "BadFilter"},
    {"id = 2 2", "BadFilter"},
    {"id = 2 AND", "BadFilter"},
    {"AND id = 2", "BadFilter"},
    {"id = 2 ANDno = 4", "BadFilter"},
    {"id = 2 and no = 4 oR no = 1", "1 4"},
    {"no = 1 OR id = 2 AND no = 4", "1 4"},
    {"(no = 1 OR no = 2) OR (no = 4)", "1 2 4"},
    {"((no = 1 OR no = 2))", "1 2"},
    {"(id = 2 AND no > 1) AND (no < 4)", "2"},
    {"no = 3 OR (id = 2 AND no > 2)", "3 4"},
    {"name = 'x' AND (id = 2 OR id = 1)", "BadFilter"},
    {"name = 'x' AND ((id = 2 OR id = 1))", "BadFilter"},
    {"(id = 2", "BadFilter"},
    {"id = 2)", "BadFilter"},
    {"()", "BadFilter"},
    {"id == 2", "BadFilter"},
    {"id => 2", "BadFilter"},
    {"id < > 2", "BadFilter"},
    {"id >= 2", "2 3 4"},
    {"id > 2", "3"},
    {"id <= 2", "1 2 4"},
    {"id < 2", "1"},
    {"id <> 2", "1 3"},
    {"nosuch =", "BadFilter"},
    // numbers
    {"id = 2.0", "2 4"},
    {"id = 0.2E1", "2 4"},
    {"id = 20e-1", "2 4"},
    {"id = 2.5", ""},
    {"id > -2.5 AND id < 1.5", "1"},
    {"id = 99999999999", ""},
    {"id = 2,0", "BadFilter"},
    {"id = 2.", "BadFilter"},
    {"id = .2", "BadFilter"},
    {"id = +2", "BadFilter"},
    {"id = - 2", "BadFilter"},
    {"id = 2E", "BadFilter"},
    {"id = 1E400", "BadFilter"},
    {"id = '002'", "2 4"},
    {"id = ' 2,0 '", "2 4"},
    {"id = '2.0'", "2 4"},
    {"id = '2.0,0'", "BadFilter"},
    {"id = '1E400'", "BadFilter"},
    {"id = #2008.01.01#", "BadFilter"},
    {"id LIKE '2'", "BadFilter"},
    // nulls
    {"d = nULL", "3"},
    {"d <> Null", "1 2 4"},
    {"d < Null", "BadFilter"},
    {"d >= Null", "BadFilter"},
    {"d = Nulls", "BadFilter"},
    {"d <> '2008.01.01'", "2 4"},
    {"name >= ''", "1 3 4"},
    {"name = ''", ""},
    // dates
    {"d >= #2008-1-31#", "2 4"},
    {"d >= #2008.01.31#", "2 4"},
    {"d > #2008.01.31#", "4"},
    {"d = #2008/01/31#", "BadFilter"},
    {"d = #2008.01.31 0:00#", "BadFilter"},
    {"d = '2008/1/31 0:00'", "2"},
    {"d = #2008.02.30#", "BadFilter"},
    {"d = #2008.01.31", "BadFilter"},
    {"d = 39478", "BadFilter"},
    {"name = #2008.01.31#", "BadFilter"},
    // texts
    {"name = 'x", "BadFilter"},
    {"name = 'x '", ""},
    {"name > 'AB'", "4"},
    {"name < 'B'", "1 3"},
    {"name LIKE 'A*'", "1 3"},
    {"name LIKE 'a%'", "1 3"},
    {"name LIKE '*B*'", "1 3"},
    {"name LIKE '%X%'", "4"},
    {"name LIKE 'b*'", ""},
    {"name LIKE '*'", "1 3 4"},
    {"name LIKE 'aB'", "1 3"},
    {"name LIKE '*b'", "BadFilter"},
    {"name LIKE 'a*b'", "BadFilter"},
    {"name LIKE 'a**'", "BadFilter"},
    {"name LIKE 2", "BadFilter"},
    {"name LIKE Null", "BadFilter"},
    {"name LIKE'x'", "4"},
    {"nameLIKE 'x'", "BadFilter"},
};

TEST(Filter, PassesTheRowsOfTheExamples) {
  const auto set = four_rows();
  for (const FilterCase& c : kExamples) EXPECT_EQ(rows_that_pass(*set, c.filter), c.expected) << c.filter;
}

TEST(Filter, ReadsItsGrammarToTheLetter) {
  const auto set = four_rows();
  for (const FilterCase& c : kGrammar) EXPECT_EQ(rows_that_pass(*set, c.filter), c.expected) << c.filter;
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
  const auto set = four_rows();
  try {
    set->Filter("id = 'x'");
    FAIL();
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "Netinkamas filtras „id = 'x'“: laukas „id“ nelyginamas su „x“.");
  }
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
