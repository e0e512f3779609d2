// Copies of a company file: whole, of one moment, never over anything; and its return to one, with nothing lost.
#include "host/store/backup.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/company_place.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

class Backup : public testing::Test {
 protected:
  Backup() { name(*Database::create(company_), "Pirma"); }

  static void name(Database& database, const std::string& text) {
    Transaction transaction(database);
    database.execute("UPDATE company SET name = :p0", {text});
    transaction.commit();
  }
  static std::string name_of(const std::string& path) {
    return null_to_text(
        Database::open(path)->read("SELECT name FROM company", {{"Name", FieldType::kText}})->field("Name"));
  }
  StoreFault fault_of_restoring(const std::string& copy) const {
    return refusal_of([&] { restore_company(company_, copy); }).fault.value();
  }

  const TemporaryFolder folder_;
  const std::string company_ = folder_.path("a.quor"), copy_ = folder_.path("kopija.quor");
};

TEST_F(Backup, IsOfOneMomentAndTakesAFreePlaceAlone) {
  const auto open = Database::open(company_);
  back_up(*open, copy_);
  name(*open, "Antra");
  EXPECT_EQ(name_of(copy_), "Pirma");
  EXPECT_EQ(fs::status(copy_).permissions(), fs::perms(0600));
  std::ofstream(folder_.path("b.txt")) << "b";
  std::ofstream(folder_.path("c.quor-journal")) << "c";
  const std::string before = folder_.contents();
  for (const std::string& place :
       {company_, copy_, company_ + "-journal", folder_.path("b.txt"), folder_.path("c.quor"),
        folder_.path("nėra/d.quor"), std::string("postgresql://x/y")}) {
    EXPECT_THROW(back_up(*open, place), StoreError) << place;
  }
  Transaction writing(*open);
  EXPECT_THROW(back_up(*open, folder_.path("e.quor")), StoreError);
  EXPECT_EQ(folder_.contents(), before);
}

TEST_F(Backup, ARestoredCompanyIsSeenByWhoeverHasItOpenAndKeepsWhatWasThere) {
  const auto open = Database::open(company_);
  back_up(*open, copy_);
  name(*open, "Antra");
  const auto changes = open->change_count();
  const auto inputs = open->pay_inputs_count();
  const std::string kept = restore_company(company_, copy_);
  EXPECT_EQ(name_of(company_), "Pirma");
  EXPECT_EQ(name_of(kept), "Antra");
  EXPECT_GT(open->change_count(), changes);
  EXPECT_GT(open->pay_inputs_count(), inputs);
  name(*open, "Trečia");
  EXPECT_EQ(name_of(company_), "Trečia");
}

TEST_F(Backup, WhatIsNoCompanyOrHeldByAnotherChangesNothing) {
  back_up(*Database::open(company_), copy_);
  const std::string text = folder_.path("b.quor"), cut = folder_.path("c.quor"), newer = folder_.path("d.quor");
  std::ofstream(text) << "ne įmonė";
  fs::copy_file(copy_, cut);
  fs::resize_file(cut, fs::file_size(cut) / 2);
  fs::copy_file(copy_, newer);
  Database::open(newer)->execute("INSERT INTO schema_migrations (number, applied_at) VALUES (9999, '')");
  const std::string before = folder_.contents();
  EXPECT_EQ(fault_of_restoring(folder_.path("nėra.quor")), StoreFault::kMissing);
  EXPECT_EQ(fault_of_restoring(text), StoreFault::kNotACompany);
  EXPECT_EQ(fault_of_restoring(cut), StoreFault::kNotACompany);
  EXPECT_EQ(fault_of_restoring(newer), StoreFault::kNewerSchema);
  EXPECT_EQ(fault_of_restoring(company_), StoreFault::kRefused);
  EXPECT_EQ(folder_.contents(), before);
  const auto other = Database::open(company_);
  Transaction writing(*other);
  other->execute("UPDATE company SET name = 'Antra'");
  EXPECT_EQ(fault_of_restoring(copy_), StoreFault::kLocked);
  writing.commit();
  EXPECT_EQ(name_of(company_), "Antra");
}

TEST_F(Backup, BringsBackACompanyThatIsGoneOrDamaged) {
  back_up(*Database::open(company_), copy_);
  fs::remove(company_);
  EXPECT_EQ(restore_company(company_, copy_), "");
  EXPECT_EQ(name_of(company_), "Pirma");
  std::ofstream(company_) << "sugadinta";
  const std::string kept = restore_company(company_, copy_);
  EXPECT_EQ(name_of(company_), "Pirma");
  EXPECT_EQ(fs::file_size(kept), 9U);
}

}  // namespace
}  // namespace quor
