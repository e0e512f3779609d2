// A business object that passes everything on to another: the base of those that stand between (see RequestWrap).
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_main_bo.h"

namespace quor {

class ForwardedRequests : public QuorMainBO {
 public:
  explicit ForwardedRequests(std::shared_ptr<QuorMainBO> requests) : requests_(std::move(requests)) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override {
    return requests_->RunMethod(name, parameter, flag);
  }
  std::shared_ptr<Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                               const std::string& order) override {
    return requests_->GetQuorObjectList(parameter, filter, order);
  }
  bool DeleteQuorObject(const std::string& object) override { return requests_->DeleteQuorObject(object); }
  SaveStatus SaveRecordset(const std::string& name, Recordset& rows) override {
    return requests_->SaveRecordset(name, rows);
  }
  std::string GroupContext() const override { return requests_->GroupContext(); }

 private:
  const std::shared_ptr<QuorMainBO> requests_;
};

}  // namespace quor
