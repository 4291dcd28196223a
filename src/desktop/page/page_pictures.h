// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "desktop/models/page_facts.h"
#include "queries/app_pictures.h"

namespace quillet {

/// An app's screenshots for one platform.
struct PlatformPictures {
  Platform platform = Platform::mac;
  /// Absent where only the app's page in the store can tell.
  std::optional<std::vector<std::string>> addresses;
  PictureSource source = PictureSource::searchService;

  friend bool operator==(const PlatformPictures&, const PlatformPictures&) = default;
};

/// The record that screenshots are taken from; absent where there is none.
[[nodiscard]] std::optional<ITunesApp> picturedRecord(const PageFacts& facts);

/// What the record lists, by platform; where the page speaks of a Mac app, the Mac is among them in
/// any case.
[[nodiscard]] std::vector<PlatformPictures> listedPictures(const PageFacts& facts);

/// The platform to begin with.
[[nodiscard]] Platform picturedPlatform(const PageFacts& facts);

/// Width by height, until a picture is there.
[[nodiscard]] double usualRatio(Platform platform);

/// "Screenshot 2 of 5, Mac", `index` from 0.
[[nodiscard]] QString pictureTitle(std::size_t index, std::size_t count, Platform platform);

}  // namespace quillet
