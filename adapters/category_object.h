// `UIO0402200`: the data object of a position category. Its named data: "CategoryPreview" and "OfficeEmployeeSettings".
#pragma once

#include "frame/forwarding_object.h"

namespace velmora {

class UIO0402200 : public ForwardingObject {
 public:
  explicit UIO0402200(quor::QuorApplication& application);

  // "DeleteCategoryRow" with a row's GUID: takes the row out of the field `Rows` (Save stores that) and answers true;
  // **the filter that found it stays on the rows**, and the caller removes it. Without a GUID, or when no row has it:
  // false, the rows are untouched and have no filter.
  quor::MethodResult Methods(const std::string& name, const quor::Parameters& parameters) override;

 private:
  bool delete_row(const std::string& guid);
};

}  // namespace velmora
