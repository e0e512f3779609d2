#include "host/report/report_xlsx.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <stdexcept>
#include <sys/mman.h>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <xlsxwriter.h>

#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

constexpr double kLettersOfCentimetre = 5.4;  // of the widths in which a sheet counts
constexpr double kNarrowest = 6, kWidest = 60;
constexpr std::size_t kLongestSheetName = 31;
constexpr std::size_t kExactDigits = 15;
constexpr int kSecondsOfDay = 24 * 60 * 60;
constexpr double kUnixDay = 25569;  // 1970-01-01

[[noreturn]] void fail(const std::string& reason) { throw std::runtime_error("XLSX nesukurtas: " + reason + "."); }

void check(lxw_error error) {
  switch (error) {
    case LXW_NO_ERROR:
      return;
    case LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE:
      fail("sąrašas ilgesnis arba platesnis, nei telpa į lapą");
    case LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED:
      fail("langelio tekstas ilgesnis nei 32767 ženklai");
    default:
      fail(lxw_strerror(error));
  }
}

// A file without a name: what people are paid does not lie about in a folder of temporary files.
class UnnamedFile {
 public:
  UnnamedFile() : descriptor_(memfd_create("xlsx", MFD_CLOEXEC)) {
    if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "XLSX nesukurtas");
  }
  UnnamedFile(const UnnamedFile&) = delete;
  UnnamedFile& operator=(const UnnamedFile&) = delete;
  ~UnnamedFile() { close(descriptor_); }

  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
  std::string content() const {
    std::string bytes;
    std::array<char, 65536> part{};
    lseek(descriptor_, 0, SEEK_SET);
    for (ssize_t size = 0; (size = read(descriptor_, part.data(), part.size())) > 0;) {
      bytes.append(part.data(), static_cast<std::size_t>(size));
    }
    return bytes;
  }

 private:
  const int descriptor_;
};

// The decimals of a text that is a number to the last digit; none for another, and for a code that begins with a zero.
std::optional<int> decimals_of(std::string_view text) {
  if (text.find_first_not_of("0123456789, -") != std::string_view::npos || !is_numeric(text)) return {};
  const auto is_digit = [](char letter) { return letter >= '0' && letter <= '9'; };
  const auto digits = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), is_digit));
  if (digits > kExactDigits) return {};
  const std::string_view whole = text.substr(0, text.find(','));
  const std::size_t first = whole.find_first_of("0123456789");
  if (first != std::string_view::npos && whole[first] == '0' && first + 1 < whole.size()) return {};
  if (whole.size() == text.size()) return 0;
  return static_cast<int>(
      std::count_if(text.begin() + static_cast<std::ptrdiff_t>(whole.size()), text.end(), is_digit));
}

std::optional<Date> date_of(const std::string& text) {
  constexpr std::size_t kLength = 10;
  const auto date = text.size() == kLength ? try_parse_date(text) : std::nullopt;
  constexpr int kFirstYear = 1901;  // before it sheets count days that there were not
  return date && date->year() >= kFirstYear ? date : std::nullopt;
}

class Book {
 public:
  Book(const std::string& path, Date made_on) : book_(workbook_new(path.c_str())) {
    if (book_ == nullptr) fail("neužtenka atminties");
    lxw_doc_properties properties{};
    properties.created = static_cast<time_t>(made_on.without_time().serial() - kUnixDay) * kSecondsOfDay;
    workbook_set_properties(book_, &properties);
  }
  Book(const Book&) = delete;
  Book& operator=(const Book&) = delete;
  ~Book() {
    if (book_ != nullptr) lxw_workbook_free(book_);
  }

  void add_sheet(const ReportData& report);
  void finish() { check(workbook_close(std::exchange(book_, nullptr))); }

 private:
  enum class Look { kText, kHead, kTitle, kDate, kNumber, kPercent };

  lxw_format* format(Look look, CellColour colour = CellColour::kNormal, CellAlignment side = CellAlignment::kLeft,
                     int decimals = 0);
  std::string sheet_name(const ReportData& report);
  void add_head(lxw_worksheet& sheet, const ReportData& report, lxw_row_t row);
  void add_cell(lxw_worksheet& sheet, lxw_row_t row, lxw_col_t column, const ReportCell& cell, CellAlignment side);
  static double width_of(const ReportData& report, std::size_t column);

  lxw_workbook* book_;
  std::map<std::tuple<Look, CellColour, CellAlignment, int>, lxw_format*> formats_;
  std::set<std::string> names_;
};

lxw_format* Book::format(Look look, CellColour colour, CellAlignment side, int decimals) {
  lxw_format*& made = formats_[{look, colour, side, decimals}];
  if (made != nullptr) return made;
  made = workbook_add_format(book_);
  if (look == Look::kTitle || look == Look::kHead || colour == CellColour::kRed) format_set_bold(made);
  if (colour == CellColour::kRed) format_set_font_color(made, 0xC00000);
  if (colour == CellColour::kGreyText) format_set_font_color(made, LXW_COLOR_GRAY);
  if (side == CellAlignment::kRight) format_set_align(made, LXW_ALIGN_RIGHT);
  if (look == Look::kDate) format_set_num_format(made, "yyyy.mm.dd");
  if (look == Look::kNumber || look == Look::kPercent) {
    const std::string places = decimals > 0 ? "." + std::string(static_cast<std::size_t>(decimals), '0') : "";
    const char* const whole = look == Look::kNumber && decimals == 2 ? "#,##0" : "0";
    format_set_num_format(made, (whole + places + (look == Look::kPercent ? "%" : "")).c_str());
  }
  if (look == Look::kHead) {
    format_set_text_wrap(made);
    format_set_align(made, LXW_ALIGN_VERTICAL_CENTER);
    format_set_bottom(made, LXW_BORDER_THIN);
  }
  return made;
}

// What tells the report from the others; a sheet's name has few characters, and is there once.
std::string Book::sheet_name(const ReportData& report) {
  std::string name = report.headings.empty() ? report.title : report.headings.back();
  for (const char forbidden : std::string_view("[]:*?/\\'")) std::replace(name.begin(), name.end(), forbidden, ' ');
  name.erase(0, std::min(name.size(), name.find_first_not_of(' ')));
  if (name.empty()) name = "Sąrašas";
  for (int number = 1;; ++number) {
    const std::string ending = number == 1 ? "" : " " + std::to_string(number);
    std::string tried = name.substr(0, byte_position(name, kLongestSheetName - ending.size())) + ending;
    if (workbook_validate_sheet_name(book_, tried.c_str()) == LXW_NO_ERROR && names_.insert(tried).second) return tried;
    if (number > 1 && names_.count(tried) == 0) name = "Sąrašas";  // refused for another reason
  }
}

void Book::add_sheet(const ReportData& report) {
  lxw_worksheet* const sheet = workbook_add_worksheet(book_, sheet_name(report).c_str());
  if (sheet == nullptr) fail("neužtenka atminties");
  lxw_row_t row = 0;
  const auto add_line = [&](const std::string& line, Look look) {
    const std::string text = line.substr(std::min(line.size(), line.find_first_not_of(' ')));
    if (!text.empty()) check(worksheet_write_string(sheet, row++, 0, text.c_str(), format(look)));
  };
  add_line(report.title, Look::kTitle);
  for (const std::string& heading : report.headings) add_line(heading, Look::kText);
  if (row > 0) ++row;
  add_head(*sheet, report, row++);
  for (std::size_t line = 0; line < report.lines; ++line, ++row) {
    for (std::size_t i = 0; i < report.columns.size(); ++i) {
      add_cell(*sheet, row, static_cast<lxw_col_t>(i), report.cell(line, i), report.columns[i].alignment);
    }
  }
}

void Book::add_head(lxw_worksheet& sheet, const ReportData& report, lxw_row_t row) {
  for (std::size_t i = 0; i < report.columns.size(); ++i) {
    const auto at = static_cast<lxw_col_t>(i);
    const ReportColumn& column = report.columns[i];
    check(worksheet_set_column(&sheet, at, at, width_of(report, i), nullptr));
    check(worksheet_write_string(&sheet, row, at, column.caption.c_str(),
                                 format(Look::kHead, CellColour::kNormal, column.alignment)));
  }
  worksheet_freeze_panes(&sheet, row + 1, 0);
  check(worksheet_repeat_rows(&sheet, row, row));
  constexpr uint8_t kA4 = 9;
  worksheet_set_paper(&sheet, kA4);
  worksheet_set_landscape(&sheet);
  worksheet_fit_to_pages(&sheet, 1, 0);
}

void Book::add_cell(lxw_worksheet& sheet, lxw_row_t row, lxw_col_t column, const ReportCell& cell, CellAlignment side) {
  if (cell.text.empty()) return;
  const bool percent = cell.text.ends_with('%');
  const std::string number = cell.text.substr(0, cell.text.size() - (percent ? 1 : 0));
  const auto decimals = side == CellAlignment::kRight ? decimals_of(number) : std::nullopt;
  if (decimals) {
    lxw_format* const look = format(percent ? Look::kPercent : Look::kNumber, cell.colour, side, *decimals);
    check(worksheet_write_number(&sheet, row, column, parse_number(number) / (percent ? 100 : 1), look));
  } else if (const auto date = date_of(cell.text)) {
    lxw_datetime day{};
    day.year = date->year();
    day.month = date->month();
    day.day = date->day();
    check(worksheet_write_datetime(&sheet, row, column, &day, format(Look::kDate, cell.colour, side)));
  } else {
    check(worksheet_write_string(&sheet, row, column, cell.text.c_str(), format(Look::kText, cell.colour, side)));
  }
}

double Book::width_of(const ReportData& report, std::size_t column) {
  double width = report.columns[column].width * kLettersOfCentimetre;
  for (std::size_t line = 0; line < report.lines; ++line) {
    width = std::max(width, static_cast<double>(character_count(report.cell(line, column).text)) + 2);
  }
  return std::clamp(width, kNarrowest, kWidest);
}

}  // namespace

std::string report_xlsx(const Reports& reports, Date made_on) {
  const UnnamedFile file;
  Book book(file.path(), made_on);
  for (const auto& report : reports) book.add_sheet(*report);
  book.finish();
  return file.content();
}

}  // namespace quor
