// The schema of a company on every database: made once, brought up to date once, also by programs that come together.
#include <barrier>
#include <gtest/gtest.h>
#include <thread>

#include "host/store/schema.h"
#include "tests/support/company_place.h"

namespace quor {
namespace {

class Migrations : public testing::TestWithParam<Backend> {
 protected:
  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  std::unique_ptr<Database> database_ = Database::create(place_->address());

  // The database as another program finds it.
  std::unique_ptr<Database> reopened() { return Database::open(place_->address()); }
};
ON_EVERY_DATABASE(Migrations);

TEST_P(Migrations, AppliesMigrationsOnceAndWhole) {
  const auto file = [](std::string_view name, std::string_view sql) {
    return EmbeddedFile{name, {reinterpret_cast<const unsigned char*>(sql.data()), sql.size()}};
  };
  std::vector<EmbeddedFile> files(migration_files().begin(), migration_files().end());
  const auto known = static_cast<std::int32_t>(files.size());
  const std::string next = "000" + std::to_string(known + 1) + "_next",
                    last = "000" + std::to_string(known + 2) + "_last";
  const auto applied = [&] { return count(*database_, "schema_migrations"); };

  files.push_back(
      file(next, "-- one; two\nCREATE TABLE notes (words TEXT);\nINSERT INTO notes (words) VALUES ('a;''b');"));
  migrate(*database_, files);
  migrate(*database_, files);
  EXPECT_EQ(count(*database_, "notes WHERE words = 'a;''b'"), 1);
  EXPECT_EQ(applied(), known + 1);

  files.push_back(file(last, "CREATE TABLE half (n INTEGER);\nINSERT INTO no_such_table (n) VALUES (1);"));
  EXPECT_EQ(refusal_of([&] { migrate(*database_, files); }).fault, StoreFault::kFailed);
  EXPECT_EQ(applied(), known + 1);
  EXPECT_THROW(count(*database_, "half"), StoreError);

  const auto newer = refusal_of([&] { reopened(); });
  EXPECT_EQ(newer.fault, StoreFault::kNewerSchema);
  EXPECT_NE(newer.text.find(database_->name()), std::string::npos);
}

// Runs `action` for four programs at the same moment, each known by its number; the refusals.
constexpr std::size_t kPrograms = 4;
template <typename Action>
std::vector<Refusal> refusals_at_once(const Action& action) {
  std::barrier start(kPrograms);
  std::vector<Refusal> refusals(kPrograms);
  {
    std::vector<std::jthread> programs;
    for (std::size_t n = 0; n < kPrograms; ++n) {
      programs.emplace_back([&, n] {
        start.arrive_and_wait();
        refusals[n] = refusal_of([&] { action(n); });
      });
    }
  }
  std::erase_if(refusals, [](const Refusal& each) { return !each.fault; });
  return refusals;
}

TEST_P(Migrations, AppliesAMigrationOnceForProgramsThatOpenAtOnce) {
  static constexpr std::string_view kNext = "CREATE TABLE notes (words TEXT);\nINSERT INTO notes (words) VALUES ('a');";
  std::vector<EmbeddedFile> files(migration_files().begin(), migration_files().end());
  files.push_back({"0099_next", {reinterpret_cast<const unsigned char*>(kNext.data()), kNext.size()}});
  std::vector<std::unique_ptr<Database>> old;
  while (old.size() < kPrograms) old.push_back(reopened());
  for (const Refusal& refusal : refusals_at_once([&](std::size_t n) { migrate(*old[n], files); })) {
    ADD_FAILURE() << refusal.text;
  }
  EXPECT_EQ(count(*database_, "notes"), 1);
  EXPECT_EQ(count(*database_, "schema_migrations WHERE number = 99"), 1);
}

TEST_P(Migrations, LetsOneOfManyProgramsMakeTheCompany) {
  const auto place = GetParam().make_place();
  const auto refusals = refusals_at_once([&](std::size_t) { Database::create(place->address()); });
  EXPECT_EQ(refusals.size(), kPrograms - 1);
  for (const Refusal& refusal : refusals) EXPECT_EQ(refusal.fault, StoreFault::kAlreadyThere) << refusal.text;
  EXPECT_EQ(count(*Database::open(place->address()), "company"), 1);
}

TEST_P(Migrations, RefusesToMakeACompanyWhereOneStands) {
  database_->execute("UPDATE company SET name = 'x'");
  EXPECT_EQ(refusal_of([&] { Database::create(place_->address()); }).fault, StoreFault::kAlreadyThere);
  EXPECT_EQ(count(*database_, "company WHERE name = 'x'"), 1);
}

}  // namespace
}  // namespace quor
