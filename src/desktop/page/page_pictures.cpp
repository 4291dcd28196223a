// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_pictures.h"

#include <QCoreApplication>
#include <algorithm>

#include "analysis/app_build.h"
#include "base/enum_index.h"
#include "desktop/models/row_parts.h"

namespace quillet {

std::optional<ITunesApp> picturedRecord(const PageFacts& facts) {
  if (facts.store) return facts.store->app.record;
  if (!facts.cached) return {};
  ITunesApp record;
  record.trackId = facts.cached->trackId;
  record.trackName = facts.cached->name;
  record.kind = facts.cached->kind;
  record.screenshotUrls = facts.cached->screenshotUrls;
  record.ipadScreenshotUrls = facts.cached->ipadScreenshotUrls;
  return record;
}

Platform picturedPlatform(const PageFacts& facts) {
  if (facts.store) return facts.store->app.platform;
  const auto record = picturedRecord(facts);
  return record ? ownPlatform(*record) : Platform::mac;
}

std::vector<PlatformPictures> listedPictures(const PageFacts& facts) {
  std::vector<PlatformPictures> pictures;
  const auto record = picturedRecord(facts);
  if (!record) return pictures;
  for (const Platform platform : picturedPlatforms(*record)) {
    pictures.push_back({platform, screenshotAddresses(*record, platform)});
    if (pictures.back().addresses->empty()) pictures.pop_back();  // none that can be asked for
  }
  const bool hasMac = !pictures.empty() && pictures.front().platform == Platform::mac;
  if (picturedPlatform(facts) == Platform::mac && !hasMac) {
    pictures.insert(pictures.begin(), PlatformPictures{});
  }
  return pictures;
}

double usualRatio(Platform platform) {
  switch (platform) {
    case Platform::mac: return 16.0 / 10;
    case Platform::iphone: return 9.0 / 19.5;
    case Platform::ipad: return 3.0 / 4;
  }
  return 1;
}

QString pictureTitle(std::size_t index, std::size_t count, Platform platform) {
  return QCoreApplication::translate("Page", "Screenshot %1 of %2, %3")
      .arg(QString::number(index + 1), QString::number(count), platformText(platform));
}

}  // namespace quillet
