#include "host/application/plugin_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace quor {

namespace {

std::string program_folder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

// A library that defines a symbol has its name among its texts. To load a library is to run what it does at its start:
// a stranger's is not run to find out that it is none of ours.
bool may_be_plugin(const std::filesystem::path& file) {
  const std::string name = file.filename();
  if (!name.starts_with("lib") || file.extension() != ".so") return false;
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (error) return false;
  std::string content(size, '\0');
  std::ifstream(file, std::ios::binary).read(content.data(), static_cast<std::streamsize>(size));
  return content.find(kPluginAbiSymbol) != std::string::npos && content.find(kPluginCreateSymbol) != std::string::npos;
}

}  // namespace

void load_plugins(Application& application, const std::vector<std::string>& named, const SkippedPlugin& skipped) {
  if (named.empty()) load_plugins_in(application, program_folder(), skipped);
  for (const std::string& file : named) application.load_plugin(file);
}

void load_plugins_in(Application& application, const std::string& folder, const SkippedPlugin& skipped) {
  std::vector<std::string> files;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (may_be_plugin(entry.path())) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  bool loaded = false;
  for (const std::string& file : files) {
    try {
      application.load_plugin(file);
      loaded = true;
    } catch (const std::exception& failure) {
      skipped(failure.what());
    }
  }
  if (!loaded) throw PluginError("Aplanke „" + folder + "“ nėra įskiepio, kurį ši programa galėtų įkelti.");
}

}  // namespace quor
