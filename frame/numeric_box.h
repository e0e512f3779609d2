// The numeric text box of the editors: on entering it the whole text is selected, keys that cannot become a number are
// swallowed (a full stop becomes the comma), and on leaving it the text is formatted; what is no number becomes zero.
#pragma once

#include <cstdint>

#include "platform/toolkit/text_box.h"

namespace velmora {

// Takes the box's on_enter, on_key and on_leave; on_change stays the form's and also hears of a formatted text. Numbers
// are not negative; the comma is a key of the box whatever its decimals, so a fraction typed is rounded.
void make_numeric_box(quor::TextBox& box, std::int16_t decimals);

}  // namespace velmora
