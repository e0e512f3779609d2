// Every operation of a record set in every state of its cursor.
#include <functional>
#include <gtest/gtest.h>

#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

std::shared_ptr<Recordset> closed() {
  auto set = std::make_shared<Recordset>();
  set->Fields().Append("id", FieldType::kInt32);
  return set;
}
std::shared_ptr<Recordset> none() { return ids({}); }
std::shared_ptr<Recordset> on_row() {
  auto set = ids({1, 2, 3});
  set->MoveNext();
  return set;
}
std::shared_ptr<Recordset> before_first() {
  auto set = ids({1, 2, 3});
  set->MovePrevious();
  return set;
}
std::shared_ptr<Recordset> after_last() {
  auto set = ids({1, 2, 3});
  set->MoveLast();
  set->MoveNext();
  return set;
}
std::shared_ptr<Recordset> on_hole() {
  auto set = on_row();
  set->Delete();
  return set;
}

struct OperationCase {
  const char* name;
  std::function<void(Recordset&)> run;
  const char* expected[6];  // in the order of kStates
};

struct State {
  const char* name;
  std::shared_ptr<Recordset> (*make)();
};
const State kStates[] = {{"closed", closed},         {"none", none},
                         {"on row", on_row},         {"before first", before_first},
                         {"after last", after_last}, {"hole", on_hole}};

const char* const kOpen = "AlreadyOpen";
const char* const kShut = "NotOpen";
const char* const kNoRow = "NoCurrentRow";
const char* const kNoName = "NoSuchField";

const OperationCase kOperations[] = {
    {"Append",
     [](Recordset& s) { s.Fields().Append("x", FieldType::kBool); },
     {"closed", kOpen, kOpen, kOpen, kOpen, kOpen}},
    {"Open", [](Recordset& s) { s.Open(); }, {"none 0", kOpen, kOpen, kOpen, kOpen, kOpen}},
    {"read",
     [](Recordset& s) { static_cast<void>(s.field("ID")); },
     {kShut, kNoRow, "row 2 of 3", kNoRow, kNoRow, "RowDeleted"}},
    {"assign",
     [](Recordset& s) { s.Fields()["id"].Value(9); },
     {kShut, kNoRow, "row 9 of 3", kNoRow, kNoRow, "RowDeleted"}},
    {"unknown field",
     [](Recordset& s) { static_cast<void>(s.field("x")); },
     {kNoName, kNoName, kNoName, kNoName, kNoName, kNoName}},
    {"assign to unknown field",
     [](Recordset& s) { s.set_field(FieldHandle{1}, 1); },
     {kNoName, kNoName, kNoName, kNoName, kNoName, kNoName}},
    {"AddNew",
     [](Recordset& s) { s.AddNew(); },
     {kShut, "row Null of 1", "row Null of 4", "row Null of 4", "row Null of 4", "row Null of 3"}},
    {"Update", [](Recordset& s) { s.Update(); }, {kShut, kNoRow, "row 2 of 3", kNoRow, kNoRow, "hole 2"}},
    {"CancelUpdate",
     [](Recordset& s) { s.CancelUpdate(); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "hole 2"}},
    {"Delete", [](Recordset& s) { s.Delete(); }, {kShut, kNoRow, "hole 2", kNoRow, kNoRow, "RowDeleted"}},
    {"MoveFirst",
     [](Recordset& s) { s.MoveFirst(); },
     {kShut, kNoRow, "row 1 of 3", "row 1 of 3", "row 1 of 3", "row 1 of 2"}},
    {"MoveLast",
     [](Recordset& s) { s.MoveLast(); },
     {kShut, kNoRow, "row 3 of 3", "row 3 of 3", "row 3 of 3", "row 3 of 2"}},
    {"MoveNext", [](Recordset& s) { s.MoveNext(); }, {kShut, kNoRow, "row 3 of 3", "row 1 of 3", kNoRow, "row 3 of 2"}},
    {"MovePrevious",
     [](Recordset& s) { s.MovePrevious(); },
     {kShut, kNoRow, "row 1 of 3", kNoRow, "row 3 of 3", "row 1 of 2"}},
    {"Bof",
     [](Recordset& s) { static_cast<void>(s.Bof()); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "hole 2"}},
    {"Eof",
     [](Recordset& s) { static_cast<void>(s.Eof()); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "hole 2"}},
    {"RecordCount",
     [](Recordset& s) { static_cast<void>(s.RecordCount()); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "hole 2"}},
    {"Filter",
     [](Recordset& s) { s.Filter("id >= 2"); },
     {kShut, "none 0", "row 2 of 2", "row 2 of 2", "row 2 of 2", "row 3 of 1"}},
    {"Filter removed",
     [](Recordset& s) { s.Filter(""); },
     {kShut, "none 0", "row 1 of 3", "row 1 of 3", "row 1 of 3", "row 1 of 2"}},
    {"Clone",
     [](Recordset& s) { static_cast<void>(s.Clone()); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "hole 2"}},
    {"AcceptBatch",
     [](Recordset& s) { s.AcceptBatch(); },
     {kShut, "none 0", "row 2 of 3", "first 3", "last 3", "last 2"}},
    {"CancelBatch",
     [](Recordset& s) { s.CancelBatch(); },
     {kShut, "none 0", "row 1 of 3", "row 1 of 3", "row 1 of 3", "row 1 of 3"}},
};

TEST(RecordsetOperations, AnswersEveryOperationInEveryState) {
  for (const OperationCase& operation : kOperations) {
    for (std::size_t i = 0; i < std::size(kStates); ++i) {
      SCOPED_TRACE(std::string(operation.name) + ", " + kStates[i].name);
      const auto set = kStates[i].make();
      const std::string before = standing(*set);
      const std::string got = outcome([&] { return operation.run(*set), standing(*set); });
      EXPECT_EQ(got, operation.expected[i]);
      EXPECT_TRUE(standing(*set) == got || standing(*set) == before) << "a failure changes nothing";
    }
  }
}

TEST(RecordsetOperations, CancelsANewRowBackToTheRowBefore) {
  struct Case {
    const char* name;
    std::shared_ptr<Recordset> set;
    const char* expected;
  };
  for (const Case& c : {Case{"none", none(), "none 0"}, Case{"row", on_row(), "row 2 of 3"},
                        Case{"before first", before_first(), "last 3"}, Case{"after last", after_last(), "last 3"},
                        Case{"hole", on_hole(), "hole 2"}}) {
    SCOPED_TRACE(c.name);
    c.set->AddNew();
    c.set->set_field("id", 9);
    c.set->CancelUpdate();
    EXPECT_EQ(standing(*c.set), c.expected);
  }
  const auto set = ids({1});
  set->AddNew();
  set->set_field("id", 2);
  set->AddNew();
  set->CancelUpdate();
  EXPECT_EQ(standing(*set), "row 2 of 2") << "the first new row was committed by the second";
}

}  // namespace
}  // namespace quor
