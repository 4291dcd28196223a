// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_pictures.h"

#include <fmt/format.h>

#include "analysis/app_build.h"
#include "base/file_names.h"

namespace quillet {

namespace {

/// Those that the record lists for the platform itself. iPhone and iPad stand in for one another;
/// a Mac app has no pictures of either.
std::vector<std::string> listedPictures(const ITunesApp& app, Platform platform) {
  if (isMacApp(app) && platform != Platform::mac) return {};
  return screenshotAddresses(app, platform);
}

bool hasOwnPictures(const ITunesApp& app, Platform platform) {
  if (!describesBuild(app, platform)) return false;
  const auto& own = platform == Platform::ipad ? app.ipadScreenshotUrls : app.screenshotUrls;
  return own && !own->empty();
}

}  // namespace

std::vector<Platform> picturedPlatforms(const ITunesApp& app) {
  std::vector<Platform> platforms;
  for (const auto& [platform, word] : kPlatformWords) {
    if (hasOwnPictures(app, platform)) platforms.push_back(platform);
  }
  return platforms;
}

std::string pictureFileName(std::string_view appName, Platform platform, std::size_t number,
                            std::string_view ending) {
  return fmt::format("{}-{}-{:02}.{}", fileNameOf(appName), textOf(kPlatformWords, platform),
                     number, ending);
}

Task<AppPictures> readAppPictures(ITunesApp app, Platform platform, std::string country,
                                  QueryServices services, QueryCall call) {
  AppPictures pictures;
  pictures.otherPlatforms = picturedPlatforms(app);
  std::erase(pictures.otherPlatforms, platform);
  pictures.addresses = listedPictures(app, platform);
  if (pictures.addresses.empty() && platform == Platform::mac) {
    ProductPage page = co_await services.pages.page(app.trackId, std::move(country), call.context);
    pictures.addresses = std::move(page.macScreenshots);
    if (!pictures.addresses.empty()) pictures.source = PictureSource::storePage;
  }
  co_return pictures;
}

}  // namespace quillet
