// CSV on its way in, as RFC 4180 has it: cells in quotes may hold separators, line breaks and doubled quotes; UTF-8.
//
// An empty cell without quotes is a null, "" is an empty text. Lines end in CR LF, LF or CR; empty lines count, but
// hold no record. Nothing is trimmed, also not the guard of a text (csv_cells.h): which cells are texts, the caller
// knows.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quor {

struct CsvRecord {
  struct Cell {
    std::string text;
    bool null;
    std::size_t line;  // in which the cell begins, counted from 1
  };
  std::size_t line = 0;  // in which the record begins
  std::vector<Cell> cells;
};

struct CsvFault {
  std::size_t line;
  std::string text;
};

// Hands every record to `take`, the header too. The separator is a semicolon when the first line has one, else a comma;
// a byte order mark before the first cell is skipped. Quotes that do not pair end the reading: what follows could mean
// anything; the answer says where.
std::optional<CsvFault> read_csv(std::string_view bytes, const std::function<void(const CsvRecord&)>& take);

}  // namespace quor
