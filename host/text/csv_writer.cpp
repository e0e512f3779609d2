#include "host/text/csv_writer.h"

#include <csv.h>

namespace quor {

void CsvWriter::start_file() {
  if (style_.byte_order_mark) csv_ += "\xEF\xBB\xBF";
}

void CsvWriter::null() { separate(); }

void CsvWriter::text(std::string_view text) {
  if (text.empty()) {
    separate();
    csv_ += "\"\"";
  } else {
    plain(guarded(text));
  }
}

void CsvWriter::plain(std::string_view cell) {
  separate();
  // A semicolon always: who reads a file may tell its separator by one.
  const char special[] = {style_.separator, ';', '"', '\r', '\n'};
  if (cell.find_first_of(std::string_view(special, sizeof special)) == std::string_view::npos) {
    csv_ += cell;
    return;
  }
  const std::size_t begin = csv_.size(), quoted = csv_write(nullptr, 0, cell.data(), cell.size());
  csv_.resize(begin + quoted);
  csv_write(csv_.data() + begin, quoted, cell.data(), cell.size());
}

void CsvWriter::end_line() {
  csv_ += "\r\n";
  in_line_ = false;
}

void CsvWriter::separate() {
  if (in_line_) csv_ += style_.separator;
  in_line_ = true;
}

}  // namespace quor
