// The program's window: the explorer and the desk top at the left, the list of the chosen type and the open forms in
// the middle, menus, tools and the status line around them.
//
// What is done with an object is never decided here: the type's UI names the entries of every menu and carries them
// out.
#pragma once

#include <QMainWindow>
#include <array>
#include <map>

#include "host/desktop/window/company_menu.h"
#include "host/desktop/window/desk_top_pane.h"
#include "host/desktop/window/editor_tabs.h"
#include "host/desktop/window/explanation_pane.h"
#include "host/desktop/window/explorer_tree.h"
#include "host/desktop/window/object_list_pane.h"

class QLabel;
class QSplitter;
class QStackedWidget;
class QToolBar;

namespace quor {

class MainWindow : public QMainWindow {
 public:
  // The application's plug-ins are loaded; it outlives the window. `address` is the company's, "" for its name.
  explicit MainWindow(DesktopApplication& application, const std::string& address = "");
  ~MainWindow() override;

  EditorTabs& tabs() { return *tabs_; }
  EditorTabs& tabs_beside() { return *beside_; }
  DeskTopPane& desk_top() { return *desk_top_; }
  ExplorerTree& explorer() { return *explorer_; }
  ExplanationPane& explanation() { return *explanation_; }
  // The list in front; null before the first one was read.
  ObjectListPane* list() const;

  // Shows what a clerk sees first, in a tab of its own.
  void show_first_page();
  // Shows the list of a type.
  void show_type(const std::string& object_type);
  // Closes the window, with the usual questions, to go on with another company; what the user keeps open keeps the
  // window, and the other company is left.
  void leave_for(NextCompany next);
  // Once the window has closed: what to go on with. May be taken once.
  NextCompany take_next() { return std::move(next_); }
  // Carries out an entry of a menu as the type's UI decides.
  void carry_out(const MenuPlace& place, const MenuEntry& entry);
  // The same by what the entry is for; nothing when the place has none.
  void carry_out(const MenuPlace& place, MenuPurpose purpose);
  // The same in the tabs beside the others, where a second preview is seen next to the first.
  void carry_out_beside(const MenuPlace& place, const MenuEntry& entry);
  // What the company holds may have changed: every list, the desk top and the status line are read again.
  void refresh_all();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // Runs at the edge; nothing while a form is at work.
  void act(const std::function<void()>& what);
  void add_panes();
  void add_menus();
  void add_company_menu();
  void add_group_commands(QMenu& menu, QToolBar& tools);
  void add_window_menu();
  void add_help_menu();
  QString help_page(const QWidget& window) const;
  void listen();

  // `own`: what a list offers beside it.
  void show_menu(const MenuPlace& place, const QPoint& at, bool on_desk_top, const std::vector<ListEntry>& own = {});
  void choose(const MenuPlace& place, const MenuEntry& entry);
  void click(const MenuPlace& place, const MenuEntry& entry, EditorTabs& tabs);
  std::array<EditorTabs*, 2> all_tabs() const { return {tabs_, beside_}; }
  // Those in which the focus is.
  EditorTabs& tabs_in_use() const;
  std::string person_in_sight() const;
  ExplanationPane::Sight in_sight() const;
  std::vector<ListEntry> person_entries(const std::string& key);
  void open_person();
  bool close_all_tabs();
  void put_on_desk_top(const std::string& object, const std::shared_ptr<Form>& editor);
  void take_off_desk_top(const std::string& object);
  void object_changed(const std::string& object_type);
  void show_status();
  // Shows the type's list, with the focus in it.
  void turn_to(const std::string& object_type);
  void show_month();
  void show_chart();
  std::string current_in_list() const;
  void import_file();
  void administer_rights();
  void name_office();
  void check_rules();

  DesktopApplication& application_;
  CompanyMenu* companies_;
  NextCompany next_;
  QSplitter* left_;
  QSplitter* across_;
  ExplorerTree* explorer_;
  DeskTopPane* desk_top_;
  QStackedWidget* lists_;
  EditorTabs* tabs_;
  EditorTabs* beside_;
  ExplanationPane* explanation_;
  std::map<std::string, ObjectListPane*> panes_;  // by type, once shown
  QLabel* company_;
  QLabel* user_;
  QLabel* month_;
};

}  // namespace quor
