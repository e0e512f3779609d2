// The pictures that the plug-ins have registered, as the windows show them.
#pragma once

#include <QIcon>
#include <string>

#include "host/application/application.h"

namespace quor {

// Of a section, by its code, or of a command of a group; a null icon when nobody has registered one.
QIcon layout_icon(const Registrations& registrations, const std::string& key);
// Of a type's objects; for the types that the host keeps itself, the system's.
QIcon object_icon(Application& application, const std::string& object_type);

}  // namespace quor
