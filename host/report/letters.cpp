#include "host/report/letters.h"

#include <algorithm>

namespace quor {

namespace {

// Where the font is missing, the system puts another in its place.
QFont font_of(double points, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPointSizeF(points);
  font.setBold(bold);
  return font;
}

}  // namespace

Letters::Letters(double points, bool bold, QPaintDevice& device)
    : font_(font_of(points, bold)), metrics_(font_, &device) {}

double Letters::width(const QString& text) {
  const auto known = widths_.constFind(text);
  if (known != widths_.constEnd()) return *known;
  const double width = metrics_.horizontalAdvance(text);
  widths_.insert(text, width);
  return width;
}

double Letters::longest_word(const QString& text) {
  if (!text.contains(QLatin1Char(' '))) return width(text);
  double longest = 0;
  for (const QString& word : text.split(QLatin1Char(' '))) longest = std::max(longest, width(word));
  return longest;
}

QStringList Letters::wrapped(const QString& text, double space, qsizetype most_lines) {
  QStringList lines;
  QString rest = text.simplified();
  while (width(rest) > space && lines.size() + 1 < most_lines) {
    const qsizetype length = fitting_length(rest, space);
    lines.append(rest.left(length).trimmed());
    rest = rest.mid(length).trimmed();
  }
  lines.append(width(rest) > space ? metrics_.elidedText(rest, Qt::ElideRight, space) : rest);
  return lines;
}

// How much of the text, which is too long, stands on the first line: at least a character.
qsizetype Letters::fitting_length(const QString& text, double space) const {
  qsizetype fits = 0, too_long = text.size();
  while (too_long - fits > 1) {
    const qsizetype middle = (fits + too_long) / 2;
    (metrics_.horizontalAdvance(text.left(middle)) <= space ? fits : too_long) = middle;
  }
  const qsizetype blank = text.left(fits + 1).lastIndexOf(QLatin1Char(' '));
  return blank > 0 ? blank : std::max<qsizetype>(fits, 1);
}

}  // namespace quor
