#include "host/editors/department_choice.h"

#include "frame/contract/host_types.h"
#include "host/requests/object_lists.h"

namespace quor {

void offer_departments(Application& application, ChoiceBox& box) {
  std::vector<ChoiceBox::Item> departments = {{"Visi padaliniai", ""}};
  const auto list = application.NewMainBO()->GetQuorObjectList(kDepartmentType, "", "");
  for (; list && !list->Eof(); list->MoveNext()) {
    departments.push_back({std::string(list->text(FieldHandle{kNameColumn})), null_to_text(list->field(kKeyField))});
  }
  box.set_items(std::move(departments));
  if (!box.selected()) box.select_item(0);
}

}  // namespace quor
