#include "adapters/settings_ui.h"

#include "adapters/settings_object.h"
#include "forms/settings/settings_editor.h"
#include "frame/object_types.h"

namespace velmora {

namespace {

// The entries of the menu, as a click names them.
constexpr char kDeskTop[] = "0";
constexpr char kNew[] = "1";
constexpr char kDelete[] = "2";

}  // namespace

UI0402300::UI0402300(quor::QuorApplication& application)
    : ObjectUI(application, kSettingsCaption, {{.Key = kSettingsRecord, .Icon = kSettingsRecord}}) {}

std::shared_ptr<quor::QuorObjectUIO> UI0402300::new_data_object() {
  return std::make_shared<UIO0402300>(application());
}

std::vector<quor::MenuEntry> UI0402300::GetMenu(const std::string& context, const std::string& /*object_type*/,
                                                const std::string& /*user*/) {
  using quor::MenuPurpose;
  const quor::MenuEntry add = {kNew, "Naujas įrašas", MenuPurpose::kNew, kSettingsRecord};
  if (quor::is_type_context(context)) return {add};
  return {{kDeskTop, "Padėti ant darbo stalo", MenuPurpose::kOpen},
          add,
          quor::menu_separator(),
          {kDelete, "Panaikinti", MenuPurpose::kDelete},
          quor::menu_separator()};
}

quor::ClickResult UI0402300::ClickMenu(const std::string& object, const std::string& entry,
                                       const std::string& /*context*/, const std::string& /*user*/) {
  if (entry == kDeskTop) return edit(open(object));
  if (entry == kNew) return create();
  if (entry == kDelete) return remove(object);
  return {};
}

quor::ClickResult UI0402300::edit(const Opened& settings) {
  if (settings.gone) show("Įrašas panaikintas kito vartotojo!", quor::BoxIcon::kCritical, quor::BoxButtons::kOk);
  if (!settings.data) return {};
  const auto editor = std::make_shared<frmOfficeEmployeeSettings>(application());
  editor->QuorObjectUIO = settings.data;
  return {.Action = quor::ClickAction::kShowForm, .EditorForm = editor};
}

quor::ClickResult UI0402300::create() {
  const Opened settings = open(kSettingsType);
  if (settings.data) settings.data->OType(kSettingsRecord);
  return edit(settings);
}

quor::ClickResult UI0402300::remove(const std::string& object) {
  const auto answer = show("Ar tikrai norite panaikinti?", quor::BoxIcon::kExclamation, quor::BoxButtons::kOkCancel);
  if (answer != quor::BoxAnswer::kOk || DeleteQuorObject(object)) return {};
  return {.Action = quor::ClickAction::kRemoved, .EditorForm = nullptr};
}

}  // namespace velmora
