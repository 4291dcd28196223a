// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/enum_table.h"
#include "queries/app_pictures.h"
#include "store/records/platform.h"

namespace quillet {

// Scripts read these words; never change.
inline constexpr EnumTable<PictureSource, 2> kPictureSourceWords{{
    {PictureSource::searchService, "search-api"},
    {PictureSource::storePage, "store-page"},
}};
static_assert(isComplete(kPictureSourceWords, PictureSource::storePage));

struct CLIScreenshot {
  std::size_t index = 0;  ///< from 1
  std::string url;        ///< of the largest size
  std::string filename;
};

struct CLIScreenshotsPayload {
  std::int64_t trackId = 0;
  std::string name;
  Platform platform = Platform::mac;
  std::string country;
  PictureSource source = PictureSource::searchService;
  bool macApp = false;                   ///< the ID is the Mac app's
  std::vector<Platform> otherPlatforms;  ///< those that have pictures of their own
  std::vector<CLIScreenshot> screenshots;
};

/// Numbers and names the pictures at these addresses.
void addShots(CLIScreenshotsPayload& payload, const std::vector<std::string>& addresses);

[[nodiscard]] std::string renderScreenshotsJson(const CLIScreenshotsPayload& payload);

/// One command per picture, to paste into a shell; what else is said stands in comments, and
/// nothing that the store sent can run as a command.
[[nodiscard]] std::string renderScreenshotsText(const CLIScreenshotsPayload& payload);

}  // namespace quillet
