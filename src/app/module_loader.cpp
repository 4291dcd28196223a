// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "app/module_loader.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <stdexcept>

#ifdef __APPLE__
#include <mach-o/dyld.h>

#include <array>
#endif

namespace quillet {

namespace {

namespace fs = std::filesystem;

#ifdef __APPLE__
constexpr std::string_view kSuffix = ".dylib";

fs::path executablePath() {
  std::array<char, 4096> path{};
  std::uint32_t size = path.size();
  if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
  std::error_code error;
  return fs::canonical(path.data(), error);
}
#else
constexpr std::string_view kSuffix = ".so";

fs::path executablePath() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}
#endif

using Entry = int (*)(int, char**);

}  // namespace

std::optional<Module> Module::find(std::string_view name) {
  const std::string file = fmt::format("lib{}{}", name, kSuffix);
  const fs::path executable = executablePath();
  // A relative path would open whatever lies in the directory of the start.
  if (!executable.is_absolute()) return {};
  const fs::path folder = executable.parent_path();
  for (const fs::path& candidate : {folder / file, folder / QUILLET_MODULE_FOLDER / file}) {
    std::error_code error;
    if (fs::exists(candidate, error)) return Module(candidate.lexically_normal());
  }
  return {};
}

int Module::run(int argc, char** argv) const {
  // Lazily: thousands of functions that no command calls need not be looked up at each start.
  void* library = dlopen(file_.c_str(), RTLD_LAZY | RTLD_LOCAL);
  void* entry = library == nullptr ? nullptr : dlsym(library, "quillet_entry");
  if (entry == nullptr) {
    throw std::runtime_error(fmt::format("A part of Quillet could not be opened: {}.", dlerror()));
  }
  return reinterpret_cast<Entry>(entry)(argc, argv);
}

}  // namespace quillet
