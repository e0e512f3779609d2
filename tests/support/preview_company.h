// A company for the previews of a month, whose engine and host are the real ones and whose requests can be answered by
// a test. Today is 2008-01-31.
#pragma once

#include <functional>
#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "platform/data/number_text.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace velmora {

using quor::day;
using quor::FieldType;
using quor::kNull;
using quor::Variant;
using Rows = std::vector<std::vector<Variant>>;

// The engine, with an eye on what the form shows while it asks.
class WatchedEngine : public UIO0402000 {
 public:
  using UIO0402000::UIO0402000;
  quor::MethodResult Properties(const std::string& name, const std::string& parameter) override {
    if (on_request) on_request();
    return UIO0402000::Properties(name, parameter);
  }
  std::function<void()> on_request;
};

inline quor::FieldInfo whole(const char* name) { return {name, FieldType::kInt32}; }
inline quor::FieldInfo number(const char* name) { return {name, FieldType::kDouble}; }

inline std::string columns_of(const quor::ReportData& report) {
  std::string text;
  for (const quor::ReportColumn& each : report.columns) text += each.key + " " + quor::general_text(each.width) + "; ";
  return text;
}

class Previews : public testing::Test {
 protected:
  template <typename Form>
  std::unique_ptr<Form> open() {
    auto form = std::make_unique<Form>(application_);
    form->QuorObjectUIO = engine_;
    form->load();
    application_.requests.clear();
    return form;
  }
  void given(const char* request, const std::vector<quor::FieldInfo>& fields, const Rows& rows) {
    application_.answers[request] = {0, "", record_set(fields, rows)};
  }
  void given_positions(const Rows& rows) {
    given("GetOfficeEmployeePreview",
          {whole("UserID"),
           {"Preview", FieldType::kText},
           {"CategoryName", FieldType::kText},
           number("Factor"),
           number("ConstantValue"),
           number("RoundedSalary")},
          rows);
  }
  std::string requests() {
    std::string text;
    for (const std::string& each : application_.requests)
      text += (text.empty() ? "" : " ") + each.substr(0, each.find("), flag")) + ")";
    return text;
  }
  quor::TestCompany company_;
  quor::PickingApplication application_{company_.company(),
                                        {.title = "Testas", .user = "t", .today = day("2008.01.31")}};
  std::shared_ptr<WatchedEngine> engine_ = std::make_shared<WatchedEngine>(application_);
};

}  // namespace velmora
