// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "base/enum_table.h"
#include "library/schema/table.h"

namespace quillet {

/// How an app came into My Apps.
enum class OwnedSource { scanned, manual };

// Stored; never change.
inline constexpr EnumTable<OwnedSource, 2> kOwnedSourceTexts{{
    {OwnedSource::scanned, "scanned"},
    {OwnedSource::manual, "manual"},
}};
static_assert(isComplete(kOwnedSourceTexts, OwnedSource::manual));

/// One app in My Apps.
struct OwnedApp {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string platformRaw;
  std::string name;
  std::optional<std::string> sellerName;
  std::optional<std::string> artworkUrl;
  std::optional<std::string> bundleId;
  std::optional<std::string> trackViewUrl;
  std::string sourceRaw;  ///< a text of OwnedSource
  Instant addedAt{};
  std::optional<std::string> installedVersion;
  std::optional<std::string> installedPath;
  std::optional<Instant> lastScannedAt;  ///< the last scan that saw it
  std::optional<std::string> storeVersion;
  std::optional<double> priceWhenAdded;  ///< shown as the price paid
  std::optional<std::string> currency;   ///< of that price
  std::optional<std::int64_t> installedSizeBytes;
  std::optional<std::string> primaryGenreName;
  std::optional<std::string> skippedVersion;  ///< the update that the user does not want to see
  std::optional<bool> isUnavailable;          ///< whether the storefront has it no longer
  std::optional<Instant> lastCheckedAt;       ///< when the storefront was last asked
  /// Of the installed program, as wordsOf() writes them; absent where no scan could tell.
  std::optional<std::string> architectures;

  friend bool operator==(const OwnedApp&, const OwnedApp&) = default;
};

template <>
inline constexpr auto kTable<OwnedApp> =
    Table{"OwnedApp", 1, KeyUse::unique,
          std::array<Index, 3>{Index{Index::Kind::unique, {"trackId", "country"}}},
          std::tuple{attribute("trackId", &OwnedApp::trackId),
                     attribute("country", &OwnedApp::country),
                     attribute("platformRaw", &OwnedApp::platformRaw),
                     attribute("name", &OwnedApp::name),
                     attribute("sellerName", &OwnedApp::sellerName),
                     attribute("artworkUrl", &OwnedApp::artworkUrl),
                     attribute("bundleId", &OwnedApp::bundleId),
                     attribute("trackViewUrl", &OwnedApp::trackViewUrl),
                     attribute("sourceRaw", &OwnedApp::sourceRaw),
                     attribute("addedAt", &OwnedApp::addedAt),
                     attribute("installedVersion", &OwnedApp::installedVersion),
                     attribute("installedPath", &OwnedApp::installedPath),
                     attribute("lastScannedAt", &OwnedApp::lastScannedAt),
                     attribute("storeVersion", &OwnedApp::storeVersion),
                     attribute("priceWhenAdded", &OwnedApp::priceWhenAdded),
                     attribute("currency", &OwnedApp::currency),
                     attribute("installedSizeBytes", &OwnedApp::installedSizeBytes),
                     attribute("primaryGenreName", &OwnedApp::primaryGenreName),
                     attribute("skippedVersion", &OwnedApp::skippedVersion, 3),
                     attribute("isUnavailable", &OwnedApp::isUnavailable, 6),
                     attribute("lastCheckedAt", &OwnedApp::lastCheckedAt, 6),
                     attribute("architectures", &OwnedApp::architectures, 6)}};

}  // namespace quillet
