#include "host/application/plugin_library.h"

#include <dlfcn.h>
#include <filesystem>

namespace quor {

// The library stays loaded until the process ends: objects of its classes may outlive this one.
PluginLibrary::PluginLibrary(const std::string& file) : file_(file) {
  if (!std::filesystem::exists(file)) fail("nerastas");
  void* const library = dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) fail("neįkeliamas: " + std::string(dlerror()));
  const auto* const abi = static_cast<const std::uint32_t*>(dlsym(library, kPluginAbiSymbol));
  if (abi == nullptr) fail("nėra šios programos įskiepis");
  if (*abi != kPluginAbi) {
    fail("skirtas kitai programos versijai: jo sąsajos numeris " + std::to_string(*abi) + ", reikia " +
         std::to_string(kPluginAbi));
  }
  create_ = reinterpret_cast<PluginCreate*>(dlsym(library, kPluginCreateSymbol));
  if (create_ == nullptr) fail("nėra šios programos įskiepis");
}

std::shared_ptr<Object> PluginLibrary::create_object(const std::string& class_id, QuorApplication& application) const {
  std::shared_ptr<Object> object;
  create_(class_id.c_str(), application, object);
  return object;
}

void PluginLibrary::fail(const std::string& what) const { throw PluginError("Įskiepis „" + file_ + "“ " + what + "."); }

}  // namespace quor
