// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app.h"

#include "base/numbers.h"
#include "base/urls.h"

namespace quillet {

namespace {

using Addresses = std::optional<std::vector<std::string>>;

const Addresses& firstFilled(const Addresses& preferred, const Addresses& other) {
  return preferred && !preferred->empty() ? preferred : other;
}

const Addresses& listedFor(const ITunesApp& app, Platform platform) {
  static const Addresses kNone;
  switch (platform) {
    case Platform::mac: return isMacApp(app) ? app.screenshotUrls : kNone;
    case Platform::iphone: return firstFilled(app.screenshotUrls, app.ipadScreenshotUrls);
    case Platform::ipad: return firstFilled(app.ipadScreenshotUrls, app.screenshotUrls);
  }
  return kNone;
}

}  // namespace

bool isMacApp(const ITunesApp& app) { return app.kind == kMacSoftwareKind; }

bool hasUnknownRating(const ITunesApp& app) {
  return isMacApp(app) && app.userRatingCount.value_or(0) == 0;
}

std::optional<std::int64_t> sizeInBytes(const ITunesApp& app) {
  if (!app.fileSizeBytes) return {};
  return parseWhole(*app.fileSizeBytes);
}

std::vector<std::string> screenshotAddresses(const ITunesApp& app, Platform platform) {
  std::vector<std::string> addresses;
  if (const Addresses& listed = listedFor(app, platform)) {
    std::copy_if(listed->begin(), listed->end(), std::back_inserter(addresses), isWebAddress);
  }
  return addresses;
}

}  // namespace quillet
