// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "library/app_key.h"
#include "store/records/itunes_app.h"
#include "store/records/platform.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// What the library knows of an app, as far as a row of a list is made of it.
struct KnownApp {
  AppKey key;
  ITunesApp record;
  std::optional<Platform> listedAs;  ///< the build that the user's lists mean
};

/// From the kept record, else from whatever list or alert the app is in. Those of which nothing is
/// known are left out.
[[nodiscard]] std::vector<KnownApp> knownApps(SQLite::Database& database,
                                              const std::vector<AppKey>& apps);

}  // namespace quillet
