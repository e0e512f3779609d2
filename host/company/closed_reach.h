// Whether a write reaches into closed months: on some day of them another tariff, position, charge … would hold than
// before. Documents of a closed month stay as they are, so whoever writes it is to know.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/contract/quor_application.h"
#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

// "2008.01", "2008.01, 2008.02"; of many the first three and a count.
std::string months_text(const std::vector<Month>& months);
// "siekia uždarytą mėnesį 2008.01".
std::string reach_text(const std::vector<Month>& months);

// The write reaches into closed months and nobody has agreed to that; nothing is stored.
class ReachesClosedMonths : public StoreError {
 public:
  explicit ReachesClosedMonths(std::vector<Month> months);
  const std::vector<Month>& months() const { return months_; }

 private:
  std::vector<Month> months_;
};

// The dated rows of one table: made before they are written and asked afterwards, both inside the writing transaction.
class ClosedReach {
 public:
  // Whether writes to the table can reach into months at all.
  static bool watches(std::string_view table);
  // `table` by the name under which it is written: "categories" stands for the rows of categories, too. `record`: only
  // the rows of that record (of experience: of that employee) are written; 0 for any. Throws StoreError.
  ClosedReach(Database& database, std::string_view table, std::int32_t record = 0);

  // The closed months reached, by the ID of each row that holds there now or did before: of settings also for their
  // scale, of month norms the month. Throws StoreError.
  std::map<std::int32_t, std::vector<Month>> reached();
  // Throws ReachesClosedMonths for a month that is not among those agreed to.
  void require(const std::vector<Month>& agreed);

  struct Dated;

 private:
  // What holds from one day to another, to the last bit.
  struct Piece {
    Date from, to;
    std::string value;
    std::int32_t id = 0;
    std::int32_t employee = 0;  // by whose documents it matters; 0: to everybody

    bool holds_alike(const Piece& other) const {
      return from == other.from && to == other.to && value == other.value && employee == other.employee;
    }
  };
  using Pieces = std::vector<Piece>;

  std::map<std::int32_t, Pieces> read();  // by owner
  static Pieces within(const Pieces& pieces, const Month& month);
  bool has_document(std::int32_t employee, const Month& month);
  void compare(const Pieces& before, const Pieces& after, std::map<std::int32_t, std::vector<Month>>& reached);

  Database& database_;
  const Dated* dated_;
  std::int32_t record_;
  std::vector<Month> closed_;  // in order
  std::map<std::int32_t, Pieces> before_;
  std::optional<std::set<std::pair<std::int32_t, std::int32_t>>> people_;  // month and employee, once asked for
};

// Runs `write(agreed)` inside which ClosedReach::require is asked: a write that reaches into closed months is rolled
// back, the user is asked while nothing is locked, and it is done again with what was agreed to. Throws
// ReachesClosedMonths when the user does not agree, and whatever the write throws.
template <typename Write>
void write_as_agreed(QuorApplication& application, const Write& write) {
  std::vector<Month> agreed;
  for (;;) {
    try {
      return write(agreed);
    } catch (const ReachesClosedMonths& reach) {
      const std::string question = std::string(reach.what()) + " Uždaryti dokumentai nesikeis. Ar tikrai įrašyti?";
      if (application.MessageBox(question, BoxIcon::kQuestion, BoxButtons::kYesNo, application.Title()) !=
          BoxAnswer::kYes) {
        throw;
      }
      agreed = reach.months();
    }
  }
}

}  // namespace quor
