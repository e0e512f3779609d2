#include "host/desktop/window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include "host/company/month_keys.h"
#include "host/desktop/answers/object_names.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/import_dialog.h"
#include "host/desktop/window/rights_dialog.h"
#include "host/desktop/window/rules_folder.h"
#include "host/editors/chart_windows.h"
#include "host/editors/first_page.h"
#include "host/editors/month_editor.h"
#include "host/editors/office_editor.h"
#include "host/editors/rule_tables_form.h"
#include "host/payroll/latest_month.h"
#include "host/payroll/month_state.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

namespace {

constexpr char kGeometry[] = "window/geometry", kAcross[] = "window/across", kLeft[] = "window/left",
               kExplains[] = "window/explains";

QWidget* titled(const QString& title, QWidget* pane) {
  auto* const box = new QWidget;
  auto* const column = new QVBoxLayout(box);
  column->setContentsMargins(4, 4, 4, 4);
  auto* const label = new QLabel(title, box);
  label->setBuddy(pane);
  column->addWidget(label);
  column->addWidget(pane, 1);
  return box;
}

}  // namespace

MainWindow::MainWindow(DesktopApplication& application, const std::string& address)
    : application_(application),
      companies_(
          new CompanyMenu(application, address.empty() ? application.company().database().name() : address, this)),
      left_(new QSplitter(Qt::Vertical)),
      across_(new QSplitter(Qt::Horizontal)),
      explorer_(new ExplorerTree(application, nullptr)),
      desk_top_(new DeskTopPane(application, nullptr)),
      lists_(new QStackedWidget),
      tabs_(new EditorTabs(application, lists_, nullptr)),
      beside_(new EditorTabs(application, nullptr, nullptr)),
      explanation_(new ExplanationPane(
          application, [this] { return in_sight(); }, nullptr)),
      company_(new QLabel),
      user_(new QLabel),
      month_(new QLabel) {
  setWindowTitle(QString::fromStdString(application.Title()));
  add_panes();
  add_menus();
  listen();
  for (EditorTabs* const tabs : all_tabs()) {
    tabs->say_of_months([this](const Month& month) {
      const HourglassPointer hourglass;
      return month_state_line(month_state(application_, month));
    });
  }
  act([this] {
    desk_top_->refresh();
    show_status();
  });
  explorer_->stand_on("");
  show_type(explorer_->current_type());
  if (ObjectListPane* const first = list()) first->focus_list();
}

MainWindow::~MainWindow() {
  application_.on_desk_top(nullptr);
  application_.on_open(nullptr);
  application_.open_objects().on_may_leave(nullptr);
}

void MainWindow::add_panes() {
  left_->addWidget(titled("&Naršyklė", explorer_));
  left_->addWidget(titled("&Darbo stalas", desk_top_));
  left_->setStretchFactor(0, 3);
  left_->setStretchFactor(1, 2);
  across_->addWidget(left_);
  across_->addWidget(tabs_);
  across_->addWidget(beside_);
  across_->addWidget(explanation_);
  across_->setStretchFactor(1, 1);
  across_->setStretchFactor(2, 1);
  across_->setSizes({290, 900, 900, 360});
  across_->setChildrenCollapsible(false);
  setCentralWidget(across_);
  for (QLabel* label : {company_, user_, month_}) {
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(8, 0, 8, 0);
    statusBar()->addPermanentWidget(label);
  }
  // Before the user has given it a size: wide, as the previews are.
  resize((screen()->availableSize() * 0.9).boundedTo({1700, 950}));
  const QSettings settings;
  restoreGeometry(settings.value(kGeometry).toByteArray());
  across_->restoreState(settings.value(kAcross).toByteArray());
  left_->restoreState(settings.value(kLeft).toByteArray());
  explanation_->setVisible(settings.value(kExplains, false).toBool());
}

void MainWindow::listen() {
  const auto want = [this](const MenuPlace& place, MenuPurpose purpose) { carry_out(place, purpose); };
  explorer_->on_type = [this](const std::string& object_type) { show_type(object_type); };
  explorer_->on_entry = [this](const MenuPlace& place, const MenuEntry& entry) { carry_out(place, entry); };
  explorer_->on_menu = [this](const MenuPlace& place, const QPoint& at) { show_menu(place, at, false); };
  desk_top_->on_want = want;
  explanation_->on_open = [this](const std::string& key) { carry_out(place_of_object(key), MenuPurpose::kOpen); };
  for (EditorTabs* const tabs : all_tabs()) {
    tabs->offer_for_rows([this](const std::string& key) { return person_entries(key); });
  }
  desk_top_->on_menu = [this](const MenuPlace& place, const QPoint& at) { show_menu(place, at, true); };
  desk_top_->on_remove = [this](const std::string& key) { take_off_desk_top(key); };
  application_.on_desk_top(
      [this](const std::string& object, const std::shared_ptr<Form>& editor) { put_on_desk_top(object, editor); });
  // Whoever has written goes on first: a fault of the lists is not his.
  const auto later = [this](const std::string& object) {
    QMetaObject::invokeMethod(
        this, [this, object_type = type_of_key(object)] { object_changed(object_type); }, Qt::QueuedConnection);
  };
  application_.on_open([this](const std::string& key) {
    QMetaObject::invokeMethod(
        this, [this, key] { carry_out(place_of_object(key), MenuPurpose::kOpen); }, Qt::QueuedConnection);
  });
  OpenObjects& open = application_.open_objects();
  open.on_written([later, self = QPointer<MainWindow>(this)](const std::string& key) {
    if (self) later(key);
  });
  open.on_left([later, self = QPointer<MainWindow>(this)](const std::string& object, Form&) {
    if (self) later(object);
  });
  open.on_may_leave([this](const std::string& object) {
    const Form* const editor = application_.open_objects().find(object);
    return editor == nullptr || application_.may_close(*editor);
  });
}

void MainWindow::act(const std::function<void()>& what) {
  if (application_.busy() == 0) application_.edge().act(this, what);
}

// ---- lists

ObjectListPane* MainWindow::list() const { return static_cast<ObjectListPane*>(lists_->currentWidget()); }

void MainWindow::show_type(const std::string& object_type) {
  act([&] {
    ObjectListPane*& pane = panes_[object_type];
    if (pane == nullptr) {
      auto* const made = new ObjectListPane(application_, object_type, lists_);
      made->on_want = [this](const MenuPlace& place, MenuPurpose purpose) { carry_out(place, purpose); };
      made->on_menu = [this, made](const MenuPlace& place, const QPoint& at) {
        std::vector<ListEntry> own = person_entries(place.object);
        for (ListEntry& entry : made->entries()) own.push_back(std::move(entry));
        show_menu(place, at, false, own);
      };
      lists_->addWidget(made);
      pane = made;
    }
    lists_->setCurrentWidget(pane);
    tabs_->setTabText(0, QString::fromStdString(application_.type_caption(object_type)));
    tabs_->show_lists();
    explorer_->stand_on(object_type);
  });
}

void MainWindow::object_changed(const std::string& object_type) {
  application_.edge().act(this, [&] {
    const auto pane = panes_.find(object_type);
    if (pane != panes_.end() && pane->second != nullptr) pane->second->refresh();
    desk_top_->refresh();
    for (EditorTabs* const tabs : all_tabs()) {
      tabs->show_titles();
      tabs->refresh_band();
    }
    explanation_->refresh();
    show_status();
  });
}

void MainWindow::refresh_all() {
  application_.edge().act(this, [&] {
    for (const auto& [object_type, pane] : panes_) {
      if (pane != nullptr) pane->refresh();
    }
    desk_top_->refresh();
    for (EditorTabs* const tabs : all_tabs()) {
      tabs->show_titles();
      tabs->refresh_band();
    }
    explanation_->refresh();
    show_status();
  });
}

// ---- around

void MainWindow::show_status() {
  const auto company = application_.CompanyRecord();
  company_->setText(company->RecordCount() == 0 ? QString()
                                                : QString::fromStdString(null_to_text(company->field("Name"))));
  user_->setText("Naudotojas: " + QString::fromStdString(application_.user()));
  const auto latest = latest_month(application_.company().database());
  month_->setText("Mėnuo: " + QString::fromStdString(latest.value_or(Month::of(application_.Today())).text()));
  const QString title = company_->text().isEmpty() ? QString::fromStdString(application_.Title()) : company_->text();
  setWindowTitle(application_.company().database().may_write() ? title : title + " (tik skaitymui)");
}

void MainWindow::show_first_page() {
  static constexpr char kOpenedBy[] = "first page";
  act([this] {
    if (!tabs_->bring_forward_opened_by(kOpenedBy))
      tabs_->open(std::make_shared<FirstPage>(application_), "", kOpenedBy);
  });
}

void MainWindow::show_month() {
  const auto latest = latest_month(application_.company().database());
  const Month month = latest.value_or(Month::of(application_.Today()));
  carry_out(place_of_object(key_of_month(kMonthType, month)), MenuPurpose::kOpen);
}

// Of the object on which the user stands, in the list or in its editor.
void MainWindow::show_chart() {
  act([this] {
    FormView* const view = tabs_->current_view();
    const std::string key = view != nullptr ? application_.open_objects().object_of(view->form()) : current_in_list();
    const std::string type = type_of_key(key);
    const std::string name = object_name(application_, key).toStdString();
    std::shared_ptr<Form> chart;
    if (type == kEmployeeType) chart = person_pay_chart(application_, key, name);
    if (type == kCategoryType) chart = category_factor_chart(application_, key, name);
    if (chart) return tabs_->open(chart, "", QString::fromStdString("chart " + key));
    application_.MessageBox("Diagramą turi darbuotojas ir pareigybės kategorija: atsistokite ant vieno iš jų.",
                            BoxIcon::kInformation, BoxButtons::kOk, application_.Title());
  });
}

std::string MainWindow::current_in_list() const { return list() == nullptr ? "" : list()->current(); }

void MainWindow::import_file() {
  act([this] {
    const FreePointer pointer;
    ImportDialog(application_, this).exec();
  });
  refresh_all();
}

void MainWindow::name_office() {
  act([this] { application_.show_modal(*office_editor(application_)); });
  refresh_all();
}

// In a tab of its own for each folder; one that is open comes to the front.
void MainWindow::check_rules() {
  act([this] {
    const QString place = ask_for_rules(*this);
    if (place.isEmpty()) return;
    const QString opened_by = "rules " + place;
    if (tabs_->bring_forward_opened_by(opened_by)) return;
    tabs_->open(std::make_shared<RuleTablesForm>(application_, place.toStdString()), "", opened_by);
  });
}

void MainWindow::administer_rights() {
  act([this] {
    RightsDialog dialog(application_, this);
    const FreePointer pointer;
    dialog.exec();
  });
}

EditorTabs& MainWindow::tabs_in_use() const {
  return beside_->isAncestorOf(QApplication::focusWidget()) ? *beside_ : *tabs_;
}

bool MainWindow::close_all_tabs() { return beside_->close_all() && tabs_->close_all(); }

void MainWindow::leave_for(NextCompany next) {
  next_ = std::move(next);
  if (!close()) next_ = {};
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (application_.busy() > 0 || !close_all_tabs()) {
    event->ignore();
    return;
  }
  QSettings settings;
  settings.setValue(kGeometry, saveGeometry());
  settings.setValue(kAcross, across_->saveState());
  settings.setValue(kLeft, left_->saveState());
  settings.setValue(kExplains, explanation_->isVisible());
  QMainWindow::closeEvent(event);
}

}  // namespace quor
