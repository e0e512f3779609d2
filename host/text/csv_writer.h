// CSV on its way out, cell by cell: RFC 4180, UTF-8, lines ended by CR LF; a cell stands in quotes when it needs them.
#pragma once

#include <string>
#include <string_view>

#include "host/text/csv_cells.h"

namespace quor {

class CsvWriter {
 public:
  explicit CsvWriter(const CsvStyle& style) : style_(style) {}

  // The mark at the start of a file, where the style has one.
  void start_file();

  // Cells, from left to right.
  void null();                        // nothing, without quotes
  void text(std::string_view text);   // guarded; an empty text in quotes, so that it is no null
  void plain(std::string_view cell);  // a number, a date, a name of ours: as it is

  void end_line();

  std::string take() { return std::move(csv_); }

 private:
  void separate();

  const CsvStyle style_;
  std::string csv_;
  bool in_line_ = false;
};

}  // namespace quor
