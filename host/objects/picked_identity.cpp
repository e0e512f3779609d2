#include "host/objects/picked_identity.h"

#include "frame/contract/object_key.h"
#include "host/objects/record_types.h"

namespace quor {

std::string picked_identity(Company& company, const std::string& key) {
  const auto id = id_of_key(key);
  const RecordType* const type = record_type(type_of_key(key));
  if (!id || type == nullptr || !has_guid(*type)) return key;
  const auto record = company.database().read(std::string("SELECT guid FROM ") + type->table + " WHERE id = :p0",
                                              {{"GUID", FieldType::kText}}, {*id});
  return record->RecordCount() == 0 ? key : object_identity(key, record->text(FieldHandle{0}));
}

}  // namespace quor
