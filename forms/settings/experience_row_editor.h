// `frmOfficeEmployeeExperience`: the dialog that adds one band to the length-of-service scale of a settings version, or
// changes one.
//
// It writes into the settings' Rows in memory; storing them is the settings' own. The filter by which it found its row
// stays on Rows: the opener removes it. Bands are not compared with each other.
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace velmora {

class frmOfficeEmployeeExperience : public quor::Form {
 public:
  quor::TextBox txtYearFrom{*this, "txtYearFrom"};
  quor::TextBox txtYearTo{*this, "txtYearTo"};
  quor::TextBox txtPercentage{*this, "txtPercentage"};
  quor::CommandButton cmdOK{*this, "cmdOK", "Gerai", quor::ButtonRole::kAccept};
  quor::CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", quor::ButtonRole::kDismiss};

  explicit frmOfficeEmployeeExperience(quor::QuorApplication& application);

  // Set by the opener before the dialog is shown: the settings, given back at unloading, and the band's GUID ("" for a
  // new one).
  std::shared_ptr<quor::QuorObjectUIO> DataObject;
  std::string RowGUID;
  // For the opener afterwards: true only when cmdCancel closed the dialog.
  bool Cancelled = false;

 private:
  void opening() override;
  void closing() override;

  void write_row();
  void cancel();

  void show_row();
  void add_row();

  quor::QuorApplication& application_;
  std::string title_;  // of every box
  std::shared_ptr<quor::Recordset> rows_;
};

}  // namespace velmora
