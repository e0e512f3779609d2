// The data side of one object instance: identity, record, named data, named methods, storage.
//
// Implemented by  the plug-in (`UIO0402000` and its family); the host for its own types and as the standard object
//                 (`StandardObjectUIO`) to which the plug-in's objects forward what they do not do themselves.
// Called by       the host, and the plug-in's editors and previews.
// States          new (OIDR shorter than nine characters) -> read -> edited -> saved or cancelled.
// Units           identities are ASCII: an eight-character type code followed by the record's decimal ID.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/contract/method_result.h"
#include "frame/contract/object_key.h"
#include "frame/contract/quor_main_bo.h"
#include "platform/data/recordset.h"

namespace quor {

class QuorObjectUI;

using Parameters = std::vector<Variant>;

// The named data that tell an object's named operations: a record set of the text field `Name`.
inline constexpr char kMethodNames[] = "MethodNames";

class QuorObjectUIO : public Object {
 public:
  ~QuorObjectUIO() override;

  // A fresh globally unique identifier at each call.
  virtual std::string GetGUID() = 0;

  // The instance as the host addresses it.
  virtual std::string OID() const = 0;
  virtual void OID(const std::string& value) = 0;
  // The stored record: type code + ID; shorter than nine characters while the object is not stored.
  virtual std::string OIDR() const = 0;
  virtual void OIDR(const std::string& value) = 0;
  virtual std::string OName() const = 0;
  virtual std::string OType() const = 0;
  virtual void OType(const std::string& value) = 0;
  virtual std::string Preview() const = 0;
  virtual void Preview(const std::string& value) = 0;

  // The fields of the current record; throws ObjectMissing while there is none.
  virtual quor::Fields Fields() = 0;
  // The object's record set; null before Read.
  virtual std::shared_ptr<Recordset> RsFields() = 0;

  // Named data, mostly record sets. An unknown name is an empty result, not a failure. `kMethodNames` is known to an
  // object with named operations that are called by people.
  virtual MethodResult Properties(const std::string& name, const std::string& parameter) = 0;
  // Named operations. An unknown name is an empty result; a parameter that is missing or does not convert throws.
  virtual MethodResult Methods(const std::string& name, const Parameters& parameters) = 0;

  // Loads the record of OIDR (an empty new one for a key of eight characters or fewer); fails when it is gone or cannot
  // be read, and shows nothing.
  virtual SaveStatus Read() = 0;
  // Stores what was edited, whole or not at all. `flag` is 0 and `parameter` empty for every save of today.
  virtual SaveStatus Save(std::int32_t flag, const std::string& parameter) = 0;

  virtual void UI(std::shared_ptr<QuorObjectUI> value) = 0;
  virtual std::shared_ptr<QuorObjectUI> UI() const = 0;
  virtual std::shared_ptr<QuorMainBO> BO() const = 0;

  // Drops what was edited since Read or Save.
  virtual void CancelUpdate() = 0;
};

}  // namespace quor
