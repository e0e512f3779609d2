#include "frame/computed_row.h"

namespace velmora {

std::shared_ptr<quor::Recordset> computed_row(std::initializer_list<ComputedField> fields) {
  auto row = std::make_shared<quor::Recordset>();
  for (const ComputedField& field : fields) row->Fields().Append(field.info.name, field.info.type, field.info.size);
  row->Open();
  row->AddNew();
  quor::FieldHandle handle{0};
  for (const ComputedField& field : fields) {
    row->set_field(handle, field.value);
    ++handle.index;
  }
  return row;
}

}  // namespace velmora
