// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "queries/query_call.h"
#include "store/records/itunes_app.h"
#include "store/records/platform.h"

namespace quillet {

enum class PictureSource { searchService, storePage };

/// An app's screenshots for one platform.
struct AppPictures {
  std::vector<std::string> addresses;  ///< in the store's order and at the size it names
  PictureSource source = PictureSource::searchService;
  std::vector<Platform> otherPlatforms;  ///< those that have pictures of their own
};

/// The platforms that the record lists pictures of their own for.
[[nodiscard]] std::vector<Platform> picturedPlatforms(const ITunesApp& app);

/// The name of the file that a screenshot is kept in, counted from 1: "pagewren-mac-01.jpg".
[[nodiscard]] std::string pictureFileName(std::string_view appName, Platform platform,
                                          std::size_t number, std::string_view ending = "jpg");

/// Takes what the record lists; of a Mac app whose record lists none, reads the app's page in the
/// store. Throws what StoreScraper::page() throws.
Task<AppPictures> readAppPictures(ITunesApp app, Platform platform, std::string country,
                                  QueryServices services, QueryCall call);

}  // namespace quillet
