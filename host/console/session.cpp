#include "host/console/session.h"

#include <algorithm>
#include <iostream>

#include "host/application/main_bo.h"
#include "host/application/plugin_files.h"
#include "host/console/json_values.h"
#include "host/editors/host_editors.h"
#include "host/editors/personal_charge_editor.h"
#include "platform/data/error.h"

namespace quor {

std::optional<Date> today_of(const CommonOptions& options) {
  if (options.today.empty()) return std::nullopt;
  const auto date = try_parse_date(options.today);
  if (!date) throw UsageError("„" + options.today + "“ nėra data: rašykite, pvz., --today 2008.01.31.");
  return date->without_time();
}

Session::Session(const CommonOptions& options, const std::string& pick) {
  ApplicationOptions application_options;
  application_options.pick = pick;
  application_options.edit_charge = edit_personal_charge;
  application_options.host_types = host_editors();
  if (!options.user.empty()) application_options.user = options.user;
  application_options.today = today_of(options);
  company_ = std::make_unique<Company>(Database::open(options.company));
  application_ = std::make_unique<Application>(*company_, application_options);
  application_->on_box([](const ShownBox& box) {
    std::string text = box.text;
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::cerr << "[" << icon_name(box.icon) << "] " << box.title << ": " << text << '\n';
  });
  load_plugins(*application_, options.plugins, [](const std::string& text) { std::cerr << "quor: " << text << '\n'; });
}

Month month_of(const std::string& word) {
  try {
    return Month::parse(word);
  } catch (const Error& error) {
    throw UsageError(error.what());
  }
}

std::shared_ptr<Recordset> Session::named_record_set(const std::string& name, const std::string& parameter) {
  if (!MainBO::knows("Get" + name)) throw std::runtime_error("Nėra įrašų rinkinio „" + name + "“.");
  const MethodResult result = application_->NewMainBO()->RunMethod("Get" + name, parameter, 0);
  if (result.Code != 0) throw std::runtime_error(result.Message);
  return result.Value.record_set();
}

void write_rows(Recordset& rows, const std::vector<TextColumnLayout>& columns, const std::string& format,
                std::ostream& out) {
  if (format == "json") {
    out << to_json(rows).dump() << '\n';
  } else {
    const auto style = csv_style_named(format);
    out << (style ? csv_text(rows, columns, *style) : table_text(rows, columns));
  }
}

const char* icon_name(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kNone:
      return "none";
    case BoxIcon::kCritical:
      return "critical";
    case BoxIcon::kQuestion:
      return "question";
    case BoxIcon::kExclamation:
      return "exclamation";
    case BoxIcon::kInformation:
      return "information";
  }
  return "none";
}

const char* buttons_name(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::kOk:
      return "ok";
    case BoxButtons::kOkCancel:
      return "okcancel";
    case BoxButtons::kYesNo:
      return "yesno";
  }
  return "ok";
}

}  // namespace quor
