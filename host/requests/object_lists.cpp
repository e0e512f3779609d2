#include "host/requests/object_lists.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "frame/contract/quor_object_uio.h"
#include "host/company/in_force.h"
#include "host/requests/list_rows.h"
#include "host/requests/parameter_text.h"
#include "host/store/object_codes.h"
#include "host/store/sort_key.h"
#include "platform/data/column.h"
#include "platform/data/error.h"

namespace quor {

namespace {

constexpr std::size_t kCodeColumn = kNameColumn + 1;

struct ListedType {
  std::string object_type;
  const char* caption;
  std::string select;  // the ID and the columns; what changes with time at the day bound to :p0
  bool by_day;
  std::vector<FieldInfo> columns;  // by caption, as they are stored; the name first
  const char* order;               // as SQL; null: by name, for tables that keep no sort keys
  const char* parent_type = nullptr;
  const char* parent_column = nullptr;
  std::size_t sorted_by = kNameColumn;  // when `order` is null
  bool tree = false;                    // `select` has the ID of the object above behind the columns
  std::vector<ShownRow> (*rows)(Database& database) = nullptr;  // reads them, without a `select`
};

const std::vector<ListedType>& listed_types() {
  using enum FieldType;
  static const std::vector<ListedType> types = {
      {kDepartmentType,
       "Padaliniai",
       "SELECT d.id, d.name, above.name, d.parent_id FROM departments d"
       " LEFT JOIN departments above ON above.id = d.parent_id",
       false,
       {{"Pavadinimas", kText}, {"Aukštesnis padalinys", kText}},
       "d.sort_key, d.id",
       kDepartmentType,
       "d.parent_id",
       kNameColumn,
       true},
      {kEmployeeType,
       "Darbuotojai",
       "SELECT e.id, e.name, d.name FROM employees e JOIN departments d ON d.id = e.department_id",
       false,
       {{"Pavardė, vardas", kText}, {"Padalinys", kText}},
       "e.sort_key, e.id",
       kDepartmentType,
       "e.department_id"},
      {kConstantType,
       "Darbo užmokesčio konstantos",
       "SELECT t.id, t.name, t.code, v.value FROM constant_types t LEFT JOIN constant_values v ON v.id = " +
           id_in_force("constant_values", "dated.constant_type_id = t.id", ":p0"),
       true,
       {{"Pavadinimas", kText}, {"Kodas", kText}, {"Reikšmė", kDouble}},
       nullptr},
      {.object_type = kTimeCodeType,
       .caption = "Laiko kodai",
       .select = "SELECT i.id, i.code_name, i.code FROM indications i WHERE i.indication_code = 'WorkTime'",
       .by_day = false,
       .columns = {{"Pavadinimas", kText}, {"Kodas", kText}},
       .order = nullptr,
       .sorted_by = kCodeColumn},
      {.object_type = kSalaryCodeType,
       .caption = "Darbo užmokesčio kodai",
       .select = "SELECT s.id, s.name, s.code FROM salary_codes s",
       .by_day = false,
       .columns = {{"Pavadinimas", kText}, {"Kodas", kText}},
       .order = nullptr,
       .sorted_by = kCodeColumn},
      {.object_type = kNormType,
       .caption = "Mėnesių normos",
       .select = "",
       .by_day = false,
       .columns = {{"Metai", kText}, {"Valandų per metus", kText}, {"Įrašyta mėnesių", kText}},
       .order = nullptr,
       .rows = norm_years},
      {.object_type = kMonthType,
       .caption = "Mėnesiai",
       .select = "",
       .by_day = false,
       .columns = {{"Mėnuo", kText}, {"Būsena", kText}, {"Žmonių", kText}},
       .order = nullptr,
       .rows = paid_months},
      {.object_type = kWorkedTimeType,
       .caption = "Darbo laikas",
       .select = "",
       .by_day = false,
       .columns = {{"Mėnuo", kText}, {"Žmonių", kText}, {"Valandų", kText}},
       .order = nullptr,
       .rows = timed_months},
      {kCategoryType,
       "Pareigybių kategorijos",
       "SELECT c.id, c.name, r.factor FROM categories c LEFT JOIN category_rows r ON r.id = " +
           id_in_force("category_rows", "dated.category_id = c.id", ":p0"),
       true,
       {{"Pavadinimas", kText}, {"Koeficientas", kDouble}},
       nullptr},
      {kSettingsType,
       "Valstybės tarnautojų nustatymai",
       "SELECT s.id, s.date_from, s.extra_charge_percentage, s.surcharge_percentage, s.total_charge_percentage"
       " FROM settings s",
       false,
       {{"Galioja nuo", kDate}, {"Priedų riba", kDouble}, {"Priemokų riba", kDouble}, {"Bendra riba", kDouble}},
       "s.date_from DESC NULLS LAST, s.id DESC"},
      {kSalaryExtensionType,
       "Darbuotojų pareigybės",
       "SELECT p.id, e.name, c.name, p.date_from, p.date_to FROM positions p JOIN employees e ON e.id = p.employee_id"
       " LEFT JOIN categories c ON c.id = p.category_id",
       false,
       {{"Darbuotojas", kText}, {"Kategorija", kText}, {"Nuo", kDate}, {"Iki", kDate}},
       "e.sort_key, e.id, p.date_from, p.id",
       kEmployeeType,
       "p.employee_id"},
  };
  return types;
}

const ListedType* find(const std::string& object_type) {
  const auto& types = listed_types();
  const auto found =
      std::find_if(types.begin(), types.end(), [&](const ListedType& type) { return type.object_type == object_type; });
  return found == types.end() ? nullptr : &*found;
}

struct ListParameter {
  std::string object_type;
  std::string parent;
};

ListParameter parse(const std::string& text) {
  if (!text.starts_with('\'')) return {text, {}};
  ParameterText reader(text);
  ListParameter parameter{reader.text(), {}};
  if (text.size() > parameter.object_type.size() + 2) parameter.parent = reader.text();
  reader.end();
  return parameter;
}

std::int32_t parent_id(const ListedType& type, const std::string& key) {
  const auto id = type.parent_type != nullptr ? id_of_key(key, type.parent_type) : std::nullopt;
  if (!id) throw Error(ErrorKind::kTypeMismatch, std::string(type.caption) + " nepriklauso objektui „" + key + "“.");
  return *id;
}

std::shared_ptr<Recordset> read_stored(Database& database, const ListedType& type, const std::string& parent,
                                       Date today) {
  std::vector<FieldInfo> fields = {{"ID", FieldType::kInt32}};
  fields.insert(fields.end(), type.columns.begin(), type.columns.end());
  if (type.tree) fields.push_back({"ParentID", FieldType::kInt32});
  std::vector<Variant> values;
  if (type.by_day) values.emplace_back(today);
  std::string sql = type.select;
  if (!parent.empty()) {
    values.emplace_back(parent_id(type, parent));
    sql += std::string(" WHERE ") + type.parent_column + " = :p" + std::to_string(values.size() - 1);
  }
  return database.read(sql + " ORDER BY " + (type.order == nullptr ? "1" : type.order), fields, values);
}

std::vector<ShownRow> rows_of(const ListedType& type, Recordset& stored) {
  std::vector<ShownRow> rows;
  for (; !stored.Eof(); stored.MoveNext()) {
    ShownRow row{stored.int32(FieldHandle{0}), 0, {}, {}};
    row.cells.push_back(object_key(type.object_type, row.id));
    for (std::size_t i = 1; i <= type.columns.size(); ++i) {
      row.cells.push_back(null_to_text(stored.field(FieldHandle{i})));
    }
    if (type.tree) row.parent = stored.int32({type.columns.size() + 1});
    if (type.order == nullptr) row.sort_key = lithuanian_sort_key(row.cells[type.sorted_by]);
    rows.push_back(std::move(row));
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const ShownRow& a, const ShownRow& b) { return a.sort_key < b.sort_key; });
  return rows;
}

std::shared_ptr<Recordset> shown(const ListedType& type, const std::vector<ShownRow>& rows) {
  std::vector<ColumnData> columns;
  columns.emplace_back(FieldInfo{kKeyField, FieldType::kText});
  for (const FieldInfo& column : type.columns) columns.emplace_back(FieldInfo{column.name, FieldType::kText});
  if (type.tree) columns.emplace_back(FieldInfo{kLevelField, FieldType::kText});
  for (const ShownRow& row : rows) {
    for (std::size_t i = 0; i < row.cells.size(); ++i) columns[i].append(row.cells[i]);
  }
  return Recordset::from_columns(std::move(columns));
}

}  // namespace

std::string listed_caption(const std::string& object_type) {
  const ListedType* const type = find(object_type);
  return type == nullptr ? "" : type->caption;
}

std::string listed_type(const std::string& parameter) { return parse(parameter).object_type; }

std::shared_ptr<Recordset> object_list(Company& company, const std::string& parameter, Date today) {
  const ListParameter asked = parse(parameter);
  const ListedType* const type = find(asked.object_type);
  if (type == nullptr) {
    throw Error(ErrorKind::kNotFound, "Tipo „" + asked.object_type + "“ objektų sąrašo nėra.");
  }
  const std::string name = "List " + asked.object_type + " " + asked.parent + " " + date_text(today);
  return company
      .kept(name,
            [&] {
              if (type->rows != nullptr) return shown(*type, type->rows(company.database()));
              const auto stored = read_stored(company.database(), *type, asked.parent, today);
              std::vector<ShownRow> rows = rows_of(*type, *stored);
              return shown(*type, type->tree ? in_tree_order(std::move(rows)) : std::move(rows));
            })
      ->Clone();
}

}  // namespace quor
