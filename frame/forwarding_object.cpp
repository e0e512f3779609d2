#include "frame/forwarding_object.h"

#include <algorithm>

#include "platform/data/error.h"

namespace velmora {

ForwardingObject::ForwardingObject(quor::QuorApplication& application, const char* object_type,
                                   std::span<const NamedData> data)
    : application_(application),
      title_(application.Title()),
      standard_(application.NewStandardObjectUIO(object_type)),
      data_(data) {}

// The program's own failures are results with a code, never exceptions, so there is nothing to catch here: a failing
// request has an empty Value, which is all that its caller may count on. A quor::Error is a broken promise and passes
// on to the host's edge.
quor::MethodResult ForwardingObject::Properties(const std::string& name, const std::string& parameter) {
  const auto known = std::find_if(data_.begin(), data_.end(), [&](const NamedData& data) { return data.name == name; });
  if (known == data_.end()) return {};
  if (known->source == DataSource::kParent) return parent();
  const bool callers = known->source == DataSource::kRequest;
  quor::MethodResult result = BO()->RunMethod("Get" + name, callers ? parameter : quor::kNoParameter, 0);
  if (result.Code != 0) show_failure(result.Message);
  return result;
}

quor::MethodResult ForwardingObject::Methods(const std::string& /*name*/, const quor::Parameters& /*parameters*/) {
  return {};
}

void ForwardingObject::show_failure(const std::string& message) const {
  application_.MessageBox(message, quor::BoxIcon::kExclamation, quor::BoxButtons::kOk, title_);
}

// The parent's identifier is the object's own OID and the record's ParentID joined as text.
quor::MethodResult ForwardingObject::parent() {
  const auto ui = UI();
  if (!ui) throw quor::Error(quor::ErrorKind::kObjectMissing, "Objektas „" + OID() + "“ neturi savo sąsajos (UI).");
  const std::string identifier = OID() + quor::null_to_text(Fields()["ParentID"].Value());
  return {.Code = 0, .Message = {}, .Value = ui->GetQuorObject(identifier)};
}

}  // namespace velmora
