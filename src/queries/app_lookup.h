// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "queries/query_call.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// An app as a person names it, and where.
struct NamedApp {
  std::string name;  ///< a track ID or a bundle ID
  std::string country;
  std::optional<Platform> platform;  ///< which build is meant, where there are two
};

/// Whether the name is a track ID: all digits.
[[nodiscard]] bool isTrackId(std::string_view name);

/// The storefront's record of the app; absent where it has none. Where a Mac app and an iOS app
/// share a bundle ID, the platform chooses, else the first one found. Throws what lookups throw.
Task<std::optional<ITunesApp>> findApp(NamedApp app, QueryServices services, QueryCall call);

}  // namespace quillet
