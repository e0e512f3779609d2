#include "host/company/tariff_gaps.h"

#include "host/store/tables/column_values.h"

namespace quor {

namespace {

constexpr const char* kTariffColumns[] = {"base_month_tariff_id", "base_hour_tariff_id"};

const std::vector<FieldInfo> kFields = {{"Settings", FieldType::kInt32},
                                        {"Date", FieldType::kDate},
                                        {"Tariff", FieldType::kInt32},
                                        {"Code", FieldType::kText},
                                        {"First", FieldType::kDate}};

std::string text_of(const char* column, const Recordset& gap) {
  const std::string code = null_to_text(gap.field("Code"));
  const std::string tariff = std::string(stored_column("settings", column).caption) + " „" +
                             (code.empty() ? gap.field("Tariff").to_text() : code) + "“";
  if (code.empty()) return tariff + ": tokios konstantos nėra";
  const Variant first = gap.field("First");
  return tariff + " datai " + gap.field("Date").to_text() +
         " neturi reikšmės: " + (first.is_null() ? "neįrašyta nė viena" : "pirmoji galioja nuo " + first.to_text());
}

}  // namespace

std::vector<TariffGap> tariff_gaps(Database& database) {
  std::vector<TariffGap> gaps;
  for (const char* const column : kTariffColumns) {
    const std::string tariff = std::string("s.") + column;
    const std::string first =
        "(SELECT MIN(v.date_from) FROM constant_values v WHERE v.constant_type_id = " + tariff + ")";
    const auto rows = database.read("SELECT s.id, s.date_from, " + tariff + ", t.code, " + first +
                                        " FROM settings s LEFT JOIN constant_types t ON t.id = " + tariff + " WHERE " +
                                        tariff + " <> 0 AND s.date_from IS NOT NULL AND COALESCE(" + first +
                                        ", s.date_from + 1) > s.date_from ORDER BY s.id",
                                    kFields);
    for (; !rows->Eof(); rows->MoveNext()) {
      gaps.push_back({rows->field("Settings").to_int32(), column, rows->field("Tariff").to_int32(),
                      rows->field("Date").to_date(), text_of(column, *rows)});
    }
  }
  return gaps;
}

}  // namespace quor
