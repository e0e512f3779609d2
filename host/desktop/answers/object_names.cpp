#include "host/desktop/answers/object_names.h"

#include "host/requests/object_lists.h"
#include "platform/data/quoted_text.h"

namespace quor {

std::shared_ptr<Recordset> list_of_type(Application& application, const std::string& object_type) {
  if (!application.guard().view_refusal(object_type).empty()) return nullptr;
  const auto ui = application.GetQuorObjectUI(object_type);
  return ui ? ui->GetQuorObjectList(object_type, "", "") : nullptr;
}

QString name_in(Recordset& list, const std::string& key) {
  list.Filter(std::string(kKeyField) + " = " + quoted(key));
  if (list.RecordCount() == 0) return {};
  return QString::fromStdString(null_to_text(list.field(FieldHandle{kNameColumn})));
}

QString object_name(Application& application, const std::string& key) {
  const auto list = list_of_type(application, type_of_key(key));
  return list ? name_in(*list, key) : QString();
}

}  // namespace quor
