// The record set against a naive model (a vector of rows that is searched every time), and how its work grows.
#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <random>

#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

struct Row {
  std::int32_t id = 0;
  std::optional<std::int32_t> num;
  std::optional<std::string> name;
};
struct ModelRow {
  Row now;
  std::optional<Row> base;  // none in an added row
  bool alive = true;
};

struct ModelFilter {
  const char* text;
  bool (*passes)(const Row&);
};
const ModelFilter kFilters[] = {
    {"", [](const Row&) { return true; }},
    {"num = 3", [](const Row& r) { return r.num == 3; }},
    {"num = Null", [](const Row& r) { return !r.num; }},
    {"name = 'aa'", [](const Row& r) { return r.name == "AA" || r.name == "aa"; }},
    {"num = 2 AND name = 'b'", [](const Row& r) { return r.num == 2 && r.name == "b"; }},
    {"num >= 3", [](const Row& r) { return r.num && *r.num >= 3; }},
    {"num = 1 OR name = ''", [](const Row& r) { return r.num == 1 || r.name == ""; }},
    {"name <> Null AND num = 0", [](const Row& r) { return r.name && r.num == 0; }},
};
const char* const kNames[] = {"AA", "aa", "b", "c", ""};

class Differential {
 public:
  explicit Differential(std::uint32_t seed) : random_(seed) {
    set_ = record_set({{"id", FieldType::kInt32}, {"num", FieldType::kInt32}, {"name", FieldType::kText}}, {});
    for (std::size_t rows = below(60); rows > 0; --rows) add_row();
    set_->AcceptBatch();
    accept();
    cursors_ = {set_, set_->Clone(), set_->Clone()};
  }

  void step() {
    at_ = below(cursors_.size());
    const std::size_t die = below(100);
    if (die < 30) {
      edit();
    } else if (die < 50) {
      erase();
    } else if (die < 65) {
      add_row();
    } else if (die < 85) {
      filters_[at_] = below(std::size(kFilters));
      cursors_[at_]->Filter(kFilters[filters_[at_]].text);
    } else if (die < 91) {
      cancelled_edits();
    } else if (die < 94) {
      cursors_[at_] = set_->Clone();
      filters_[at_] = 0;
    } else if (die < 97) {
      cursors_[at_]->AcceptBatch();
      accept();
    } else {
      cursors_[at_]->CancelBatch();
      cancel();
    }
  }

  void compare() {
    for (std::size_t i = 0; i < cursors_.size(); ++i) {
      ASSERT_EQ(cursors_[i]->RecordCount(), static_cast<std::int64_t>(view(i).size())) << "cursor " << i;
    }
    const std::size_t i = below(cursors_.size());
    const auto rows = view(i);
    if (rows.empty()) return;
    Recordset& set = *cursors_[i];
    below(2) == 0 ? set.MoveFirst() : set.MoveLast();
    const bool forward = set.field("id").to_int32() == model_[rows.front()].now.id;
    for (std::size_t k = 0; k < rows.size(); ++k) {
      expect_row(set, model_[rows[forward ? k : rows.size() - 1 - k]].now);
      forward ? set.MoveNext() : set.MovePrevious();
    }
    ASSERT_TRUE(forward ? set.Eof() : set.Bof());
  }

 private:
  std::size_t below(std::size_t bound) { return random_() % bound; }

  std::vector<std::size_t> view(std::size_t cursor) const {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < model_.size(); ++i) {
      if (model_[i].alive && kFilters[filters_[cursor]].passes(model_[i].now)) rows.push_back(i);
    }
    return rows;
  }

  static void expect_row(const Recordset& set, const Row& row) {
    ASSERT_EQ(value_text(set.field("id")), std::to_string(row.id));
    ASSERT_EQ(value_text(set.field("num")), row.num ? std::to_string(*row.num) : "Null");
    ASSERT_EQ(value_text(set.field("name")), row.name.value_or("Null"));
  }

  void assign_some(Recordset& set, Row& row) {
    if (below(3) != 0) {
      row.num = below(6) == 5 ? std::nullopt : std::optional(static_cast<std::int32_t>(below(5)));
      set.set_field("num", row.num ? Variant(*row.num) : Variant(kNull));
    }
    if (below(3) != 0) {
      row.name = below(6) == 5 ? std::nullopt : std::optional<std::string>(kNames[below(std::size(kNames))]);
      set.set_field("name", row.name ? Variant(*row.name) : Variant(kNull));
    }
  }

  // Puts the cursor on a random row of its view. No value when the view is empty.
  std::optional<std::size_t> go_somewhere() {
    const auto rows = view(at_);
    if (rows.empty()) return std::nullopt;
    const std::size_t k = below(rows.size());
    cursors_[at_]->MoveFirst();
    for (std::size_t i = 0; i < k; ++i) cursors_[at_]->MoveNext();
    return rows[k];
  }

  void edit() {
    const auto row = go_somewhere();
    if (!row) return;
    assign_some(*cursors_[at_], model_[*row].now);
    if (below(2) == 0) expect_row(*cursors_[at_], model_[*row].now);
    cursors_[at_]->Update();
  }

  void erase() {
    const auto row = go_somewhere();
    if (!row) return;
    Recordset& set = *cursors_[at_];
    set.Delete();
    model_[*row].alive = false;
    const auto rest = view(at_);
    const auto next = std::upper_bound(rest.begin(), rest.end(), *row);
    set.MoveNext();
    ASSERT_EQ(set.Eof(), next == rest.end());
    if (next != rest.end()) expect_row(set, model_[*next].now);
  }

  void add_row() {
    Recordset& set = cursors_.empty() ? *set_ : *cursors_[at_];
    set.AddNew();
    Row row;
    row.id = static_cast<std::int32_t>(model_.size());
    set.set_field("id", row.id);
    assign_some(set, row);
    model_.push_back({row, std::nullopt, true});
    set.Update();
  }

  void cancelled_edits() {
    Row unused;
    const auto row = go_somewhere();
    if (row) assign_some(*cursors_[at_], unused);
    cursors_[at_]->CancelUpdate();
    cursors_[at_]->AddNew();
    assign_some(*cursors_[at_], unused);
    cursors_[at_]->CancelUpdate();
    if (row) expect_row(*cursors_[at_], model_[*row].now);
  }

  void accept() {
    for (ModelRow& row : model_) {
      if (row.alive) row.base = row.now;
      if (!row.alive) row.base.reset();
    }
  }
  void cancel() {
    for (ModelRow& row : model_) {
      row.alive = row.base.has_value();
      if (row.base) row.now = *row.base;
    }
  }

  std::mt19937 random_;
  std::shared_ptr<Recordset> set_;
  std::vector<std::shared_ptr<Recordset>> cursors_;
  std::size_t filters_[3] = {};
  std::size_t at_ = 0;
  std::vector<ModelRow> model_;  // never shrinks, so a row's place is its name
};

TEST(RecordsetModel, AgreesWithANaiveModelAfterEveryStep) {
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    Differential run(seed);
    for (int step = 0; step < 200; ++step) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
      run.step();
      if (!HasFatalFailure()) run.compare();
      if (HasFatalFailure()) return;
    }
  }
}

// ---- growth of work

// `per_person` rows for each of `persons`, interleaved; "kind" is 1 in every row.
std::shared_ptr<Recordset> charges(std::int32_t persons, std::int32_t per_person) {
  std::vector<std::vector<Variant>> rows;
  for (std::int32_t i = 0; i < per_person; ++i) {
    for (std::int32_t person = 0; person < persons; ++person)
      rows.push_back({person, 1, "GUID-" + std::to_string(person)});
  }
  return record_set({{"id", FieldType::kInt32}, {"kind", FieldType::kInt16}, {"guid", FieldType::kText}}, rows);
}

std::uint64_t work_of(Recordset& set, const char* filter) {
  const std::uint64_t before = set.rows_tested();
  set.Filter(filter);
  while (!set.Eof()) set.MoveNext();
  return set.rows_tested() - before;
}

TEST(RecordsetWork, OfAnEqualityFilterIsThatOfItsMatches) {
  for (const std::int32_t persons : {100, 2000}) {
    SCOPED_TRACE(persons);
    const auto set = charges(persons, 5);
    EXPECT_EQ(work_of(*set, "id = 7"), static_cast<std::uint64_t>(persons * 5 + 5)) << "builds the index";
    EXPECT_EQ(work_of(*set->Clone(), "id = 8"), 5U) << "shares the index";
    EXPECT_EQ(work_of(*set, "id = -1"), 0U);
    EXPECT_EQ(work_of(*set, "id = Null"), 0U);
    static_cast<void>(work_of(*set, "guid LIKE 'guid-7' AND kind = 1"));  // builds two more
    EXPECT_EQ(work_of(*set, "kind = 1 AND guid = 'guid-7'"), 5U) << "the smaller bucket";
    EXPECT_EQ(work_of(*set, "guid = 'guid-7' AND kind = 1 AND id = 7"), 5U);
    // An edit costs the row that changed, not a new index.
    set->MoveFirst();
    set->set_field("id", 9);
    EXPECT_EQ(work_of(*set, "id = 9"), 6U);
    EXPECT_EQ(work_of(*set, "id = 8"), 5U);
    set->MoveFirst();
    set->Delete();
    EXPECT_EQ(set->RecordCount(), 4);
  }
}

TEST(RecordsetWork, OfAFilterPerPersonIsLinear) {
  const std::int32_t persons = 1500;
  const auto set = charges(persons, 3);
  for (std::int32_t person = 0; person < persons; ++person) {
    set->Filter("id = " + std::to_string(person));
    ASSERT_EQ(set->RecordCount(), 3);
    set->Filter("");
  }
  EXPECT_EQ(set->rows_tested(), 2U * 3U * 1500U) << "each row once for the index and once for its person";
}

TEST(RecordsetWork, OfErasingWhileWalkingIsLinear) {
  const auto set = charges(3000, 1);
  const std::uint64_t before = set->rows_tested();
  set->Filter("kind = 1");
  while (set->RecordCount() > 0) {
    set->MoveFirst();
    set->Delete();
  }
  EXPECT_LE(set->rows_tested() - before, 3U * 3000U);
}

TEST(RecordsetWork, OfWalkingWithoutAFilterIsNone) {
  const auto set = charges(100, 1);
  while (!set->Eof()) set->MoveNext();
  EXPECT_EQ(set->Clone()->RecordCount(), 100);
  EXPECT_EQ(set->rows_tested(), 0U);
}

}  // namespace
}  // namespace quor
