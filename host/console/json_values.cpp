#include "host/console/json_values.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "frame/contract/quor_object_uio.h"
#include "host/text/plain_values.h"
#include "platform/data/error.h"

namespace quor {

namespace {

struct TypeName {
  FieldType type;
  const char* name;
};
constexpr TypeName kTypeNames[] = {{FieldType::kInt16, "int16"},        {FieldType::kInt32, "int32"},
                                   {FieldType::kDouble, "double"},      {FieldType::kDate, "date"},
                                   {FieldType::kBool, "bool"},          {FieldType::kText, "text"},
                                   {FieldType::kRecordSet, "recordset"}};

const char* type_name(FieldType type) {
  return std::find_if(std::begin(kTypeNames), std::end(kTypeNames), [&](const TypeName& t) { return t.type == type; })
      ->name;
}

[[noreturn]] void fail(const std::string& what) { throw Error(ErrorKind::kTypeMismatch, what); }

FieldType type_of_name(const std::string& name, const std::string& field) {
  const auto* found =
      std::find_if(std::begin(kTypeNames), std::end(kTypeNames), [&](const TypeName& t) { return name == t.name; });
  if (found == std::end(kTypeNames)) fail("Lauko „" + field + "“ tipas „" + name + "“ nežinomas.");
  return found->type;
}

Json number(double value) {
  constexpr double kExactWhole = 9007199254740992.0;  // 2^53
  if (std::trunc(value) == value && std::abs(value) < kExactWhole) return static_cast<std::int64_t>(value);
  return value;
}

Variant cell_from_json(const Json& json, const FieldInfo& field) {
  if (json.is_null()) return kNull;
  if (field.type == FieldType::kRecordSet) return record_set_from_json(json);
  if (field.type == FieldType::kText && json.is_string()) return json.get<std::string>();
  if (field.type == FieldType::kDate && json.is_string()) return parse_date(json.get<std::string>());
  if (field.type == FieldType::kBool && json.is_boolean()) return json.get<bool>();
  const bool numeric =
      field.type == FieldType::kInt16 || field.type == FieldType::kInt32 || field.type == FieldType::kDouble;
  if (numeric && json.is_number()) return json.get<double>();
  fail("Lauko „" + field.name + "“ (" + type_name(field.type) + ") reikšmė " + json.dump() + " netinka.");
}

const Json& member(const Json& json, const char* name) {
  if (!json.is_object() || !json.contains(name) || !json[name].is_array()) {
    fail(std::string("Įrašų rinkinio JSON neturi sąrašo „") + name + "“.");
  }
  return json[name];
}

// Levels of lists and objects, told by their brackets outside of texts.
int depth_of(const std::string& text) {
  int depth = 0, deepest = 0;
  bool quoted = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quoted && c == '\\') {
      ++at;
    } else if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && (c == '[' || c == '{')) {
      deepest = std::max(deepest, ++depth);
    } else if (!quoted && (c == ']' || c == '}')) {
      --depth;
    }
  }
  return deepest;
}

}  // namespace

Json parse_json(const std::string& text, const std::string& what) {
  if (depth_of(text) > kDeepestJson) {
    throw Error(ErrorKind::kTooMany, what + " įdėtas giliau kaip " + std::to_string(kDeepestJson) + " lygiai.");
  }
  return Json::parse(text, nullptr, /*allow_exceptions=*/false);
}

Json to_json(const Variant& value) {
  using Kind = Variant::Kind;
  switch (value.kind()) {
    case Kind::kEmpty:
    case Kind::kNull:
      return nullptr;
    case Kind::kBool:
      return value.to_bool();
    case Kind::kInt16:
    case Kind::kInt32:
      return value.to_int32();
    case Kind::kDouble:
      return number(value.to_double());
    case Kind::kDate:
      return plain_day(value.to_date());
    case Kind::kText:
      return value.to_text();
    case Kind::kRecordSet:
      return value.record_set() ? to_json(*value.record_set()) : Json(nullptr);
    case Kind::kObject: {
      const auto data_object = std::dynamic_pointer_cast<QuorObjectUIO>(value.object());
      return data_object ? Json{{"object", data_object->OIDR()}} : Json(nullptr);
    }
    case Kind::kArray: {
      Json array = Json::array();
      for (const Variant& element : value.array()) array.push_back(to_json(element));
      return array;
    }
  }
  return nullptr;
}

Json to_json(Recordset& rows) {
  Json fields = Json::array();
  for (std::size_t i = 0; i < rows.field_count(); ++i) {
    const FieldInfo& info = rows.field_info({i});
    fields.push_back({{"name", info.name}, {"type", type_name(info.type)}});
  }
  Json lines = Json::array();
  if (rows.RecordCount() > 0) {
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      Json line = Json::array();
      for (std::size_t i = 0; i < rows.field_count(); ++i) line.push_back(to_json(rows.field(FieldHandle{i})));
      lines.push_back(std::move(line));
    }
  }
  return {{"fields", std::move(fields)}, {"rows", std::move(lines)}};
}

std::shared_ptr<Recordset> record_set_from_json(const Json& json) {
  auto rows = std::make_shared<Recordset>();
  for (const Json& field : member(json, "fields")) {
    if (!field.is_object() || !field.contains("name") || !field["name"].is_string() || !field.contains("type") ||
        !field["type"].is_string()) {
      fail("Laukas " + field.dump() + " neturi vardo arba tipo.");
    }
    const auto name = field["name"].get<std::string>();
    rows->Fields().Append(name, type_of_name(field["type"].get<std::string>(), name));
  }
  rows->Open();
  for (const Json& line : member(json, "rows")) {
    if (!line.is_array() || line.size() != rows->field_count()) {
      fail("Eilutėje " + line.dump() + " yra ne tiek reikšmių, kiek laukų.");
    }
    rows->AddNew();
    for (std::size_t i = 0; i < line.size(); ++i) {
      rows->set_field(FieldHandle{i}, cell_from_json(line[i], rows->field_info({i})));
    }
    rows->Update();
  }
  rows->AcceptBatch();
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return rows;
}

}  // namespace quor
