// Where each amount of a person's month comes from: recorded from the calculation itself, told in a clerk's words.
//
// Amounts form a tree: each has a sentence whose phrases point to its inputs, and an input is an amount of its own or a
// value as it is stored, with its row. Nothing is stored to explain.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/insight/recorded_call.h"
#include "platform/data/month.h"

namespace quor {

// The stored row that a value was read from.
struct StoredSource {
  std::string table;              // "category_rows", as the tables' description calls it
  std::int32_t id = 0;            // of the row
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

// How the stored document of the month stands beside the calculation that is explained.
enum class DocumentState { kSame, kMissing, kDifferent };

struct Explanation {
  std::int32_t employee = 0;
  std::string person;
  Month month;
  bool closed = false;
  DocumentState document = DocumentState::kMissing;
  std::vector<ExplainedAmount> amounts = {};  // positions, service, supplements, surcharges, limits, the total
  std::string fault = {};                     // why the person cannot be calculated; there are no amounts then
  std::vector<std::string> refused = {};      // amounts whose restatement is not what was calculated: not shown
  std::vector<RecordedCall> calls = {};       // of the engine, about the person
};

// Calculates the person's month without storing it and explains it. Throws StoreError; PluginError; quor::Error when
// the user may not view the salary extension, or nobody of that ID is employed in the month.
Explanation explain(Application& application, const Month& month, std::int32_t employee);

// The amount's sentence in full: what it is, its value and the words.
std::string sentence_of(const ExplainedAmount& amount);
// What the state of the document says to a clerk; "" when there is nothing to say.
std::string document_text(const Explanation& explanation);

}  // namespace quor
