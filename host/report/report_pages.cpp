#include "host/report/report_pages.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "host/report/column_widths.h"
#include "host/report/letters.h"
#include "host/report/report_text.h"

namespace quor {

namespace {

constexpr double kPaperWidth = 21.0;  // centimetres, as all lengths here
constexpr double kUsualMargin = 1.2;  // also above and below
constexpr double kCellPadding = 0.1;  // on each side
constexpr double kLongestWord = 4.0;  // a longer one is broken
constexpr double kFootHeight = 0.8;
constexpr double kTextSizes[] = {8, 7.5, 7, 6.5, 6, 5.5, 5};  // points: the largest whose words and numbers fit
constexpr double kTitleSize = 12, kHeadingSize = 9, kFootSize = 7;
constexpr double kHeadScale = 0.9;  // of the column heads to the text
constexpr int kLinesOfCell = 4;

QString text_of(const std::string& text) { return QString::fromStdString(text); }

// One report, laid out for a device; lengths are the device's.
class ReportPages {
 public:
  ReportPages(const ReportData& report, QPagedPaintDevice& device)
      : report_(report), device_(device), layout_(page_layout(report)), marked_(report.columns.size()) {
    device_.setPageLayout(layout_);
    page_ = layout_.paintRectPixels(device.logicalDpiX()).size();
    for (std::size_t at = 0; at < report.cells.size(); ++at) {
      if (report.cells[at].colour == CellColour::kRed) marked_[at % report.columns.size()] = true;
    }
    choose_text_size();
    left_ = (page_.width() - std::accumulate(widths_.begin(), widths_.end(), 0.0)) / 2;
    break_into_pages();
  }

  const QPageLayout& layout() const { return layout_; }
  std::size_t page_count() const { return first_lines_.size(); }

  void paint(QPainter& painter, std::size_t page, const QString& left_foot, const QString& right_foot) {
    double y = page == 0 ? paint_title(&painter) : 0;
    y = paint_heads(&painter, y);
    const std::size_t end = page + 1 < first_lines_.size() ? first_lines_[page + 1] : report_.lines;
    for (std::size_t line = first_lines_[page]; line < end; ++line) y = paint_line(&painter, line, y);
    paint_foot(painter, left_foot, right_foot);
  }

 private:
  double units(double centimetres) const { return centimetres / 2.54 * device_.logicalDpiX(); }
  double padding() const { return units(kCellPadding); }

  static QPageLayout page_layout(const ReportData& report) {
    const bool given = report.first_margin > 0 || report.second_margin > 0;
    const double left = given ? report.first_margin : kUsualMargin;
    const double right = given ? report.second_margin : kUsualMargin;
    double wanted = 0;
    for (const ReportColumn& column : report.columns) wanted += column.width;
    constexpr double kRoundedAway = 0.001;
    const bool lying = wanted > kPaperWidth - left - right + kRoundedAway;
    return {QPageSize(QPageSize::A4), lying ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF(left, kUsualMargin, right, kUsualMargin) * 10, QPageLayout::Millimeter};
  }

  double mark_space(std::size_t column) { return marked_[column] ? text_->width(QLatin1String(&kRedMark, 1)) : 0; }

  std::vector<ColumnNeed> needs() {
    std::vector<ColumnNeed> needs;
    for (std::size_t i = 0; i < report_.columns.size(); ++i) {
      const ReportColumn& column = report_.columns[i];
      const bool number = column.alignment == CellAlignment::kRight;
      const QString caption = text_of(column.caption);
      double word = heads_->longest_word(caption), whole = heads_->width(caption);
      for (std::size_t line = 0; line < report_.lines; ++line) {
        const QString text = text_of(report_.cell(line, i).text);
        whole = std::max(whole, text_->width(text));
        word = std::max(word, number ? text_->width(text) : text_->longest_word(text));
      }
      const double around = 2 * padding() + mark_space(i);
      needs.push_back({.wanted = column.width > 0 ? units(column.width) : whole + around,
                       .least = std::min(word, units(kLongestWord)) + around});
    }
    return needs;
  }

  void choose_text_size() {
    for (const double size : kTextSizes) {
      text_ = std::make_unique<Letters>(size, false, device_);
      heads_ = std::make_unique<Letters>(size * kHeadScale, true, device_);
      const auto needed = needs();
      widths_ = fitted_widths(needed, page_.width());
      double least = 0;
      for (const ColumnNeed& need : needed) least += need.least;
      if (least <= page_.width()) return;
    }
  }

  // The same code measures, without a painter, and paints: what is measured is what is painted.
  void break_into_pages() {
    const double bottom = page_.height() - units(kFootHeight);
    double y = paint_heads(nullptr, paint_title(nullptr));
    const double top = paint_heads(nullptr, 0);
    first_lines_ = {0};
    for (std::size_t line = 0; line < report_.lines; ++line) {
      double end = paint_line(nullptr, line, y);
      if (end > bottom && line > first_lines_.back()) {
        first_lines_.push_back(line);
        end += top - y;
      }
      y = end;
    }
  }

  double paint_centred(QPainter* painter, const std::string& text, Letters letters, double y) {
    for (const QString& line : letters.wrapped(text_of(text), page_.width(), kLinesOfCell)) {
      if (painter != nullptr) {
        painter->setFont(letters.font());
        painter->drawText(QPointF((page_.width() - letters.width(line)) / 2, y + letters.ascent()), line);
      }
      y += letters.height();
    }
    return y;
  }

  double paint_title(QPainter* painter) {
    double y = 0;
    if (!report_.title.empty()) y = paint_centred(painter, report_.title, {kTitleSize, true, device_}, y);
    for (const std::string& line : report_.headings) {
      y = paint_centred(painter, line, {kHeadingSize, false, device_}, y);
    }
    return y == 0 ? y : y + units(0.3);
  }

  double paint_heads(QPainter* painter, double y) {
    std::vector<QStringList> captions;
    qsizetype most = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const QString caption = text_of(report_.columns[i].caption);
      captions.push_back(heads_->wrapped(caption, widths_[i] - 2 * padding(), 2 * kLinesOfCell));
      most = std::max(most, captions.back().size());
    }
    const double height = static_cast<double>(most) * heads_->height() + 2 * padding();
    if (painter == nullptr) return y + height;
    painter->setFont(heads_->font());
    double x = left_;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      painter->fillRect(QRectF(x, y, widths_[i], height), QColor(0xE6, 0xE6, 0xE6));
      double line_y = y + (height - static_cast<double>(captions[i].size()) * heads_->height()) / 2;
      for (const QString& line : captions[i]) {
        const double middle = x + (widths_[i] - heads_->width(line)) / 2;
        painter->drawText(QPointF(middle, line_y + heads_->ascent()), line);
        line_y += heads_->height();
      }
      frame(*painter, QRectF(x, y, widths_[i], height));
      x += widths_[i];
    }
    return y + height;
  }

  QStringList cell_lines(std::size_t line, std::size_t column) {
    const QString text = text_of(report_.cell(line, column).text);
    const double space = widths_[column] - 2 * padding() - mark_space(column);
    const bool number = report_.columns[column].alignment == CellAlignment::kRight;
    return text_->wrapped(text, space, number ? 1 : kLinesOfCell);
  }

  double paint_line(QPainter* painter, std::size_t line, double y) {
    qsizetype most = 1;
    for (std::size_t i = 0; i < widths_.size(); ++i) most = std::max(most, cell_lines(line, i).size());
    const double height = static_cast<double>(most) * text_->height() + padding();
    if (painter == nullptr) return y + height;
    painter->setFont(text_->font());
    double x = left_;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      paint_cell(*painter, line, i, QPointF(x, y + padding() / 2 + text_->ascent()));
      frame(*painter, QRectF(x, y, widths_[i], height));
      x += widths_[i];
    }
    return y + height;
  }

  void paint_cell(QPainter& painter, std::size_t line, std::size_t column, QPointF at) {
    const ReportCell& cell = report_.cell(line, column);
    if (cell.text.empty()) return;
    const bool red = cell.colour == CellColour::kRed;
    painter.setPen(red ? QColor(0xC0, 0, 0) : cell.colour == CellColour::kGreyText ? QColor(Qt::darkGray) : Qt::black);
    const double right = at.x() + widths_[column] - padding() - mark_space(column);
    const QStringList lines = cell_lines(line, column);
    double end = 0;
    for (const QString& text : lines) {
      const bool number = report_.columns[column].alignment == CellAlignment::kRight;
      const double start = number ? right - text_->width(text) : at.x() + padding();
      painter.drawText(QPointF(start, at.y()), text);
      end = start + text_->width(text);
      at.ry() += text_->height();
    }
    if (red) painter.drawText(QPointF(end, at.y() - text_->height()), QLatin1String(&kRedMark, 1));
    painter.setPen(Qt::black);
  }

  void frame(QPainter& painter, const QRectF& cell) const {
    painter.setPen(QPen(QColor(0xA0, 0xA0, 0xA0), units(0.01)));
    painter.drawRect(cell);
    painter.setPen(Qt::black);
  }

  void paint_foot(QPainter& painter, const QString& left, const QString& right) {
    Letters letters(kFootSize, false, device_);
    painter.setFont(letters.font());
    painter.drawText(QPointF(0, page_.height()), left);
    painter.drawText(QPointF(page_.width() - letters.width(right), page_.height()), right);
  }

  const ReportData& report_;
  QPagedPaintDevice& device_;
  const QPageLayout layout_;
  QSizeF page_;
  std::vector<bool> marked_;  // the columns that have a red cell
  std::unique_ptr<Letters> text_, heads_;
  std::vector<double> widths_;
  double left_ = 0;                       // of the first column: a narrow table stands in the middle
  std::vector<std::size_t> first_lines_;  // of each page
};

}  // namespace

void paint_reports(const Reports& reports, Date printed_on, QPagedPaintDevice& device) {
  std::vector<std::unique_ptr<ReportPages>> laid_out;
  std::size_t page_count = 0;
  for (const auto& report : reports) {
    laid_out.push_back(std::make_unique<ReportPages>(*report, device));
    page_count += laid_out.back()->page_count();
  }
  if (laid_out.empty()) return;
  device.setPageLayout(laid_out.front()->layout());
  QPainter painter;
  if (!painter.begin(&device)) throw std::runtime_error("Ataskaitos atspausdinti nepavyko.");
  const QString day = QStringLiteral("Atspausdinta ") + text_of(date_text(printed_on));
  std::size_t number = 0;
  for (const auto& report : laid_out) {
    for (std::size_t page = 0; page < report->page_count(); ++page) {
      if (number++ > 0) {
        // A printer at work refuses any layout, the one that it has, too.
        if (!device.pageLayout().isEquivalentTo(report->layout())) device.setPageLayout(report->layout());
        device.newPage();
      }
      report->paint(painter, page, day, QStringLiteral("Puslapis %1 iš %2").arg(number).arg(page_count));
    }
  }
}

}  // namespace quor
