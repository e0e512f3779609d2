// What the lists call objects.
#pragma once

#include <QString>
#include <memory>
#include <string>

#include "host/application/application.h"

namespace quor {

// The objects of a type; null when there is no such list, and after a failure, which the user has been shown.
std::shared_ptr<Recordset> list_of_type(Application& application, const std::string& object_type);
// What a list calls an object; "" when the list does not have it any more. Leaves its filter on the list.
QString name_in(Recordset& list, const std::string& key);
// The same in the list of the object's type; "" also when that cannot be read.
QString object_name(Application& application, const std::string& key);

}  // namespace quor
