// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "store/records/app_enrichment.h"
#include "store/records/itunes_app.h"

namespace quillet {

// One ID may be a Mac app's and an iOS app's: which of the two builds an answer speaks of.

/// The platform of the build that the record describes.
[[nodiscard]] Platform ownPlatform(const ITunesApp& app);

/// Whether the record describes the build for `platform`: iPhone and iPad have one in common.
[[nodiscard]] bool describesBuild(const ITunesApp& app, Platform platform);

/// Whether the catalog knows a build for `platform`. Asked for one that there is not, it may answer
/// with the other one, whose device families give it away.
[[nodiscard]] bool knowsBuild(const AppEnrichment& enrichment, Platform platform);

/// What a Mac build is compiled for: "Apple silicon and Intel". Absent where it is not known.
[[nodiscard]] std::optional<std::string> architectureText(const PlatformInfo& build);

}  // namespace quillet
