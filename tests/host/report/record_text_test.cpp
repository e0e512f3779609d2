#include "host/report/record_text.h"

#include <gtest/gtest.h>

#include "platform/data/error.h"
#include "tests/support/recordset_rows.h"

namespace quor {
namespace {

std::shared_ptr<Recordset> people() {
  return record_set({{"Name", FieldType::kText},
                     {"Salary", FieldType::kDouble},
                     {"From", FieldType::kDate},
                     {"Years", FieldType::kInt16},
                     {"Rows", FieldType::kRecordSet}},
                    {{"Šešelgytė", 1260.0, parse_date("2008.01.31"), 7, ids({1, 2})},
                     {"Ona, „Jr\"", 0.125, kNull, -12, kNull},
                     {kNull, kNull, parse_date("2007.12.01"), kNull, ids({})}});
}

TEST(RecordText, ATableIsAlignedByCharactersWithNumbersToTheRight) {
  const auto rows = people();
  EXPECT_EQ(table_text(*rows, {{"Name", "Pavardė"}, {"Salary", "Alga", 2}, {"Years", "Metai"}, {"From", "Nuo"}}),
            "Pavardė       Alga  Metai  Nuo\n"
            "---------  -------  -----  ----------\n"
            "Šešelgytė  1260,00      7  2008.01.31\n"
            "Ona, „Jr\"     0,13    -12  \n"
            "                           2007.12.01\n");
  EXPECT_EQ(table_text(*rows, {{"Rows", "Eil."}, {"Salary", "S"}}),
            "Eil.      S\n"
            "----  -----\n"
            "[2]    1260\n"
            "      0,125\n"
            "[0]        \n");
  rows->Filter("Years = 99");
  EXPECT_EQ(table_text(*rows, {{"Years", "Metai"}}), "Metai\n-----\n");
  EXPECT_EQ(outcome([&] { return table_text(*rows, {{"Nothing", "x"}}); }), "NoSuchField");
}

TEST(RecordText, CsvIsForPrograms) {
  const auto rows = people();
  EXPECT_EQ(csv_text(*rows, all_fields(*rows)),
            "Name,Salary,From,Years,Rows\r\n"
            "Šešelgytė,1260,2008-01-31,7,[2]\r\n"
            "\"Ona, „Jr\"\"\",0.125,,-12,\r\n"
            ",,2007-12-01,,[0]\r\n");
  const auto texts = record_set({{"a", FieldType::kText}}, {{"x;y"}, {"a\nb"}, {"2008.01.31"}, {"1,5"}, {""}});
  EXPECT_EQ(csv_text(*texts, {{"a", "Galva, \"pirma\""}}),
            "\"Galva, \"\"pirma\"\"\"\r\n\"x;y\"\r\n\"a\nb\"\r\n2008.01.31\r\n\"1,5\"\r\n\r\n");
  const auto numbers = record_set({{"a", FieldType::kDouble}}, {{0.1}, {1.0 / 3.0}, {1e15}, {-0.5}, {5e-7}});
  EXPECT_EQ(csv_text(*numbers, {{"a", "a", 2}}),
            "a\r\n0.1\r\n0.3333333333333333\r\n1000000000000000\r\n-0.5\r\n0.0000005\r\n")
      << "numbers are whole, whatever the table rounds";
  const auto cells = record_set({{"a", FieldType::kText}, {"b", FieldType::kDouble}},
                                {{"=1+1", -0.25}, {"-5,25", 1e5}, {"-", 0.1}, {"a;b", 7.0}});
  EXPECT_EQ(csv_text(*cells, {{"a", "a"}, {"b", "b"}}, kSpreadsheetCsv),
            "\xEF\xBB\xBF"
            "a;b\r\n'=1+1;-0,25\r\n-5,25;100000\r\n'-;0,1\r\n\"a;b\";7\r\n");
}

}  // namespace
}  // namespace quor
