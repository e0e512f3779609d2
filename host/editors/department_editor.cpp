#include "host/editors/department_editor.h"

#include "frame/contract/host_types.h"

namespace quor {

DepartmentEditor::DepartmentEditor(Application& application, std::shared_ptr<QuorObjectUIO> record)
    : RecordForm("Padalinys", application, std::move(record)) {
  txtName.on_change = [this] { changed(); };
  txtParent.set_read_only(true);
  cmdChooseParent.on_click = [this] { choose_parent(); };
  cmdNoParent.on_click = [this] {
    set_parent("", "");
    changed();
  };
  set_layout(column({field("Pavadinimas", txtName),
                     field("Aukštesnis padalinys", row({txtParent, cmdChooseParent, cmdNoParent})), buttons()}));
}

void DepartmentEditor::show_record(bool may_write) {
  may_write_ = may_write;
  txtName.set_text(null_to_text(record().Fields()["Name"].Value()));
  txtName.set_read_only(!may_write);
  const std::int32_t parent = null_to_int32(record().Fields()["ParentID"].Value());
  if (parent == 0) return set_parent("", "");
  const std::string key = object_key(kDepartmentType, parent);
  const auto above = application().GetQuorObjectUIO(key);
  set_parent(key, above ? above->OName() : "");
}

bool DepartmentEditor::take(EnteredValues& entered) {
  const std::string name = entered.text(txtName, "Pavadinimas");
  if (entered.show_faults()) return false;
  record().Fields()["Name"].Value(name);
  const auto parent = id_of_key(txtParent.tag());
  record().Fields()["ParentID"].Value(parent ? Variant(*parent) : Variant(kNull));
  return true;
}

void DepartmentEditor::choose_parent() {
  const PickedObject picked = application().SelectObject(kDepartmentType, txtParent.tag(), "");
  if (picked.Identity.empty() || key_of_identity(picked.Identity) == txtParent.tag()) return;
  set_parent(key_of_identity(picked.Identity), picked.Name);
  changed();
}

void DepartmentEditor::set_parent(const std::string& key, const std::string& name) {
  txtParent.set_tag(key);
  txtParent.set_text(name);
  cmdChooseParent.set_enabled(may_write_);
  cmdNoParent.set_enabled(may_write_ && !key.empty());
}

std::shared_ptr<Form> department_editor(Application& application, const std::string& object) {
  auto record = read_record(application, object);
  return record ? std::make_shared<DepartmentEditor>(application, std::move(record)) : nullptr;
}

}  // namespace quor
