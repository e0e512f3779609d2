// `Catalogue`: the small routines that the engine, the editors and the previews share. Free functions without state.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "frame/contract/object_key.h"
#include "frame/contract/quor_application.h"
#include "platform/data/date.h"
#include "platform/data/filter_scope.h"
#include "platform/data/quoted_text.h"
#include "platform/data/variant.h"
#include "platform/toolkit/text_box.h"

namespace velmora::catalogue {

// Null reads as zero, an empty text or the zero date; anything else converts, or throws as its conversion does.
using quor::null_to_date;
using quor::null_to_double;
using quor::null_to_int16;
using quor::null_to_int32;
using quor::null_to_text;

// Sets the filter and tells whether a row passes; none: the filter is removed. Missing and empty sets stay untouched.
using quor::filter_test;

using quor::quoted;

// What a numeric text box does with a typed character: the character to accept (a full stop becomes a comma),
// or 0 to swallow it. `text` is the box's whole text, selected or not.
char32_t numeric_key(char32_t typed, std::string_view text, bool allow_negative, bool allow_decimal);

// A numeric text with exactly `decimals` decimals and no grouping. Other text gives 0 in that form, or "" without
// `zero_when_not_numeric`.
std::string normalised_number(std::string_view text, std::int16_t decimals, bool zero_when_not_numeric);

void select_all(quor::TextBox& box);  // an empty box is left alone
void clear(quor::TextBox& box);       // its text and its tag

// The rows that belong to the object's record: the record set in its field `Rows`, the same one each time. Missing when
// the record has none.
std::shared_ptr<quor::Recordset> rows_of(quor::QuorObjectUIO& object);

// Puts the record set on the row with the GUID, and leaves the filter that found it; false when it has no such row.
[[nodiscard]] bool find_by_guid(quor::Recordset* rows, const std::string& guid);

// Whether a method answered true. A failure is not, nor Null or no value at all.
bool is_true(const quor::MethodResult& result);

// The current user's five rights on an object type, in the host's order.
struct Rights {
  std::array<bool, 5> flags{};
  bool may_write() const { return flags[4]; }
};
void query_rights(quor::QuorApplication& application, Rights& rights, const std::string& object_type);

// The ID of the object that a control's tag names; 0 when nothing is chosen. Throws TypeMismatch for what is no key.
std::int32_t chosen_id(const std::string& tag);

// Lets the user pick an object of the type that `code` begins with; answers its identity, or "" for no choice.
std::string pick_object(quor::QuorApplication& application, const std::string& code, const std::string& current,
                        const std::string& mode = "");

}  // namespace velmora::catalogue
