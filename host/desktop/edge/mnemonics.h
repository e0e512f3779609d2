// Letters that reach a field or a button by Alt: given automatically, each once in a window.
#pragma once

#include <QString>
#include <vector>

namespace quor {

// The captions in their order, each with "&" before the letter that it gets; a caption whose letters are all taken
// gets none. The first letters of words are preferred, and letters that every keyboard has. An "&" of the caption's
// own is shown.
std::vector<QString> with_mnemonics(const std::vector<QString>& captions);
// The caption as it is, for a place that has no mnemonic.
QString without_mnemonic(const QString& caption);

}  // namespace quor
