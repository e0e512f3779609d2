#include "host/company/row_copy.h"

namespace quor {

namespace {

std::shared_ptr<Recordset> same_fields(const Recordset& source) {
  auto copy = std::make_shared<Recordset>();
  for (std::size_t i = 0; i < source.field_count(); ++i) {
    const FieldInfo& info = source.field_info({i});
    copy->Fields().Append(info.name, info.type, info.size);
  }
  copy->Open();
  return copy;
}

void append_current_row(const Recordset& source, Recordset& copy) {
  copy.AddNew();
  for (std::size_t i = 0; i < source.field_count(); ++i) copy.set_field(FieldHandle{i}, source.field(FieldHandle{i}));
  copy.Update();
}

// What was copied is what is stored: nothing is pending.
std::shared_ptr<Recordset> accepted(std::shared_ptr<Recordset> copy) {
  copy->AcceptBatch();
  if (copy->RecordCount() > 0) copy->MoveFirst();
  return copy;
}

}  // namespace

std::shared_ptr<Recordset> rows_that_pass(const Recordset& kept, std::string_view filter) {
  const auto source = kept.Clone();
  source->Filter(filter);
  auto copy = same_fields(*source);
  for (; !source->Eof(); source->MoveNext()) append_current_row(*source, *copy);
  return accepted(std::move(copy));
}

std::shared_ptr<Recordset> current_row_only(const Recordset& source, bool with_row) {
  auto copy = same_fields(source);
  if (with_row) append_current_row(source, *copy);
  return accepted(std::move(copy));
}

}  // namespace quor
