#include "platform/data/recordset.h"

#include <gtest/gtest.h>

#include "platform/data/column.h"
#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

// ---- fields

TEST(Recordset, HasUniqueFieldNamesWithoutRegardToCase) {
  Recordset set;
  EXPECT_EQ(outcome([&] { return set.Open(), "opened"; }), "NoSuchField");
  set.Fields().Append("Žyma", FieldType::kText, 3);
  EXPECT_EQ(outcome([&] { return set.Fields().Append("žYMA", FieldType::kBool), "appended"; }), "TypeMismatch");
  EXPECT_EQ(set.Fields().count(), 1U);
  EXPECT_EQ(set.Fields()["ŽYMA"].name(), "Žyma");
  EXPECT_EQ(outcome([] { return Fields().count(); }), "ObjectMissing");
  EXPECT_EQ(outcome([] { return value_text(Field().Value()); }), "ObjectMissing");
}

struct AssignCase {
  FieldType type;
  Variant value;
  const char* expected;  // what the field reads then, or the error
};
const AssignCase kAssignments[] = {
    {FieldType::kInt16, 32767.4, "32767"},
    {FieldType::kInt16, 32767.5, "Overflow"},
    {FieldType::kInt32, "2,5", "2"},
    {FieldType::kInt32, "", "TypeMismatch"},
    {FieldType::kInt32, Variant(), "0"},
    {FieldType::kDouble, true, "-1"},
    {FieldType::kDate, "2008.2.29", "2008.02.29"},
    {FieldType::kDate, "2007.02.29", "TypeMismatch"},
    {FieldType::kBool, 2, "True"},
    {FieldType::kBool, kNull, "Null"},
    {FieldType::kText, Variant(), ""},
    {FieldType::kText, "ąčęėį", "ąčęėį"},
    {FieldType::kText, "ąčęėįš", "Overflow"},
    {FieldType::kText, 12345.0, "12345"},
    {FieldType::kText, 123456.0, "Overflow"},
    {FieldType::kRecordSet, 1, "TypeMismatch"},
};

TEST(Recordset, ConvertsWhatIsAssignedToTheTypeOfTheField) {
  for (const AssignCase& c : kAssignments) {
    SCOPED_TRACE(c.expected);
    const auto set = record_set({{"f", c.type, c.type == FieldType::kText ? 5U : 0U}}, {{kNull}});
    EXPECT_EQ(outcome([&] { return set->set_field("f", c.value), value_text(set->field("f")); }), c.expected);
    const std::string held = value_text(set->field("f"));
    set->Update();
    EXPECT_EQ(value_text(set->field("f")), held);
    EXPECT_EQ(set->has_changes(), held == c.expected) << "a refused value is no edit";
  }
}

TEST(Recordset, ReadsWithoutVariants) {
  const auto set =
      record_set({{"n", FieldType::kInt32}, {"b", FieldType::kBool}, {"t", FieldType::kText}, {"d", FieldType::kDate}},
                 {{7, true, "x", "2008.01.31"}, {}});
  const FieldHandle n{0}, b{1}, t{2}, d{3};
  EXPECT_EQ(set->int32(n), 7);
  EXPECT_EQ(set->int32(b), -1);
  EXPECT_EQ(set->number(d), 39478.0);
  EXPECT_EQ(set->text(t), "x");
  set->set_field(t, "edited");
  EXPECT_EQ(set->text(t), "edited");
  EXPECT_EQ(outcome([&] { return std::string(set->text(n)); }), "TypeMismatch");
  EXPECT_EQ(outcome([&] { return set->int32(d); }), "TypeMismatch");
  EXPECT_EQ(outcome([&] { return set->number(t); }), "TypeMismatch");
  set->MoveNext();
  EXPECT_TRUE(set->is_null(n));
  EXPECT_EQ(set->int32(n), 0);
  EXPECT_EQ(set->text(t), "");
  EXPECT_EQ(outcome([&] { return set->number(t); }), "TypeMismatch");
}

TEST(Recordset, TakesWholeColumns) {
  ColumnData id({"id", FieldType::kInt32});
  id.values = std::vector<std::int32_t>{1, 2, 0};
  id.nulls.set(2, true);
  ColumnData name({"name", FieldType::kText});
  for (const char* text : {"a", "", "c"}) std::get<TextColumn>(name.values).push_back(text);
  const auto set = Recordset::from_columns({id, name});
  EXPECT_EQ(standing(*set), "row 1 of 3");
  EXPECT_EQ(walked(*set, "id"), "1 2 Null");
  EXPECT_EQ(walked(*set, "name"), "a  c");
  EXPECT_FALSE(set->has_changes());

  ColumnData shorter = id;
  shorter.info.name = "shorter";
  std::get<std::vector<std::int32_t>>(shorter.values).pop_back();
  ColumnData mistyped = id;
  mistyped.info = {"mistyped", FieldType::kInt16};
  EXPECT_EQ(outcome([&] { return standing(*Recordset::from_columns({id, shorter})); }), "TypeMismatch");
  EXPECT_EQ(outcome([&] { return standing(*Recordset::from_columns({id, mistyped})); }), "TypeMismatch");
  EXPECT_EQ(outcome([&] { return standing(*Recordset::from_columns({id, id})); }), "TypeMismatch");
  EXPECT_EQ(outcome([&] { return standing(*Recordset::from_columns({})); }), "NoSuchField");
}

TEST(Recordset, KeepsTextsApartWhenTheyGrowAndShrink) {
  const auto set = record_set({{"id", FieldType::kInt32}, {"t", FieldType::kText}}, {{1, "a"}, {2, "b"}});
  for (std::size_t length : {3U, 9000U, 2U, 5000U, 0U, 4U}) {
    set->MoveFirst();
    set->set_field("t", std::string(length, 'x'));
    set->MoveNext();
    EXPECT_EQ(set->text(FieldHandle{1}), "b");
    set->MovePrevious();
    EXPECT_EQ(set->text(FieldHandle{1}), std::string(length, 'x'));
  }
}

// ---- new rows, edits, holes

TEST(Recordset, IsACompleteOneRowSetWithoutUpdate) {
  Recordset set;
  set.Fields().Append("id", FieldType::kInt32);
  set.Fields().Append("value", FieldType::kDouble);
  set.Open();
  set.AddNew();
  set.Fields()["id"].Value(0);
  EXPECT_EQ(set.RecordCount(), 1);
  EXPECT_FALSE(set.Eof());
  EXPECT_TRUE(set.field("value").is_null());
  EXPECT_EQ(set.Clone()->RecordCount(), 0) << "not committed yet";
  set.MoveFirst();
  EXPECT_EQ(standing(set), "row 0 of 1");
}

TEST(Recordset, CountsANewRowAsSoonAsItPassesTheFilter) {
  const auto set = ids({1, 2, 3});
  set->Filter("id = 2");
  set->AddNew();
  EXPECT_EQ(standing(*set), "row Null of 1");
  set->set_field("id", 2);
  EXPECT_EQ(standing(*set), "row 2 of 2");
  set->set_field("id", 4);
  EXPECT_EQ(standing(*set), "row 4 of 1");
  set->Update();
  EXPECT_EQ(standing(*set), "row 4 of 1") << "current, though it does not pass";
  set->MovePrevious();
  EXPECT_EQ(standing(*set), "row 2 of 1");
  set->Filter("");
  EXPECT_EQ(walked(*set, "id"), "1 2 3 4");
}

TEST(Recordset, DeletesANewRowThatWasNeverCommitted) {
  const auto set = ids({1, 2});
  set->AddNew();
  set->Delete();
  EXPECT_EQ(standing(*set), "hole 2");
  set->Clone()->AddNew();
  set->MovePrevious();
  EXPECT_EQ(standing(*set), "row 2 of 2");
  EXPECT_FALSE(set->has_changes());
}

TEST(Recordset, CommitsAnEditByMovesAndFiltersButNotByReading) {
  const auto set = ids({1, 2, 3});
  const auto other = set->Clone();
  set->set_field("id", 10);
  EXPECT_EQ(set->RecordCount(), 3);
  EXPECT_EQ(walked(*other, "id"), "1 2 3");
  set->CancelUpdate();
  EXPECT_EQ(standing(*set), "row 1 of 3");
  set->set_field("id", 10);
  set->MoveNext();
  EXPECT_EQ(walked(*other, "id"), "10 2 3");
  set->set_field("id", 20);
  EXPECT_EQ(outcome([&] { return set->Filter("id ="), "set"; }), "BadFilter");
  EXPECT_EQ(walked(*other, "id"), "10 20 3") << "committed before the filter was read";
  EXPECT_EQ(standing(*set), "row 20 of 3");
}

TEST(Recordset, LeavesARowThatFailsTheFilterAtTheNextMove) {
  const auto set = ids({2, 1, 2, 2});
  set->Filter("id = 2");
  set->set_field("id", 5);
  EXPECT_EQ(standing(*set), "row 5 of 2") << "counted as its reader sees it";
  set->Update();
  EXPECT_EQ(standing(*set), "row 5 of 2");
  set->set_field("id", 2);
  EXPECT_EQ(standing(*set), "row 2 of 3");
  set->CancelUpdate();
  set->MoveNext();
  EXPECT_EQ(standing(*set), "row 2 of 2");
  EXPECT_EQ(outcome([&] { return set->MovePrevious(), standing(*set); }), "first 2");
  set->MoveFirst();
  set->set_field("id", 6);
  set->MoveNext();
  set->set_field("id", 7);
  set->MoveNext();
  EXPECT_EQ(standing(*set), "none 0");
}

TEST(Recordset, VisitsEveryRowOnceWhenErasingWhileWalking) {
  const auto set = ids({1, 2, 3, 4, 5});
  for (const char* filter : {"", "id >= 0"}) {
    SCOPED_TRACE(filter);
    set->CancelBatch();
    set->Filter(filter);
    std::string visited;
    while (!set->Eof()) {
      visited += value_text(set->field("id"));
      if (visited.back() != '3') set->Delete();
      set->MoveNext();
    }
    EXPECT_EQ(visited, "12345");
    set->MoveFirst();
    EXPECT_EQ(standing(*set), "row 3 of 1");
    set->Delete();
    EXPECT_FALSE(set->Eof());
    EXPECT_EQ(standing(*set), "hole 0");
    EXPECT_EQ(outcome([&] { return set->MoveFirst(), standing(*set); }), "none 0");
    EXPECT_EQ(outcome([&] { return set->MoveFirst(), standing(*set); }), "NoCurrentRow");
  }
}

}  // namespace
}  // namespace quor
