// A loaded plug-in library: found, checked for its contract number, asked for objects by class identifier.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "frame/contract/plugin_entry.h"
#include "platform/data/error.h"

namespace quor {

class PluginError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class PluginLibrary {
 public:
  // Loads the file and checks its number before anything of it runs. Throws PluginError naming the file.
  explicit PluginLibrary(const std::string& file);

  // What the library is called, by its file (see plugin_entry.h).
  const std::string& name() const { return name_; }
  const std::string& file() const { return file_; }

  // A new object of the class identifier; throws PluginError when the library has none.
  template <typename T>
  std::shared_ptr<T> create(const std::string& class_id, QuorApplication& application) const {
    auto object = std::dynamic_pointer_cast<T>(create_object(class_id, application));
    if (!object) fail("neturi klasės „" + class_id + "“");
    return object;
  }

  // Null when the library does not know the class.
  std::shared_ptr<Object> create_object(const std::string& class_id, QuorApplication& application) const;

 private:
  [[noreturn]] void fail(const std::string& what) const;

  std::string file_;
  std::string name_;
  PluginCreate* create_ = nullptr;
};

}  // namespace quor
