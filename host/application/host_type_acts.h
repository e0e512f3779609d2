// What can be done with an object of a type that the host keeps itself (see host_types.h). Whoever runs the program
// brings it: the forms stand above the application.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quor {

class Application;
class Form;

struct HostTypeActs {
  // The form of the object, or of a new one for the type code alone; null after a failure that the user has been shown.
  // Null where the type has no form.
  std::function<std::shared_ptr<Form>(Application& application, const std::string& object)> open = {};
  std::string new_caption = {};  // "Naujas darbuotojas"; "" where the user makes none
  bool removable = false;
  // Deletes the object, which the user has agreed to, where it is no record of data objects; throws why it does not.
  std::function<void(Application& application, const std::string& key)> remove = {};
};

using HostTypes = std::map<std::string, HostTypeActs>;  // by type code

}  // namespace quor
