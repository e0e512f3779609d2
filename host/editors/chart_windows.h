// Charts in windows of their own: a person's pay by month, a category's factor over time.
#pragma once

#include <memory>
#include <string>

#include "host/application/application.h"
#include "platform/toolkit/chart.h"
#include "platform/toolkit/form.h"

namespace quor {

// What a chart of the person's pay shows. Throws as person_pay_chart does.
ChartData person_pay_data(Application& application, std::int32_t employee, const std::string& name);

// `key` is the employee's, `name` what he is called. Throws Error when the user may not view pay, StoreError.
std::shared_ptr<Form> person_pay_chart(Application& application, const std::string& key, const std::string& name);
// `key` is the category's. Throws Error when the user may not view categories, StoreError.
std::shared_ptr<Form> category_factor_chart(Application& application, const std::string& key, const std::string& name);

}  // namespace quor
