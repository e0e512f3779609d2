// The host application without windows: services for the console and for tests, and the base of the desktop's, which
// overrides what a person would answer or see.
//
//   states   created -> plug-in loaded (its header has registered what it contributes)
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_header.h"
#include "frame/contract/quor_header_security.h"
#include "frame/contract/quor_object_ui.h"
#include "host/application/host_object_ui.h"
#include "host/application/host_type_acts.h"
#include "host/application/long_work.h"
#include "host/application/open_editors.h"
#include "host/application/plugin_library.h"
#include "host/application/printed_list.h"
#include "host/application/registry.h"
#include "host/company/company.h"
#include "host/company/rights_guard.h"
#include "host/objects/record_editor.h"

namespace quor {

struct ShownBox {
  std::string text;
  BoxIcon icon;
  BoxButtons buttons;
  std::string title;
};

struct ApplicationOptions {
  std::string title = "Quor";
  std::string user = "konsolė";
  std::optional<Date> today = {};  // the system's date when none is given
  RecordEditor edit_charge = {};   // of a person's extra charge; without one nobody can edit it
  HostTypes host_types = {};       // what can be done with the host's own objects; without it they are only listed
  std::string pick = {};  // the key that is chosen where nobody is there to choose; "#…" behind it is no matter
};

// What stands between a data object and the host's business object: it narrows or watches what that object asks.
using RequestWrap = std::function<std::shared_ptr<QuorMainBO>(std::shared_ptr<QuorMainBO> requests)>;

class Application;

// While it lives, notices (boxes with nothing to decide) go to whoever made it and to nobody else: work over many
// people tells each failure of its own, by the person whom it concerns.
class HeldNotices {
 public:
  explicit HeldNotices(Application& application);
  HeldNotices(const HeldNotices&) = delete;
  HeldNotices& operator=(const HeldNotices&) = delete;
  ~HeldNotices();
  const std::vector<ShownBox>& boxes() const { return boxes_; }

 private:
  Application& application_;
  std::vector<ShownBox>* const outer_;
  std::vector<ShownBox> boxes_;
};

class Application : public QuorApplication {
 public:
  // The company outlives the application.
  Application(Company& company, ApplicationOptions options);

  // Loads the library and lets its header register what it contributes. Throws PluginError or quor::Error.
  void load_plugin(const std::string& file);
  // The libraries loaded so far, for another application that is to have the same.
  std::vector<std::string> plugin_files() const;
  // What the loaded plug-ins give rights on, in the order in which they were loaded.
  std::vector<SecurityComponent> security_components();
  // A new object of a plug-in's class; null when no loaded plug-in has it.
  std::shared_ptr<Object> create(const std::string& class_id);
  // A new data object of a registered type; throws PluginError when no plug-in has registered it. What it asks of the
  // business object, passes through what `wrap` makes of it.
  std::shared_ptr<QuorObjectUIO> new_data_object(const std::string& object_type, const RequestWrap& wrap = {});

  Company& company() { return company_; }
  const std::string& user() const { return guard_.user(); }
  const Registrations& registrations() const { return registrations_; }
  // What a type's objects are called, for headings; the code itself for an unknown type.
  std::string type_caption(const std::string& object_type) const;

  // Null for a type with which nothing of the host's own can be done.
  const HostTypeActs* host_type(const std::string& object_type) const;

  // Asks what the user may, before anything is served to him.
  RightsGuard& guard() { return guard_; }

  // Every box shown so far, and who else is told of each.
  const std::vector<ShownBox>& shown_boxes() const { return shown_boxes_; }
  void on_box(std::function<void(const ShownBox&)> listener) { box_listener_ = std::move(listener); }
  // Told of every report that is shown; and the last one, null before the first.
  void on_report(std::function<void(const ReportData&)> listener) { report_listener_ = std::move(listener); }
  const std::shared_ptr<const ReportData>& shown_report() const { return shown_report_; }
  // Reports go to the screen from now on: what may be viewed needs no right to print.
  void read_reports_on_screen() { reports_on_paper_ = false; }
  // What is chosen from now on where nobody is there to choose.
  void set_pick(std::string pick) { options_.pick = std::move(pick); }
  // The keys on the user's desk top, in order.
  std::vector<std::string> desk_top();
  void remove_from_desk_top(const std::string& object);
  // Begins what may take long, `what` it is ("Skaičiuojamas mėnuo 2008.01"), and ends with the object.
  [[nodiscard]] virtual std::unique_ptr<LongWork> begin_work(const std::string& what);
  // Opens the object as by Enter in its list, once what runs now has ended. Nothing without windows.
  virtual void open_object(const std::string& /*key*/) {}
  // How many hourglass scopes are open.
  int busy() const { return busy_; }

  std::string Title() const override { return options_.title; }
  Date Today() const override;
  BoxAnswer MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) override;
  PickedObject SelectObject(const std::string& object_type, const std::string& current,
                            const std::string& mode) override;
  bool HasRight(UserRight right, const std::string& object_type, std::int32_t flag) override;
  std::shared_ptr<QuorObjectUIO> GetQuorObjectUIO(const std::string& identity) override;
  std::shared_ptr<QuorObjectUI> GetQuorObjectUI(const std::string& object_type) override;
  std::shared_ptr<Recordset> CompanyRecord() override;
  std::shared_ptr<QuorMainBO> NewMainBO() override;
  std::shared_ptr<QuorObjectUIO> NewStandardObjectUIO(const std::string& object_type) override;
  std::shared_ptr<ObjectRegistry> NewObjectRegistry() override;
  std::shared_ptr<ListReport> NewListReport(const std::string& title, const std::string& object_type) override;
  void show_modal(Form& form) override;
  void run_pending_events() override {}  // nothing waits without windows
  [[nodiscard]] std::shared_ptr<Object> hourglass() override;
  OpenObjects& open_objects() override { return open_objects_; }
  void place_on_desk_top(const std::string& object, std::shared_ptr<Form> editor) override;

 protected:
  // Lets the user choose a row of the list (see object_lists.h), on which `current` is the key chosen now; answers the
  // key, "" for none. Without windows it is the option's `pick`, and a box when the list has no such object.
  virtual std::string choose_object(Recordset& list, const std::string& current, const std::string& title);
  // What a person does on a modal form while it is loaded: without windows nothing. A form that is not asked to close
  // then, is closed as by its close box.
  virtual void act_on(Form& /*form*/) {}
  // The first hourglass scope opens, the last one ends. Must not throw.
  virtual void busy_changed(bool /*busy*/) {}
  // Whether a box of these buttons is held for somebody (see HeldNotices): whoever shows boxes shows it to nobody then.
  bool holds(BoxButtons buttons) const { return held_notices_ != nullptr && buttons == BoxButtons::kOk; }

 private:
  friend class HeldNotices;
  class BusyScope;

  std::shared_ptr<QuorObjectUI> new_object_ui(const std::string& object_type);
  ObjectActs acts_of(const std::string& object_type);

  Company& company_;
  ApplicationOptions options_;
  Registrations registrations_;
  RightsGuard guard_;
  std::vector<PluginLibrary> plugins_;
  std::vector<std::shared_ptr<QuorHeader>> headers_;  // one instance per loaded library, as long as it is loaded
  std::vector<ShownBox> shown_boxes_;
  std::vector<ShownBox>* held_notices_ = nullptr;  // of the innermost HeldNotices
  const RequestWrap* wrap_ = nullptr;              // while a data object is made that is wrapped
  std::function<void(const ShownBox&)> box_listener_;
  std::function<void(const ReportData&)> report_listener_;
  std::shared_ptr<const ReportData> shown_report_;
  OpenObjects open_objects_;
  int busy_ = 0;
  bool reports_on_paper_ = true;
  std::map<std::string, std::shared_ptr<QuorObjectUI>> object_uis_;  // by type, once asked for
};

}  // namespace quor
