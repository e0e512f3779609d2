// The pages of the help: Markdown that the build has taken from docs/help, and which of them belongs to which window.
#pragma once

#include <QString>
#include <QStringList>
#include <span>
#include <string_view>

#include "platform/data/embedded_file.h"

namespace quor {

// In the order of the contents.
std::span<const EmbeddedFile> help_pages();

// Windows are told by the beginning of their caption, blanks around it aside.
struct HelpTopic {
  const char* caption;
  const char* page;
};
std::span<const HelpTopic> help_topics();

inline constexpr char kHelpStart[] = "start", kHelpList[] = "list", kHelpKeys[] = "keys", kHelpAbout[] = "about";

// The page of the window with that caption; `otherwise` when no topic fits. The longest caption that fits decides.
QString help_page_of(const QString& caption, const QString& otherwise = kHelpStart);

// The page as Markdown, with the versions of today; "" for none.
QString help_text(const QString& page);
// Its first heading.
QString help_title(const QString& page);
// The pages in which every one of the words begins a word, in the order of the contents; case and marks do not matter.
QStringList pages_with(const QString& words);

}  // namespace quor
