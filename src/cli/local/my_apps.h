// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "cli/local/list_payload.h"
#include "cli/local/local_call.h"

namespace quillet {

/// One app that the user owns.
struct CLIOwnedApp {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;
  std::optional<std::string> bundleId;
  std::optional<std::string> platform;
  std::optional<std::string> source;  ///< "scanned" or "manual"
  std::optional<std::string> installedVersion;
  std::optional<std::string> storeVersion;
  std::optional<std::string> installedPath;
  std::optional<std::string> genre;
  std::optional<std::int64_t> installedSizeBytes;
  std::optional<double> pricePaid;
  std::optional<std::string> currency;
  std::optional<Instant> addedAt;
  std::optional<bool> updateAvailable;  ///< absent unless both versions are known
  std::optional<bool> unavailable;      ///< no longer sold; absent where the store was not asked
};

using CLIMyApps = CLIListPayload<CLIOwnedApp>;

/// `quillet my-apps`: by name, those that the options ask for, as many as the limit.
[[nodiscard]] CLIMyApps readMyApps(const LocalCall& call);

[[nodiscard]] std::string renderMyAppsJson(const CLIMyApps& apps);

}  // namespace quillet
