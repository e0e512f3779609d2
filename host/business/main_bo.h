// The host's business object: named record-set requests over one company.
#pragma once

#include <memory>
#include <string>

#include "frame/contract/quor_main_bo.h"
#include "host/business/company.h"

namespace quor {

// The code of every request that fails.
inline constexpr std::int32_t kRequestFailure = 1;

class MainBO : public QuorMainBO {
 public:
  // The company outlives the object.
  explicit MainBO(Company& company) : company_(company) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override;

  // Whether there is a request of exactly that name.
  static bool knows(const std::string& name);

 private:
  Company& company_;
};

}  // namespace quor
