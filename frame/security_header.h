// `SecurityHeader`: the components of the library that an administrator can give rights on.
#pragma once

#include <string>
#include <vector>

#include "frame/contract/quor_header_security.h"

namespace velmora {

class SecurityHeader : public quor::QuorHeaderSecurity {
 public:
  std::vector<quor::SecurityComponent> GetComponentList() override;

 private:
  static void add(const std::string& caption, const std::string& key, std::int32_t kind, const std::string& parent_key,
                  std::vector<quor::SecurityComponent>& components);
};

}  // namespace velmora
