#include "host/desktop/window/import_columns.h"

#include <QComboBox>
#include <QCryptographicHash>
#include <QHeaderView>
#include <QSettings>
#include <algorithm>

#include "host/exchange/table_heads.h"

namespace quor {

namespace {

QString text(std::string_view part) { return QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size())); }

QString setting_of(const std::vector<std::string>& heads) {
  std::vector<std::string> names;
  for (const std::string& head : heads) names.push_back(folded_name(head));
  std::sort(names.begin(), names.end());
  QCryptographicHash hash(QCryptographicHash::Sha1);
  for (const std::string& name : names) hash.addData(QByteArray::fromStdString(name) + '\n');
  return "import/" + QString::fromLatin1(hash.result().toHex());
}

}  // namespace

ImportColumns::ImportColumns(QWidget* parent) : QTableWidget(0, 2, parent) {
  setHorizontalHeaderLabels({"Failo stulpelis", "Mūsų stulpelis (* būtinas)"});
  setAccessibleName("Failo stulpelių atitikmenys");
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  verticalHeader()->hide();
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setFocusPolicy(Qt::NoFocus);
}

void ImportColumns::show_nothing() {
  table_ = nullptr;
  heads_.clear();
  setRowCount(0);
}

void ImportColumns::show_heads(const StoredTable& table, const std::vector<std::string>& heads,
                               const HeadMapping& mapping) {
  show_nothing();
  table_ = &table;
  heads_ = heads;
  setRowCount(static_cast<int>(heads.size()));
  for (int row = 0; row < rowCount(); ++row) {
    const std::string& head = heads[static_cast<std::size_t>(row)];
    setItem(row, 0, new QTableWidgetItem(text(head)));
    auto* const choice = new QComboBox(this);
    choice->setAccessibleName("Stulpelio „" + text(head) + "“ atitikmuo");
    choice->addItem("(neįkeliamas)", QString());
    for (const StoredColumn& column : table.columns)
      choice->addItem(text(column.caption) + (column.required() ? " *" : ""), text(column.name));
    const std::size_t column = column_of_head(table, head, mapping).column;
    choice->setCurrentIndex(column < table.columns.size() ? static_cast<int>(column) + 1 : 0);
    connect(choice, &QComboBox::activated, this, [this] {
      if (on_change) on_change();
    });
    setCellWidget(row, 1, choice);
  }
}

HeadMapping ImportColumns::mapping() const {
  HeadMapping mapping;
  if (table_ == nullptr) return mapping;
  mapping.table = table_->name;
  for (int row = 0; row < rowCount(); ++row) {
    const auto& choice = static_cast<const QComboBox&>(*cellWidget(row, 1));
    mapping.columns.emplace_back(heads_[static_cast<std::size_t>(row)], choice.currentData().toString().toStdString());
  }
  return mapping;
}

HeadMapping remembered_mapping(const std::vector<std::string>& heads) {
  const QString kept = QSettings().value(setting_of(heads)).toString();
  if (kept.isEmpty()) return {};
  try {
    HeadMapping mapping = read_mapping(kept.toStdString(), "");
    return table_called(mapping.table) == nullptr ? HeadMapping() : mapping;
  } catch (const std::runtime_error&) {
    return {};  // written by another program: chosen anew
  }
}

void remember_mapping(const std::vector<std::string>& heads, const HeadMapping& mapping) {
  QSettings().setValue(setting_of(heads), QString::fromStdString(mapping_json(mapping)));
}

}  // namespace quor
