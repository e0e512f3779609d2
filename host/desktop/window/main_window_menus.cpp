// The menu bar and the tools of the main window.
#include <QApplication>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "host/company/month_keys.h"
#include "host/company/person_of.h"
#include "host/desktop/answers/report_preview.h"
#include "host/desktop/edge/mnemonics.h"
#include "host/desktop/window/help_pages.h"
#include "host/desktop/window/help_window.h"
#include "host/desktop/window/main_window.h"
#include "host/desktop/window/registered_icons.h"
#include "host/store/object_codes.h"
#include "platform/toolkit/date_picker.h"

namespace quor {

namespace {

constexpr int kMessageTime = 5000;  // ms

}  // namespace

void MainWindow::add_menus() {
  auto* const tools = addToolBar("Įrankiai");
  tools->setObjectName("tools");
  tools->setMovable(false);
  tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  add_company_menu();
  add_group_commands(*menuBar()->addMenu("&Peržiūros"), *tools);
  QMenu& month = *menuBar()->addMenu("&Mėnuo");
  QAction* const open =
      month.addAction("Mėnesio &langas", QKeySequence(Qt::CTRL | Qt::Key_M), this, [this] { show_month(); });
  month.addAction("&Naujas mėnuo", this, [this] { carry_out(place_of_type(kMonthType), MenuPurpose::kNew); });
  month.addSeparator();
  month.addAction("&Mėnesiai", this, [this] { turn_to(kMonthType); });
  month.addAction("&Darbo laikas", QKeySequence(Qt::CTRL | Qt::Key_T), this, [this] { turn_to(kWorkedTimeType); });
  month.addSeparator();
  month.addAction("Dia&grama", QKeySequence(Qt::CTRL | Qt::Key_G), this, [this] { show_chart(); });
  tools->addSeparator();
  QAction* const month_tool = tools->addAction("Mėnuo");
  month_tool->setToolTip("Mėnesio langas (Ctrl+M)");
  connect(month_tool, &QAction::triggered, open, &QAction::trigger);
  add_window_menu();
  add_help_menu();
}

void MainWindow::turn_to(const std::string& object_type) {
  explorer_->stand_on(object_type);
  show_type(object_type);
  if (list() != nullptr) list()->focus_list();
}

void MainWindow::add_company_menu() {
  QMenu& menu = *menuBar()->addMenu("Įm&onė");
  companies_->on_leave = [this](NextCompany next) { leave_for(std::move(next)); };
  companies_->on_done = [this](const QString& what) { statusBar()->showMessage(what); };
  companies_->add_companies(menu);
  menu.addSeparator();
  companies_->add_copies(menu);
  menu.addSeparator();
  menu.addAction("&Importuoti CSV failą…", QKeySequence(Qt::CTRL | Qt::Key_I), this, [this] { import_file(); });
  menu.addAction("Įstai&gos pavadinimas…", this, [this] { name_office(); });
  menu.addAction("&Naudotojai ir teisės…", QKeySequence(Qt::CTRL | Qt::Key_U), this, [this] { administer_rights(); });
  menu.addSeparator();
  menu.addAction("&Baigti", QKeySequence(Qt::CTRL | Qt::Key_Q), this, [this] { close(); });
}

// What the groups' menus offer, always in sight.
void MainWindow::add_group_commands(QMenu& menu, QToolBar& tools) {
  int number = 0;
  std::vector<QAction*> beside;  // a second one next to the first
  for (const auto& layout : application_.registrations().layouts) {
    for (const auto& group : layout->groups) {
      const MenuPlace place = place_of_group(application_, group->object_type);
      for (const MenuEntry& entry : menu_of(application_, place)) {
        if (is_separator(entry)) continue;
        const QString caption = QString::fromStdString(entry.Caption);
        auto* const command =
            new QAction(layout_icon(application_.registrations(), entry.Icon), without_mnemonic(caption), this);
        if (++number <= 9) command->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number)));
        command->setToolTip(caption + " (" + command->shortcut().toString(QKeySequence::NativeText) + ")");
        connect(command, &QAction::triggered, this, [this, place, entry] { carry_out(place, entry); });
        menu.addAction(command);
        tools.addAction(command);
        auto* const second = new QAction("Šalia: " + caption, this);
        if (number <= 9) {
          second->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | static_cast<Qt::Key>(Qt::Key_0 + number)));
        }
        connect(second, &QAction::triggered, this, [this, place, entry] { carry_out_beside(place, entry); });
        beside.push_back(second);
      }
    }
  }
  menu.addSeparator();
  for (QAction* const second : beside) menu.addAction(second);
}

void MainWindow::add_window_menu() {
  QMenu& menu = *menuBar()->addMenu("&Langas");
  menu.addAction("&Pradžia", QKeySequence(Qt::CTRL | Qt::Key_0), this, [this] { show_first_page(); });
  menu.addAction("&Sąrašas", QKeySequence(Qt::CTRL | Qt::Key_L), this, [this] {
    tabs_->show_lists();
    if (list() != nullptr) list()->focus_list();
  });
  menu.addAction("&Darbuotojo kortelė", QKeySequence(Qt::Key_F4), this, [this] { open_person(); });
  menu.addAction("&Kodėl tiek?", QKeySequence(Qt::Key_F2), this, [this] {
    if (QApplication::activeModalWidget() == nullptr) explanation_->toggle();
  });
  menu.addAction("Už&verti kortelę", QKeySequence(Qt::CTRL | Qt::Key_W), this,
                 [this] { tabs_in_use().close_tab(tabs_in_use().currentIndex()); });
  menu.addAction("Užverti &visas korteles", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W), this,
                 [this] { close_all_tabs(); });
}

// Of the object or the row on which the user stands, or else of the form in front; "" when it is nobody's.
std::string MainWindow::person_in_sight() const {
  std::vector<std::string> keys;
  const FormView* const view = tabs_in_use().current_view();
  if (desk_top_->hasFocus()) {
    keys = {desk_top_->current()};
  } else if (view != nullptr) {
    keys = {view->selected_tag(), view->form().subject()};
  } else if (list() != nullptr) {
    keys = {list()->current()};
  }
  for (const std::string& key : keys) {
    if (std::string person = person_of(application_.company(), key); !person.empty()) return person;
  }
  return "";
}

// A preview's, a month's, worked time's or a card's month is that of the window.
ExplanationPane::Sight MainWindow::in_sight() const {
  ExplanationPane::Sight sight{.person = person_in_sight(), .month = {}};
  const FormView* const view = tabs_in_use().current_view();
  if (view == nullptr) return sight;
  const std::string subject = view->form().subject();
  for (const char* type : {kMonthType, kWorkedTimeType}) {
    if (type_of_key(subject) == type && carries_object(subject)) sight.month = month_of_key(subject, type);
  }
  for (Control* const control : view->form().controls()) {
    const auto* const date = dynamic_cast<const DatePicker*>(control);
    if (!sight.month && date != nullptr) sight.month = Month::of(date->value());
  }
  return sight;
}

std::vector<ListEntry> MainWindow::person_entries(const std::string& key) {
  std::string person;
  act([&] { person = person_of(application_.company(), key); });
  if (person.empty()) return {};
  return {{"Kodėl tiek?\tF2", [this] { explanation_->toggle(); }}};
}

void MainWindow::open_person() {
  if (QApplication::activeModalWidget() != nullptr) return;
  std::string person;
  act([&] {
    person = person_in_sight();
    if (person.empty()) statusBar()->showMessage("Pirmiausia pažymėkite darbuotojo eilutę.", kMessageTime);
  });
  if (!person.empty()) carry_out(place_of_object(person), MenuPurpose::kOpen);
}

// F1 has no shortcut of its own: above a dialog it would not be heard.
void MainWindow::add_help_menu() {
  auto* const key = new HelpKey([this](QWidget& window) { return help_page(window); }, this);
  QMenu& menu = *menuBar()->addMenu("Pa&galba");
  menu.addAction("Šio &lango pagalba\tF1", this, [key] { key->show_help(); });
  for (const auto& [caption, page] : {std::pair("&Turinys", kHelpStart), std::pair("&Klavišai", kHelpKeys),
                                      std::pair("&Apie programą", kHelpAbout)}) {
    menu.addAction(caption, this, [this, shown = QString(page)] { HelpWindow::show_above(*this, shown); });
  }
  menu.addSeparator();
  menu.addAction("&Taisyklių lentelės…", this, [this] { check_rules(); });
}

// A dialog's by its title; in the main window that of the form in front, or of its list.
QString MainWindow::help_page(const QWidget& window) const {
  if (dynamic_cast<const ReportPreview*>(&window) != nullptr) return "report";
  if (&window != this) return help_page_of(window.windowTitle());
  FormView* const view = tabs_in_use().current_view();
  if (view != nullptr) return help_page_of(QString::fromStdString(view->form().caption()));
  return help_page_of(tabs_->tabText(0), kHelpList);
}

}  // namespace quor
