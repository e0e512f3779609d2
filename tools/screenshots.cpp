// Pictures of the program's windows on the sample company: `desktop_screenshots PLUGIN FOLDER` writes a PNG for each.
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QScrollBar>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <cstdio>

#include "host/company/month_keys.h"
#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/window/first_start.h"
#include "host/desktop/window/help_window.h"
#include "host/desktop/window/import_dialog.h"
#include "host/desktop/window/main_window.h"
#include "host/desktop/window/new_company_dialog.h"
#include "host/desktop/window/rights_dialog.h"
#include "host/desktop/window/rules_folder.h"
#include "host/editors/host_editors.h"
#include "host/editors/month_editor.h"
#include "host/editors/rule_tables_form.h"
#include "host/payroll/calculated_month.h"
#include "host/sample/sample_company.h"
#include "host/store/object_codes.h"
#include "host/store/whole_file.h"

namespace quor {
namespace {

class Pictures {
 public:
  Pictures(MainWindow& window, QString folder) : window_(window), folder_(std::move(folder)) {}

  void take(QWidget& window, const QString& name) {
    QTest::qWait(60);
    if (!window.grab().save(folder_ + "/" + name + ".png")) std::fprintf(stderr, "%s not written\n", qPrintable(name));
  }
  void take_window(const QString& name) { take(window_, name); }

  // Opens something that waits in a dialog, takes the dialog and closes it.
  void take_dialog(const QString& name, const std::function<void()>& open) {
    bool taken = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      QWidget* const dialog = QApplication::activeModalWidget();
      if (dialog == nullptr || taken) return;
      taken = true;
      take(*dialog, name);
      dialog->close();
    });
    look.start(50);
    open();
    if (!taken) std::fprintf(stderr, "%s did not open\n", qPrintable(name));
  }

  Form& form() { return window_.tabs().current_view()->form(); }
  QWidget& widget(const char* control) { return *window_.tabs().current_view()->widget_of(*form().find(control)); }
  void key(const char* control, Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    window_.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window_));
    QTest::keyClick(&widget(control), pressed, modifiers);
    QTest::qWait(20);
  }
  // A row of the form's list with the user on it.
  void stand_on(const char* control, std::size_t row) {
    auto& view = dynamic_cast<QTreeView&>(widget(control));
    view.setFocus();
    view.setCurrentIndex(view.model()->index(static_cast<int>(row), 0));
  }

 private:
  MainWindow& window_;
  const QString folder_;
};

void take_editors(MainWindow& window, Pictures& pictures) {
  const std::string category = window.list()->current();
  window.carry_out(place_of_object(category), MenuPurpose::kOpen);
  pictures.take_window("category_editor");
  pictures.stand_on("lvwFactors", 0);
  pictures.take_dialog("category_row_editor", [&] { pictures.key("lvwFactors", Qt::Key_Return); });

  window.show_type(kSettingsType);
  window.carry_out(place_of_object(window.list()->current()), MenuPurpose::kOpen);
  pictures.take_window("settings_editor");
  pictures.stand_on("lvwExperience", 0);
  pictures.take_dialog("experience_row_editor", [&] { pictures.key("lvwExperience", Qt::Key_Return); });
}

void take_dated_values(MainWindow& window, Pictures& pictures) {
  window.show_type(kDepartmentType);
  pictures.take_window("departments");
  for (const auto& [type, name] : {std::pair{kDepartmentType, "department_editor"},
                                   {kConstantType, "constant_editor"},
                                   {kTimeCodeType, "time_code_editor"}}) {
    window.show_type(type);
    window.carry_out(place_of_object(window.list()->current()), MenuPurpose::kOpen);
    pictures.take_window(name);
  }
  window.show_type(kNormType);
  window.carry_out(place_of_type(kNormType), MenuPurpose::kNew);
  pictures.key("lvwMonths", Qt::Key_F5);
  pictures.take_window("month_norms_editor");
}

// Why a person's sums are what they are, beside the list of people.
void take_explanation(MainWindow& window, Pictures& pictures) {
  window.show_type(kEmployeeType);
  window.list()->focus_list();
  window.explanation().toggle();
  pictures.take_window("explanation");
  window.explanation().hide();
}

// A card with every page of it, and the dialog of a position.
void take_person(MainWindow& window, Pictures& pictures) {
  window.show_type(kEmployeeType);
  window.carry_out(place_of_object(window.list()->current()), MenuPurpose::kOpen);
  auto* const pages = window.tabs().current_view()->findChild<QTabWidget*>();
  for (int page = 0; pages != nullptr && page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    pictures.take_window("employee_card_" + QString::number(page + 1));
  }
  if (pages != nullptr) pages->setCurrentIndex(0);
  pictures.stand_on("lvwPositions", 0);
  pictures.take_dialog("position_editor", [&] { pictures.key("lvwPositions", Qt::Key_Return); });
}

// On the smallest screen of the day, with what every list offers.
void take_list(MainWindow& window, Pictures& pictures) {
  window.resize(1366, 728);
  auto& rows = dynamic_cast<QTreeView&>(pictures.widget("lvwRows"));
  pictures.stand_on("lvwRows", 0);
  pictures.key("lvwRows", Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(window.focusWidget(), "kek");
  rows.setFocus();
  for (int column = 0; column < 6; ++column) pictures.key("lvwRows", Qt::Key_Right);
  for (int more = 0; more < 5; ++more) pictures.key("lvwRows", Qt::Key_Down, Qt::ShiftModifier);
  rows.header()->resizeSection(3, 400);
  QTest::qWait(20);
  rows.horizontalScrollBar()->setValue(150);
  pictures.take_window("list_at_work");
}

void take_previews(DesktopApplication& application, MainWindow& window, Pictures& pictures) {
  const std::vector<CalledEntry> previews = called_entries(application, MenuPurpose::kPreview);
  const auto show = [&](std::size_t at) { window.carry_out(previews.at(at).place, previews.at(at).entry); };
  window.resize(1660, 720);
  show(0);
  pictures.key("dtpDate", Qt::Key_F5);
  pictures.take_window("salary_preview");
  pictures.take_dialog("report_preview", [&] { pictures.key("lvwRows", Qt::Key_P, Qt::ControlModifier); });

  window.carry_out(place_of_object(key_of_month(kMonthType, Month::parse("2008-01"))), MenuPurpose::kOpen);
  pictures.take_window("month_editor");
  window.show_type(kWorkedTimeType);
  window.carry_out(place_of_object(key_of_month(kWorkedTimeType, Month::parse("2008-01"))), MenuPurpose::kOpen);
  pictures.take_window("worked_time_editor");

  show(1);
  pictures.key("dtpDate", Qt::Key_F5);
  pictures.take_window("supplement_preview");
  pictures.stand_on("lvwRows", 2);
  pictures.take_dialog("extra_charges_editor", [&] { pictures.key("lvwRows", Qt::Key_Return); });
  take_list(window, pictures);
  auto& experience = dynamic_cast<MenuItem&>(*pictures.form().find("mnuExperience"));
  auto& rows = dynamic_cast<ListView&>(*pictures.form().find("lvwRows"));
  pictures.take_dialog("experience_editor", [&] {
    rows.right_click(rows.selected());
    experience.choose();
  });
}

// A folder of tables of cases, tried: the shipped ones, and one that is not as the rules are.
void take_rules(DesktopApplication& application, MainWindow& window, Pictures& pictures) {
  QTemporaryDir folder;
  const QDir shipped(shipped_rules());
  for (const QString& table : shipped.entryList({"*.csv"}))
    QFile::copy(shipped.filePath(table), folder.filePath(table));
  write_whole_file(folder.filePath("skalė.csv").toStdString(),
                   "Pastaba;Skalė;Metai;Stažo procentas\npenkeri metai;0-5:3 5-10:5;5;3\n");
  window.tabs().open(std::make_shared<RuleTablesForm>(application, folder.path().toStdString()), "", "rules");
  pictures.take_window("rule_tables");
}

void take_dialogs(DesktopApplication& application, MainWindow& window, Pictures& pictures, Edge& edge) {
  store_company_users(application,
                      {{"ona", true}, {"petras", false, {{"COfficeEmployees", {true, true, false, true, true}}}}});
  RightsDialog rights(application, &window);
  rights.show();
  QTest::keyClick(rights.findChild<QListWidget*>(), Qt::Key_Down);
  pictures.take(rights, "rights_dialog");
  ImportDialog import_dialog(application, &window);
  import_dialog.show();
  const QTemporaryDir folder;
  write_whole_file(folder.filePath("ziniarastis.csv").toStdString(),
                   "darbuotojas;Diena arba mėnuo;Laiko kodas;Val.\n1;2008-01-15;VD;4\n2;2008-01;FD;160\n");
  import_dialog.take_file(folder.filePath("ziniarastis.csv"));
  pictures.take(import_dialog, "import_dialog");
  NewCompanyDialog new_company(edge, {}, &window);
  new_company.show();
  pictures.take(new_company, "new_company");
  pictures.take(HelpWindow::show_above(window, "month"), "help");
  FirstStart first("Įmonės failo „sample.quor“ nėra.", "sample.quor", edge);
  first.show();
  pictures.take(first, "first_start");
  pictures.take_dialog("object_picker", [&] { application.SelectObject(kEmployeeType, "", ""); });
}

void take_all(const std::string& plugin, const QString& folder, Edge& edge) {
  const QTemporaryDir place;
  const std::string file = place.filePath("pavyzdys.quor").toStdString();
  make_sample_company(*Database::create(file));
  QElapsedTimer since;
  since.start();
  Company company(Database::open(file));
  DesktopApplication application(
      company, {.title = "Quor", .user = "ona", .today = Date::from_ymd(2008, 1, 31), .host_types = host_editors()},
      edge);
  application.load_plugin(plugin);
  MainWindow window(application);
  window.resize(1100, 720);
  window.show();
  static_cast<void>(QTest::qWaitForWindowExposed(&window));
  std::printf("window after %lld ms\n", static_cast<long long>(since.elapsed()));

  calculate_month(application, Month::parse("2008-01"), {});
  application.place_on_desk_top(window.list()->current(), nullptr);
  application.place_on_desk_top("O04001003", nullptr);
  window.refresh_all();
  Pictures pictures(window, folder);
  pictures.take_window("main_window");
  take_editors(window, pictures);
  window.show_first_page();
  pictures.take_window("first_page");
  take_explanation(window, pictures);
  take_person(window, pictures);
  take_dated_values(window, pictures);
  take_previews(application, window, pictures);
  window.show_type(kEmployeeType);
  pictures.take_window("employees");
  take_rules(application, window, pictures);
  take_dialogs(application, window, pictures, edge);
}

}  // namespace
}  // namespace quor

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  quor::Edge edge;
  int count = 1;
  quor::DesktopProcess process(count, argv, edge);
  QDir().mkpath(argv[2]);
  quor::take_all(argv[1], argv[2], edge);
  return 0;
}
