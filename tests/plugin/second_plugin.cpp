// A plug-in of a stranger's: the library `Second` keeps books. It shares no name with any other plug-in: its section,
// group, type, captions, entries and icon are its own.
#include <map>

#include "adapters/object_ui.h"
#include "frame/contract/plugin_entry.h"
#include "frame/contract/quor_header.h"
#include "frame/contract/quor_header_security.h"
#include "frame/forwarding_object.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"

namespace second {
namespace {

constexpr char kLibrary[] = "Second", kBook[] = "O0900100", kGroup[] = "CBooks", kIcon[] = "Book";
// A picture of one red point.
constexpr unsigned char kPoint[] = {0, 0, 1, 0, 1, 0, 1, 1, 0, 0, 1, 0, 32, 0, 48, 0, 0,   0,   22, 0, 0, 0, 40, 0,
                                    0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 1, 0, 32, 0, 0,  0, 0,   0,   0,  0, 0, 0, 0,  0,
                                    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  0, 0,  0, 255, 255, 0,  0, 0, 0};
constexpr std::int32_t kOnlyBook = 1;
constexpr char kOnlyName[] = "Pirmoji knyga";

std::shared_ptr<quor::Recordset> one_row(const char* first, const std::string& value, const char* second) {
  auto row = std::make_shared<quor::Recordset>();
  row->Fields().Append(first, quor::FieldType::kText);
  row->Fields().Append(second, quor::FieldType::kText);
  row->Open();
  row->AddNew();
  row->Fields()[first].Value(value);
  row->Fields()[second].Value(kOnlyName);
  row->Update();
  return row;
}

class Book : public velmora::ForwardingObject {
 public:
  explicit Book(quor::QuorApplication& application) : ForwardingObject(application, kBook, {}) {}
  quor::SaveStatus Read() override {
    if (quor::id_of_key(OIDR(), kBook) != kOnlyBook) return {.Failed = true, .ErrorText = "Nėra.", .Gone = true};
    record_ = one_row("GUID", "B1", "Name");
    return {};
  }
  quor::Fields Fields() override { return record_->Fields(); }

 private:
  std::shared_ptr<quor::Recordset> record_;
};

struct BookForm : quor::Form {
  explicit BookForm(const std::string& caption) : Form(caption) { set_layout(column({label})); }
  quor::Label label{*this, "label", "Knyga"};
};

class Books : public velmora::ObjectUI {
 public:
  explicit Books(quor::QuorApplication& application) : ObjectUI(application, "Knygos") {}

  std::vector<quor::MenuEntry> GetMenu(const std::string& context, const std::string&, const std::string&) override {
    using enum quor::MenuPurpose;
    if (context == BO()->GroupContext()) return {{"read all", "Knygų apžvalga", kPreview, kIcon, "books"}};
    const quor::MenuEntry add = {"add", "Pridėti knygą", kNew, kIcon};
    if (quor::is_type_context(context)) return {add};
    return {{"burn", "Sudeginti", kDelete}, {"read", "Skaityti", kOpen}, add, {"copy", "Išrašas", kPrint, "", "books"}};
  }

  quor::ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string&,
                              const std::string&) override {
    if (entry == "burn") return burnt_ = true, quor::ClickResult{quor::ClickAction::kRemoved, nullptr};
    if (entry == "copy") application().NewListReport("Knygų sąrašas", kBook)->Show();
    if (entry == "read") return shown(std::string(kOnlyName) + " " + object);
    if (entry == "add") return shown("Nauja knyga");
    if (entry == "read all") return shown("Visos knygos");
    return {};
  }

  std::shared_ptr<quor::Recordset> GetQuorObjectList(const std::string&, const std::string&,
                                                     const std::string&) override {
    auto list = one_row("OIDR", quor::object_key(kBook, kOnlyBook), "Pavadinimas");
    if (burnt_) list->Filter("OIDR = ''");
    return list;
  }

 private:
  std::shared_ptr<quor::QuorObjectUIO> new_data_object() override { return std::make_shared<Book>(application()); }
  static quor::ClickResult shown(const std::string& caption) {
    return {quor::ClickAction::kShowForm, std::make_shared<BookForm>(caption)};
  }

  bool burnt_ = false;
};

class Header : public quor::QuorHeader {
 public:
  explicit Header(quor::QuorApplication& application) : registry_(application.NewObjectRegistry()) {}
  void DllInicialize() override {
    registry_->AddLayout("L09000001", "L09000001", "Biblioteka", "CLibrary")
        ->AddGroup(kBook, "Skaitykla", kGroup)
        ->AddGroupObject(kBook);
    registry_->RegisterObjectType(kLibrary, kBook, "Knygos");
    const quor::Picture picture{kIcon, kPoint};
    registry_->AddObjectIcon(kIcon, picture);
    registry_->AddLayoutIcon(kIcon, picture);
    registry_->AddLayoutIcon("L09000001", picture);
  }

 private:
  std::shared_ptr<quor::ObjectRegistry> registry_;
};

struct Security : quor::QuorHeaderSecurity {
  std::vector<quor::SecurityComponent> GetComponentList() override {
    return {{"", kGroup, "Skaitykla", quor::kLayoutComponent}};
  }
};

std::shared_ptr<quor::Object> made(const std::string& id, quor::QuorApplication& application) {
  if (id == quor::class_id(kLibrary, quor::kHeaderClass)) return std::make_shared<Header>(application);
  if (id == quor::class_id(kLibrary, quor::kSecurityHeaderClass)) return std::make_shared<Security>();
  if (id == quor::type_class_id(kLibrary, quor::kObjectUIClass, kBook)) return std::make_shared<Books>(application);
  if (id == quor::type_class_id(kLibrary, quor::kDataObjectClass, kBook)) return std::make_shared<Book>(application);
  return nullptr;
}

}  // namespace
}  // namespace second

extern "C" {

[[gnu::visibility("default")]] extern const std::uint32_t quor_plugin_abi;
const std::uint32_t quor_plugin_abi = quor::kPluginAbi;

[[gnu::visibility("default")]] void quor_plugin_create(const char* class_id, quor::QuorApplication& application,
                                                       std::shared_ptr<quor::Object>& object) noexcept {
  object = second::made(class_id, application);
}

}  // extern "C"
