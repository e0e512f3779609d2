// Business object: answers requests for named record sets and stores them, lists and deletes objects.
//
// Implemented by  the host.
// Called by       data objects, object UIs and the salary engine.
// States          none; every request stands alone.
// Units           text is UTF-8; dates inside parameter text are 'yyyy.MM.dd' between single quotes, numbers have a
//                 decimal point, elements are parted by commas.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "frame/contract/method_result.h"
#include "platform/data/recordset.h"

namespace quor {

class QuorMainBO : public Object {
 public:
  ~QuorMainBO() override;

  // Runs the request `name` ("Get" + the record set's name); `parameter` is "None" for a request without parameters.
  // `flag` is 0 for every request of today.
  // No rows is an answer, not a failure: Code 0 and an empty record set.
  // Fails with Code != 0 and a Message for the user (unknown name, parameter text that does not parse, a store that
  // cannot be read); Value is then empty.
  // The record set in Value belongs to the caller: its filter and cursor disturb nobody.
  virtual MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) = 0;

  // The objects of a type as the explorer lists them: the field `OIDR` with each object's key, then a text field for
  // each column shown, the object's name first; a field's name is the column's caption. `parameter` is the type code,
  // alone or as "'O0402000',''" with the key of a parent behind it. `filter` and `order` are empty in every call of
  // today. Null after a failure, which the user has been shown.
  virtual std::shared_ptr<Recordset> GetQuorObjectList(const std::string& parameter, const std::string& filter,
                                                       const std::string& order) = 0;
  // False when the object was deleted; true when it was refused (something uses it, a right is missing, it is gone):
  // the user has then been shown why.
  virtual bool DeleteQuorObject(const std::string& object) = 0;

  // Stores the pending changes of the record set that the request "Get" + `name` has answered, whole or not at all.
  // On success they are accepted; on failure (a name whose record set cannot be stored, a missing right, somebody
  // else's change in between) they stay pending. Filter and cursor of `rows` stay as they are.
  virtual SaveStatus SaveRecordset(const std::string& name, Recordset& rows) = 0;

  // What the first argument of an object UI's GetMenu is on a group of the layout.
  virtual std::string GroupContext() const = 0;
};

// The parameter text of a request that takes none.
inline constexpr char kNoParameter[] = "None";

}  // namespace quor
