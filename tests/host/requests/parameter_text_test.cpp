#include "host/requests/parameter_text.h"

#include <gtest/gtest.h>

#include "platform/data/error.h"
#include "tests/support/outcome.h"

namespace quor {
namespace {

// What a request reads that takes `elements`: w whole, t text, d date, l list, n none; and nothing behind them.
std::string read(const char* elements, const char* text) {
  return outcome([&] {
    ParameterText in(text);
    std::string all;
    for (; *elements != '\0'; ++elements) {
      if (*elements == 'w') all += std::to_string(in.whole()) + ";";
      if (*elements == 't') all += in.text() + ";";
      if (*elements == 'd') all += date_text(in.date()) + ";";
      if (*elements == 'l') {
        for (const std::int32_t value : in.whole_list()) all += std::to_string(value) + "+";
      }
      if (*elements == 'n') in.none();
    }
    in.end();
    return all;
  });
}

TEST(ParameterText, ReadsWhatIsThere) {
  const struct {
    const char *elements, *text, *values;
  } cases[] = {
      {"w", "17", "17;"},
      {"w", "-2147483648", "-2147483648;"},
      {"w", "2147483647", "2147483647;"},
      {"t", "''", ";"},
      {"t", "'a,b'", "a,b;"},
      {"t", "'O''Hara'", "O'Hara;"},
      {"t", "''''", "';"},
      {"d", "'2008.01.31'", "2008.01.31;"},
      {"dw", "'2008-1-31',5", "2008.01.31;5;"},
      {"l", "''", ""},
      {"l", "',12,15,'", "12+15+"},
      {"l", "'12,-15'", "12+-15+"},
      {"n", "None", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(read(c.elements, c.text), c.values) << c.text;
}

TEST(ParameterText, RefusesEverythingElse) {
  const std::pair<const char*, std::vector<const char*>> refused[] = {
      {"w", {"2147483648", "", " 17", "+17", "17 ", "17,", "1.5"}},
      {"t", {"'", "'''", "a", "'a' ", "'a''"}},
      {"dw", {"'2008.02.30',5", "2008.01.31,5", "'2008.01.31' ,5", "'2008.01.31';5", "'2008.01.31'5", "'2008.01.31'"}},
      {"dw", {"'2008.01.31',", ",'2008.01.31',5"}},
      {"l", {"'12;15'", "'12-15'", "'12, 15'", "'x'", "12"}},
      {"n", {"none", "", "None "}},
  };
  for (const auto& [elements, texts] : refused) {
    for (const char* text : texts) EXPECT_EQ(read(elements, text), "TypeMismatch") << text;
  }
  EXPECT_EQ(error_text([] { ParameterText("'2008.01.31").date(); }),
            "Užklausos parametras „'2008.01.31“ netinka: laukiama uždarančio apostrofo.");
}

}  // namespace
}  // namespace quor
