#include "host/desktop/render/readable_red.h"

#include <cmath>

namespace quor {

namespace {

constexpr double kReadable = 4.5;  // the contrast that small letters need

// The usual one on white, the usual one on black, and what is left for the grounds between.
constexpr QRgb kReds[] = {qRgb(192, 0, 0), qRgb(255, 120, 110), qRgb(90, 0, 0), qRgb(255, 215, 210)};

// As the eye sees it, from 0 to 1.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one), b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace

QColor red_on(const QColor& ground) {
  QColor best(kReds[0]);
  for (const QRgb red : kReds) {
    if (contrast(red, ground) >= kReadable) return red;
    if (contrast(red, ground) > contrast(best, ground)) best = red;
  }
  return best;
}

}  // namespace quor
