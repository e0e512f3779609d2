#include "host/charts/chart_painter.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageLayout>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

namespace quor {

namespace {

constexpr int kPaperDots = 300;  // an inch
constexpr double kColumnShare = 0.6;
constexpr double kWidestColumn = 6;  // lines of text
constexpr int kWantedSteps = 5;

struct Look {
  QColor colour;
  Qt::BrushStyle pattern;
};

// Readable beside each other on a light and on a dark ground.
Look look_of(std::size_t series) {
  static const std::vector<Look> looks = {{QColor(0x2f, 0x6d, 0xb5), Qt::SolidPattern},
                                          {QColor(0xd9, 0x8a, 0x1f), Qt::BDiagPattern},
                                          {QColor(0x3f, 0x9a, 0x5b), Qt::Dense4Pattern},
                                          {QColor(0xa0, 0x4f, 0xa0), Qt::CrossPattern}};
  return looks[series % looks.size()];
}

QString number(double value, int decimals) {
  return QLocale(QLocale::Lithuanian, QLocale::Lithuania).toString(value, 'f', decimals);
}

class ChartDrawing {
 public:
  ChartDrawing(QPainter& painter, const Chart& chart, const ChartColours& colours)
      : painter_(painter),
        chart_(chart),
        data_(chart.data()),
        colours_(colours),
        metrics_(painter.font(), painter.device()) {}

  void draw(const QRectF& area) {
    if (data_.labels.empty()) return draw_nothing(area);
    const auto [lowest, highest] = range();
    axis_ = axis_values(lowest, highest);
    find_plot(area);
    draw_heading(area);
    draw_axis();
    draw_labels();
    chart_.kind() == Chart::Kind::kSteps ? draw_steps() : draw_columns();
  }

 private:
  double line() const { return metrics_.height(); }

  void draw_nothing(const QRectF& area) {
    painter_.setPen(colours_.text);
    painter_.drawText(area, Qt::AlignCenter, "Nėra ką rodyti.");
  }

  // The lowest and the highest that is drawn, 0 among them.
  std::pair<double, double> range() const {
    double lowest = 0, highest = 0;
    for (std::size_t label = 0; label < data_.labels.size(); ++label) {
      double above = 0, below = 0;
      for (const ChartSeries& series : data_.series) {
        if (label >= series.values.size() || !series.values[label]) continue;
        const double value = *series.values[label];
        const bool stacked = chart_.kind() == Chart::Kind::kStackedColumns;
        above = stacked ? above + std::max(value, 0.0) : std::max(above, value);
        below = stacked ? below + std::min(value, 0.0) : std::min(below, value);
      }
      lowest = std::min(lowest, below);
      highest = std::max(highest, above);
    }
    return {lowest, highest};
  }

  int axis_decimals() const {
    const bool whole = std::all_of(axis_.begin(), axis_.end(), [](double value) { return value == std::floor(value); });
    return whole ? 0 : 2;
  }

  void find_plot(const QRectF& area) {
    double widest = 0;
    for (const double value : axis_) {
      widest = std::max(widest, metrics_.horizontalAdvance(number(value, axis_decimals())));
    }
    plot_ = area.adjusted(widest + line(), line() * 3.5, -line(), -line() * 2);
  }

  void draw_heading(const QRectF& area) {
    painter_.setPen(colours_.text);
    const QFont usual = painter_.font();
    QFont bold = usual;
    bold.setBold(true);
    painter_.setFont(bold);
    const QString title = QString::fromStdString(data_.title + (data_.unit.empty() ? "" : ", " + data_.unit));
    painter_.drawText(QRectF(area.left(), area.top(), area.width(), line() * 1.3), Qt::AlignCenter, title);
    painter_.setFont(usual);
    double left = plot_.left();
    for (std::size_t i = 0; i < data_.series.size(); ++i) {
      const QRectF box(left, area.top() + line() * 1.8, line(), line() * 0.8);
      fill(box, i);
      const QString name = QString::fromStdString(data_.series[i].name);
      painter_.drawText(QPointF(box.right() + line() * 0.4, box.bottom()), name);
      left = box.right() + metrics_.horizontalAdvance(name) + line() * 1.4;
    }
  }

  void fill(const QRectF& box, std::size_t series) {
    const Look look = look_of(series);
    painter_.fillRect(box, QBrush(look.colour, look.pattern));
    painter_.setPen(QPen(look.colour, line() / 16));
    painter_.drawRect(box);
    painter_.setPen(colours_.text);
  }

  double height_of(double value) const {
    return plot_.bottom() - (value - axis_.front()) / (axis_.back() - axis_.front()) * plot_.height();
  }

  void draw_axis() {
    for (const double value : axis_) {
      const double y = height_of(value);
      painter_.setPen(QPen(value == 0 ? colours_.text : colours_.grid, line() / 20));
      painter_.drawLine(QPointF(plot_.left(), y), QPointF(plot_.right(), y));
      painter_.setPen(colours_.text);
      painter_.drawText(QRectF(0, y - line(), plot_.left() - line() / 2, line() * 2), Qt::AlignRight | Qt::AlignVCenter,
                        number(value, axis_decimals()));
    }
  }

  // Where the label begins, and how wide its place is.
  std::pair<double, double> place_of(std::size_t label) const {
    const auto count = static_cast<double>(data_.labels.size());
    if (data_.places.size() != data_.labels.size() || count < 2) {
      return {plot_.left() + plot_.width() * static_cast<double>(label) / count, plot_.width() / count};
    }
    // The last holds on; it is given the average room.
    const double all = (data_.places.back() - data_.places.front()) * count / (count - 1);
    const auto at = [&](double place) { return plot_.left() + plot_.width() * (place - data_.places.front()) / all; };
    const double from = at(data_.places[label]);
    const double to = label + 1 < data_.places.size() ? at(data_.places[label + 1]) : plot_.right();
    return {from, to - from};
  }

  // Those that would stand on each other are left out.
  void draw_labels() {
    double free_from = 0;
    for (std::size_t label = 0; label < data_.labels.size(); ++label) {
      const QString text = QString::fromStdString(data_.labels[label]);
      const double width = metrics_.horizontalAdvance(text);
      const auto [from, room] = place_of(label);
      const double left = chart_.kind() == Chart::Kind::kSteps ? from : from + (room - width) / 2;
      if (left < free_from) continue;
      painter_.drawText(QPointF(left, plot_.bottom() + line() * 1.3), text);
      free_from = left + width + line() / 2;
    }
  }

  void draw_columns() {
    for (std::size_t label = 0; label < data_.labels.size(); ++label) {
      const auto [from, room] = place_of(label);
      double above = 0, below = 0;
      for (std::size_t i = 0; i < data_.series.size(); ++i) {
        const auto& values = data_.series[i].values;
        if (label >= values.size() || !values[label] || *values[label] == 0) continue;
        double& base = *values[label] > 0 ? above : below;
        const double y = height_of(base), top = height_of(base + *values[label]);
        const double width = std::min(room * kColumnShare, line() * kWidestColumn);
        fill(QRectF(from + (room - width) / 2, std::min(y, top), width, std::abs(y - top)), i);
        base += *values[label];
      }
    }
  }

  void draw_steps() {
    for (std::size_t i = 0; i < data_.series.size(); ++i) {
      painter_.setPen(QPen(look_of(i).colour, line() / 7));
      std::optional<double> before;
      for (std::size_t label = 0; label < data_.labels.size(); ++label) {
        const auto& values = data_.series[i].values;
        const std::optional<double> value = label < values.size() ? values[label] : std::nullopt;
        const auto [from, room] = place_of(label);
        if (value && before) painter_.drawLine(QPointF(from, height_of(*before)), QPointF(from, height_of(*value)));
        if (value) {
          painter_.drawLine(QPointF(from, height_of(*value)), QPointF(from + room, height_of(*value)));
          painter_.drawText(QPointF(from + line() / 4, height_of(*value) - line() / 4), number(*value, data_.decimals));
        }
        before = value;
      }
    }
  }

  QPainter& painter_;
  const Chart& chart_;
  const ChartData& data_;
  const ChartColours& colours_;
  const QFontMetricsF metrics_;
  std::vector<double> axis_;
  QRectF plot_;
};

}  // namespace

std::vector<double> axis_values(double lowest, double highest) {
  const double range = std::max(highest - lowest, 1e-6);
  const double power = std::pow(10, std::floor(std::log10(range / kWantedSteps)));
  double step = power;
  for (const double factor : {2.0, 5.0, 10.0}) {
    if (range / step > kWantedSteps + 1) step = factor * power;
  }
  std::vector<double> values;
  const double first = std::floor(lowest / step), last = std::ceil(highest / step - 1e-9);
  for (double i = first; i <= std::max(last, first + 1); ++i) values.push_back(i * step);
  return values;
}

void paint_chart(QPainter& painter, const QRectF& area, const Chart& chart, const ChartColours& colours) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  ChartDrawing(painter, chart, colours).draw(area);
  painter.restore();
}

QByteArray chart_pdf(const Chart& chart) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&file);
    writer.setTitle(QString::fromStdString(chart.data().title));
    writer.setResolution(kPaperDots);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(15, 15, 15, 15),
                                     QPageLayout::Millimeter));
    QPainter painter(&writer);
    paint_chart(painter, QRectF(0, 0, writer.width(), writer.height()), chart, {Qt::black, QColor(0xc0, 0xc0, 0xc0)});
  }
  return file.data();
}

}  // namespace quor
