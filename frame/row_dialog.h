// How an editor opens the dialog of one row of its record's Rows.
#pragma once

#include <memory>
#include <string>

#include "frame/catalogue.h"
#include "frame/contract/quor_application.h"

namespace velmora {

// Shows the dialog for the row with the GUID, or for a new row with "". True when a row was written. Cancelled or not,
// the dialog may leave the filter by which it found its row: it is taken off the rows in every ending.
template <typename Dialog>
bool edit_row_in_dialog(quor::QuorApplication& application, const std::shared_ptr<quor::QuorObjectUIO>& object,
                        const std::string& guid) {
  const auto rows = catalogue::rows_of(*object);
  const quor::FilterScope scope(rows);
  Dialog dialog(application);
  dialog.DataObject = object;
  dialog.RowGUID = guid;
  application.show_modal(dialog);
  return !dialog.Cancelled;
}

}  // namespace velmora
