#include "platform/data/filter_syntax.h"

#include <utility>

#include "platform/data/case_folding.h"
#include "platform/data/error.h"

namespace quor {
namespace {

constexpr int kMaxDepth = 100;  // of parentheses, so that no text exhausts the stack

bool is_digit(char c) { return c >= '0' && c <= '9'; }
// Every character beyond ASCII counts as a letter.
bool is_name_char(char c) {
  return is_digit(c) || c == '_' || (fold_ascii(c) >= 'a' && fold_ascii(c) <= 'z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

class FilterParser {
 public:
  explicit FilterParser(std::string_view text) : text_(text) {}

  FilterSyntax parse() {
    parse_or_list(0);
    end_and_list();
    if (!at_end()) fail("nesuprantama „" + std::string(text_.substr(at_)) + "“");
    return std::move(syntax_);
  }

 private:
  // The last AND list of a group stays open: what follows the group decides where it ends.
  void parse_or_list(int depth) {
    parse_and_list(depth);
    while (take_word("or")) {
      end_and_list();
      parse_and_list(depth);
    }
  }

  void parse_and_list(int depth) {
    bool has_or = parse_item(depth);
    bool joined = false;
    while (take_word("and")) {
      joined = true;
      has_or = parse_item(depth) || has_or;
    }
    if (joined && has_or) fail("grupė su OR negali būti jungiama per AND");
  }

  // Whether the item is a group with an OR in it.
  bool parse_item(int depth) {
    if (!take('(')) {
      parse_clause();
      return false;
    }
    if (depth == kMaxDepth) fail("per daug skliaustų");
    const std::size_t lists = syntax_.list_ends.size();
    parse_or_list(depth + 1);
    if (!take(')')) fail("trūksta „)“");
    return syntax_.list_ends.size() != lists;
  }

  void parse_clause() {
    ClauseSyntax clause;
    clause.field = parse_name();
    clause.op = parse_operator();
    parse_literal(clause);
    if (clause.op == FilterOperator::kLike && clause.kind != LiteralKind::kText) fail("po LIKE turi būti tekstas");
    if (clause.kind == LiteralKind::kNullWord && clause.op != FilterOperator::kEqual &&
        clause.op != FilterOperator::kNotEqual) {
      fail("Null lyginamas tik ženklais = ir <>");
    }
    syntax_.clauses.push_back(clause);
  }

  std::string_view parse_name() {
    if (take('[')) {
      const std::string_view name = take_until(']', "trūksta „]“");
      if (name.empty()) fail("trūksta lauko vardo");
      return name;
    }
    const std::size_t begin = at_;
    while (at_ < text_.size() && is_name_char(text_[at_])) ++at_;
    if (at_ == begin) fail("trūksta lauko vardo");
    return text_.substr(begin, at_ - begin);
  }

  FilterOperator parse_operator() {
    if (take_word("like")) return FilterOperator::kLike;
    if (take('=')) return FilterOperator::kEqual;
    if (take('<')) {
      if (take_next('>')) return FilterOperator::kNotEqual;
      return take_next('=') ? FilterOperator::kLessEqual : FilterOperator::kLess;
    }
    if (!take('>')) fail("trūksta palyginimo ženklo");
    return take_next('=') ? FilterOperator::kGreaterEqual : FilterOperator::kGreater;
  }

  void parse_literal(ClauseSyntax& clause) {
    if (take('\'')) {
      clause.kind = LiteralKind::kText;
      const std::size_t begin = at_;
      do {
        take_until('\'', "trūksta apostrofo");
      } while (take_next('\''));
      clause.literal = text_.substr(begin, at_ - begin - 1);
    } else if (take('#')) {
      clause.kind = LiteralKind::kDate;
      clause.literal = take_until('#', "trūksta „#“");
    } else if (!take_word("null")) {
      clause.kind = LiteralKind::kNumber;
      clause.literal = parse_number_literal();
    }
  }

  std::string_view parse_number_literal() {
    const std::size_t begin = at_;
    take_next('-');
    if (!take_digits()) fail("trūksta reikšmės");
    if (take_next('.') && !take_digits()) fail("trūksta skaitmens po kablelio");
    const std::size_t mantissa_end = at_;
    if (take_next('e') || take_next('E')) {
      if (!take_next('-')) take_next('+');
      if (!take_digits()) at_ = mantissa_end;
    }
    return text_.substr(begin, at_ - begin);
  }

  bool take_digits() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && is_digit(text_[at_])) ++at_;
    return at_ != begin;
  }

  bool at_end() {
    while (at_ < text_.size() && (text_[at_] == ' ' || (text_[at_] >= '\t' && text_[at_] <= '\r'))) ++at_;
    return at_ == text_.size();
  }
  bool take(char wanted) { return !at_end() && take_next(wanted); }
  // The very next character, no blank before it.
  bool take_next(char wanted) {
    if (at_ == text_.size() || text_[at_] != wanted) return false;
    ++at_;
    return true;
  }
  bool take_word(std::string_view word) {
    at_end();
    const std::string_view rest = text_.substr(at_);
    if (rest.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (fold_ascii(rest[i]) != word[i]) return false;
    }
    if (rest.size() > word.size() && is_name_char(rest[word.size()])) return false;
    at_ += word.size();
    return true;
  }
  // What stands before the next `sign`, which is taken too.
  std::string_view take_until(char sign, std::string_view missing) {
    const std::size_t end = text_.find(sign, at_);
    if (end == std::string_view::npos) fail(missing);
    const std::string_view taken = text_.substr(at_, end - at_);
    at_ = end + 1;
    return taken;
  }

  void end_and_list() { syntax_.list_ends.push_back(syntax_.clauses.size()); }
  [[noreturn]] void fail(std::string_view reason) const { throw_bad_filter(text_, reason); }

  std::string_view text_;
  std::size_t at_ = 0;
  FilterSyntax syntax_;
};

}  // namespace

std::string ClauseSyntax::text() const {
  std::string single(literal);
  for (std::size_t at = single.find('\''); at != std::string::npos; at = single.find('\'', at + 1)) single.erase(at, 1);
  return single;
}

FilterSyntax parse_filter(std::string_view text) { return FilterParser(text).parse(); }

void throw_bad_filter(std::string_view filter, std::string_view reason) {
  throw Error(ErrorKind::kBadFilter, "Netinkamas filtras „" + std::string(filter) + "“: " + std::string(reason) + ".");
}

}  // namespace quor
