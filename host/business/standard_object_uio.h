// `StandardObjectUIO`: the host's data object of one stored record, to which the plug-in's data objects forward.
//
//   state     OIDR          RsFields
//   created   as set        null
//   new       <= 8 chars    one empty row; Save stores it and gives OIDR its full length
//   read      type + ID     the stored row; Save writes what changed, if nobody else wrote it meanwhile
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_object_ui.h"
#include "frame/contract/quor_object_uio.h"
#include "host/business/company.h"
#include "host/business/record_types.h"

namespace quor {

class StandardObjectUIO : public QuorObjectUIO {
 public:
  // `user` is who changes the record, for others to read. The company outlives the object.
  StandardObjectUIO(Company& company, std::shared_ptr<QuorMainBO> bo, std::string user);

  std::string GetGUID() override;
  std::string OID() const override { return oid_; }
  void OID(const std::string& value) override { oid_ = value; }
  std::string OIDR() const override { return oidr_; }
  void OIDR(const std::string& value) override { oidr_ = value; }
  std::string OName() const override { return preview_; }
  std::string OType() const override { return otype_; }
  void OType(const std::string& value) override { otype_ = value; }
  std::string Preview() const override { return preview_; }
  void Preview(const std::string& value) override { preview_ = value; }
  quor::Fields Fields() override;
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  MethodResult Properties(const std::string& name, const std::string& parameter) override;
  MethodResult Methods(const std::string& name, const Parameters& parameters) override;
  SaveStatus Read() override;
  SaveStatus Save(std::int32_t flag, const std::string& parameter) override;
  void UI(std::shared_ptr<QuorObjectUI> value) override { ui_ = std::move(value); }
  std::shared_ptr<QuorObjectUI> UI() const override { return ui_; }
  std::shared_ptr<QuorMainBO> BO() const override { return bo_; }
  void CancelUpdate() override;

 private:
  void make_new_record(const RecordType& type);
  bool read_record(const RecordType& type, std::int32_t id);
  std::shared_ptr<Recordset> child_rows(const RecordType& type) const;
  void store_rows(const RecordType& type, std::int32_t id);
  void insert_record(const RecordType& type);
  void update_record(const RecordType& type, std::int32_t id);

  Company& company_;
  std::shared_ptr<QuorMainBO> bo_;
  std::shared_ptr<QuorObjectUI> ui_;
  std::string user_;
  std::string oid_, oidr_, otype_, preview_;
  std::shared_ptr<Recordset> record_;
  std::int32_t row_version_ = 0;
};

}  // namespace quor
