// The columns of a company's tables as people know them: what each is called and what it may hold, once for the files
// that come in and for the records that are saved.
//
// A table or a column that is not declared here has no words and takes any number.
#pragma once

#include <string>
#include <string_view>

#include "host/store/value_ranges.h"
#include "platform/data/variant.h"

namespace quor {

enum class TextForm {
  kPlain,         // up to kLongestText characters, none of them a control character
  kProgramsOwn,   // written by the program: line breaks and any length
  kTimeCodeList,  // IDs joined by ",": "12,15,40"
  kServiceTie,    // empty, or the type of what a charge is tied to, alone or with an ID behind it
};

struct StoredColumn {
  std::string_view name;               // the database's, or the file's where that differs
  std::string_view caption = {};       // "etato dalis"
  const NumberRange* range = nullptr;  // of its numbers; null: as its type has it
  TextForm form = TextForm::kPlain;    // of its texts
};

// One without caption and range for what is not declared.
const StoredColumn& stored_column(std::string_view table, std::string_view column);

// What the table is called: "Darbo laikas"; "" for one that is not declared.
std::string_view table_caption(std::string_view table);

// Why the column may not hold the value: "30 – leidžiama nuo 0 iki 24", with the value as `written`; "" when it may.
// A null is allowed: whether one must be there, others know.
std::string value_fault(const StoredColumn& column, const Variant& value, const std::string& written);

// The same kind and the same value, numbers to the last bit; two nulls are the same.
bool same_value(const Variant& a, const Variant& b);

}  // namespace quor
