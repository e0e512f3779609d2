#include "host/sample/sample_people.h"

#include "host/sample/sample_data.h"
#include "host/store/object_codes.h"
#include "host/store/sort_key.h"
#include "platform/data/date.h"

namespace quor {
namespace {

double share_of(std::int32_t number) {
  if (number % 10 == 3) return 0.5;
  if (number % 20 == 8) return 0.75;
  if (number % 25 == 20) return 0.25;
  return 1.0;
}

}  // namespace

SamplePeople::SamplePeople(SampleRandom& random, const SampleSurroundings& around) : random_(random), around_(around) {}

void SamplePeople::add(Database& database, std::int32_t first, std::int32_t count) {
  const std::int32_t first_id = database.reserve_ids("employees", count);
  for (std::int32_t n = 0; n < count; ++n) add_person(first + n, first_id + n);
  employees_.insert_into(database);
  experience_.insert_with_ids(database);
  positions_.insert_with_ids(database);
  charges_.insert_with_ids(database);
}

SamplePeople::Career SamplePeople::career_of(std::int32_t number) {
  if (number % 28 == 22) return Career::kNotBegun;
  if (number % 29 == 17) return Career::kEnded;
  if (number % 9 == 4) return Career::kChangedCategory;
  if (number % 12 == 5) return Career::kTwoPosts;
  return Career::kPlain;
}

std::string SamplePeople::name() {
  const std::string stem(random_.one_of(sample_data::surname_stems()));
  const auto& ending = random_.one_of(sample_data::surname_endings());
  switch (random_.below(5)) {
    case 0:
    case 1:
      return stem + std::string(ending.man) + " " + std::string(random_.one_of(sample_data::men()));
    case 2:
      return stem + std::string(ending.maiden) + " " + std::string(random_.one_of(sample_data::women()));
    default:
      return stem + std::string(ending.wife) + " " + std::string(random_.one_of(sample_data::women()));
  }
}

void SamplePeople::add_person(std::int32_t number, std::int32_t id) {
  const std::string full_name = name();
  // One draw a statement: the order in which a call's arguments are drawn would be the compiler's choice.
  const std::int32_t year = 1990 + random_.below(17);
  const std::int32_t month = 1 + random_.below(12);
  const std::int32_t day = 1 + random_.below(28);
  const std::int32_t department = random_.one_of(std::span<const std::int32_t>(around_.departments));
  const std::int32_t years = random_.below(16);
  const std::int32_t months = random_.below(12);
  const bool begins_later = career_of(number) == Career::kNotBegun;
  const Date hired = begins_later ? Date::from_ymd(2008, 2, 1) : Date::from_ymd(year, month, day);

  employees_.append_row(id, department, full_name, hired, lithuanian_sort_key(full_name), 1);
  if (number % 20 != 13) {
    experience_.append_row(experience_.size(), id, hired, years, months, 1);
  }
  add_positions(number, id, hired);
  add_charges(number, id, hired);
}

void SamplePeople::add_positions(std::int32_t number, std::int32_t employee, Date hired) {
  const std::string contract = random_.guid();
  const double share = share_of(number);
  switch (career_of(number)) {
    case Career::kChangedCategory:
      add_position(number, employee, contract, share, hired, Date::from_ymd(2006, 12, 31));
      add_position(number, employee, contract, share, Date::from_ymd(2007, 1, 1), std::nullopt);
      break;
    case Career::kTwoPosts:
      add_position(number, employee, contract, number % 24 == 5 ? 1.0 : 0.5, hired, std::nullopt);
      add_position(number, employee, random_.guid(), number % 24 == 5 ? 0.25 : 0.5, Date::from_ymd(2007, 9, 1),
                   std::nullopt);
      break;
    case Career::kEnded:
      add_position(number, employee, contract, share, hired, Date::from_ymd(2007, 11, 30));
      break;
    default:
      add_position(number, employee, contract, share, hired, std::nullopt);
      break;
  }
}

void SamplePeople::add_position(std::int32_t number, std::int32_t employee, const std::string& contract, double share,
                                Date from, std::optional<Date> to) {
  // Without a tariff of its own, as a null or as 0, a position takes the one of the settings.
  std::optional<std::int32_t> tariff;
  if (number % 14 == 7) tariff = 0;
  if (number % 21 == 2) tariff = around_.first_constant + static_cast<std::int32_t>(sample_data::kOfficerTariff);
  if (number % 26 == 15) tariff = around_.first_constant + static_cast<std::int32_t>(sample_data::kMonthTariff);
  const std::string norm = random_.guid();
  const std::int32_t category = random_.one_of(std::span<const std::int32_t>(around_.categories));
  positions_.append_row(positions_.size(), employee, contract, norm, tariff, category, share, from, to, 1);
}

void SamplePeople::add_charges(std::int32_t number, std::int32_t employee, Date hired) {
  const auto add = [&](std::size_t code, std::optional<Date> from, std::optional<Date> to, std::optional<double> sum,
                       std::optional<double> percentage, std::string_view comment) {
    const bool service = code == sample_data::kServiceCode;
    const std::string guid = random_.guid();
    charges_.append_row(charges_.size(), guid, employee, from, to, sum, percentage,
                        service ? std::optional<std::string_view>(kSalaryExtensionType) : std::nullopt,
                        around_.first_salary_code + static_cast<std::int32_t>(code), comment, 1);
  };
  const double rank = 10.0 + 5.0 * random_.below(5);
  const double sum = 50.0 * (1 + random_.below(5));

  if (number % 15 != 14) {
    add(sample_data::kServiceCode, number % 4 == 1 ? std::nullopt : std::optional(hired), std::nullopt, std::nullopt,
        std::nullopt, "Už tarnybos stažą");
  }
  if (number % 18 == 9) {
    add(sample_data::kRankCode, Date::from_ymd(2005, 1, 1), Date::from_ymd(2007, 12, 31), 0.0, 10.0, "Už trečią klasę");
  }
  if (number % 5 == 0 || number % 5 == 2) {
    add(sample_data::kRankCode, Date::from_ymd(2008, 1, 1), std::nullopt, 0.0, rank, "Už kvalifikacinę klasę");
  }
  if (number % 27 == 10) {
    add(sample_data::kTaskCode, Date::from_ymd(2008, 1, 1), Date::from_ymd(2008, 6, 30), 0.0, 50.0,
        "Už ypač svarbią užduotį");
  }
  if (number % 16 == 6) {
    add(sample_data::kFixedCode, Date::from_ymd(2007, 10, 1), Date::from_ymd(2008, 3, 31), sum, std::nullopt,
        "Už projekto vykdymą");
  }
}

}  // namespace quor
