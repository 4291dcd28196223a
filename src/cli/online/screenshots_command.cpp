// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "base/errors.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/command_handlers.h"
#include "cli/online/screenshots_result.h"
#include "store/records/embedded_document.h"

namespace quillet {

namespace {

CLIError unreadable(const ITunesApp& app) {
  return {CLIError::Code::upstream,
          fmt::format("The App Store page for {} could not be read for screenshots. Apple may have "
                      "changed its layout.",
                      app.trackName),
          {"Open the App Store page to see them" +
           (app.trackViewUrl ? ": " + *app.trackViewUrl : ".")}};
}

Task<std::vector<std::string>> picturesOnPage(ITunesApp app, CommandCall call) {
  try {
    ProductPage page =
        co_await call.services.pages.page(app.trackId, call.options.country, StopToken{});
    co_return std::move(page.macScreenshots);
  } catch (const UnreadablePage&) {
    throw unreadable(app);
  }
}

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

std::vector<Platform> otherPlatforms(const ITunesApp& app, Platform asked) {
  std::vector<Platform> others;
  for (const auto& [platform, word] : kPlatformWords) {
    if (platform != asked && hasOwnPictures(app, platform)) others.push_back(platform);
  }
  return others;
}

}  // namespace

Task<CommandResult> runScreenshots(CommandCall call) {
  const CLIOptions& options = call.options;
  std::string operand = appOperand("screenshots", options.operands);
  const ITunesApp app = co_await lookUpApp(std::move(operand), call);
  CLIScreenshotsPayload payload;
  payload.trackId = app.trackId;
  payload.name = app.trackName;
  payload.platform = options.platform.value_or(ownPlatform(app));
  payload.country = options.country;
  payload.macApp = isMacApp(app);
  payload.otherPlatforms = otherPlatforms(app, payload.platform);
  std::vector<std::string> addresses = listedPictures(app, payload.platform);
  if (addresses.empty() && payload.platform == Platform::mac) {
    addresses = co_await picturesOnPage(app, call);
    if (!addresses.empty()) payload.source = ScreenshotSource::storePage;
  }
  addShots(payload, addresses);

  CommandResult result;
  result.text = call.form == OutputForm::json ? renderScreenshotsJson(payload)
                                              : renderScreenshotsText(payload);
  if (payload.screenshots.empty()) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
