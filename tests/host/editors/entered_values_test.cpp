// What is typed into a dialog's fields, with all its faults at once.
#include "host/editors/entered_values.h"

#include <gtest/gtest.h>

#include "platform/data/number_text.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

struct Screen : ControlSet {
  TextBox from{*this, "from", TextBox::Kind::kDate};
  TextBox to{*this, "to", TextBox::Kind::kDate};
  TextBox share{*this, "share"};
  TextBox name{*this, "name"};
};

TEST(EnteredValues, ReadsWhatIsTypedOrTellsEveryFaultAtOnce) {
  const struct {
    const char *title, *from, *to, *share, *name;
    const char* faults;  // a line each
    const char* cursor;
  } cases[] = {
      {"as it should be", "2008.01.01", "2008.01.01", "2", " Ona ", "", ""},
      {"no end", "1900.01.01", "", "0,5", "O", "", ""},
      {"blank", " ", "", "", "", "Nuo: neįrašyta.|Dalis: neįrašyta.|Vardas: neįrašyta.", "from"},
      {"borders passed", "1899.12.31", "3000.01.01", "0", "O",
       "Nuo: „1899.12.31“ – leidžiama nuo 1900.01.01 iki 2999.12.31.|"
       "Iki: „3000.01.01“ – leidžiama nuo 1900.01.01 iki 2999.12.31.|"
       "Dalis: „0“ – leidžiama daugiau kaip 0 iki 2.",
       "from"},
      {"too much", "2008.01.01", "", "2,01", "O", "Dalis: „2,01“ – leidžiama daugiau kaip 0 iki 2.", "share"},
      {"no number", "2008.01.01", "", "x", "O", "Dalis: „x“ nėra skaičius.", "share"},
      {"ends before it begins", "2008.01.02", "2008.01.01", "1", "O",
       "Pabaiga „2008.01.01“ ankstesnė už pradžią „2008.01.02“.", "to"},
      {"no date", "2008.01.01", "rytoj", "1", "O",
       "Iki: „rytoj“ nėra data: rašykite metus, mėnesį ir dieną, pavyzdžiui, 2008.01.31.", "to"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.title);
    TestCompany company;
    Screen screen;
    std::string cursor;
    for (Control* control : screen.controls()) {
      control->observe([&cursor, control](ControlChange change) {
        if (change == ControlChange::kFocus) cursor += control->name();
      });
    }
    screen.from.set_text(c.from);
    screen.to.set_text(c.to);
    screen.share.set_text(c.share);
    screen.name.set_text(c.name);
    EnteredValues entered(company.application());
    const Date from = entered.date(screen.from, "Nuo");
    const auto to = entered.optional_date(screen.to, "Iki");
    const double share = entered.number(screen.share, "Dalis", kShare);
    const std::string name = entered.text(screen.name, "Vardas");
    entered.in_order(from, to, screen.to);
    EXPECT_EQ(entered.show_faults(), *c.faults != 0);
    std::string shown;
    for (const ShownBox& box : company.application().shown_boxes()) shown += box.text;
    for (std::size_t at; (at = shown.find(kLineBreak)) != std::string::npos;) {
      shown.replace(at, std::string_view(kLineBreak).size(), "|");
    }
    EXPECT_EQ(shown, c.faults);
    EXPECT_EQ(cursor, c.cursor);
    if (*c.faults != 0) continue;
    EXPECT_EQ(date_text(from), c.from);
    EXPECT_EQ(to ? date_text(*to) : "", c.to);
    EXPECT_EQ(general_text(share), c.share);
    EXPECT_EQ(name.front(), 'O') << "blanks around a text are none of it";
  }
}

}  // namespace
}  // namespace quor
