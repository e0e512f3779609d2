// The registration object through which a plug-in says what it contributes.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "frame/contract/object_registry.h"
#include "host/company/registrations.h"

namespace quor {

// The registration object that a plug-in receives; several may write into one `Registrations`.
class Registry : public ObjectRegistry {
 public:
  explicit Registry(Registrations& registrations)
      : registrations_(registrations), number_(++registrations.registries) {}

  std::shared_ptr<Layout> AddLayout(const std::string& layout_code, const std::string& layout_code_again,
                                    const std::string& caption, const std::string& key) override;
  void RegisterObjectType(const std::string& library, const std::string& object_type,
                          const std::string& caption) override;
  void AddLayoutIcon(const std::string& key, const Picture& picture) override;
  void AddObjectIcon(const std::string& key, const Picture& picture) override;

 private:
  Registrations& registrations_;
  std::size_t number_;
};

}  // namespace quor
