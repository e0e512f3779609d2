#include "frame/catalogue.h"

#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace velmora::catalogue {

char32_t numeric_key(char32_t typed, std::string_view text, bool allow_negative, bool allow_decimal) {
  constexpr char32_t kBackspace = 8;
  constexpr char32_t kSwallow = 0;
  if ((typed >= U'0' && typed <= U'9') || typed == kBackspace) return typed;
  if (typed == U'-') return allow_negative ? typed : kSwallow;
  if (typed == U'.') typed = U',';
  if (typed == U',' && allow_decimal && text.find(',') == std::string_view::npos) return typed;
  return kSwallow;
}

std::string normalised_number(std::string_view text, std::int16_t decimals, bool zero_when_not_numeric) {
  if (quor::is_numeric(text)) return quor::fixed_text(quor::parse_number(text), decimals);
  return zero_when_not_numeric ? quor::fixed_text(0.0, decimals) : std::string();
}

void select_all(quor::TextBox& box) {
  if (!box.text().empty()) box.select(0, quor::character_count(box.text()));
}

void clear(quor::TextBox& box) {
  box.set_text("");
  box.set_tag("");
}

std::shared_ptr<quor::Recordset> rows_of(quor::QuorObjectUIO& object) {
  const quor::Variant rows = object.Fields()["Rows"].Value();
  return rows.kind() == quor::Variant::Kind::kRecordSet ? rows.record_set() : nullptr;
}

bool find_by_guid(quor::Recordset* rows, const std::string& guid) {
  return filter_test(rows, "GUID = " + quoted(guid));
}

bool is_true(const quor::MethodResult& result) {
  return result.Code == 0 && !result.Value.is_null() && result.Value.to_bool();
}

void query_rights(quor::QuorApplication& application, Rights& rights, const std::string& object_type) {
  using quor::UserRight;
  constexpr UserRight kInOrder[] = {UserRight::kView, UserRight::kCreate, UserRight::kDelete, UserRight::kPrint,
                                    UserRight::kWrite};
  for (std::size_t i = 0; i < rights.flags.size(); ++i) {
    rights.flags[i] = application.HasRight(kInOrder[i], object_type, 0);
  }
}

std::int32_t chosen_id(const std::string& tag) {
  if (!quor::carries_object(quor::key_of_identity(tag))) return 0;
  if (const auto id = quor::id_of_key(tag)) return *id;
  throw quor::Error(quor::ErrorKind::kTypeMismatch, "„" + tag + "“ nėra objekto raktas.");
}

std::string pick_object(quor::QuorApplication& application, const std::string& code, const std::string& current,
                        const std::string& mode) {
  return application.SelectObject(quor::type_of_key(code), current, mode).Identity;
}

}  // namespace velmora::catalogue
