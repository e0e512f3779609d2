// A choice among the departments, everybody first.
#pragma once

#include "host/application/application.h"
#include "platform/toolkit/choice_box.h"

namespace quor {

// Items with the keys of the departments as tags, "" for all of them; what was chosen stays chosen while it is there.
void offer_departments(Application& application, ChoiceBox& box);

}  // namespace quor
