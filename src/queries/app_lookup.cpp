// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_lookup.h"

#include <algorithm>

#include "analysis/app_build.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

/// The service reads a comma as the start of another bundle ID, so that not every record of its
/// answer was asked for.
void dropOtherBundles(std::vector<ITunesApp>& apps, std::string_view bundleId) {
  std::erase_if(apps, [wanted = lowerAscii(bundleId)](const ITunesApp& app) {
    return app.bundleId && lowerAscii(*app.bundleId) != wanted;
  });
}

/// The first one with a build for the platform, else the first.
std::optional<ITunesApp> chosen(std::vector<ITunesApp> apps, std::optional<Platform> platform) {
  if (apps.empty()) return {};
  const auto fitting = std::find_if(apps.begin(), apps.end(), [platform](const ITunesApp& app) {
    return !platform || describesBuild(app, *platform);
  });
  return std::move(fitting == apps.end() ? apps.front() : *fitting);
}

}  // namespace

bool isTrackId(std::string_view name) {
  return name.find_first_not_of("0123456789") == std::string_view::npos;
}

Task<std::optional<ITunesApp>> findApp(NamedApp app, QueryServices services, QueryCall call) {
  call.report({QueryStage::lookup});
  std::vector<ITunesApp> apps;
  if (isTrackId(app.name)) {
    // An ID that no app can have is not asked for.
    const std::vector<std::int64_t> ids{parseWhole(app.name).value_or(0)};
    if (ids.front() > 0) apps = co_await services.itunes.lookup(ids, app.country, call.context);
  } else {
    const std::vector<std::string> bundleIds{app.name};
    apps = co_await services.itunes.lookupBundles(bundleIds, app.country, call.context);
    dropOtherBundles(apps, app.name);
  }
  co_return chosen(std::move(apps), app.platform);
}

}  // namespace quillet
