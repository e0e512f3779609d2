#include "host/console/commands.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "host/console/exchange_commands.h"
#include "host/console/json_values.h"
#include "host/console/session.h"
#include "host/sample/sample_company.h"
#include "host/sample/start_company.h"
#include "host/store/addresses.h"
#include "host/store/object_codes.h"
#include "platform/data/case_folding.h"

namespace quor {

namespace {

Json read_json_file(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  const std::string quoted = "„" + shown_address(file) + "“";
  if (!in || std::filesystem::is_directory(file))
    throw std::runtime_error("Nepavyksta perskaityti failo " + quoted + ".");
  Json json = parse_json({std::istreambuf_iterator<char>(in), {}}, "Failo " + quoted + " JSON");
  if (json.is_discarded()) throw std::runtime_error("Faile " + quoted + " nėra taisyklingo JSON.");
  return json;
}

bool names_file(const std::string& argument) { return argument.starts_with('@') && argument.ends_with(".json"); }

// "@FILE.json", or "@NAME" and "@NAME:PARAMETER".
Variant record_set_argument(const std::string& text, Session& session) {
  const std::string source = text.substr(1);
  if (names_file(text)) return record_set_from_json(read_json_file(source));
  const std::size_t colon = source.find(':');
  const std::string parameter = colon == std::string::npos ? kNoParameter : source.substr(colon + 1);
  return session.named_record_set(source.substr(0, colon), parameter);
}

// An argument that is a JSON number, true or false is that; anything else is text.
Variant argument(const std::string& text, Session& session) {
  if (text.starts_with('@')) return record_set_argument(text, session);
  const bool blank_around = text.empty() || text.find_first_of(" \t\r\n") != std::string::npos;
  const Json json = blank_around ? Json(nullptr) : parse_json(text, "Argumento JSON");
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_number_integer()) {
    const auto whole = json.get<std::int64_t>();
    if (whole == static_cast<std::int32_t>(whole)) return static_cast<std::int32_t>(whole);
  }
  if (json.is_number()) return json.get<double>();
  return text;
}

// An object answers an empty result for a name that it does not know; the program says so, as the object tells its
// names.
bool say_unknown_method(QuorObjectUIO& engine, const std::string& name) {
  const auto names = engine.Properties(kMethodNames, "").Value.record_set();
  std::string close;
  for (; names && !names->Eof(); names->MoveNext()) {
    const std::string known(names->text(FieldHandle{0}));
    if (known == name) return false;
    if (compare_folded(known, name) == 0) close = known;
  }
  std::cerr << "quor: variklis nežino metodo „" << name << "“";
  if (!close.empty()) std::cerr << "; gal norėjote „" << close << "“?";
  std::cerr << '\n';
  return true;
}

Json boxes_json(const std::vector<ShownBox>& boxes) {
  Json array = Json::array();
  for (const ShownBox& box : boxes) {
    array.push_back({{"text", box.text},
                     {"icon", icon_name(box.icon)},
                     {"buttons", buttons_name(box.buttons)},
                     {"title", box.title}});
  }
  return array;
}

}  // namespace

ExitStatus run(const InitCommand& command, const CommonOptions& options, std::ostream& out) {
  if (command.empty && !command.start.empty()) throw UsageError("--empty ir --start kartu nerašomi");
  if (command.empty) return make_empty_company(options, out);
  if (!command.start.empty()) {
    const auto made = Database::create(options.company, [&](Database& to) { fill_start_company(to, command.start); });
    out << "Sukurta įmonė „" << made->name() << "“: be darbuotojų, su įprastais nustatymais.\n";
    return ExitStatus::kDone;
  }
  if (command.employees < 1)
    throw UsageError("Darbuotojų turi būti bent vienas, nurodyta --employees " + std::to_string(command.employees) +
                     ".");
  const auto database = Database::create(options.company, [&](Database& made) {
    fill_sample_company(made, {.employees = command.employees, .seed = command.seed, .progress = {}});
  });
  out << "Sukurta pavyzdinė įmonė „" << database->name() << "“: darbuotojų " << command.employees << ".\n";
  return ExitStatus::kDone;
}

std::vector<std::string> files_read(const CallCommand& command) {
  std::vector<std::string> files;
  for (const std::string& argument : command.arguments) {
    if (names_file(argument)) files.push_back(argument.substr(1));
  }
  return files;
}

ExitStatus run(const CallCommand& command, const CommonOptions& options, std::ostream& out) {
  Session session(options, command.pick);
  const auto engine = session.application().new_data_object(kSalaryExtensionType);
  engine->OID(command.oid);
  Parameters parameters;
  for (const std::string& text : command.arguments) parameters.push_back(argument(text, session));

  const MethodResult result = engine->Methods(command.method, parameters);
  const Json json = {{"Code", result.Code},
                     {"Message", result.Message},
                     {"Value", to_json(result.Value)},
                     {"messages", boxes_json(session.application().shown_boxes())}};
  out << json.dump() << '\n';
  if (say_unknown_method(*engine, command.method)) return ExitStatus::kFailed;
  return result.Code == 0 ? ExitStatus::kDone : ExitStatus::kFailed;
}

ExitStatus run(const GetCommand& command, const CommonOptions& options, std::ostream& out) {
  Session session(options);
  const auto rows = session.named_record_set(command.name, command.parameter);
  write_rows(*rows, all_fields(*rows), options.format, out);
  return ExitStatus::kDone;
}

}  // namespace quor
