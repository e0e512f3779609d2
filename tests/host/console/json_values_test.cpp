#include "host/console/json_values.h"

#include <gtest/gtest.h>

#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(JsonValues, EveryKindOfValueHasItsForm) {
  TestCompany company;
  company.given_position({.employee = company.given_employee("Pirmoji")});
  const auto object = company.application().NewStandardObjectUIO("O0402000");
  object->OIDR("O04020001");
  const struct {
    Variant value;
    const char* json;
  } cases[] = {
      {Variant(), "null"},
      {kNull, "null"},
      {true, "true"},
      {std::int16_t{-5}, "-5"},
      {2147483647, "2147483647"},
      {5.0, "5"},
      {-0.0, "0"},
      {9.7, "9.7"},
      {0.1 + 0.2, "0.30000000000000004"},
      {1e300, "1e+300"},
      {day("2008.01.31"), "\"2008-01-31\""},
      {"Ąž\"\r\n", "\"Ąž\\\"\\r\\n\""},
      {std::shared_ptr<Recordset>(), "null"},
      {ids({4, 5}), R"({"fields":[{"name":"id","type":"int32"}],"rows":[[4],[5]]})"},
      {ids({}), R"({"fields":[{"name":"id","type":"int32"}],"rows":[]})"},
      {object, R"({"object":"O04020001"})"},
      {std::shared_ptr<QuorObjectUIO>(), "null"},
      {Variant::Array{1, "a", kNull}, R"([1,"a",null])"},
  };
  for (const auto& c : cases) EXPECT_EQ(to_json(c.value).dump(), c.json);
}

TEST(JsonValues, ARecordSetComesBackAsItWent) {
  const char* const text =
      R"({"fields":[{"name":"a","type":"int16"},{"name":"b","type":"int32"},{"name":"c","type":"double"},)"
      R"({"name":"d","type":"bool"},{"name":"e","type":"date"},{"name":"f","type":"text"},)"
      R"({"name":"g","type":"recordset"}],"rows":[[-1,2,0.5,true,"2008-01-31","ž",)"
      R"({"fields":[{"name":"x","type":"text"}],"rows":[["y"]]}],[null,null,null,null,null,null,null]]})";
  const auto rows = record_set_from_json(Json::parse(text));
  EXPECT_FALSE(rows->has_changes());
  EXPECT_EQ(value_text(rows->field("e")), "2008.01.31");
  EXPECT_EQ(to_json(*rows).dump(), text);
  rows->Filter("a = -1");
  EXPECT_EQ(to_json(*rows)["rows"].size(), 1U) << "the view";
  EXPECT_EQ(record_set_from_json(Json::parse(R"({"fields":[{"name":"a","type":"text"}],"rows":[]})"))->RecordCount(),
            0);
}

TEST(JsonValues, WhatIsNestedTooDeepIsRefusedBeforeItIsRead) {
  const auto nested = [](std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); };
  EXPECT_TRUE(parse_json(nested(64), "x").is_array());
  EXPECT_TRUE(parse_json("[\"" + nested(99) + "\\\"[\"," + nested(63) + ",[[]]]", "x").is_array()) << "texts, siblings";
  for (const std::string& deep : {nested(65), nested(100000), "[{\"a\":" + nested(63) + "}]", std::string(100000, '[')})
    EXPECT_EQ(error_text([&] { parse_json(deep, "Failo „a“ JSON"); }), "Failo „a“ JSON įdėtas giliau kaip 64 lygiai.");
}

TEST(JsonValues, WhatIsNoRecordSetIsRefusedByItsWordOrValue) {
  const std::pair<const char*, const char*> no_sets[] = {
      {"5", "fields"},
      {"{}", "fields"},
      {R"({"fields":{}})", "fields"},
      {R"({"fields":[{"name":"a","type":"text"}]})", "rows"},
      {R"({"fields":[{"name":"a"}],"rows":[]})", R"({"name":"a"})"},
      {R"({"fields":["a"],"rows":[]})", "\"a\""},
      {R"({"fields":[{"name":"a","type":"money"}],"rows":[]})", "money"},
      {R"({"fields":[{"name":"a","type":"text"},{"name":"A","type":"text"}],"rows":[]})", "A"},
      {R"({"fields":[{"name":"a","type":"text"}],"rows":[["x","y"]]})", R"(["x","y"])"},
      {R"({"fields":[{"name":"a","type":"text"}],"rows":[5]})", "5"},
      {R"({"fields":[{"name":"a","type":"date"}],"rows":[["rytoj"]]})", "rytoj"},
  };
  const auto refusal = [](const std::string& json) {
    return error_text([&] { record_set_from_json(Json::parse(json)); });
  };
  for (const auto& [json, named] : no_sets) EXPECT_NE(refusal(json).find(named), std::string::npos) << refusal(json);
  EXPECT_NE(refusal(R"({"fields":[],"rows":[]})"), "no error");

  const std::pair<const char*, const char*> no_values[] = {
      {"int16", "\"5\""}, {"int16", "40000"}, {"int32", "true"}, {"double", "\"x\""},
      {"bool", "1"},      {"date", "39478"},  {"text", "5"},     {"text", "[\"x\"]"},
  };
  for (const auto& [type, value] : no_values) {
    const std::string text =
        refusal(std::string(R"({"fields":[{"name":"kaina","type":")") + type + R"("}],"rows":[[)" + value + "]]}");
    EXPECT_NE(text.find("„kaina“"), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace quor
