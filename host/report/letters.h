// A font on a device, with the widths of what was measured in it: a list's texts repeat, and each is measured more than
// once. Lengths are the device's.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <QStringList>

class QPaintDevice;

namespace quor {

class Letters {
 public:
  // The device outlives it.
  Letters(double points, bool bold, QPaintDevice& device);

  const QFont& font() const { return font_; }
  double height() const { return metrics_.lineSpacing(); }
  double ascent() const { return metrics_.ascent(); }
  double width(const QString& text);
  double longest_word(const QString& text);
  // The text in lines that fit the space, between words where that is possible; the last of too many is cut with "…".
  QStringList wrapped(const QString& text, double space, qsizetype most_lines);

 private:
  qsizetype fitting_length(const QString& text, double space) const;

  const QFont font_;
  const QFontMetricsF metrics_;
  QHash<QString, double> widths_;
};

}  // namespace quor
