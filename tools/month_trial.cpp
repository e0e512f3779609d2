// A clerk's month, played by keys and mouse on the windows of a company of 3,000 people: `month_trial PLUGIN FOLDER`
// prints the keys and the seconds of each step, and writes a picture of each into the folder. Exits with 1 when a step
// did not do what it is for.
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>
#include <cstdio>
#include <gtest/gtest.h>

#include "host/desktop/answers/form_dialog.h"
#include "host/desktop/answers/report_preview.h"
#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/window/main_window.h"
#include "host/editors/host_editors.h"
#include "host/editors/month_editor.h"
#include "host/editors/personal_charge_editor.h"
#include "host/sample/sample_company.h"
#include "host/store/object_codes.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/grid.h"
#include "tests/support/window_acts.h"

namespace quor {

Edge& test_edge() {
  static Edge edge;
  return edge;
}

namespace {

constexpr int kPeople = 3000;
constexpr double kMostWaiting = 5;  // s

// Counts keys and clicks of whoever plays.
int acts_done = 0;

void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  ++acts_done;
  press(pressed, modifiers);
}

void keys(const QString& text) {
  acts_done += static_cast<int>(text.size());
  type(text);
}

FormView& view_in(QWidget& window) {
  auto* const dialog = dynamic_cast<FormDialog*>(&window);
  return dialog != nullptr ? dialog->view() : *dynamic_cast<MainWindow&>(window).tabs().current_view();
}

// Clicks into the field and types over what is there.
void fill(QWidget& window, const char* control, const QString& text) {
  FormView& view = view_in(window);
  view.widget_of(*view.form().find(control))->setFocus();
  ++acts_done;
  settle();
  key(Qt::Key_A, Qt::ControlModifier);
  keys(text);
}

void push(QWidget& window, const char* button) {
  FormView& view = view_in(window);
  ++acts_done;
  click(view.widget_of(*view.form().find(button)));
}

class Trial {
 public:
  Trial(MainWindow& window, QString folder) : window_(window), folder_(std::move(folder)) {}

  void step(const char* name, const std::function<void()>& play, const std::function<bool()>& done) {
    acts_done = 0;
    QElapsedTimer since;
    since.start();
    play();
    settle();
    const double seconds = static_cast<double>(since.elapsed()) / 1000;
    const int faults = testing::UnitTest::GetInstance()->ad_hoc_test_result().total_part_count();
    const bool well = done() && seconds <= kMostWaiting && faults == faults_;
    faults_ = faults;
    failed_ = failed_ || !well;
    std::printf("%-62s %4d %7.2f%s\n", name, acts_done, seconds, well ? "" : "  FAILED");
    std::fflush(stdout);
    window_.grab().save(folder_ + QString("/month_%1.png").arg(++steps_, 2, 10, QChar('0')));
    bring_up(window_);
  }
  bool failed() const { return failed_; }

 private:
  MainWindow& window_;
  const QString folder_;
  int steps_ = 0;
  int faults_ = 0;  // of the acts so far
  bool failed_ = false;
};

double number(Database& database, const std::string& sql) {
  return database.read(sql, {{"N", FieldType::kDouble}})->number({0});
}

Form& front(MainWindow& window) { return window.tabs().current_view()->form(); }
ListView& list(MainWindow& window, const char* name) { return dynamic_cast<ListView&>(*front(window).find(name)); }

void stand_on(MainWindow& window, const char* name, std::size_t row) {
  FormView& view = view_in(window);
  auto* const rows = view.widget_of(*view.form().find(name))->findChild<QTreeView*>();
  auto& tree = rows != nullptr ? *rows : dynamic_cast<QTreeView&>(*view.widget_of(*view.form().find(name)));
  tree.setFocus();
  tree.setCurrentIndex(tree.model()->index(static_cast<int>(row), 0));
  ++acts_done;
  settle();
}

void turn_page(MainWindow& window, int page) {
  window.tabs().current_view()->findChild<QTabWidget*>()->setCurrentIndex(page);
  ++acts_done;
  settle();
}

// Someone new with a position, service and a charge.
void play_hiring(MainWindow& window, Database& database, Trial& trial) {
  const auto all = [&](const char* table) { return number(database, std::string("SELECT COUNT(*) FROM ") + table); };
  const double people = all("employees"), positions = all("positions"), service = all("experience"),
               charges = all("extra_charges");
  trial.step(
      "hire",
      [&] {
        window.show_type(kEmployeeType);
        ++acts_done;
        window.list()->focus_list();
        key(Qt::Key_Insert);
        fill(window, "txtName", "Trinkūnaitė Trija");
        key(Qt::Key_Tab);
        key(Qt::Key_Down);
        fill(window, "txtServiceBegan", "2008.01.02");
        key(Qt::Key_S, Qt::ControlModifier);
      },
      [&] { return all("employees") == people + 1; });
  trial.step(
      "position: category, share, from",
      [&] {
        const NextWindows dialogs({[](QWidget& dialog) {
                                     push(dialog, "cmdChoose");
                                     fill(dialog, "txtShare", "1");
                                     fill(dialog, "txtDateFrom", "2008.01.02");
                                     key(Qt::Key_Return);
                                   },
                                   [](QWidget&) {
                                     keys("A lygio 11");
                                     key(Qt::Key_Return);
                                   }});
        push(window, "cmdNewPosition");
      },
      [&] { return all("positions") == positions + 1; });
  trial.step(
      "length of service",
      [&] {
        turn_page(window, 1);
        const NextWindows dialogs({[](QWidget& dialog) {
          fill(dialog, "txtYears", "7");
          fill(dialog, "txtMonths", "3");
          fill(dialog, "txtDate", "2008.01.02");
          key(Qt::Key_Return);
        }});
        push(window, "cmdService");
      },
      [&] { return all("experience") == service + 1; });
  trial.step(
      "charge",
      [&] {
        const NextWindows dialogs({[](QWidget& dialog) {
          view_in(dialog).widget_of(*view_in(dialog).form().find("lvwKind"))->setFocus();
          ++acts_done;
          key(Qt::Key_Up);
          fill(dialog, "txtSum", "120,50");
          key(Qt::Key_Return);
        }});
        push(window, "cmdNewCharge");
      },
      [&] { return all("extra_charges") == charges + 1; });
}

void play_time_and_tariffs(MainWindow& window, Database& database, Trial& trial) {
  const auto of_time = [&] { return number(database, "SELECT COUNT(*) FROM worked_time WHERE month = 39448"); };
  trial.step(
      "worked time: norm for all, overtime of five pasted",
      [&] {
        key(Qt::Key_T, Qt::ControlModifier);
        key(Qt::Key_Insert);
        push(window, "cmdFillAll");
        auto& grid = dynamic_cast<Grid&>(*front(window).find("grdTime"));
        std::size_t overtime = 0;
        while (grid.columns()[overtime].caption != "VD") ++overtime;
        QApplication::clipboard()->setText("8\n4\n12,5\n6\n2\n");
        window.tabs().current_view()->widget_of(grid)->setFocus();
        grid.select({0, overtime, 0, overtime});
        ++acts_done;
        key(Qt::Key_V, Qt::ControlModifier);
        key(Qt::Key_S, Qt::ControlModifier);
      },
      [&] { return of_time() == number(database, "SELECT COUNT(DISTINCT employee_id) FROM worked_time") + 5; });
  const auto values = [&] { return number(database, "SELECT COUNT(*) FROM constant_values"); };
  const double values_before = values();
  trial.step(
      "new tariff from a date on",
      [&] {
        window.show_type(kConstantType);
        ++acts_done;
        window.list()->focus_list();
        key(Qt::Key_F, Qt::ControlModifier);
        keys("bazine menesine");
        key(Qt::Key_Return);
        const NextWindows dialogs({[](QWidget& dialog) {
          fill(dialog, "txtDateFrom", "2008.03.01");
          fill(dialog, "txtValue", "140");
          key(Qt::Key_Return);
        }});
        push(window, "cmdNewValue");
        key(Qt::Key_S, Qt::ControlModifier);
      },
      [&] { return values() == values_before + 1; });
  trial.step(
      "new limit from a date on",
      [&] {
        window.show_type(kSettingsType);
        ++acts_done;
        window.list()->focus_list();
        key(Qt::Key_Insert);
        auto& date = dynamic_cast<DatePicker&>(*front(window).find("dtpDate"));
        date.pick(Date::from_ymd(2008, 3, 1));
        ++acts_done;
        fill(window, "txtExtraChargePercentage", "65");
        key(Qt::Key_S, Qt::ControlModifier);
      },
      [&] { return number(database, "SELECT COUNT(*) FROM settings WHERE date_from = 39508") == 1; });
}

void play_month(MainWindow& window, Database& database, Trial& trial, const QString& folder) {
  const auto documents = [&](int month) {
    return number(database, "SELECT COUNT(*) FROM documents WHERE month = " + std::to_string(month));
  };
  trial.step(
      "calculate the month",
      [&] {
        key(Qt::Key_M, Qt::ControlModifier);
        key(Qt::Key_F5);
      },
      [&] { return documents(39448) > kPeople * 0.8; });
  std::size_t red = 0;
  trial.step(
      "find the red ones",
      [&] {
        dynamic_cast<ChoiceBox&>(*front(window).find("chcShow")).choose(2);
        ++acts_done;
        red = list(window, "lvwPeople").row_count();
      },
      [&] { return red > 0; });
  std::string person;
  trial.step(
      "correct one: to his card by F4, another sum of the charge",
      [&] {
        person = list(window, "lvwPeople").tag(0);
        stand_on(window, "lvwPeople", 0);
        key(Qt::Key_F4);
        turn_page(window, 1);
        ListView& charges = list(window, "lvwCharges");
        while (charges.row_count() > 0) {
          const std::size_t rows = charges.row_count();
          stand_on(window, "lvwCharges", 0);
          const NextWindows question({[](QWidget&) { key(Qt::Key_T, Qt::AltModifier); }});
          key(Qt::Key_Delete);
          if (charges.row_count() == rows) return;
        }
      },
      [&] { return front(window).subject() == person && list(window, "lvwCharges").row_count() == 0; });
  trial.step(
      "calculate again",
      [&] {
        key(Qt::Key_M, Qt::ControlModifier);
        key(Qt::Key_F5);
      },
      [&] { return list(window, "lvwPeople").row_count() == red - 1; });
  dynamic_cast<ChoiceBox&>(*front(window).find("chcShow")).choose(0);
  trial.step(
      "print: the pages",
      [&] {
        const NextWindows pages({[](QWidget& dialog) {
          EXPECT_GT(dynamic_cast<ReportPreview&>(dialog).pages(), 30);
          key(Qt::Key_Escape);
        }});
        key(Qt::Key_P, Qt::ControlModifier);
      },
      [] { return true; });
  const QString workbook = folder + "/menuo.xlsx";
  trial.step(
      "the same as a workbook",
      [&] {
        const NextWindows windows({[](QWidget& menu) {
                                     for (QAction* const action : menu.actions()) {
                                       if (action->text().contains("XLSX")) action->trigger();
                                     }
                                     ++acts_done;
                                     menu.close();
                                   },
                                   [&](QWidget& dialog) {
                                     dialog.findChild<QLineEdit*>("fileNameEdit")->setText(workbook);
                                     ++acts_done;
                                     key(Qt::Key_Return);
                                   }});
        stand_on(window, "lvwPeople", 0);
        click(QApplication::focusWidget(), Qt::RightButton, QPoint(40, 60));
        QTest::qWait(200);
      },
      [&] { return QFileInfo(workbook).size() > 20000; });
  trial.step(
      "close the month", [&] { push(window, "cmdClose"); },
      [&] { return number(database, "SELECT COUNT(*) FROM closed_months WHERE month = 39448") == 1; });
  trial.step(
      "the next month, compared with the one before",
      [&] {
        window.show_type(kMonthType);
        ++acts_done;
        window.list()->focus_list();
        key(Qt::Key_Insert);
        key(Qt::Key_F5);
        turn_page(window, 2);
      },
      [&] { return documents(39479) > kPeople * 0.8 && list(window, "lvwDifferences").row_count() > 5; });
}

bool play(const std::string& plugin, const QString& folder) {
  const QTemporaryDir place;
  const std::string file = place.filePath("imone.quor").toStdString();
  make_sample_company(*Database::create(file), {.employees = kPeople, .seed = 1, .progress = {}});
  Company company(Database::open(file));
  DesktopApplication application(company,
                                 {.title = "Quor",
                                  .user = "ona",
                                  .today = Date::from_ymd(2008, 1, 31),
                                  .edit_charge = edit_personal_charge,
                                  .host_types = host_editors()},
                                 test_edge());
  application.load_plugin(plugin);
  MainWindow window(application);
  window.resize(1366, 728);
  bring_up(window);
  Trial trial(window, folder);
  std::printf("%-62s keys seconds\n", "step");
  play_hiring(window, company.database(), trial);
  play_time_and_tariffs(window, company.database(), trial);
  play_month(window, company.database(), trial, place.path());
  return !trial.failed();
}

}  // namespace
}  // namespace quor

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "month_trial PLUGIN FOLDER\n");
    return 2;
  }
  const std::string plugin = argv[1];
  const QString folder = argv[2];
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  quor::DesktopProcess process(argc, argv, quor::test_edge());
  return quor::play(plugin, folder) ? 0 : 1;
}
