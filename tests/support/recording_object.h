// A data object that writes down every call on it and answers a value of its own for each member.
#pragma once

#include "tests/support/test_company.h"

namespace quor {

class RecordingObject : public QuorObjectUIO {
 public:
  explicit RecordingObject(std::shared_ptr<QuorMainBO> bo) : bo_(std::move(bo)) {}

  std::string GetGUID() override { return said("GetGUID"); }
  std::string OID() const override { return said("OID"); }
  void OID(const std::string& value) override { said("OID=" + value); }
  std::string OIDR() const override { return said("OIDR"); }
  void OIDR(const std::string& value) override { said("OIDR=" + value); }
  std::string OName() const override { return said("OName"); }
  std::string OType() const override { return said("OType"); }
  void OType(const std::string& value) override { said("OType=" + value); }
  std::string Preview() const override { return said("Preview"); }
  void Preview(const std::string& value) override { said("Preview=" + value); }
  quor::Fields Fields() override { return said("Fields"), record_->Fields(); }
  std::shared_ptr<Recordset> RsFields() override { return said("RsFields"), record_; }
  MethodResult Properties(const std::string& name, const std::string&) override {
    return {.Code = 0, .Message = said("Properties " + name), .Value = {}};
  }
  MethodResult Methods(const std::string& name, const Parameters&) override {
    return {.Code = 0, .Message = said("Methods " + name), .Value = {}};
  }
  SaveStatus Read() override { return {.Failed = true, .ErrorText = said("Read")}; }
  SaveStatus Save(std::int32_t flag, const std::string& parameter) override {
    return {.Failed = true, .ErrorText = said("Save " + std::to_string(flag) + " " + parameter)};
  }
  void UI(std::shared_ptr<QuorObjectUI> value) override { said("UI="), ui_ = std::move(value); }
  std::shared_ptr<QuorObjectUI> UI() const override { return said("UI"), ui_; }
  std::shared_ptr<QuorMainBO> BO() const override { return bo_; }
  void CancelUpdate() override { said("CancelUpdate"); }

  mutable std::vector<std::string> calls;

 private:
  std::string said(const std::string& call) const { return calls.push_back(call), "standard " + call; }

  std::shared_ptr<Recordset> record_ = record_set({{"ParentID", FieldType::kInt32}}, {{42}});
  std::shared_ptr<QuorObjectUI> ui_;
  std::shared_ptr<QuorMainBO> bo_;
};

// Gives the plug-in's data objects a standard object that records, and can be renamed while they live.
class RecordingApplication : public TestApplication {
 public:
  using TestApplication::TestApplication;
  std::string Title() const override { return title; }
  std::shared_ptr<QuorObjectUIO> NewStandardObjectUIO(const std::string& object_type) override {
    types.push_back(object_type);
    return standard = std::make_shared<RecordingObject>(NewMainBO());
  }

  std::string title = "Pirmas";
  std::vector<std::string> types;  // asked for
  std::shared_ptr<RecordingObject> standard;
};

// An object UI that only finds objects, and says which were asked for.
class FindingUI : public QuorObjectUI {
 public:
  std::string OID() const override { return {}; }
  void OID(const std::string&) override {}
  std::string OName() const override { return {}; }
  std::vector<MenuEntry> GetMenu(const std::string&, const std::string&, const std::string&) override { return {}; }
  ClickResult ClickMenu(const std::string&, const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  bool DragOK(const std::string&, const std::string&, const std::string&) override { return false; }
  bool DropOK(const std::string&) override { return false; }
  std::shared_ptr<Recordset> GetQuorObjectList(const std::string&, const std::string&, const std::string&) override {
    return nullptr;
  }
  bool AddToDeskTopQuorObject(const std::string&) override { return false; }
  std::shared_ptr<QuorObjectUIO> GetQuorObject(const std::string& object) override {
    asked.push_back(object);
    return found;
  }
  std::vector<IconEntry> GetIconsTable() override { return {}; }
  bool DeleteQuorObject(const std::string&) override { return true; }
  void QuorS(std::shared_ptr<Object>) override {}
  void BO(std::shared_ptr<QuorMainBO>) override {}
  std::shared_ptr<QuorMainBO> BO() const override { return nullptr; }

  std::vector<std::string> asked;
  std::shared_ptr<QuorObjectUIO> found;
};

}  // namespace quor
