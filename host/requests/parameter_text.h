// The parameter text of a request, read strictly from left to right: '…' texts and dates, numbers, lists, parted by
// commas. Whatever does not parse throws quor::Error (TypeMismatch) with a text that quotes it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/date.h"

namespace quor {

class ParameterText {
 public:
  // `text` must outlive the reader.
  explicit ParameterText(std::string_view text) : text_(text) {}

  std::string text();                      // 'any text', a quote inside doubled
  Date date();                             // '2008.01.31'
  std::int32_t whole();                    // 17
  std::vector<std::int32_t> whole_list();  // ',12,15,' or '' (none)
  void none();                             // the text "None" of a request without parameters
  void end();                              // nothing may follow

 private:
  void separator();
  [[noreturn]] void fail(std::string_view expected) const;

  std::string_view text_;
  std::size_t position_ = 0;
  bool first_ = true;
};

}  // namespace quor
