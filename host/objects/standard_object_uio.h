// `StandardObjectUIO`: the host's data object of one stored record, to which the plug-in's data objects forward.
//
//   state     OIDR          RsFields
//   created   as set        null
//   new       <= 8 chars    one empty row; Save stores it and gives OIDR its full length
//   read      type + ID     the stored row; Save writes what changed, if nobody else wrote it meanwhile
//
// Whoever sets another OIDR reads before the next Save. A save that is refused loses nothing of what was typed.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_ui.h"
#include "host/company/company.h"
#include "host/objects/record_types.h"
#include "host/store/tables/statements.h"
#include "platform/data/month.h"

namespace quor {

class StandardObjectUIO : public QuorObjectUIO {
 public:
  // Keeps records of `object_type`. `user` is who changes them, for others to read; the application says what that
  // user may do. Application and company outlive the object.
  StandardObjectUIO(QuorApplication& application, Company& company, std::string user, std::string object_type);

  std::string GetGUID() override;
  std::string OID() const override { return oid_; }
  void OID(const std::string& value) override { oid_ = value; }
  std::string OIDR() const override { return oidr_; }
  void OIDR(const std::string& value) override { oidr_ = key_of_identity(value); }
  std::string OName() const override { return preview_; }
  std::string OType() const override { return otype_; }
  void OType(const std::string& value) override { otype_ = value; }
  std::string Preview() const override { return preview_; }
  void Preview(const std::string& value) override { preview_ = value; }
  quor::Fields Fields() override;
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  MethodResult Properties(const std::string& name, const std::string& parameter) override;
  MethodResult Methods(const std::string& name, const Parameters& parameters) override;
  // Refuses a stored record when the user lacks the right to view it, a new one when he may not store it.
  SaveStatus Read() override;
  // Refuses, naming the field, what a company may not hold (value_ranges.h) in what was changed since it was read, and
  // a version of the settings at whose date one of its tariffs has no value. Also refuses when the user lacks the right
  // to write, or to create a new record. What reaches into a closed month is asked
  // about first; without a yes nothing is stored.
  SaveStatus Save(std::int32_t flag, const std::string& parameter) override;
  void UI(std::shared_ptr<QuorObjectUI> value) override { ui_ = std::move(value); }
  std::shared_ptr<QuorObjectUI> UI() const override { return ui_; }
  std::shared_ptr<QuorMainBO> BO() const override { return bo_; }
  // A new record is empty again; a stored one is what was read or saved last, or what others have made of it when that
  // is why the save was refused.
  void CancelUpdate() override;

 protected:
  QuorApplication& application() const { return application_; }
  Company& company() const { return company_; }
  const std::string& user() const { return user_; }

 private:
  bool is_read() const;  // the record is the one that OIDR names
  std::string refusal() const;
  std::string refusal_to_begin() const;
  std::string refusal_to_create() const;
  std::string refusal_to_view() const;
  bool may(UserRight right) const;
  std::string refused(const char* verb) const;
  void make_new_record();
  bool read_record(std::int32_t id);
  std::shared_ptr<Recordset> child_rows() const;
  void check_values() const;
  void check_name() const;
  void check_tariffs(std::int32_t id) const;
  const char* watched_table() const;
  void store_rows(std::int32_t id);
  void append_values(std::int32_t id, std::vector<ColumnValue>& values) const;
  // Both throw ReachesClosedMonths for a month that is not agreed to.
  std::int32_t insert_record(const std::vector<Month>& agreed);
  void update_record(std::int32_t id, const std::vector<Month>& agreed);
  void show_name();

  QuorApplication& application_;
  Company& company_;
  std::shared_ptr<QuorMainBO> bo_;
  std::shared_ptr<QuorObjectUI> ui_;
  std::string user_;
  std::string object_type_;
  const RecordType* type_;  // null when the host stores no such records
  std::string oid_, oidr_, otype_, preview_;

  std::shared_ptr<Recordset> record_;
  std::string read_oidr_;           // as it was when the record was read or stored
  std::optional<std::int32_t> id_;  // of the stored record; none while it is new
  std::int32_t row_version_ = 0;
  bool changed_elsewhere_ = false;
};

}  // namespace quor
