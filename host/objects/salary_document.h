// The monthly salary document as the engine sees it while the month is calculated.
#pragma once

#include "frame/contract/quor_object_uio.h"
#include "host/objects/standard_object_uio.h"

namespace quor {

// A document whose salary-extension rows are all stored: it holds none that an editor has changed, so that the engine
// asks the business object for each.
class SalaryDocument : public StandardObjectUIO {
 public:
  // Of no type: it is written by the month's calculation, not through the object.
  SalaryDocument(QuorApplication& application, Company& company) : StandardObjectUIO(application, company, "", "") {}

  MethodResult Properties(const std::string& name, const std::string& parameter) override {
    if (name == "ExtraUIOCollection") return {.Code = 0, .Message = {}, .Value = Variant::Array{}};
    return StandardObjectUIO::Properties(name, parameter);
  }
};

}  // namespace quor
