#include "host/application/printed_list.h"

#include <algorithm>

#include "platform/data/error.h"

namespace quor {

namespace {

bool is_blank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

auto column_of(std::vector<ReportColumn>& columns, const std::string& key) {
  return std::find_if(columns.begin(), columns.end(), [&](const ReportColumn& column) { return column.key == key; });
}

}  // namespace

ReportToFill::ReportToFill(std::string title, ShowReport show)
    : data_(std::make_shared<ReportData>()), show_(std::move(show)) {
  data_->title = std::move(title);
}

// Data that were shown are not changed any more: filling on works on a copy.
ReportData& ReportToFill::data() {
  if (data_.use_count() > 1) data_ = std::make_shared<ReportData>(*data_);
  return *data_;
}

void ReportToFill::AddHeading(const std::string& line) {
  if (!is_blank(line)) data().headings.push_back(line);
}

void ReportToFill::SetMargins(double first, double second) {
  data().first_margin = first;
  data().second_margin = second;
}

void ReportToFill::AddColumn(const std::string& key, const std::string& caption, double width,
                             CellAlignment alignment) {
  ReportData& report = data();
  if (column_of(report.columns, key) != report.columns.end() || report.lines > 0) {
    throw Error(ErrorKind::kAlreadyOpen, "Ataskaitos stulpelio „" + key + "“ pridėti negalima.");
  }
  report.columns.push_back({.key = key, .caption = caption, .width = width, .alignment = alignment});
}

void ReportToFill::AddLine() {
  ReportData& report = data();
  report.cells.resize(report.cells.size() + report.columns.size());
  ++report.lines;
}

void ReportToFill::SetCell(const std::string& key, const std::string& text, CellColour colour) {
  ReportData& report = data();
  const auto column = column_of(report.columns, key);
  if (column == report.columns.end()) {
    throw Error(ErrorKind::kNoSuchField, "Ataskaitoje nėra stulpelio „" + key + "“.");
  }
  if (report.lines == 0) throw Error(ErrorKind::kNoCurrentRow, "Ataskaitoje dar nėra eilutės langeliui „" + key + "“.");
  const auto behind = report.columns.end() - column;
  *(report.cells.end() - behind) = {.text = is_blank(text) ? std::string() : text, .colour = colour};
}

void ReportToFill::Show() { show_(data_); }

}  // namespace quor
