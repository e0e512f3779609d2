#include "host/application/plugin_library.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>

namespace quor {

namespace {

std::string library_name(const std::string& file) {
  std::string name = std::filesystem::path(file).filename();
  name.erase(std::min(name.find('.'), name.size()));
  if (name.starts_with("lib")) name.erase(0, 3);
  if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name;
}

}  // namespace

// The library stays loaded until the process ends: objects of its classes may outlive this one.
PluginLibrary::PluginLibrary(const std::string& file) : file_(file), name_(library_name(file)) {
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
