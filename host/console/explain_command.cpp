// `quor explain`: where each amount of a person's month comes from, as a tree, a pay slip, or everything as JSON.
#include <algorithm>
#include <iostream>
#include <span>

#include "host/company/office_name.h"
#include "host/console/insight_commands.h"
#include "host/console/json_values.h"
#include "host/console/session.h"
#include "host/console/written_reports.h"
#include "host/insight/explanation.h"
#include "host/insight/pay_slip.h"
#include "host/store/object_codes.h"

namespace quor {

namespace {

// The employee whose ID, key or name it is, or whose name alone begins so. Throws UsageError naming those that it may
// mean.
std::int32_t employee_of(Session& session, const std::string& word) {
  const bool digits = !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
  if (const auto id = id_of_key(digits ? kEmployeeType + word : word, kEmployeeType)) return *id;
  const auto people = session.named_record_set("Employees", "None");
  const FieldHandle number = people->handle("ID"), name = people->handle("Preview");
  using Person = std::pair<std::int32_t, std::string>;
  std::vector<Person> of_name, beginning;
  for (; !people->Eof(); people->MoveNext()) {
    Person person{people->int32(number), people->text(name)};
    if (person.second == word) of_name.push_back(person);
    if (person.second.starts_with(word)) beginning.push_back(std::move(person));
  }
  const std::vector<Person>& meant = of_name.empty() ? beginning : of_name;
  if (meant.empty()) throw UsageError("nėra darbuotojo „" + word + "“");
  if (meant.size() == 1) return meant.front().first;
  constexpr std::size_t kNamed = 10;
  std::string names;
  for (const auto& [each, its_name] : std::span(meant).first(std::min(kNamed, meant.size()))) {
    names += "\n  " + std::to_string(each) + "  " + its_name;
  }
  throw UsageError("„" + word + "“ gali būti keli darbuotojai, nurodykite numerį:" + names);
}

std::string source_text(const StoredSource& source) {
  std::string text = "  [" + source.table + " " + std::to_string(source.id);
  if (!source.stored_by.empty()) text += ", įrašė " + source.stored_by;
  if (!source.stored_at.empty()) text += " " + source.stored_at;
  return text + "]";
}

void print(const ExplainedAmount& amount, const std::string& indent, std::ostream& out) {
  out << indent << sentence_of(amount) << (amount.warns ? " !" : "")
      << (amount.source && amount.source->id != 0 ? source_text(*amount.source) : "") << '\n';
  for (const ExplainedAmount& input : amount.inputs) print(input, indent + "    ", out);
}

void print(const Explanation& explanation, std::ostream& out) {
  out << explanation.person << ", " << explanation.month.text() << (explanation.closed ? " (uždarytas)" : "") << '\n';
  for (const ExplainedAmount& amount : explanation.amounts) print(amount, "", out);
}

Json to_json(const StoredSource& source) {
  return {{"table", source.table},
          {"id", source.id},
          {"from", source.from ? to_json(Variant(*source.from)) : Json()},
          {"stored_by", source.stored_by},
          {"stored_at", source.stored_at},
          {"key", source.key}};
}

Json to_json(const ExplainedAmount& amount) {
  Json json = {{"what", amount.what},
               {"value", amount.value},
               {"number", quor::to_json(Variant(amount.number))},
               {"sentence", sentence_of(amount)},
               {"warns", amount.warns}};
  if (amount.source) json["source"] = to_json(*amount.source);
  json["inputs"] = Json::array();
  for (const ExplainedAmount& input : amount.inputs) json["inputs"].push_back(to_json(input));
  return json;
}

Json to_json(const RecordedRow& row) {
  Json json = Json::object();
  for (const auto& [field, value] : row.values) json[field] = quor::to_json(value);
  return json;
}

Json to_json(const RecordedCall& call) {
  Json json = {{"method", call.method}, {"parameters", Json::array()}, {"Code", call.code}, {"Message", call.message}};
  for (const Variant& each : call.parameters) json["parameters"].push_back(quor::to_json(each));
  json["Value"] = call.row.empty() ? quor::to_json(call.value) : to_json(call.row);
  json["requests"] = Json::array();
  for (const RecordedRequest& each : call.requests) {
    json["requests"].push_back({{"name", each.name},
                                {"parameter", each.parameter},
                                {"failure", each.failure},
                                {"row", to_json(each.row)},
                                {"source", each.source ? to_json(*each.source) : Json()}});
  }
  return json;
}

Json to_json(const Explanation& explanation) {
  constexpr const char* kStates[] = {"same", "missing", "different"};
  Json json = {{"employee", explanation.employee},
               {"person", explanation.person},
               {"month", explanation.month.text()},
               {"closed", explanation.closed},
               {"document", kStates[static_cast<std::size_t>(explanation.document)]},
               {"fault", explanation.fault},
               {"refused", explanation.refused},
               {"amounts", Json::array()},
               {"calls", Json::array()}};
  for (const ExplainedAmount& amount : explanation.amounts) json["amounts"].push_back(to_json(amount));
  for (const RecordedCall& call : explanation.calls) json["calls"].push_back(to_json(call));
  return json;
}

void write(const Explanation& explanation, Application& application, const CommonOptions& options, std::ostream& out) {
  if (options.format == "table") return print(explanation, out);
  if (options.format == "json") {
    out << to_json(explanation).dump() << '\n';
    return;
  }
  const std::string office = office_name(application.company().database());
  write_reports({std::make_shared<ReportData>(pay_slip(explanation, office))}, options, application, out);
}

}  // namespace

ExitStatus run(const ExplainCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month month = month_of(command.month);
  Session session(options);
  Application& application = session.application();
  application.guard().require_view(kSalaryExtensionType);
  if (options.format == kPdfFormat) {
    application.guard().require_right(UserRight::kPrint, kSalaryExtensionType, "spausdinti atsiskaitymo lapelių");
  }
  const Explanation explanation = explain(application, month, employee_of(session, command.employee));
  write(explanation, application, options, out);
  if (const std::string text = document_text(explanation); !text.empty()) std::cerr << text << '\n';
  for (const std::string& refused : explanation.refused) std::cerr << "quor: nepaaiškinta: " << refused << '\n';
  if (!explanation.fault.empty()) std::cerr << "quor: " << explanation.person << ": " << explanation.fault << '\n';
  return explanation.fault.empty() && explanation.refused.empty() ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace quor
