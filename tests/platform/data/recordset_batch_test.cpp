// Clones, the batch, and record sets inside record sets.
#include <gtest/gtest.h>
#include <numeric>

#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

std::string changes(const Recordset& set) {
  std::string text;
  set.for_each_change([&](const RowChange& change) {
    const char* const state = change.state() == RowState::kAdded      ? "added "
                              : change.state() == RowState::kModified ? "modified "
                              : change.state() == RowState::kDeleted  ? "deleted "
                                                                      : "unchanged ";
    text += state + value_text(change.base(FieldHandle{0})) + ">" + value_text(change.current(FieldHandle{0})) + "; ";
  });
  return text;
}

void go_to(Recordset& set, std::int32_t id) {
  set.MoveFirst();
  while (set.int32(FieldHandle{0}) != id) set.MoveNext();
}

TEST(Clone, SharesRowsButNeitherPositionNorFilter) {
  const auto set = ids({1, 2, 3});
  set->Filter("id = 3");
  const auto clone = set->Clone();
  EXPECT_EQ(clone->Filter(), "");
  EXPECT_EQ(standing(*clone), "row 1 of 3");
  clone->AddNew();
  clone->set_field("id", 3);
  EXPECT_EQ(standing(*set), "row 3 of 1");
  clone->Update();
  EXPECT_EQ(standing(*set), "row 3 of 2");
  EXPECT_EQ(ids({})->Clone()->RecordCount(), 0);
}

TEST(Clone, StandsOnAHoleWhereAnotherErased) {
  const auto set = ids({1, 2, 3});
  const auto clone = set->Clone();
  clone->MoveNext();
  clone->set_field("id", 20);
  go_to(*set, 2);
  set->Delete();
  EXPECT_EQ(standing(*clone), "hole 2");
  EXPECT_EQ(outcome([&] { return value_text(clone->field("id")); }), "RowDeleted");
  clone->MoveNext();
  EXPECT_EQ(standing(*clone), "row 3 of 2");
  EXPECT_EQ(walked(*set, "id"), "1 3") << "the edit went with its row";
  set->CancelBatch();
  EXPECT_EQ(walked(*clone, "id"), "1 2 3");
}

TEST(Clone, GoesOnFromAHoleInAWideGap) {
  std::vector<std::int32_t> values(100);
  std::iota(values.begin(), values.end(), 0);
  for (const char* filter : {"", "id >= 0"}) {
    SCOPED_TRACE(filter);
    const auto set = ids(values);
    set->Filter(filter);
    const auto clone = set->Clone();
    go_to(*set, 40);
    go_to(*clone, 20);
    for (int erased = 20; erased < 54; ++erased, clone->MoveNext()) clone->Delete();
    set->MoveNext();
    EXPECT_EQ(standing(*set), "row 54 of 66");
    set->MovePrevious();
    EXPECT_EQ(standing(*set), "row 19 of 66");
  }
}

TEST(Clone, SeesEditsThatAreTooManyToBeKeptInALog) {
  const auto set = ids({1, 2, 3});
  set->Filter("id <= 3");
  const auto clone = set->Clone();
  clone->set_field("id", 4);
  clone->MoveLast();
  for (std::int32_t value = 0; value < 3000; ++value) {
    clone->set_field("id", value);
    clone->Update();
  }
  EXPECT_EQ(set->RecordCount(), 1);
  EXPECT_EQ(walked(*set, "id"), "2");
}

TEST(Clone, SeesRowsOfOthersInAnEmptyView) {
  const auto set = ids({});
  const auto clone = set->Clone();
  set->AddNew();
  set->Update();
  EXPECT_EQ(standing(*clone), "none 1");
  clone->MoveFirst();
  EXPECT_EQ(standing(*clone), "row Null of 1");
}

TEST(Clone, EditsOfOneRowMeetFieldByField) {
  const auto set = record_set({{"id", FieldType::kInt32}, {"name", FieldType::kText}}, {{1, "a"}});
  const auto clone = set->Clone();
  set->set_field("id", 2);
  clone->set_field("name", "b");
  clone->Update();
  set->Update();
  EXPECT_EQ(walked(*set, "id") + walked(*set, "name"), "2b");
}

TEST(Batch, TellsWhatChangedInStoreOrder) {
  const auto set = ids({1, 2, 3, 4});
  EXPECT_FALSE(set->has_changes());
  go_to(*set, 4);
  set->Delete();
  set->MovePrevious();
  set->set_field("id", 30);
  set->Update();
  set->set_field("id", 33);
  set->Update();
  go_to(*set, 2);
  set->set_field("id", 20);
  set->Update();
  set->Delete();
  set->AddNew();
  set->set_field("id", 5);
  set->AddNew();
  set->set_field("id", 6);
  set->Update();
  set->Delete();
  go_to(*set, 1);
  set->set_field("id", 10);
  EXPECT_EQ(changes(*set), "deleted 2>20; modified 3>33; deleted 4>4; added Null>5; ");
  set->CancelUpdate();

  const auto clone = set->Clone();
  set->AcceptBatch();
  EXPECT_EQ(changes(*set), "");
  EXPECT_EQ(standing(*set), "row 1 of 3") << "position kept";
  set->CancelBatch();
  EXPECT_EQ(walked(*clone, "id"), "1 33 5") << "the accepted rows are the base";
}

TEST(Batch, AcceptLeavesAHoleBehindTheLastRow) {
  const auto set = ids({1, 2});
  set->Delete();
  set->AcceptBatch();
  EXPECT_EQ(standing(*set), "last 1");
  set->MovePrevious();
  set->Delete();
  set->AcceptBatch();
  EXPECT_EQ(standing(*set), "none 0");
}

TEST(Batch, AcceptKeepsAnEditPending) {
  const auto set = ids({1, 2});
  set->set_field("id", 10);
  set->AcceptBatch();
  EXPECT_EQ(standing(*set), "row 10 of 2");
  set->Update();
  EXPECT_EQ(changes(*set), "modified 1>10; ");
}

TEST(Batch, CancelReturnsDeletedRowsToTheirOldPlace) {
  const auto set = ids({1, 2, 3, 4});
  set->Filter("id >= 2");
  const auto clone = set->Clone();
  clone->MoveNext();
  clone->set_field("id", 20);
  clone->Update();
  clone->Delete();
  clone->MoveFirst();
  clone->set_field("id", 100);
  clone->Update();
  set->AddNew();
  set->set_field("id", 5);
  set->AddNew();
  EXPECT_EQ(walked(*set, "id"), "100 3 4 5");
  set->MoveLast();
  set->set_field("id", 50);
  set->CancelBatch();
  EXPECT_EQ(set->Filter(), "id >= 2");
  EXPECT_EQ(standing(*set), "row 2 of 3");
  EXPECT_EQ(walked(*set, "id"), "2 3 4");
  EXPECT_EQ(walked(*clone, "id"), "1 2 3 4");
  EXPECT_FALSE(set->has_changes());
}

TEST(Batch, CancelLeavesAHoleUnderACloneOnAnAddedRow) {
  const auto set = ids({1});
  const auto clone = set->Clone();
  set->AddNew();
  set->Update();
  clone->MoveLast();
  set->CancelBatch();
  EXPECT_EQ(standing(*clone), "hole 1");
  set->AddNew();
  set->Update();
  EXPECT_EQ(standing(*clone), "hole 2") << "another row is another row";
}

// ---- child sets

std::shared_ptr<Recordset> parent_of(const std::shared_ptr<Recordset>& child) {
  return record_set({{"id", FieldType::kInt32}, {"Rows", FieldType::kRecordSet}}, {{1, child}, {2, kNull}, {3, child}});
}

TEST(ChildSet, KeepsItsFilterAndPosition) {
  const auto parent = parent_of(ids({1, 2, 3}));
  const auto rows = parent->field("Rows").record_set();
  rows->Filter("id >= 2");
  rows->MoveLast();
  EXPECT_EQ(standing(*parent->field("rows").record_set()), "row 3 of 2");
  parent->MoveLast();
  EXPECT_EQ(parent->field("Rows").record_set(), rows);
  const auto look = rows->Clone();
  look->MoveLast();
  look->Filter("id = 1");
  EXPECT_EQ(standing(*rows), "row 3 of 2");
  parent->Filter("Rows = Null");
  EXPECT_EQ(walked(*parent, "id"), "2");
  parent->Filter("Rows <> Null");
  EXPECT_EQ(walked(*parent, "id"), "1 3");
}

TEST(ChildSet, IsCancelledWithItsParentAndKeepsItsFilter) {
  const auto child = ids({1, 2, 3});
  const auto parent = parent_of(child);
  child->Filter("id >= 2");
  child->Delete();
  child->MoveNext();
  child->set_field("id", 30);
  parent->set_field("id", 10);
  parent->set_field("Rows", kNull);
  parent->Update();
  parent->CancelBatch();
  EXPECT_EQ(standing(*parent), "row 1 of 3");
  EXPECT_EQ(parent->field("Rows").record_set(), child);
  EXPECT_EQ(child->Filter(), "id >= 2");
  EXPECT_EQ(walked(*child, "id"), "2 3");
}

TEST(ChildSet, MayBeClosedOrLeadBackToItsParent) {
  const auto child = record_set({{"back", FieldType::kRecordSet}}, {{}, {}});
  const auto parent = parent_of(child);
  child->MoveFirst();
  child->set_field("back", parent);
  child->Update();
  child->AcceptBatch();
  parent->set_field("id", 9);
  parent->Update();
  parent->MoveNext();
  parent->set_field("Rows", std::make_shared<Recordset>());
  parent->CancelBatch();
  EXPECT_EQ(walked(*parent, "id"), "1 2 3");
  child->MoveFirst();
  child->set_field("back", kNull);
  child->Update();
  child->AcceptBatch();  // the base lets go of the parent, or the two would keep each other alive
}

}  // namespace
}  // namespace quor
