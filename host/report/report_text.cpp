#include "host/report/report_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "host/text/csv_writer.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

using Words = std::vector<std::string>;

// The caption in lines of at most `width` characters; a longer word has a line of its own.
Words wrapped(const std::string& caption, std::size_t width) {
  Words lines;
  std::string_view rest = caption;
  while (!rest.empty()) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(rest.size(), word.size() + 1));
    if (word.empty()) continue;
    if (!lines.empty() && character_count(lines.back()) + 1 + character_count(word) <= width) {
      lines.back().append(" ").append(word);
    } else {
      lines.emplace_back(word);
    }
  }
  return lines;
}

std::size_t widest(const Words& lines) {
  std::size_t width = 0;
  for (const std::string& line : lines) width = std::max(width, character_count(line));
  return width;
}

// One table while it is written.
class Table {
 public:
  Table(const ReportData& report, const TableStyle& style)
      : report_(report), style_(style), widths_(report.columns.size()), marked_(report.columns.size()) {
    measure();
  }

  std::string text() {
    add_heads();
    for (std::size_t line = 0; line < report_.lines; ++line) {
      for (std::size_t i = 0; i < widths_.size(); ++i) add_cell(i, report_.cell(line, i));
    }
    return std::move(text_);
  }

 private:
  void measure() {
    for (std::size_t at = 0; at < report_.cells.size(); ++at) {
      const std::size_t i = at % widths_.size();
      widths_[i] = std::max(widths_[i], character_count(report_.cells[at].text));
      if (report_.cells[at].colour == CellColour::kRed) marked_[i] = true;
    }
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const std::string& caption = report_.columns[i].caption;
      heads_.push_back(style_.wrapped_heads ? wrapped(caption, std::max(widths_[i], widest(wrapped(caption, 0))))
                                            : Words{caption});
      widths_[i] = std::max(widths_[i], widest(heads_[i]));
    }
  }

  void add_heads() {
    std::size_t height = 0;
    for (const Words& head : heads_) height = std::max(height, head.size());
    for (std::size_t line = 0; line < height; ++line) {
      for (std::size_t i = 0; i < heads_.size(); ++i) {
        const std::size_t above = height - heads_[i].size();  // heads stand on the line below them
        add_cell(i, {.text = line < above ? std::string() : heads_[i][line - above]});
      }
    }
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      text_.append(widths_[i], '-');
      end_cell(i, ' ');
    }
  }

  void add_cell(std::size_t i, const ReportCell& cell) {
    const std::string padding(widths_[i] - character_count(cell.text), ' ');
    const bool right = report_.columns[i].alignment == CellAlignment::kRight;
    if (right) text_ += padding;
    add_coloured(cell);
    if (!right && (i + 1 < widths_.size() || marked_[i])) text_ += padding;
    end_cell(i, cell.colour == CellColour::kRed ? kRedMark : ' ');
  }

  void add_coloured(const ReportCell& cell) {
    const bool coloured = cell.colour == CellColour::kRed || cell.colour == CellColour::kGreyText;
    if (!style_.colours || cell.text.empty() || !coloured) {
      text_ += cell.text;
    } else {
      text_ += (cell.colour == CellColour::kRed ? "\033[31m" : "\033[90m") + cell.text + "\033[0m";
    }
  }

  void end_cell(std::size_t i, char mark) {
    if (marked_[i]) text_ += mark;
    text_ += i + 1 == widths_.size() ? "\n" : "  ";
  }

  const ReportData& report_;
  const TableStyle style_;
  std::vector<std::size_t> widths_;
  std::vector<bool> marked_;
  std::vector<Words> heads_;
  std::string text_;
};

// A report holds texts alone: what reads as a number is left one, and an empty cell is nothing.
void write_cell(CsvWriter& csv, const std::string& text) {
  if (text.empty() || reads_as_number(text)) {
    csv.plain(text);
  } else {
    csv.text(text);
  }
}

}  // namespace

std::string table_text(const ReportData& report, const TableStyle& style) {
  std::string text;
  if (!report.title.empty()) text += report.title + "\n";
  for (const std::string& heading : report.headings) text += heading.substr(heading.find_first_not_of(' ')) + "\n";
  if (!text.empty()) text += "\n";
  return text + Table(report, style).text();
}

std::string csv_text(const ReportData& report, const CsvStyle& style) {
  CsvWriter csv(style);
  csv.start_file();
  for (const ReportColumn& column : report.columns) write_cell(csv, column.caption);
  csv.end_line();
  return csv.take() + csv_lines(report, style);
}

std::string csv_lines(const ReportData& report, const CsvStyle& style) {
  CsvWriter csv(style);
  for (std::size_t at = 0; at < report.cells.size(); ++at) {
    write_cell(csv, report.cells[at].text);
    if ((at + 1) % report.columns.size() == 0) csv.end_line();
  }
  return csv.take();
}

std::string json_text(const ReportData& report) {
  using Json = nlohmann::ordered_json;
  Json columns = Json::array(), lines = Json::array(), red = Json::array();
  for (const ReportColumn& column : report.columns)
    columns.push_back({{"key", column.key}, {"caption", column.caption}});
  for (std::size_t line = 0; line < report.lines; ++line) {
    Json cells = Json::array();
    for (std::size_t i = 0; i < report.columns.size(); ++i) {
      const ReportCell& cell = report.cell(line, i);
      cells.push_back(cell.text);
      if (cell.colour == CellColour::kRed) red.push_back({{"line", line}, {"key", report.columns[i].key}});
    }
    lines.push_back(std::move(cells));
  }
  return Json{{"title", report.title},
              {"headings", report.headings},
              {"columns", std::move(columns)},
              {"lines", std::move(lines)},
              {"red", std::move(red)}}
             .dump() +
         "\n";
}

}  // namespace quor
