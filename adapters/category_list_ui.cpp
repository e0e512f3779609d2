#include "adapters/category_list_ui.h"

#include <utility>

#include "adapters/category_object.h"
#include "forms/categories/category_editor.h"
#include "forms/preview/salary_preview.h"
#include "forms/preview/supplement_preview.h"
#include "forms/settings/settings_editor.h"
#include "frame/catalogue.h"
#include "frame/object_types.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

// The entries of the menus, as a click names them. No menu shows the new settings.
constexpr char kEdit[] = "0";
constexpr char kNew[] = "1";
constexpr char kSalaryPreview[] = "2";
constexpr char kSupplementPreview[] = "3";
constexpr char kNewSettings[] = "4";
constexpr char kDelete[] = "5";
constexpr char kPrint[] = "6";

constexpr char kNameColumn[] = "ColName";
constexpr char kFactorColumn[] = "ColFactor";

quor::ClickResult carried(std::shared_ptr<quor::Form> form) {
  if (!form) return {};
  return {.Action = quor::ClickAction::kShowForm, .EditorForm = std::move(form)};
}

// A line for each run of rows with the same ID, with the factor of its last row.
void add_categories(quor::Recordset& rows, quor::ListReport& report) {
  const auto id = rows.handle("ID"), name = rows.handle("Name"), factor = rows.handle("Factor");
  rows.MoveFirst();
  while (!rows.Eof()) {
    const auto run = catalogue::null_to_int32(rows.field(id));
    report.AddLine();
    report.SetCell(kNameColumn, catalogue::null_to_text(rows.field(name)), quor::CellColour::kNormal);
    double last = 0;
    for (; !rows.Eof() && catalogue::null_to_int32(rows.field(id)) == run; rows.MoveNext()) {
      last = catalogue::null_to_double(rows.field(factor));
    }
    report.SetCell(kFactorColumn, quor::general_text(last), quor::CellColour::kNormal);
  }
}

}  // namespace

UI0402200::UI0402200(quor::QuorApplication& application) : ObjectUI(application, kCategoryCaption) {}

std::shared_ptr<quor::QuorObjectUIO> UI0402200::new_data_object() {
  return std::make_shared<UIO0402200>(application());
}

std::vector<quor::MenuEntry> UI0402200::GetMenu(const std::string& context, const std::string& /*object_type*/,
                                                const std::string& /*user*/) {
  using quor::MenuPurpose;
  if (context == BO()->GroupContext()) {
    return {{kSalaryPreview, "Valstybės tarnautojų sąrašas", MenuPurpose::kPreview, kPreviewRecord, "salary"},
            {kSupplementPreview, "Valstybės tarnautojų priedai", MenuPurpose::kPreview, kPreviewRecord, "supplements"},
            quor::menu_separator()};
  }
  const quor::MenuEntry add = {kNew, "Naujas įrašas", MenuPurpose::kNew, kCategoryRecord};
  if (quor::is_type_context(context)) return {add};
  return {{kEdit, "Padėti ant darbo stalo", MenuPurpose::kOpen},
          add,
          quor::menu_separator(),
          {kDelete, "Panaikinti", MenuPurpose::kDelete},
          quor::menu_separator(),
          {kPrint, "Spausdinti", MenuPurpose::kPrint, "", "categories"},
          quor::menu_separator()};
}

quor::ClickResult UI0402200::ClickMenu(const std::string& object, const std::string& entry,
                                       const std::string& /*context*/, const std::string& /*user*/) {
  if (entry == kEdit) return carried(desk_top_editor(object));
  if (entry == kNew) return carried(desk_top_editor(""));
  if (entry == kSalaryPreview) return preview<frmOfficeEmployeePreview>();
  if (entry == kSupplementPreview) return preview<frmOfficeEmployeeExtraChargePreview>();
  if (entry == kNewSettings) return new_settings();
  if (entry == kDelete) return remove(object);
  if (entry == kPrint) print();
  return {};
}

std::shared_ptr<quor::Form> UI0402200::desk_top_editor(const std::string& object) {
  const auto category = GetQuorObject(object);
  if (!category) return nullptr;
  if (!quor::carries_object(object)) category->OType(kCategoryRecord);
  auto editor = std::make_shared<frmOfficeEmployeeCategories>(application());
  editor->QuorObjectUIO = category;
  return editor;
}

template <typename Preview>
quor::ClickResult UI0402200::preview() {
  const auto engine = application().GetQuorObjectUIO(kEngineType);
  if (!engine) {
    throw quor::Error(quor::ErrorKind::kNotFound, std::string("Nėra tipo „") + kEngineType + "“ objekto.");
  }
  engine->OType(kPreviewRecord);
  const auto form = std::make_shared<Preview>(application());
  form->QuorObjectUIO = engine;
  return carried(form);
}

quor::ClickResult UI0402200::new_settings() {
  const auto settings = GetQuorObject("");
  if (!settings) return {};
  settings->OType(kCategoryRecord);
  settings->Preview("Nustatymai");
  const auto editor = std::make_shared<frmOfficeEmployeeSettings>(application());
  editor->QuorObjectUIO = settings;
  return carried(editor);
}

quor::ClickResult UI0402200::remove(const std::string& object) {
  const auto answer = show("Ar tikrai norite panaikinti?", quor::BoxIcon::kQuestion, quor::BoxButtons::kYesNo);
  if (answer != quor::BoxAnswer::kYes || DeleteQuorObject(object)) return {};
  return {.Action = quor::ClickAction::kRemoved, .EditorForm = nullptr};
}

void UI0402200::print() {
  const quor::MethodResult result = BO()->RunMethod("GetCategoryPreview", quor::kNoParameter, 0);
  if (result.Code != 0) {
    show(result.Message, quor::BoxIcon::kExclamation, quor::BoxButtons::kOk);
    return;
  }
  const auto report = application().NewListReport("VALSTYBĖS TARNAUTOJŲ PAREIGYBIŲ KATEGORIJOS", kCategoryType);
  report->AddColumn(kNameColumn, "Pareigybių kategorijos", 0, quor::CellAlignment::kLeft);
  report->AddColumn(kFactorColumn, "Pareiginių algų koeficientai", 0, quor::CellAlignment::kRight);
  const auto rows = result.Value.record_set();
  if (rows && rows->RecordCount() > 0) add_categories(*rows, *report);
  report->Show();
}

}  // namespace velmora
