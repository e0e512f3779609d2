// Draws a chart: the one routine for windows and for paper.
//
// Parts are told apart by colour and by pattern, so that a print in black and white is read too. Numbers are
// Lithuanian.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <vector>

#include "platform/toolkit/chart.h"

namespace quor {

struct ChartColours {
  QColor text;
  QColor grid;
};

// Inside `area`, with the painter's font.
void paint_chart(QPainter& painter, const QRectF& area, const Chart& chart, const ChartColours& colours);

// Round values for an axis that reaches from 0, or from below it, to at least `highest`: the first at or below
// `lowest`. Some four to eight of them.
std::vector<double> axis_values(double lowest, double highest);

// A page of paper with the chart on it, lying, as a PDF file's bytes.
QByteArray chart_pdf(const Chart& chart);

}  // namespace quor
