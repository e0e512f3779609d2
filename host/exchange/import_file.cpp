#include "host/exchange/import_file.h"

#include "host/exchange/cell_values.h"
#include "host/exchange/table_heads.h"
#include "host/store/file_text.h"
#include "host/store/tables/column_values.h"
#include "host/text/csv_reader.h"

namespace quor {

namespace {

// Of a month that stands for a day or month, its first day is held to the range.
std::string range_fault(const StoredColumn& column, const Variant& value, const std::string& written) {
  const bool month = column.kind == ColumnKind::kDayOrMonth && value.kind() == Variant::Kind::kText;
  return value_fault(column, month ? Variant(month_of_cell(value)) : value, written);
}

class FileReader {
 public:
  FileReader(TableFile& file, const HeadMapping& mapping, std::vector<ImportFault>& faults)
      : file_(file), mapping_(mapping), faults_(faults) {}

  void take(const CsvRecord& record) {
    if (!has_header_) {
      read_header(record);
    } else if (header_fits_) {
      read_row(record);
    }
  }

  void finish(const std::optional<CsvFault>& broken) {
    if (broken) fault(broken->line, "", broken->text);
    if (!has_header_ && !broken) fault(1, "", "failas tuščias: nėra stulpelių vardų");
    file_.whole = header_fits_ && !broken;
  }

 private:
  void fault(std::size_t line, const std::string& column, const std::string& text) {
    faults_.push_back({file_.name, line, column, text});
  }

  void read_header(const CsvRecord& record) {
    has_header_ = true;
    header_fits_ = true;
    const auto refuse = [&](const std::string& text) {
      fault(record.line, "", text);
      header_fits_ = false;
    };
    const auto& columns = file_.table->columns;
    for (const CsvRecord::Cell& cell : record.cells) {
      const std::size_t column = column_of_head(*file_.table, cell.text, mapping_).column;
      if (column == HeadColumn::kUnknown) {
        refuse("nežinomas stulpelis „" + cell.text + "“");
      } else if (column < columns.size() && file_.present[column]) {
        refuse("stulpelis „" + cell.text + "“ yra du kartus");
      } else if (column < columns.size()) {
        file_.present[column] = true;
      }
      columns_.push_back(column);
    }
    for (std::size_t column = 0; column < columns.size(); ++column) {
      if (columns[column].required() && !file_.present[column]) refuse("trūksta stulpelio " + columns[column].words());
    }
  }

  void read_row(const CsvRecord& record) {
    if (record.cells.size() != columns_.size()) {
      fault(record.line, "",
            "langelių " + std::to_string(record.cells.size()) + ", o stulpelių " + std::to_string(columns_.size()));
      return;
    }
    FileRow row{.line = record.line, .cells = std::vector<Variant>(file_.table->columns.size())};
    for (std::size_t at = 0; at < columns_.size(); ++at) {
      if (columns_[at] == HeadColumn::kLeftOut) continue;
      const StoredColumn& column = file_.table->columns[columns_[at]];
      const CsvRecord::Cell& cell = record.cells[at];
      ParsedCell parsed = cell.null ? ParsedCell{kNull, column.required() ? "trūksta reikšmės" : ""}
                                    : parse_cell(column.kind, cell.text);
      if (parsed.fault.empty()) parsed.fault = range_fault(column, parsed.value, cell.text);
      if (parsed.fault.empty()) {
        row.cells[columns_[at]] = std::move(parsed.value);
      } else {
        fault(cell.line, column.words(), parsed.fault);
        row.sound = false;
      }
    }
    file_.rows.push_back(std::move(row));
  }

  TableFile& file_;
  const HeadMapping& mapping_;
  std::vector<ImportFault>& faults_;
  std::vector<std::size_t> columns_;  // by cell: of the table, or HeadColumn::kLeftOut
  bool has_header_ = false;
  bool header_fits_ = false;
};

}  // namespace

std::string line_of(const ImportFault& fault) {
  return fault.file + ":" + std::to_string(fault.line) + ": " +
         (fault.column.empty() ? "" : "stulpelis " + fault.column + ": ") + fault.text;
}

TableFile read_table_file(const StoredTable& table, const std::string& file, const HeadMapping& mapping,
                          std::vector<ImportFault>& faults) {
  TableFile result{.table = &table, .name = file, .present = std::vector<bool>(table.columns.size()), .rows = {}};
  FileReader reader(result, mapping, faults);
  reader.finish(read_csv(text_of_file(file), [&](const CsvRecord& record) { reader.take(record); }));
  return result;
}

}  // namespace quor
