// A list report as it was filled: plain data for whoever lays it out, and the object through which it is filled.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frame/contract/list_report.h"

namespace quor {

struct ReportColumn {
  std::string key;
  std::string caption;
  double width = 0;  // centimetres; 0 for what the content needs
  CellAlignment alignment = CellAlignment::kLeft;
};

struct ReportCell {
  std::string text;
  CellColour colour = CellColour::kNormal;
};

struct ReportData {
  std::string title;
  std::vector<std::string> headings = {};  // below the title, none of them blank
  double first_margin = 0;                 // centimetres, as the report gave them; 0 leaves both to the host
  double second_margin = 0;
  std::vector<ReportColumn> columns = {};
  std::vector<ReportCell> cells = {};  // line after line, one for each column
  std::size_t lines = 0;

  const ReportCell& cell(std::size_t line, std::size_t column) const { return cells[line * columns.size() + column]; }
};

using Reports = std::vector<std::shared_ptr<const ReportData>>;

class ReportToFill : public ListReport {
 public:
  using ShowReport = std::function<void(std::shared_ptr<const ReportData>)>;

  // `show` is called by Show with the data, which do not change after it.
  ReportToFill(std::string title, ShowReport show);

  void AddHeading(const std::string& line) override;
  void SetMargins(double first, double second) override;
  // Throws AlreadyOpen behind the first line, too: the lines that stand have no cell for it.
  void AddColumn(const std::string& key, const std::string& caption, double width, CellAlignment alignment) override;
  void AddLine() override;
  // A text of blanks is an empty cell.
  void SetCell(const std::string& key, const std::string& text, CellColour colour) override;
  // What is filled in afterwards is not in what was shown, but in what is shown next.
  void Show() override;

 private:
  ReportData& data();

  std::shared_ptr<ReportData> data_;
  ShowReport show_;
};

}  // namespace quor
