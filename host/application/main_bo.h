// The host's business object: named record-set requests, lists and deletion over one company. What the user may not
// view is refused, a request as one that fails, a list with a box.
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_application.h"
#include "host/company/company.h"
#include "host/company/rights.h"

namespace quor {

// The code of every request that fails.
inline constexpr std::int32_t kRequestFailure = 1;

class MainBO : public QuorMainBO {
 public:
  // Shows what it refuses through the application. Application and company outlive the object.
  // `user` is who changes records, for others to read.
  MainBO(QuorApplication& application, Company& company, std::string user)
      : application_(application), company_(company), user_(std::move(user)) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override;
  std::shared_ptr<Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                               const std::string& order) override;
  bool DeleteQuorObject(const std::string& object) override;
  SaveStatus SaveRecordset(const std::string& name, Recordset& rows) override;
  std::string GroupContext() const override { return "Group"; }

  // Whether there is a request of exactly that name.
  static bool knows(const std::string& name);

 private:
  std::string view_refusal(const ViewedWith& types);
  void show(const std::string& text);

  QuorApplication& application_;
  Company& company_;
  std::string user_;
};

}  // namespace quor
