#include "host/insight/rules/rule_reading.h"

#include <algorithm>
#include <optional>

#include "host/text/csv_cells.h"
#include "host/text/csv_reader.h"
#include "host/text/plain_values.h"
#include "platform/data/case_folding.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string quoted_value(std::string_view text) { return "„" + std::string(text) + "“"; }
std::string at_line(std::size_t line) { return std::to_string(line) + " eilutė"; }
std::string at_cell(std::size_t line, std::string_view column) {
  return at_line(line) + ", stulpelis " + quoted_value(column) + ": ";
}

[[noreturn]] void refuse(const std::string& text) { throw Error(ErrorKind::kTypeMismatch, text); }

// ---- values

std::optional<double> simple_number(std::string_view text) {
  if (const auto plain = parse_plain_number(text)) return plain;
  return is_numeric(text) ? try_parse_number(text) : std::nullopt;
}

// Also a fraction, which no decimals say to the last bit: "2/3".
std::optional<double> number_of(std::string_view text) {
  const auto stroke = text.find('/');
  if (stroke == std::string_view::npos) return simple_number(text);
  const auto above = simple_number(trimmed(text.substr(0, stroke)));
  const auto below = simple_number(trimmed(text.substr(stroke + 1)));
  if (!above || !below || *below == 0) return std::nullopt;
  return *above / *below;
}

template <typename T>
std::optional<Variant> as_variant(const std::optional<T>& value) {
  return value ? std::optional(Variant(*value)) : std::nullopt;
}

// None for a text that is no such value.
std::optional<Variant> value_of(RuleValue kind, std::string_view text) {
  switch (kind) {
    case RuleValue::kNumber:
      return as_variant(number_of(text));
    case RuleValue::kWhole:
      return as_variant(parse_plain_whole(text));
    case RuleValue::kDay:
      return as_variant(parse_plain_day(text));
    case RuleValue::kMonth:
      if (const auto month = Month::try_parse(text)) return Variant(month->first_day());
      return std::nullopt;
    case RuleValue::kScale:
      return parse_scale(text) ? std::optional(Variant(text)) : std::nullopt;
    case RuleValue::kText:
      return Variant(unguarded(text));
  }
  return std::nullopt;
}

const char* wanted(RuleValue kind) {
  switch (kind) {
    case RuleValue::kNumber:
      return "nėra skaičius: rašykite, pvz., 9,7 arba 80/168";
    case RuleValue::kWhole:
      return "nėra sveikasis skaičius: rašykite, pvz., 37";
    case RuleValue::kDay:
      return "nėra data: rašykite, pvz., 2008.01.31";
    case RuleValue::kMonth:
      return "nėra mėnuo: rašykite, pvz., 2008.01";
    case RuleValue::kScale:
      return "nėra skalė: rašykite, pvz., 0-5:3 5-10:5";
    case RuleValue::kText:
      break;
  }
  return "netinka";
}

// ---- the head

class RuleHead {
 public:
  explicit RuleHead(const CsvRecord& head) : line_(head.line) {
    for (const CsvRecord::Cell& cell : head.cells) captions_.emplace_back(trimmed(cell.text));
    // A spreadsheet writes empty cells behind the last head.
    while (!captions_.empty() && captions_.back().empty()) captions_.pop_back();
    if (captions_.empty()) refuse(at_line(line_) + ": stulpelių vardų nėra");
    rule_ = meant_rule();
    require_known_once();
  }

  const Rule& rule() const { return *rule_; }
  std::size_t columns() const { return captions_.size(); }
  const std::string& caption(std::size_t at) const { return captions_[at]; }
  std::optional<std::size_t> place_of(std::string_view caption) const {
    const auto found = std::find_if(captions_.begin(), captions_.end(),
                                    [&](const std::string& each) { return compare_folded(each, caption) == 0; });
    if (found == captions_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - captions_.begin());
  }

 private:
  static std::vector<std::string> captions_of(const Rule& rule) {
    std::vector<std::string> captions;
    for (const auto* columns : {&rule.facts, &rule.results}) {
      for (const RuleColumn& column : *columns) captions.emplace_back(column.caption);
    }
    return captions;
  }

  // Of which most columns are there.
  const Rule* meant_rule() const {
    const Rule* best = nullptr;
    std::ptrdiff_t most = 0;
    for (const Rule& rule : rules()) {
      const auto captions = captions_of(rule);
      const auto found = std::count_if(captions.begin(), captions.end(),
                                       [&](const std::string& each) { return place_of(each).has_value(); });
      if (found > most) most = found, best = &rule;
    }
    if (best != nullptr) return best;
    std::string known;
    for (const Rule& rule : rules()) known += (known.empty() ? "" : ", ") + std::string(rule.caption);
    refuse(at_line(line_) + ", stulpelis " + quoted_value(captions_.front()) +
           ": pagal stulpelius lentelė nepažįstama; taisyklės yra: " + known);
  }

  void require_known_once() const {
    auto known = captions_of(*rule_);
    for (const std::string& caption : known) {
      if (!place_of(caption)) {
        refuse(at_line(line_) + ": taisyklės " + quoted_value(rule_->caption) + " lentelei trūksta stulpelio " +
               quoted_value(caption));
      }
    }
    known.emplace_back(kCaseName);
    for (std::size_t at = 0; at < captions_.size(); ++at) {
      const std::string& caption = captions_[at];
      const std::string numbered = at_line(line_) + ", " + std::to_string(at + 1) + "-as stulpelis ";
      if (std::none_of(known.begin(), known.end(),
                       [&](const std::string& each) { return compare_folded(each, caption) == 0; })) {
        refuse(numbered + quoted_value(caption) + ": taisyklė " + quoted_value(rule_->caption) +
               " tokio stulpelio neturi");
      }
      if (place_of(caption) != at) refuse(numbered + quoted_value(caption) + ": toks stulpelis jau yra");
    }
  }

  const std::size_t line_;
  std::vector<std::string> captions_;
  const Rule* rule_ = nullptr;
};

// ---- rows

class CaseReader {
 public:
  void take(const CsvRecord& record) {
    if (!head_) {
      head_.emplace(record);
      return;
    }
    if (std::all_of(record.cells.begin(), record.cells.end(),
                    [](const CsvRecord::Cell& cell) { return trimmed(cell.text).empty(); })) {
      return;
    }
    take_case(record);
  }

  RuleCases result() {
    if (!head_) refuse("failas tuščias");
    if (!faults_.empty()) refuse(faults_);
    if (cases_.empty()) refuse("nėra nė vieno atvejo: po stulpelių vardų eilučių su reikšmėmis nėra");
    return {&head_->rule(), std::move(cases_)};
  }

 private:
  void take_case(const CsvRecord& record) {
    const std::string faults_before = faults_;
    for (std::size_t at = 0; at < std::max(record.cells.size(), head_->columns()); ++at) {
      const bool has_cell = at < record.cells.size(), has_head = at < head_->columns();
      if (has_cell && has_head) continue;
      if (has_cell && trimmed(record.cells[at].text).empty()) continue;
      note(at_line(record.line) + ": langelių " + std::to_string(record.cells.size()) + ", o stulpelių " +
           std::to_string(head_->columns()));
      return;
    }
    const Rule& rule = head_->rule();
    RuleCase read{.line = record.line};
    for (const RuleColumn& column : rule.facts) read.facts.push_back(cell(record, column, !column.optional));
    for (const RuleColumn& column : rule.results) read.expected.push_back(cell(record, column, false));
    if (const auto name = head_->place_of(kCaseName)) read.name = unguarded(trimmed(record.cells[*name].text));
    if (faults_ != faults_before) return;
    if (rule.check) {
      if (const auto fault = rule.check(RuleFacts(rule.facts, read.facts))) {
        const auto& text = record.cells[*head_->place_of(fault->column)].text;
        note(at_cell(record.line, fault->column) + quoted_value(text) + ": " + fault->text);
        return;
      }
    }
    cases_.push_back(std::move(read));
  }

  Variant cell(const CsvRecord& record, const RuleColumn& column, bool required) {
    const CsvRecord::Cell& read = record.cells[*head_->place_of(column.caption)];
    const std::string_view text = column.value == RuleValue::kText ? std::string_view(read.text) : trimmed(read.text);
    if (text.empty()) {
      if (required) note(at_cell(read.line, column.caption) + "langelis tuščias, o reikšmės reikia");
      return kNull;
    }
    if (auto value = value_of(column.value, text)) return std::move(*value);
    note(at_cell(read.line, column.caption) + quoted_value(text) + " " + wanted(column.value));
    return kNull;
  }

  void note(const std::string& fault) { faults_ += (faults_.empty() ? "" : "\n") + fault; }

  std::optional<RuleHead> head_;
  std::vector<RuleCase> cases_;
  std::string faults_;  // a line each
};

}  // namespace

RuleCases read_rule_cases(std::string_view bytes) {
  CaseReader reader;
  if (const auto fault = read_csv(bytes, [&](const CsvRecord& record) { reader.take(record); })) {
    refuse(at_line(fault->line) + ": " + fault->text);
  }
  return reader.result();
}

}  // namespace quor
