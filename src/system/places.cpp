// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/places.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace quillet {

namespace {

namespace fs = std::filesystem;

fs::path homeOfAccount() {
  std::array<char, 16384> buffer{};
  passwd entry{};
  passwd* found = nullptr;
  getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
  if (found == nullptr || found->pw_dir == nullptr) return {};
  return found->pw_dir;
}

fs::path homeDirectory(const Environment& environment) {
  const fs::path home = environment.get("HOME").value_or("");
  if (home.is_absolute()) return home;
  const fs::path fallback = homeOfAccount();
  return fallback.is_absolute() ? fallback : fs::path("/");
}

// Everything later is built on this path, a file address among it, so it must not depend on the
// directory that the program happens to be started in.
fs::path absolutePath(const fs::path& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return (error ? path : absolute).lexically_normal();
}

#ifdef __APPLE__

Places usualPlaces(const Environment& environment) {
  const fs::path library = homeDirectory(environment) / "Library";
  return {.dataDirectory = library / "Application Support" / "quillet",
          .settingsFile = library / "Preferences" / "quillet" / "quillet.conf",
          .cacheDirectory = library / "Caches" / "quillet",
          .autostartDirectory = {},
          .stateDirectory = {}};
}

#else

/// A relative path in one of these variables is invalid and counts as unset (XDG base directories).
fs::path baseDirectory(const Environment& environment, std::string_view variable,
                       std::string_view belowHome) {
  const fs::path named = environment.get(variable).value_or("");
  return named.is_absolute() ? named : homeDirectory(environment) / belowHome;
}

Places usualPlaces(const Environment& environment) {
  const fs::path config = baseDirectory(environment, "XDG_CONFIG_HOME", ".config");
  return {
      .dataDirectory = baseDirectory(environment, "XDG_DATA_HOME", ".local/share") / "quillet",
      .settingsFile = config / "quillet" / "quillet.conf",
      .cacheDirectory = baseDirectory(environment, "XDG_CACHE_HOME", ".cache") / "quillet",
      .autostartDirectory = config / "autostart",
      .stateDirectory = baseDirectory(environment, "XDG_STATE_HOME", ".local/state") / "quillet"};
}

#endif

}  // namespace

Places findPlaces(const Environment& environment) {
  Places places = usualPlaces(environment);
  if (const auto named = environment.get("QUILLET_DATA_DIR")) {
    places.dataDirectory = absolutePath(*named);
  }
  if (places.stateDirectory.empty()) places.stateDirectory = places.dataDirectory;
  return places;
}

}  // namespace quillet
