// What is told of a person's month, and that it is what was calculated and what is stored.
#include "host/insight/explanation.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "host/insight/run_recorder.h"
#include "host/insight/told_pay.h"
#include "host/payroll/calculated_month.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/month_calculation.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

// Every stored row under the amount, its table and ID.
void collect_rows(const ExplainedAmount& amount, std::set<std::pair<std::string, std::int32_t>>& rows) {
  if (amount.source && amount.source->id != 0) rows.emplace(amount.source->table, amount.source->id);
  for (const ExplainedAmount& input : amount.inputs) collect_rows(input, rows);
}

// One or two positions, whole or part of January 2008, every kind of worked time and of charges.
void given_random_people(TestCompany& company, std::int32_t people, unsigned seed) {
  company.given_tariffs();
  company.given_time_codes();
  company.database().execute(
      "UPDATE settings SET personal_time_code_id_list = '2,5', extra_charge_percentage = 55,"
      " surcharge_percentage = 60, total_charge_percentage = 70");
  std::vector<std::int32_t> categories;
  for (const double factor : {2.5, 9.7, 10.13, 12.345, 17.0}) {
    categories.push_back(company.given_category("A", {{"2005.01.01", factor}, {"2008.01.15", factor + 0.1}}));
  }
  const auto other_tariff = company.given_constant("KITA", {{"2005.01.01", 128.37}});
  std::mt19937 random(seed);
  const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  const auto day_of = [&](int low, int high) { return Date::from_ymd(2008, 1, pick(low, high)); };
  const auto department = company.given_department("Skyrius");
  Transaction transaction(company.database());
  std::int32_t charge = 0;
  for (std::int32_t i = 0; i < people; ++i) {
    const auto person = company.given_employee(("Z" + std::to_string(i)).c_str(), department);
    const int positions = pick(0, 9) < 8 ? 1 : 2;
    for (int at = 0; at < positions; ++at) {
      const std::string from = positions == 2 && at == 1 ? "2008.01.16"
                               : pick(0, 3) == 0         ? date_text(day_of(2, 14))
                                                         : "2006.01.01";
      const Variant to = at + 1 < positions ? Variant(day("2008.01.15"))
                         : pick(0, 5) == 0  ? Variant(day_of(17, 30))
                                            : Variant(kNull);
      const std::string contract = "K" + std::to_string(i), norm = "N" + std::to_string(at);
      company.given_position({.employee = person,
                              .category = categories[static_cast<std::size_t>(pick(0, 4))],
                              .constant_type = pick(0, 4) == 0 ? Variant(other_tariff) : Variant(kNull),
                              .share = pick(0, 2) == 0 ? pick(1, 200) / 100.0 : 1.0,
                              .from = from.c_str(),
                              .to = to,
                              .contract = contract.c_str(),
                              .norm = norm.c_str()});
    }
    if (pick(0, 9) > 0)
      company.given_service(person, Date::from_ymd(pick(1990, 2009), pick(1, 12), pick(1, 28)), pick(0, 20),
                            pick(0, 11));
    if (pick(0, 2) == 0) {
      company.given_time(person, 1, pick(0, 1800) / 10.0);
    } else if (pick(0, 1) == 0) {
      for (int at = 1; at <= 31; at += pick(1, 4))
        company.given_time(person, 1, pick(0, 160) / 10.0, Date::from_ymd(2008, 1, at));
    }
    for (const int code : {2, 3, 5}) {
      if (pick(0, 4) == 0)
        company.given_time(person, code, pick(1, 400) / 10.0,
                           pick(0, 1) == 0 ? Variant(kNull) : Variant(day_of(1, 31)));
    }
    for (int left = pick(0, 3); left > 0; --left) {
      const int kind = pick(0, 2);
      company.database().execute(
          "INSERT INTO extra_charges (id, guid, employee_id, sum_a, percentage, salary_extra_oid, row_version)"
          " VALUES (:p0, :p1, :p2, :p3, :p4, :p5, 1)",
          {++charge, "G" + std::to_string(charge), person, kind == 0 ? pick(1, 60'000) / 100.0 : 0.0,
           kind == 1 ? pick(1, 400) / 10.0 : 0.0, kind == 2 ? "O0402000" : ""});
    }
  }
  transaction.commit();
}

class ExplanationTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.database().execute(
        "UPDATE settings SET personal_time_code_id_list = '2', extra_charge_percentage = 10,"
        " surcharge_percentage = 20, total_charge_percentage = 30");
    company_.given_time_codes();
    category_ = company_.given_category("A lygio 13 kategorija", {{"2005.01.01", 8.0}, {"2007.07.01", 9.7}});
    ada_ = company_.given_employee("Ada");
    company_.given_position({.employee = ada_, .category = category_});
    company_.given_service(ada_, day("2005.01.31"), 3, 11);
  }

  Explanation explained(const char* month = "2008-01") {
    return explain(company_.application(), Month::parse(month), ada_);
  }
  static std::string told(const Explanation& explanation) {
    std::string text;
    for (const ExplainedAmount& amount : explanation.amounts) text += sentence_of(amount) + "\n";
    for (const std::string& refused : explanation.refused) text += "REFUSED " + refused + "\n";
    return text + explanation.fault;
  }
  // A supplement for service and one of a fixed sum, hours of half a month, overtime on two days.
  void given_everything() {
    company_.database().execute(
        "INSERT INTO extra_charges (id, guid, employee_id, salary_extra_oid, row_version, changed_by, changed_at)"
        " VALUES (70, 'G', :p0, 'O0402000', 1, 'Jonas', '2008.01.05 10:00'), (71, 'H', :p0, '', 1, NULL, NULL)",
        {ada_});
    change("UPDATE extra_charges SET sum_a = 100 WHERE id = 71");
    company_.given_time(ada_, 1, 84);
    company_.given_time(ada_, 2, 5, day("2008.01.10"));
    company_.given_time(ada_, 2, 5, day("2008.01.11"));
  }
  // Another program's write: what was kept is read again.
  void change(const std::string& sql) {
    company_.database().execute(sql);
    Transaction(company_.database()).commit();
  }

  TestCompany company_{GetParam()};
  std::int32_t category_ = 0, ada_ = 0;
};
ON_EVERY_DATABASE(ExplanationTest);

TEST_P(ExplanationTest, TellsWhatAClerkWouldReckon) {
  given_everything();
  EXPECT_EQ(
      told(explained()),
      "Pareiginė alga 1260,00 = bazinė alga 130,00 (nuo 2005.01.01) x koeficientas 9,7 (A lygio 13 kategorija, "
      "nuo 2007.07.01) = 1261,00, paskutinis skaitmuo 1, todėl 1260 x 1 etatas\n"
      "Už dirbtą laiką 575,22 = 1260 x 1 etatas x dirbta 84 val. / norma 184 val. (pagal kalendorių)\n"
      "Tarnybos stažas 6 m. 11 mėn. = įrašyta 3 m. 11 mėn. iki 2005.01.31 ir 36 mėn. nuo tada iki 2008.01\n"
      "Priedo už tarnybos stažą procentas 5 % = skalės eilutė nuo 5 iki 10 m. (nustatymai nuo 2005.01.01)\n"
      "Priedas už tarnybos stažą 28,76 = pagrindas 575,22 x 5 %, priedas už tarnybos stažą = 28,761, suapvalinta\n"
      "Priedas 100,00 = nurodyta suma 100,00\n"
      "Priemoka (VD VD) 77,60 = 10 val. x bazinis valandinis atlygis 0,80 (nuo 2005.01.01) x koeficientas 9,7 (A "
      "lygio 13 kategorija, nuo 2007.07.01)\n"
      "Priedų riba 10 % (nustatymai nuo 2005.01.01): priedai 128,76 yra 22,38 % pagrindo 575,22, viršyta 71,24\n"
      "Priemokų riba 20 % (nustatymai nuo 2005.01.01): priemokos 77,60 yra 13,49 % pagrindo 575,22\n"
      "Priedų ir priemokų riba 30 % (nustatymai nuo 2005.01.01): priedai ir priemokos 206,36 yra 35,87 % pagrindo "
      "575,22, viršyta 33,79\n"
      "Iš viso 781,58 = už dirbtą laiką 575,22 + priedai 128,76 + priemokos 77,60\n");
}

TEST_P(ExplanationTest, SaysWhoStoredARowAndWhereItIsKept) {
  given_everything();
  const Explanation explanation = explained();
  const ExplainedAmount& charge = explanation.amounts.at(4);
  ASSERT_TRUE(charge.inputs.at(0).source);
  const StoredSource& source = *charge.inputs.at(0).source;
  EXPECT_EQ(source.table + " " + std::to_string(source.id) + " " + source.stored_by + " " + source.stored_at,
            "extra_charges 70 Jonas 2008.01.05 10:00");
  EXPECT_EQ(source.key, object_key(kEmployeeType, ada_));
  const ExplainedAmount& factor = explanation.amounts.at(0).inputs.at(1);
  EXPECT_EQ(factor.source->key, object_key(kCategoryType, category_));
  EXPECT_EQ(date_text(*factor.source->from), "2007.07.01");
  std::string read;
  for (const RecordedRequest& request : explanation.calls.at(0).requests) {
    read += request.name + request.parameter + " " + request.source->table + std::to_string(request.source->id) + "; ";
  }
  EXPECT_EQ(explanation.calls.at(0).method + ": " + read,
            "GetSalaryComponents: GetSalaryExtraRow'K1N1','2008.01.31' positions1; "
            "GetOfficeEmployeeSettings'2008.01.31' settings_rows1; GetSalaryConstants'2008.01.31' constant_values1; "
            "GetOfficeEmployeeCategory1,'2008.01.31' category_rows2; ");
}

TEST_P(ExplanationTest, StandsBesideTheStoredDocument) {
  EXPECT_EQ(explained().document, DocumentState::kMissing);
  calculate_month(company_.application(), Month::parse("2008-01"), {});
  EXPECT_EQ(explained().document, DocumentState::kSame);
  EXPECT_EQ(document_text(explained()), "");
  const std::string before = told(explained());
  change("UPDATE constant_values SET value = 140 WHERE constant_type_id = 1");
  EXPECT_EQ(explained().document, DocumentState::kDifferent);
  EXPECT_NE(told(explained()), before);
  change("UPDATE positions SET category_id = NULL");
  EXPECT_EQ(told(explained()), "nėra pareigybės kategorijos koeficiento datai 2008.01.31");
  EXPECT_EQ(error_text([&] { explained("2004-01"); }), "Ada: mėnesį 2004.01 pareigų neturi.");
  EXPECT_EQ(error_text([&] { explain(company_.application(), Month::parse("2008-01"), 999); }),
            "Nėra darbuotojo, kurio numeris 999.");
}

// Words that differ in one number, to the last bit, are not told.
TEST_P(ExplanationTest, RefusesWhatItCannotRestate) {
  given_everything();
  struct Tampering : MonthTaker {
    void begin(const MonthInputs& inputs) override { read = &inputs; }
    void take(const PersonInput& person, const PersonMonth& calculated) override {
      PersonMonth month = calculated;
      month.positions[0].base_pay += 0.01;
      month.service_years += 1;
      for (SalaryRow& row : month.document.salary_rows) row.sum = std::nextafter(row.sum, 0);
      month.document.check_message = "CheckSalaryRows: Priedų suma viršija 11%!";
      const ToldPay pay = tell_pay(*read, person, month, recorder->calls(), StoredSources(*database));
      for (const std::string& refused : pay.refused) text += refused + "\n";
    }
    bool take_part(const CalculatedPeople&) override { return true; }
    bool take_end() override { return true; }
    const MonthInputs* read = nullptr;
    RunRecorder* recorder = nullptr;
    Database* database = nullptr;
    std::string text;
  };
  RunRecorder recorder;
  Tampering taker;
  taker.recorder = &recorder;
  taker.database = &company_.database();
  calculate_people(company_.application(), Month::parse("2008-01"), {.people = {ada_}, .watch = &recorder}, taker);
  EXPECT_EQ(
      taker.text,
      "Už dirbtą laiką 575,23: atkartojus skaičiavimą išeina 575,22.\n"
      "Tarnybos stažas 7 m. 11 mėn.: atkartojus skaičiavimą išeina 6.\n"
      "Priedas už tarnybos stažą 28,76: atkartojus skaičiavimą išeina 28,76.\n"
      "Priedas 100,00: atkartojus skaičiavimą išeina 100.\n"
      "Priemoka (VD VD) 77,60: atkartojus skaičiavimą išeina 77,6.\n"
      "Ribos: patikra sako „CheckSalaryRows: Priedų suma viršija 11%!“, atkartojus išeina „CheckSalaryRows: Priedų "
      "suma viršija 10%!“.\n");
}

// Each row that is named is one that the amounts hang on.
TEST(ExplainedRows, ChangeTheAmountsWhenTheyAreDeleted) {
  std::set<std::pair<std::string, std::int32_t>> rows;
  const auto explain_without = [&](const std::pair<std::string, std::int32_t>* row) {
    TestCompany company;
    company.application().load_plugin(VELMORA_PLUGIN);
    company.given_tariffs();
    company.given_time_codes();
    const auto category = company.given_category("A", {{"2005.01.01", 8.0}, {"2007.07.01", 9.7}});
    const auto ada = company.given_employee("Ada");
    company.given_position({.employee = ada, .category = category, .share = 0.75});
    company.given_service(ada, day("2005.01.31"), 3, 11);
    company.given_charge(ada, kNull, kNull, 100.0);
    company.database().execute(
        "INSERT INTO extra_charges (id, guid, employee_id, salary_extra_oid, row_version) VALUES (70, 'G', :p0,"
        " 'O0402000', 1)",
        {ada});
    company.given_time(ada, 1, 84);
    company.given_time(ada, 2, 5, day("2008.01.10"));
    company.database().execute("UPDATE settings SET personal_time_code_id_list = '2', total_charge_percentage = 30");
    company.database().execute("INSERT INTO month_norms (month, hours) VALUES (:p0, 168)", {day("2008.01.01")});
    if (row != nullptr) {
      const bool norm = row->first == "month_norms";
      if (row->first == "settings") company.database().execute("DELETE FROM settings_rows");
      company.database().execute("DELETE FROM " + row->first + " WHERE " + (norm ? "month" : "id") + " = :p0",
                                 {row->second});
    }
    std::string told;
    try {
      const Explanation explanation = explain(company.application(), Month::parse("2008-01"), ada);
      for (const ExplainedAmount& amount : explanation.amounts) {
        told += amount.what + " " + amount.value + "; ";
        if (row == nullptr) collect_rows(amount, rows);
      }
      EXPECT_TRUE(explanation.refused.empty());
      told += explanation.fault;
    } catch (const Error& error) {
      told = error.what();
    }
    return told;
  };
  const std::string whole = explain_without(nullptr);
  std::set<std::string> tables;
  for (const auto& row : rows) {
    tables.insert(row.first);
    EXPECT_NE(explain_without(&row), whole) << row.first << " " << row.second;
  }
  EXPECT_EQ(tables, (std::set<std::string>{"category_rows", "constant_values", "experience", "extra_charges",
                                           "month_norms", "positions", "settings", "settings_rows", "worked_time"}));
}

// People of all sorts, replayed against the run: nobody's amount is refused. VELMORA_TRIAL_PEOPLE is how many.
TEST(ExplainedRuns, AreReplayedWithoutARefusal) {
  const char* const asked = std::getenv("VELMORA_TRIAL_PEOPLE");
  const std::int32_t people = asked == nullptr ? 400 : std::atoi(asked);
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  given_random_people(company, people, 20080131);
  struct Replaying : MonthTaker {
    void begin(const MonthInputs& inputs) override { read = &inputs; }
    void take(const PersonInput& person, const PersonMonth& month) override {
      const ToldPay pay = tell_pay(*read, person, month, recorder->calls(), StoredSources(*database));
      for (const std::string& refused : pay.refused) ADD_FAILURE() << person.name << ": " << refused;
      told += pay.amounts.size();
      over += month.document.check_code == 0 ? 0 : 1;
    }
    bool take_part(const CalculatedPeople& part) override {
      faults += part.faults.size();
      return true;
    }
    bool take_end() override { return true; }
    const MonthInputs* read = nullptr;
    RunRecorder* recorder = nullptr;
    Database* database = nullptr;
    std::size_t told = 0, over = 0, faults = 0;
  };
  RunRecorder recorder;
  Replaying taker;
  taker.recorder = &recorder;
  taker.database = &company.database();
  calculate_people(company.application(), Month::parse("2008-01"), {.watch = &recorder}, taker);
  EXPECT_GT(taker.told, static_cast<std::size_t>(people) * 6);
  EXPECT_GT(taker.over, static_cast<std::size_t>(people) / 20);
  EXPECT_LT(taker.faults, static_cast<std::size_t>(people) / 4);
}

}  // namespace
}  // namespace quor
