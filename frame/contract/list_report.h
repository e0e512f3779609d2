// A list report: title lines, columns and lines of cells, laid out and printed by the host.
//
// Implemented by  the host.
// Called by       the plug-in's category list and its previews.
// States          filled (titles, margins and columns first, then lines) -> shown.
// Units           widths and margins are centimetres of paper; texts are UTF-8.
#pragma once

#include <string>

#include "platform/data/variant.h"
#include "platform/toolkit/list_view.h"

namespace quor {

class ListReport : public Object {
 public:
  ~ListReport() override;

  // One line more of the heading, below the title. An empty line is left out.
  virtual void AddHeading(const std::string& line) = 0;
  virtual void SetMargins(double first, double second) = 0;
  // A width of 0 leaves it to the host. Throws when the key is there already.
  virtual void AddColumn(const std::string& key, const std::string& caption, double width, CellAlignment alignment) = 0;
  // A new line at the end, its cells empty; the cells set afterwards are its own.
  virtual void AddLine() = 0;
  // Throws NoSuchField for a key that no column has, NoCurrentRow before the first line.
  virtual void SetCell(const std::string& key, const std::string& text, CellColour colour) = 0;

  // Hands the report to the user: a print preview, or whatever the program prints to. Returns when it is done.
  virtual void Show() = 0;
};

}  // namespace quor
