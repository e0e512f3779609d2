// What an import does to one row, in words.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quor {

struct ImportedRow {
  static constexpr std::size_t kMostShown = 200;  // of a file

  struct Cell {
    std::string column;    // "etato dalis"
    std::string from, to;  // as a file has them; "" for nothing
  };
  std::size_t line;
  bool added;
  std::string key;          // "ID 5", "darbuotojas 7, diena arba mėnuo 2008-01, laiko kodas FD"
  std::vector<Cell> cells;  // those that change; of an added row, those that hold something
};

// "3: keičiama (ID 5): etato dalis 1 → 0.5; galioja iki – → 2008-01-31"
std::string line_of(const ImportedRow& row);

}  // namespace quor
