#include "host/company/desk_top.h"

#include "host/store/object_codes.h"

namespace quor {

void put_on_desk_top(Company& company, const std::string& user, const std::string& object) {
  if (!id_of_key(object)) return;
  Transaction transaction(company.database(), Writes::kOther);
  const auto added = company.database().execute(
      "INSERT INTO desk_top (user_name, object, position) SELECT :p0, :p1, COALESCE(MAX(position), 0) + 1"
      " FROM desk_top WHERE user_name = :p0 ON CONFLICT (user_name, object) DO NOTHING",
      {user, object});
  if (added > 0) transaction.commit();
}

void take_off_desk_top(Company& company, const std::string& user, const std::string& object) {
  Transaction transaction(company.database(), Writes::kOther);
  const auto removed =
      company.database().execute("DELETE FROM desk_top WHERE user_name = :p0 AND object = :p1", {user, object});
  if (removed > 0) transaction.commit();
}

std::vector<std::string> desk_top_of(Company& company, const std::string& user) {
  const auto rows = company.database().read("SELECT object FROM desk_top WHERE user_name = :p0 ORDER BY position",
                                            {{"Object", FieldType::kText}}, {user});
  std::vector<std::string> objects;
  for (; !rows->Eof(); rows->MoveNext()) objects.emplace_back(rows->text(FieldHandle{0}));
  return objects;
}

}  // namespace quor
