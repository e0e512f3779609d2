#include "host/application/application.h"

#include <chrono>
#include <ctime>

#include "host/application/main_bo.h"
#include "host/company/desk_top.h"
#include "host/objects/employee_object.h"
#include "host/objects/picked_identity.h"
#include "host/objects/standard_object_uio.h"
#include "host/requests/object_lists.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "platform/data/quoted_text.h"
#include "platform/toolkit/form.h"

namespace quor {

namespace {

// What object UIs receive as the host's shared services: the way to the application.
struct SharedServices : Object {
  explicit SharedServices(QuorApplication& host) : application(host) {}
  QuorApplication& application;
};

// The types whose data objects the host brings itself; null for any other.
std::shared_ptr<QuorObjectUIO> host_data_object(QuorApplication& application, Company& company,
                                                const ApplicationOptions& options, const std::string& object_type) {
  if (object_type == kEmployeeType) {
    return std::make_shared<EmployeeObject>(application, company, options.user, options.edit_charge);
  }
  for (const char* own : {kDepartmentType, kConstantType, kTimeCodeType, kSalaryCodeType}) {
    if (object_type == own) return application.NewStandardObjectUIO(object_type);
  }
  return nullptr;
}

// Stands on the object; false when the list does not have it.
bool find_in_list(Recordset& list, const std::string& key) {
  list.Filter(std::string(kKeyField) + " = " + quoted(key));
  return list.RecordCount() > 0;
}

// Puts the wrap in its place until the object is made.
class WrapScope {
 public:
  WrapScope(const RequestWrap*& place, const RequestWrap& wrap)
      : place_(place), outer_(std::exchange(place, wrap ? &wrap : nullptr)) {}
  WrapScope(const WrapScope&) = delete;
  WrapScope& operator=(const WrapScope&) = delete;
  ~WrapScope() { place_ = outer_; }

 private:
  const RequestWrap*& place_;
  const RequestWrap* const outer_;
};

}  // namespace

HeldNotices::HeldNotices(Application& application)
    : application_(application), outer_(std::exchange(application.held_notices_, &boxes_)) {}

HeldNotices::~HeldNotices() { application_.held_notices_ = outer_; }

Application::Application(Company& company, ApplicationOptions options)
    : company_(company), options_(std::move(options)), guard_(company, registrations_, options_.user) {}

// ---- plug-ins and their objects

void Application::load_plugin(const std::string& file) {
  const PluginLibrary plugin(file);
  auto header = plugin.create<QuorHeader>(class_id(plugin.name(), kHeaderClass), *this);
  plugins_.push_back(plugin);
  header->DllInicialize();
  headers_.push_back(std::move(header));
  object_uis_.clear();  // of a type that it has registered, the UI is its own from now on
}

std::vector<std::string> Application::plugin_files() const {
  std::vector<std::string> files;
  for (const PluginLibrary& plugin : plugins_) files.push_back(plugin.file());
  return files;
}

std::vector<SecurityComponent> Application::security_components() {
  std::vector<SecurityComponent> components;
  for (const PluginLibrary& plugin : plugins_) {
    const auto header = std::dynamic_pointer_cast<QuorHeaderSecurity>(
        plugin.create_object(class_id(plugin.name(), kSecurityHeaderClass), *this));
    if (!header) continue;
    for (SecurityComponent& component : header->GetComponentList()) components.push_back(std::move(component));
  }
  return components;
}

std::shared_ptr<Object> Application::create(const std::string& class_id) {
  for (const PluginLibrary& plugin : plugins_) {
    if (auto object = plugin.create_object(class_id, *this)) return object;
  }
  return nullptr;
}

std::shared_ptr<QuorObjectUIO> Application::new_data_object(const std::string& object_type, const RequestWrap& wrap) {
  guard_.require_view(object_type);
  const auto type = registrations_.types.find(object_type);
  if (type == registrations_.types.end()) throw PluginError("Objekto tipo „" + object_type + "“ niekas neregistravo.");
  const std::string class_id = type->second.class_id(kDataObjectClass, object_type);
  const WrapScope wrapped(wrap_, wrap);
  auto object = std::dynamic_pointer_cast<QuorObjectUIO>(create(class_id));
  if (!object) throw PluginError("Įskiepis neturi klasės „" + class_id + "“.");
  return object;
}

std::shared_ptr<QuorObjectUIO> Application::GetQuorObjectUIO(const std::string& identity) {
  const std::string key = key_of_identity(identity);
  const std::string object_type = type_of_key(key);
  const auto type = registrations_.types.find(object_type);
  const bool registered = type != registrations_.types.end();
  std::shared_ptr<QuorObjectUIO> object;
  if (registered)
    object = std::dynamic_pointer_cast<QuorObjectUIO>(create(type->second.class_id(kDataObjectClass, object_type)));
  if (!object) object = host_data_object(*this, company_, options_, object_type);
  // A type whose plug-in brings no data class of its own is served by the standard object.
  if (!object && registered) object = NewStandardObjectUIO(object_type);
  if (!object) return nullptr;
  guard_.require_view(object_type);
  object->OIDR(key);
  const SaveStatus status = object->Read();
  if (!status.Failed) return object;
  if (!status.Gone) MessageBox(status.ErrorText, BoxIcon::kExclamation, BoxButtons::kOk, Title());
  return nullptr;
}

std::shared_ptr<QuorObjectUI> Application::GetQuorObjectUI(const std::string& object_type) {
  std::shared_ptr<QuorObjectUI>& kept = object_uis_[object_type];
  if (!kept) kept = new_object_ui(object_type);
  return kept;
}

std::shared_ptr<QuorObjectUI> Application::new_object_ui(const std::string& object_type) {
  const auto type = registrations_.types.find(object_type);
  const bool registered = type != registrations_.types.end();
  if (!registered && listed_caption(object_type).empty()) return nullptr;
  std::shared_ptr<QuorObjectUI> ui;
  if (registered)
    ui = std::dynamic_pointer_cast<QuorObjectUI>(create(type->second.class_id(kObjectUIClass, object_type)));
  if (!ui) ui = std::make_shared<HostObjectUI>(*this, acts_of(object_type));
  ui->BO(NewMainBO());
  ui->QuorS(std::make_shared<SharedServices>(*this));
  return ui;
}

// Who may not view the type's objects opens none.
ObjectActs Application::acts_of(const std::string& object_type) {
  const HostTypeActs* const known = host_type(object_type);
  if (known == nullptr) return {};
  ObjectActs acts{.new_caption = known->new_caption, .removable = known->removable};
  if (known->open) {
    acts.open = [this, known](const std::string& object) {
      guard_.require_view(type_of_key(object));
      return known->open(*this, object);
    };
  }
  if (known->remove) acts.remove = [this, known](const std::string& key) { known->remove(*this, key); };
  return acts;
}

std::shared_ptr<QuorMainBO> Application::NewMainBO() {
  auto requests = std::make_shared<MainBO>(*this, company_, options_.user);
  return wrap_ == nullptr ? requests : (*wrap_)(std::move(requests));
}

std::shared_ptr<QuorObjectUIO> Application::NewStandardObjectUIO(const std::string& object_type) {
  return std::make_shared<StandardObjectUIO>(*this, company_, options_.user, object_type);
}

std::shared_ptr<ObjectRegistry> Application::NewObjectRegistry() { return std::make_shared<Registry>(registrations_); }

std::shared_ptr<ListReport> Application::NewListReport(const std::string& title, const std::string& object_type) {
  return std::make_shared<ReportToFill>(title, [this, object_type](std::shared_ptr<const ReportData> report) {
    if (reports_on_paper_) {
      guard_.require_right(UserRight::kPrint, object_type,
                           std::string("spausdinti ") + viewed_plural(object_type) + " sąrašų");
    }
    shown_report_ = std::move(report);
    if (report_listener_) report_listener_(*shown_report_);
  });
}

const HostTypeActs* Application::host_type(const std::string& object_type) const {
  const auto found = options_.host_types.find(object_type);
  return found == options_.host_types.end() ? nullptr : &found->second;
}

std::unique_ptr<LongWork> Application::begin_work(const std::string& /*what*/) { return std::make_unique<LongWork>(); }

std::string Application::type_caption(const std::string& object_type) const {
  const auto type = registrations_.types.find(object_type);
  if (type != registrations_.types.end()) return type->second.caption;
  const std::string caption = listed_caption(object_type);
  return caption.empty() ? object_type : caption;
}

// ---- what a person would answer

Date Application::Today() const {
  if (options_.today) return *options_.today;
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return Date::from_ymd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

// Nobody is there to answer: a notice is taken as read, a question is not agreed to.
BoxAnswer Application::MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons, const std::string& title) {
  if (holds(buttons)) {
    held_notices_->push_back({text, icon, buttons, title});
    return BoxAnswer::kOk;
  }
  shown_boxes_.push_back({text, icon, buttons, title});
  if (box_listener_) box_listener_(shown_boxes_.back());
  switch (buttons) {
    case BoxButtons::kOk:
      return BoxAnswer::kOk;
    case BoxButtons::kOkCancel:
      return BoxAnswer::kCancel;
    case BoxButtons::kYesNo:
      return BoxAnswer::kNo;
  }
  return BoxAnswer::kCancel;
}

PickedObject Application::SelectObject(const std::string& object_type, const std::string& current,
                                       const std::string& /*mode*/) {
  const auto list = NewMainBO()->GetQuorObjectList(object_type, "", "");
  if (!list) return {};
  const std::string key = choose_object(*list, key_of_identity(current), type_caption(object_type));
  if (key.empty() || !find_in_list(*list, key)) return {};
  return {.Identity = picked_identity(company_, key), .Name = std::string(list->text(FieldHandle{kNameColumn}))};
}

std::string Application::choose_object(Recordset& list, const std::string& /*current*/, const std::string& title) {
  const std::string key = key_of_identity(options_.pick);
  if (key.empty() || find_in_list(list, key)) return key;
  MessageBox("Sąraše „" + title + "“ nėra objekto „" + options_.pick + "“.", BoxIcon::kExclamation, BoxButtons::kOk,
             Title());
  return "";
}

// ---- what the user may do

bool Application::HasRight(UserRight right, const std::string& object_type, std::int32_t /*flag*/) {
  return guard_.allows(right, object_type);
}

// ---- forms and the desk top

void Application::show_modal(Form& form) {
  form.load();
  try {
    if (!form.close_requested()) act_on(form);
    if (!form.close_requested()) form.close_box();
  } catch (...) {
    form.unload();
    throw;
  }
  form.unload();
}

class Application::BusyScope : public Object {
 public:
  explicit BusyScope(Application& application) : application_(application) {
    if (application_.busy_++ == 0) application_.busy_changed(true);
  }
  ~BusyScope() override {
    if (--application_.busy_ == 0) application_.busy_changed(false);
  }

 private:
  Application& application_;
};

std::shared_ptr<Object> Application::hourglass() { return std::make_shared<BusyScope>(*this); }

void Application::place_on_desk_top(const std::string& object, std::shared_ptr<Form> /*editor*/) {
  put_on_desk_top(company_, options_.user, key_of_identity(object));
}

std::vector<std::string> Application::desk_top() { return desk_top_of(company_, options_.user); }

void Application::remove_from_desk_top(const std::string& object) {
  take_off_desk_top(company_, options_.user, object);
}

std::shared_ptr<Recordset> Application::CompanyRecord() {
  return company_.database().read("SELECT name FROM company", {{"Name", FieldType::kText}});
}

}  // namespace quor
