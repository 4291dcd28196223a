// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "analysis/app_build.h"
#include "base/errors.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/app/screenshots_result.h"
#include "cli/online/command_handlers.h"
#include "queries/app_pictures.h"
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

Task<AppPictures> picturesOf(ITunesApp app, Platform platform, CommandCall call) {
  try {
    AppPictures pictures = co_await readAppPictures(app, platform, call.options.country,
                                                    call.services.queries(), call.question());
    co_return pictures;
  } catch (const UnreadablePage&) {
    throw unreadable(app);
  }
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
  AppPictures pictures = co_await picturesOf(app, payload.platform, call);
  payload.source = pictures.source;
  payload.otherPlatforms = std::move(pictures.otherPlatforms);
  addShots(payload, pictures.addresses);

  CommandResult result;
  result.text = call.form == OutputForm::json ? renderScreenshotsJson(payload)
                                              : renderScreenshotsText(payload);
  if (payload.screenshots.empty()) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
