// Files that come out whole or not at all.
#include "host/store/whole_file.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/support/company_place.h"

namespace quor {
namespace {

namespace fs = std::filesystem;

void put(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

int rights(const std::string& path) { return static_cast<int>(fs::status(path).permissions()); }

TEST(WritingAFile, TakesThePlaceOfTheOldOneAndKeepsItsRights) {
  const TemporaryFolder folder;
  const std::string old = folder.path("old"), link = folder.path("link"), fresh = folder.path("new");
  put(old, "old");
  fs::permissions(old, fs::perms(0640));
  fs::create_symlink("old", link);
  fs::create_symlink("new", folder.path("to come"));
  put(folder.path(".quor-abcdef"), "of a program that was killed");
  write_whole_file(link, "first");
  write_whole_file(folder.path("to come"), "second");
  EXPECT_EQ(rights(old), 0640);
  EXPECT_EQ(rights(fresh), 0600);
  EXPECT_EQ(folder.contents(),
            link + "\nfirst\n" + fresh + "\nsecond\n" + old + "\nfirst\n" + folder.path("to come") + "\nsecond\n");
}

TEST(WritingAFile, LeavesTheOldOneWhenItFails) {
  const TemporaryFolder folder;
  put(folder.path("old"), "old");
  const std::string before = folder.contents();
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small{1000, usual.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const Refusal full = refusal_of([&] { write_whole_file(folder.path("old"), std::string(2000, 'x')); });
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(full.text, "nepavyksta įrašyti failo „" + folder.path("old") + "“: failas per didelis");
  EXPECT_EQ(refusal_of([&] { write_whole_file(folder.path("none/x"), ""); }).text,
            "nepavyksta įrašyti failo „" + folder.path("none/x") + "“: nėra tokio aplanko");
  EXPECT_EQ(refusal_of([&] { write_whole_file("/dev/full", "x"); }).text,
            "nepavyksta įrašyti failo „/dev/full“: diske nebėra vietos");
  EXPECT_EQ(folder.contents(), before);
}

TEST(WritingAFile, RefusesACompanyUnderEveryName) {
  const TemporaryFolder folder;
  Database::create(folder.path("x.quor"));
  fs::create_symlink("x.quor", folder.path("link"));
  fs::create_symlink("x.quor-journal", folder.path("to its journal"));
  fs::create_hard_link(folder.path("x.quor"), folder.path("hard"));
  put(folder.path("text"), "SQLite format 2");
  const std::string before = folder.contents();
  for (const char* name :
       {"x.quor", "./x.quor", "link", "hard", "x.quor-journal", "x.quor-wal", "hard-shm", "to its journal"}) {
    EXPECT_EQ(refusal_of([&] { write_whole_file(folder.path(name), "x"); }).fault, StoreFault::kNotWritable) << name;
  }
  EXPECT_EQ(refusal_of([&] { Database::create(folder.path("x.quor-wal")); }).fault, StoreFault::kNotWritable);
  EXPECT_EQ(folder.contents(), before);
  for (const char* name : {"text", "text-journal", "y.quor-journal"})
    EXPECT_FALSE(refusal_of([&] { write_whole_file(folder.path(name), "x"); }).fault) << name;
}

TEST(WritingAFile, KnowsOnePlaceByItsNames) {
  const TemporaryFolder folder;
  put(folder.path("a"), "");
  fs::create_symlink("a", folder.path("b"));
  fs::create_symlink("none", folder.path("c"));
  const struct {
    const char *one, *other;
    bool same;
  } kCases[] = {
      {"a", "./a", true}, {"a", "b", true}, {"none", "c", true}, {"./none", "none", true}, {"a", "none", false}};
  for (const auto& c : kCases) EXPECT_EQ(same_place(folder.path(c.one), folder.path(c.other)), c.same) << c.other;
}

}  // namespace
}  // namespace quor
