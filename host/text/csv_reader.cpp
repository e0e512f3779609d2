#include "host/text/csv_reader.h"

#include <csv.h>
#include <new>

namespace quor {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The library's parser, fed line by line, so that every cell knows its line.
class Reader {
 public:
  explicit Reader(char separator) {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    csv_set_space_func(&parser_, [](unsigned char) { return 0; });  // blanks belong to the text
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() { csv_free(&parser_); }

  // False when the line does not parse; the reader is of no use then.
  bool feed(std::string_view line) {
    ++line_;
    if (!in_record_) {
      record_.line = cell_line_ = line_;
      in_record_ = line.find_first_not_of("\r\n") != std::string_view::npos;
    }
    return csv_parse(&parser_, line.data(), line.size(), on_cell, on_record, this) == line.size();
  }
  bool finish() { return csv_fini(&parser_, on_cell, on_record, this) == 0; }

  // Records that have ended since the last call.
  void hand_over(const std::function<void(const CsvRecord&)>& take) {
    for (const CsvRecord& record : ended_) take(record);
    ended_.clear();
  }
  std::size_t line() const { return line_; }
  std::size_t cell_line() const { return cell_line_; }

 private:
  static void on_cell(void* text, std::size_t length, void* self) {
    auto& reader = *static_cast<Reader*>(self);
    reader.record_.cells.push_back({std::string(static_cast<const char*>(text), text == nullptr ? 0 : length),
                                    text == nullptr, reader.cell_line_});
    reader.cell_line_ = reader.line_;
  }
  static void on_record(int /*terminator*/, void* self) {
    auto& reader = *static_cast<Reader*>(self);
    reader.ended_.push_back(std::move(reader.record_));
    reader.record_ = {};
    reader.in_record_ = false;
  }

  csv_parser parser_{};
  CsvRecord record_;
  std::vector<CsvRecord> ended_;
  std::size_t line_ = 0;
  std::size_t cell_line_ = 0;
  bool in_record_ = false;
};

// Behind LF, CR LF or a lone CR, which ends a record too.
std::size_t end_of_line(std::string_view bytes) {
  const std::size_t mark = bytes.find_first_of("\r\n");
  if (mark == std::string_view::npos) return bytes.size();
  return mark + (bytes.substr(mark, 2) == "\r\n" ? 2 : 1);
}

}  // namespace

std::optional<CsvFault> read_csv(std::string_view bytes, const std::function<void(const CsvRecord&)>& take) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  const bool semicolon = bytes.substr(0, bytes.find_first_of("\r\n")).find(';') != std::string_view::npos;
  Reader reader(semicolon ? ';' : ',');
  for (std::size_t end = 0; !bytes.empty(); bytes.remove_prefix(end)) {
    end = end_of_line(bytes);
    const bool parsed = reader.feed(bytes.substr(0, end));
    reader.hand_over(take);
    if (!parsed) return CsvFault{reader.line(), "kabutės tekste be kabučių arba tekstas už kabučių"};
  }
  if (!reader.finish()) return CsvFault{reader.cell_line(), "kabutės neuždarytos"};
  reader.hand_over(take);
  return std::nullopt;
}

}  // namespace quor
