#include "host/exchange/table_heads.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "host/store/addresses.h"
#include "host/store/file_text.h"
#include "host/text/csv_reader.h"

namespace quor {

namespace {

constexpr std::size_t kLongestHead = 64 * 1024;

std::string place_of_head(const std::string& file) { return shown_address(file) + ":1: "; }

std::string in_quotes(const std::string& text) { return "„" + text + "“"; }

// "trūksta stulpelio „hours“ (valandos), nežinomas stulpelis „val“"
std::string slips_of(const HeadFit& fit) {
  std::string text;
  const auto add = [&](const std::string& slip) { text += (text.empty() ? "" : ", ") + slip; };
  for (const StoredColumn* column : fit.missing) add("trūksta stulpelio " + column->words());
  for (const std::string& head : fit.unknown) add("nežinomas stulpelis " + in_quotes(head));
  return text;
}

HeadFit nearest(const std::vector<std::string>& heads, const HeadMapping& mapping) {
  HeadFit best;
  const auto slips = [](const HeadFit& fit) { return fit.unknown.size() + fit.missing.size(); };
  for (const StoredTable& table : stored_tables()) {
    HeadFit fit = fit_of(table, heads, mapping);
    if (fit.known == 0) continue;
    const bool nearer =
        best.table == nullptr || slips(fit) < slips(best) || (slips(fit) == slips(best) && fit.known > best.known);
    if (nearer) best = std::move(fit);
  }
  return best;
}

const StoredTable& one_of(const std::vector<const StoredTable*>& fitting, const std::string& file) {
  if (fitting.size() == 1) return *fitting.front();
  const StoredTable* const named = table_called(std::filesystem::path(file).stem().string());
  if (std::find(fitting.begin(), fitting.end(), named) != fitting.end()) return *named;
  std::string names;
  for (const StoredTable* table : fitting) names += (names.empty() ? "" : ", ") + table->words();
  throw std::runtime_error(place_of_head(file) + "stulpeliai tinka kelioms lentelėms: " + names +
                           "; nurodykite, kuriai");
}

}  // namespace

const StoredTable* table_called(std::string_view words) {
  if (const StoredTable* const exact = find_stored_table(words)) return exact;
  const std::string folded = folded_name(words);
  for (const StoredTable& table : stored_tables()) {
    if (folded == folded_name(table.caption) || folded == folded_name(table.name)) return &table;
  }
  return nullptr;
}

std::size_t column_called(const StoredTable& table, std::string_view words) {
  const std::size_t exact = table.column(words);
  if (exact < table.columns.size()) return exact;
  const std::string folded = folded_name(words);
  const auto found = std::find_if(table.columns.begin(), table.columns.end(), [&](const StoredColumn& column) {
    return folded == folded_name(column.caption) || folded == folded_name(column.name);
  });
  return static_cast<std::size_t>(found - table.columns.begin());
}

HeadColumn column_of_head(const StoredTable& table, std::string_view head, const HeadMapping& mapping) {
  const auto mapped = mapping.column_of(head);
  if (mapped && mapped->empty()) return {HeadColumn::kLeftOut};
  const std::size_t column = column_called(table, mapped ? *mapped : head);
  return column == table.columns.size() ? HeadColumn{} : HeadColumn{column};
}

std::vector<std::string> heads_of_file(const std::string& file) {
  std::vector<std::string> heads;
  bool done = false;
  // Where the part breaks off does not matter: the first record stands before it.
  (void)read_csv(text_of_file(file, kLongestHead), [&](const CsvRecord& record) {
    for (const CsvRecord::Cell& cell : record.cells) {
      if (!done) heads.push_back(cell.text);
    }
    done = true;
  });
  return heads;
}

HeadFit fit_of(const StoredTable& table, const std::vector<std::string>& heads, const HeadMapping& mapping) {
  HeadFit fit{.table = &table, .known = 0, .unknown = {}, .missing = {}};
  std::vector<bool> present(table.columns.size());
  for (const std::string& head : heads) {
    const std::size_t column = column_of_head(table, head, mapping).column;
    if (column == HeadColumn::kUnknown) fit.unknown.push_back(head);
    if (column < present.size()) present[column] = true;
  }
  for (std::size_t at = 0; at < present.size(); ++at) {
    if (present[at]) ++fit.known;
    if (!present[at] && table.columns[at].required()) fit.missing.push_back(&table.columns[at]);
  }
  return fit;
}

const StoredTable& table_of_file(const std::string& file, const HeadMapping& mapping) {
  if (!mapping.table.empty()) {
    if (const StoredTable* const named = table_called(mapping.table)) return *named;
    throw std::runtime_error("atitikmenyse nežinoma lentelė " + in_quotes(mapping.table));
  }
  const std::vector<std::string> heads = heads_of_file(file);
  if (heads.empty()) throw std::runtime_error(place_of_head(file) + "failas tuščias: nėra stulpelių vardų");
  std::vector<const StoredTable*> fitting;
  for (const StoredTable& table : stored_tables()) {
    if (fit_of(table, heads, mapping).fits()) fitting.push_back(&table);
  }
  if (!fitting.empty()) return one_of(fitting, file);
  const HeadFit best = nearest(heads, mapping);
  if (best.table == nullptr) {
    throw std::runtime_error(place_of_head(file) + "nė vienas stulpelis neatpažintas: „" + heads.front() +
                             "“ ir kiti; pirmoje eilutėje turi būti stulpelių vardai");
  }
  throw std::runtime_error(place_of_head(file) + "stulpeliai netinka jokiai lentelei; artimiausia " +
                           best.table->words() + ": " + slips_of(best));
}

const StoredTable* nearest_table(const std::vector<std::string>& heads, const HeadMapping& mapping) {
  return nearest(heads, mapping).table;
}

}  // namespace quor
