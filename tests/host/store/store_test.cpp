// The store on every database: what is written comes back, and what fails leaves nothing behind.
#include <gtest/gtest.h>

#include "host/company/company.h"
#include "host/store/database.h"
#include "host/store/sort_key.h"
#include "platform/data/column.h"
#include "platform/data/error.h"
#include "tests/support/company_place.h"

namespace quor {
namespace {

class Store : public testing::TestWithParam<Backend> {
 protected:
  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  std::unique_ptr<Database> database_ = Database::create(place_->address());

  // The database as another program finds it.
  std::unique_ptr<Database> reopened() { return Database::open(place_->address()); }
  void add_department(std::int32_t id) {
    database_->execute("INSERT INTO departments (id, name, sort_key) VALUES (:p0, 'Finansų skyrius', '1')", {id});
  }
  std::int32_t departments() { return count(*reopened(), "departments"); }
};
ON_EVERY_DATABASE(Store);

const std::vector<FieldInfo> kAllTypes = {{"small", FieldType::kInt16},   {"whole", FieldType::kInt32},
                                          {"amount", FieldType::kDouble}, {"day", FieldType::kDate},
                                          {"yes", FieldType::kBool},      {"words", FieldType::kText}};
const std::string kSelectAll = "SELECT small, whole, amount, day, yes, words FROM probe ORDER BY n";

void make_probe(Database& database) {
  database.execute(
      "CREATE TABLE probe (n INTEGER PRIMARY KEY, small INTEGER, whole INTEGER, amount DOUBLE PRECISION, "
      "day INTEGER, yes INTEGER, words TEXT, large BIGINT)");
}

TEST_P(Store, GivesBackEveryTypeToTheLastBit) {
  const struct {
    std::int16_t small;
    std::int32_t whole;
    double amount;
    Date day;
    bool yes;
    const char* words;
  } kRows[] = {
      {32767, 2147483647, 0.1, Date::from_ymd(2008, 2, 29), true, "Žąsinas „Ąžuolas“ Čė"},
      {-32768, -2147483647 - 1, 61.725010000000005, Date::from_ymd(1899, 12, 30), false, ""},
      {0, 0, 5e-324, Date::from_ymd(1800, 1, 1), true, "a'b:p0;--\"\\ \n"},
      {-1, 1, 1.7976931348623157e308, Date::from_ymd(9999, 12, 31), false, "0"},
      {7, 7, -1.0 / 3.0, Date::from_ymd(2005, 1, 31), true, "7"},
  };
  make_probe(*database_);
  std::int32_t n = 0;
  for (const auto& row : kRows) {
    database_->execute(
        "INSERT INTO probe (n, small, whole, amount, day, yes, words) VALUES (:p0, :p1, :p2, :p3, :p4, :p5, :p6)",
        {n++, row.small, row.whole, row.amount, row.day, row.yes, row.words});
  }
  const auto rows = database_->read(kSelectAll, kAllTypes);
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.words);
    EXPECT_EQ(rows->field("small").to_int16(), row.small);
    EXPECT_EQ(rows->field("whole").to_int32(), row.whole);
    EXPECT_EQ(rows->field("amount").to_double(), row.amount);
    EXPECT_EQ(rows->field("day").kind(), Variant::Kind::kDate);
    EXPECT_EQ(rows->field("day").to_date(), row.day);
    EXPECT_EQ(rows->field("yes").kind(), Variant::Kind::kBool);
    EXPECT_EQ(rows->field("yes").to_bool(), row.yes);
    EXPECT_EQ(rows->field("words").to_text(), row.words);
    rows->MoveNext();
  }
  EXPECT_TRUE(rows->Eof());
}

TEST_P(Store, KeepsNullsApartFromZerosAcrossAllBatches) {
  // Every third row is null; as many rows as need several statements to write and several fetches to read.
  constexpr std::int32_t kRows = 2503;
  std::vector<ColumnData> columns;
  columns.emplace_back(FieldInfo{"n", FieldType::kInt32});
  for (const FieldInfo& field : kAllTypes) columns.emplace_back(field);
  for (std::int32_t n = 0; n < kRows; ++n) {
    const auto row = static_cast<std::size_t>(n);
    std::get<std::vector<std::int32_t>>(columns[0].values).push_back(n);
    std::get<std::vector<std::int16_t>>(columns[1].values).push_back(static_cast<std::int16_t>(n));
    std::get<std::vector<std::int32_t>>(columns[2].values).push_back(n);
    std::get<std::vector<double>>(columns[3].values).push_back(n / 3.0);
    std::get<std::vector<double>>(columns[4].values).push_back(39478.75);  // the time of day is not kept
    std::get<std::vector<std::uint8_t>>(columns[5].values).push_back(n % 2 != 0);
    std::get<TextColumn>(columns[6].values).push_back(std::to_string(n));
    for (std::size_t column = 1; column < columns.size(); ++column) columns[column].nulls.set(row, n % 3 == 0);
  }
  make_probe(*database_);
  database_->insert("probe", columns);

  const auto rows = database_->read(kSelectAll, kAllTypes);
  ASSERT_EQ(rows->RecordCount(), kRows);
  for (std::int32_t n = 0; n < kRows; ++n, rows->MoveNext()) {
    if (n % 3 == 0) {
      for (const FieldInfo& field : kAllTypes) EXPECT_TRUE(rows->field(field.name).is_null()) << field.name << " " << n;
    } else {
      EXPECT_EQ(rows->field("small").to_int32(), n);
      EXPECT_EQ(rows->field("whole").to_int32(), n);
      EXPECT_EQ(rows->field("amount").to_double(), n / 3.0);
      EXPECT_EQ(rows->field("day").to_date(), Date::from_ymd(2008, 1, 31));
      EXPECT_EQ(rows->field("yes").to_bool(), n % 2 != 0);
      EXPECT_EQ(rows->field("words").to_text(), std::to_string(n));
    }
  }
}

TEST_P(Store, BindsByNameAndAnswersTheRowsTouched) {
  make_probe(*database_);
  database_->execute("INSERT INTO probe (n, small, whole, words) VALUES (1, :p0, :p1, :p2), (2, :p0, 5, '')",
                     {kNull, Variant(), "'; --"});
  EXPECT_EQ(count(*database_, "probe WHERE small IS NULL AND whole IS NULL AND words = :p0", {"'; --"}), 1);
  EXPECT_EQ(database_->execute("UPDATE probe SET small = 1 WHERE n < :p0", {3}), 2);
  EXPECT_EQ(database_->execute("UPDATE probe SET small = 1 WHERE n < :p0", {1}), 0);
  EXPECT_THROW(database_->execute("UPDATE probe SET small = :p0", {Variant(Variant::Array{})}), Error);
}

TEST_P(Store, ReadsExpressionsExactlyAndNeverWrapsANumber) {
  make_probe(*database_);
  database_->execute(
      "INSERT INTO probe (n, amount, large) VALUES (1, NULL, 32767), (2, 0.1, 32768), (3, 1, 2147483647), (4, 1, "
      "2147483648)");
  const auto rows =
      database_->read("SELECT amount * 3 FROM probe WHERE n < 3 ORDER BY n", {{"Triple", FieldType::kDouble}});
  EXPECT_TRUE(rows->field("Triple").is_null());
  rows->MoveNext();
  EXPECT_EQ(rows->field("Triple").to_double(), 0.30000000000000004);

  const struct {
    FieldType type;
    std::int32_t n;
    bool fits;
  } kCases[] = {{FieldType::kInt16, 1, true},
                {FieldType::kInt16, 2, false},
                {FieldType::kInt32, 3, true},
                {FieldType::kInt32, 4, false}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.n);
    const auto read = [&] { database_->read("SELECT large FROM probe WHERE n = :p0", {{"Large", c.type}}, {c.n}); };
    if (c.fits) {
      EXPECT_NO_THROW(read());
    } else {
      EXPECT_THROW(read(), Error);
    }
  }
}

TEST_P(Store, InsertsAllRowsOrNone) {
  make_probe(*database_);
  ColumnData n({"n", FieldType::kInt32});
  for (std::int32_t row = 0; row < 2500; ++row) std::get<std::vector<std::int32_t>>(n.values).push_back(row);
  std::get<std::vector<std::int32_t>>(n.values)[2400] = 0;  // there already, but only in the last statement
  EXPECT_EQ(refusal_of([&] { database_->insert("probe", {n}); }).fault, StoreFault::kFailed);
  EXPECT_EQ(count(*database_, "probe"), 0);

  std::get<std::vector<std::int32_t>>(n.values)[2400] = 2400;
  database_->insert("probe", {n});
  EXPECT_EQ(count(*database_, "probe"), 2500);
  EXPECT_THROW(database_->insert("probe", {ColumnData({"n", FieldType::kInt32}), n}), Error);  // of unequal length
  n.info.name = "n) SELECT 1; --";
  EXPECT_THROW(database_->insert("probe", {n}), Error);
}

TEST_P(Store, EndsATransactionInEveryWay) {
  // What follows the first write of the transaction; with a begin fault there is none.
  const struct {
    const char* name;
    std::function<void(Transaction&)> ending;
    bool stored, fails;
    std::uint64_t begin_fault = 0;
  } kCases[] = {
      {"never committed", [](Transaction&) {}, false, false},
      {"committed", [](Transaction& t) { t.commit(); }, true, false},
      {"left by an exception", [](Transaction&) { throw StoreError(StoreFault::kFailed, ""); }, false, true},
      {"statement failed, commit tried all the same",
       [&](Transaction& t) {
         EXPECT_THROW(add_department(1), StoreError);
         t.commit();
       },
       false, true},
      {"begin failed", [](Transaction& t) { t.commit(); }, false, true, 1},
      {"change count not raised", [&](Transaction& t) { fail_one(*database_, 1), t.commit(); }, false, true},
      {"commit failed", [&](Transaction& t) { fail_one(*database_, 2), t.commit(); }, false, true},
      {"committed twice", [](Transaction& t) { t.commit(), t.commit(); }, true, true},
      {"another one inside",
       [&](Transaction& t) {
         EXPECT_THROW(Transaction inner(*database_), StoreError);
         t.commit();
       },
       true, false},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    const std::int64_t before = reopened()->change_count();
    const Refusal refusal = refusal_of([&] {
      if (c.begin_fault > 0) fail_one(*database_, c.begin_fault);
      Transaction transaction(*database_);
      add_department(1);
      c.ending(transaction);
    });
    EXPECT_EQ(refusal.fault.has_value(), c.fails);
    database_->set_fault(nullptr);
    EXPECT_EQ(departments(), c.stored ? 1 : 0);
    EXPECT_EQ(reopened()->change_count() - before, c.stored ? 1 : 0);
    database_->execute("DELETE FROM departments");  // and the database is fit for the next one
  }
}

TEST_P(Store, IsBrokenWhenTheRollBackFailsUntilItIsOpenedAgain) {
  {
    Transaction transaction(*database_);
    add_department(1);
    database_->set_fault([](std::uint64_t) { throw StoreError(StoreFault::kFailed, "nutrūko"); });
  }
  database_->set_fault(nullptr);
  EXPECT_EQ(refusal_of([&] { add_department(2); }).fault, StoreFault::kLost);
  EXPECT_TRUE(database_->reconnect());
  EXPECT_FALSE(database_->reconnect()) << "it stands";
  EXPECT_EQ(departments(), 0);
  add_department(2);
  EXPECT_EQ(departments(), 1);
}

TEST_P(Store, GivesUpSoonWhenAnotherProgramIsWriting) {
  const auto other = reopened();
  Transaction writing(*database_);
  database_->execute("UPDATE company SET name = 'x'");
  bool begun = false;
  const auto refusal = refusal_of([&] {
    Transaction second(*other);
    begun = true;
    other->execute("UPDATE company SET name = 'y'");
    second.commit();
  });
  EXPECT_EQ(refusal.fault, StoreFault::kLocked);
  EXPECT_FALSE(begun) << "there is one writer, and who comes second learns it before reading";
  writing.commit();
  EXPECT_EQ(count(*other, "company WHERE name = 'x'"), 1);
}

TEST_P(Store, RefusesRowsThatBelongToNothing) {
  const auto refusal = refusal_of([&] {
    database_->execute(
        "INSERT INTO employees (id, department_id, name, sort_key, row_version) VALUES (1, :p0, 'x', 'slapta', 1)",
        {77});
  });
  EXPECT_EQ(refusal.fault, StoreFault::kFailed);
  EXPECT_EQ(refusal.text.find("slapta"), std::string::npos);  // no statement is shown
  EXPECT_EQ(refusal.text.find('\n'), std::string::npos);
}

TEST_P(Store, ReservesEachIdOnce) {
  EXPECT_EQ(database_->reserve_ids("employees"), 1);
  EXPECT_EQ(database_->reserve_ids("employees", 5), 2);
  EXPECT_EQ(database_->reserve_ids("positions", 3), 1);
  EXPECT_EQ(reopened()->reserve_ids("employees"), 7);
  {
    Transaction transaction(*database_);
    EXPECT_EQ(database_->reserve_ids("employees", 10), 8);
  }
  EXPECT_EQ(database_->reserve_ids("employees"), 8);
}

TEST_P(Store, ReservesIdsUpToTheLargest) {
  database_->execute("INSERT INTO next_ids (table_name, next_id) VALUES ('employees', 1999999999)");
  const std::string none = "naujiems įrašams nebėra laisvų numerių (didžiausias ID – 2000000000): „";
  EXPECT_EQ(refusal_of([&] { database_->reserve_ids("employees", 3); }).text, none + database_->name() + "“");
  EXPECT_EQ(database_->reserve_ids("employees", 2), 1999999999);
  EXPECT_TRUE(refusal_of([&] { database_->reserve_ids("employees", 2147483647); }).fault);
  EXPECT_TRUE(refusal_of([&] { database_->reserve_ids("employees"); }).fault);
}

TEST_P(Store, OrdersNamesByTheLithuanianAlphabet) {
  const std::vector<std::string> kOrdered = {
      "A lygio 5", "A lygio 10", "A lygio 010 B", "Aaa",  "Ąžuolas", "Baltas", "Cibas", "Čiuta",  "čiuta Ona",
      "Danas",     "Eglė",       "Ėras",          "Idas", "Ylas",    "Imas",   "Jonas", "Sala",   "Sūris",
      "Šaka",      "Tadas",      "Ūdra",          "Utis", "Zita",    "Zuikis", "Žana",  "Žąsinas"};
  make_probe(*database_);
  for (std::int32_t n = 0; n < static_cast<std::int32_t>(kOrdered.size()); ++n) {
    const std::string& name = kOrdered[static_cast<std::size_t>(n * 7) % kOrdered.size()];
    database_->execute("INSERT INTO probe (n, words) VALUES (:p0, :p1)", {n, lithuanian_sort_key(name) + " " + name});
  }
  const auto rows = database_->read("SELECT words FROM probe ORDER BY words", {{"Words", FieldType::kText}});
  for (const std::string& name : kOrdered) {
    const std::string text = rows->field("Words").to_text();
    EXPECT_EQ(text.substr(text.find(' ') + 1), name);
    EXPECT_EQ(text.find_first_not_of("0123456789"), text.find(' '));
    rows->MoveNext();
  }
}

TEST_P(Store, RenewsSortKeysOfAnOlderRule) {
  const auto names = [&] {
    std::string all;
    const auto rows = database_->read("SELECT name FROM departments ORDER BY sort_key", {{"Name", FieldType::kText}});
    for (; !rows->Eof(); rows->MoveNext()) all += rows->field("Name").to_text() + ";";
    return all;
  };
  database_->execute(
      "INSERT INTO departments (id, name, sort_key) VALUES (1, '10 skyrius', '1'), (2, '9 skyrius', '2')");
  database_ = reopened();
  EXPECT_EQ(names(), "10 skyrius;9 skyrius;") << "a rule that still holds is left alone";
  database_->execute("UPDATE counters SET value = value - 1 WHERE name = 'sort_key_rule'");
  database_ = reopened();
  EXPECT_EQ(names(), "9 skyrius;10 skyrius;");
}

TEST_P(Store, HoldsNoCompanyThatWasNotMadeWhole) {
  const auto place = GetParam().make_place();
  const Refusal refusal = refusal_of(
      [&] { Database::create(place->address(), [](Database&) { throw StoreError(StoreFault::kFailed, "nutrūko"); }); });
  EXPECT_EQ(refusal.text, "nutrūko");
  EXPECT_TRUE(refusal_of([&] { Database::open(place->address()); }).fault);
  const auto made =
      Database::create(place->address(), [](Database& whole) { whole.execute("UPDATE company SET name = 'Visa'"); });
  EXPECT_EQ(count(*made, "company WHERE name = 'Visa'"), 1);
}

TEST(ALostServer, IsReachedByTheNextActionOfWhoeverWasIdle) {
  const auto place = backends()[1].make_place();
  Company company(Database::create(place->address()));
  Database::open(place->address())
      ->read(
          "SELECT CAST(pg_terminate_backend(pid) AS INTEGER) FROM pg_stat_activity"
          " WHERE datname = current_database() AND pid <> pg_backend_pid()",
          {{"Done", FieldType::kInt32}});
  company.refresh();
  Transaction transaction(company.database());
  company.database().execute("UPDATE company SET name = 'Vėl'");
  transaction.commit();
  EXPECT_EQ(count(company.database(), "company WHERE name = 'Vėl'"), 1);
}

TEST(ALostServer, IsReachedAgainOnceItIsBackWithNothingHalfWritten) {
  const auto place = backends()[1].make_place();
  Company company(Database::create(place->address()));
  Database& database = company.database();
  const auto other = Database::open(place->address());
  const auto allow_connections = [&](const char* allowed) {
    other->execute(std::string("UPDATE pg_database SET datallowconn = ") + allowed +
                   " WHERE datname = current_database()");
  };
  const auto rename = [&] {
    Transaction transaction(database);
    database.execute("UPDATE company SET name = 'Nauja'");
    if (count(*other, "pg_stat_activity WHERE datname = current_database()") == 2) {
      other->read(
          "SELECT CAST(pg_terminate_backend(pid) AS INTEGER) FROM pg_stat_activity"
          " WHERE datname = current_database() AND pid <> pg_backend_pid()",
          {{"Done", FieldType::kInt32}});
    }
    database.execute("UPDATE company SET name = name || '!'");
    transaction.commit();
  };
  EXPECT_FALSE(database.reconnect());
  allow_connections("false");
  const std::string lost = "ryšys su įmonės duomenimis nutrūko: „" + database.name() + "“";
  EXPECT_EQ(refusal_of(rename).text, lost);
  const Refusal away = refusal_of([&] { company.refresh(); });
  EXPECT_EQ(away.fault, StoreFault::kMissing);
  EXPECT_NE(away.text.find("nepavyko pasiekti įmonės „" + database.name()), std::string::npos) << away.text;
  EXPECT_EQ(refusal_of([&] { database.change_count(); }).text, lost);
  allow_connections("true");
  company.refresh();
  EXPECT_EQ(count(database, "company WHERE name = ''"), 1);
  Transaction transaction(database);
  database.execute("UPDATE company SET name = 'Vėl'");
  EXPECT_FALSE(database.reconnect()) << "not within a transaction";
  transaction.commit();
  EXPECT_EQ(count(*other, "company WHERE name = 'Vėl'"), 1);
}

}  // namespace
}  // namespace quor
