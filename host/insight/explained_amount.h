// An amount and where it comes from: plain data.
//
// Amounts form a tree: each has a sentence whose phrases point to its inputs, and an input is an amount of its own or a
// value as it is stored, with its row.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/data/date.h"

namespace quor {

// The stored row that a value was read from.
struct StoredSource {
  std::string table;              // "category_rows", as the tables' description calls it
  std::int32_t id = 0;            // of the row; 0 where there is none, or none any more
  std::optional<Date> from = {};  // the day from which a dated row holds
  std::string stored_by = {};     // who stored it, or the record that it belongs to; "" where nobody is known
  std::string stored_at = {};     // when, likewise
  std::string key = {};           // of the object in whose editor it is kept; "" where there is none
};

// A piece of a sentence. One with an input is a link to it.
struct Phrase {
  std::string text;
  std::optional<std::size_t> input = {};  // in the amount's inputs
};

struct ExplainedAmount {
  std::string what;                          // "Pareiginė alga", "bazinė alga"
  std::string value;                         // "1260,00", "9,7", "5 %", "168 val."
  double number = 0;                         // the same, exact
  std::vector<Phrase> words = {};            // behind the value: " = bazinė alga 130,00 (nuo 2008.01.01) x …"
  std::vector<ExplainedAmount> inputs = {};  // in the order of the words
  std::optional<StoredSource> source = {};   // of a value that is stored as it is
  bool warns = false;                        // a limit that is exceeded
};

// The amount's sentence in full: what it is, its value and the words.
std::string sentence_of(const ExplainedAmount& amount);

}  // namespace quor
