// `frmOfficeEmployeeCategoryRow`: the dialog that adds one factor row to a position category, or changes one.
//
// It writes into the category's Rows in memory; storing them is the category's own. The filter by which it found its
// row stays on Rows: the opener removes it.
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

class frmOfficeEmployeeCategoryRow : public quor::Form {
 public:
  quor::DatePicker dtpDate{*this, "dtpDate"};
  quor::TextBox txtFactor{*this, "txtFactor"};
  quor::CommandButton cmdOK{*this, "cmdOK", "Gerai", quor::ButtonRole::kAccept};
  quor::CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeeCategoryRow(quor::QuorApplication& application);

  // Set by the opener before the dialog is shown: the category, and the row's GUID ("" for a new row).
  std::shared_ptr<quor::QuorObjectUIO> DataObject;
  std::string RowGUID;
  // For the opener afterwards: false only when the row was written.
  bool Cancelled = true;

 private:
  void opening() override;
  void closing() override { rows_.reset(); }

  void show_row();
  void write_row();
  void add_row();

  quor::QuorApplication& application_;
  std::shared_ptr<quor::Recordset> rows_;
};

}  // namespace velmora
