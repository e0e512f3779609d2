// `ForwardingObject`: what the plug-in's data objects share. Each wraps a standard object of the host and forwards to
// it every member that it does not implement itself; what a class adds is a table of named data and its methods.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_ui.h"
#include "frame/contract/quor_object_uio.h"

namespace velmora {

// Where the data of a name come from.
enum class DataSource {
  kParent,         // the record's parent, found by the object UI
  kRequest,        // the request "Get" + the name, with the caller's parameter
  kParameterless,  // the same request; the caller's parameter plays no part
};

struct NamedData {
  std::string_view name;  // letter case counts
  DataSource source;
};

class ForwardingObject : public quor::QuorObjectUIO {
 public:
  // Forwarded, arguments and result unchanged.
  std::string GetGUID() override { return standard_->GetGUID(); }
  std::string OID() const override { return standard_->OID(); }
  void OID(const std::string& value) override { standard_->OID(value); }
  std::string OIDR() const override { return standard_->OIDR(); }
  void OIDR(const std::string& value) override { standard_->OIDR(value); }
  std::string OName() const override { return standard_->OName(); }
  std::string OType() const override { return standard_->OType(); }
  void OType(const std::string& value) override { standard_->OType(value); }
  std::string Preview() const override { return standard_->Preview(); }
  void Preview(const std::string& value) override { standard_->Preview(value); }
  quor::Fields Fields() override { return standard_->Fields(); }
  std::shared_ptr<quor::Recordset> RsFields() override { return standard_->RsFields(); }
  quor::SaveStatus Read() override { return standard_->Read(); }
  quor::SaveStatus Save(std::int32_t flag, const std::string& parameter) override {
    return standard_->Save(flag, parameter);
  }
  void UI(std::shared_ptr<quor::QuorObjectUI> value) override { standard_->UI(std::move(value)); }
  std::shared_ptr<quor::QuorObjectUI> UI() const override { return standard_->UI(); }
  std::shared_ptr<quor::QuorMainBO> BO() const override { return standard_->BO(); }
  void CancelUpdate() override { standard_->CancelUpdate(); }

  // The named data of the class's table. A request that fails is shown once, here, and answered as it failed. "Parent"
  // throws ObjectMissing for an object without a UI.
  quor::MethodResult Properties(const std::string& name, const std::string& parameter) override;
  // A class without methods of its own knows no name.
  quor::MethodResult Methods(const std::string& name, const quor::Parameters& parameters) override;

 protected:
  // Takes the title and makes the standard object of the type. The table lives as long as the program.
  ForwardingObject(quor::QuorApplication& application, const char* object_type, std::span<const NamedData> data);

  quor::QuorApplication& application() const { return application_; }
  const std::string& title() const { return title_; }
  // With the exclamation icon, under the title.
  void show_failure(const std::string& message) const;

 private:
  quor::MethodResult parent();

  quor::QuorApplication& application_;
  const std::string title_;  // of every box, taken once
  const std::shared_ptr<quor::QuorObjectUIO> standard_;
  const std::span<const NamedData> data_;
};

}  // namespace velmora
