// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app_lookup.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/search_command_line.h"
#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "cli/online/info_text.h"

namespace quillet {

namespace {

bool isTrackId(std::string_view operand) {
  return operand.find_first_not_of("0123456789") == std::string_view::npos;
}

CLIError nothingWithId(std::string_view id, std::string_view country) {
  return {CLIError::Code::notFound,
          fmt::format("Nothing with ID {} in the {} storefront.", id, country),
          {"The app may be sold elsewhere: try --country gb, de, jp"}};
}

/// What is probably the name: "com.example.Notes" is searched for as "Notes".
std::string_view lastPiece(std::string_view bundleId) {
  const std::string_view piece = bundleId.substr(bundleId.rfind('.') + 1);
  return piece.empty() ? bundleId : piece;
}

CLIError nothingMatching(std::string_view bundleId, const CLIOptions& options) {
  std::string search = "quillet search " + searchTermWord(lastPiece(bundleId));
  if (options.countryIsExplicit) search += " --country " + options.country;
  return {CLIError::Code::notFound,
          fmt::format("Nothing matching '{}' in the {} storefront.", bundleId, options.country),
          {search + " --json"}};
}

/// The service reads a comma as the start of another bundle ID, so that not every record of its
/// answer was asked for.
void dropOtherBundles(std::vector<ITunesApp>& apps, std::string_view bundleId) {
  std::erase_if(apps, [wanted = lowerAscii(bundleId)](const ITunesApp& app) {
    return app.bundleId && lowerAscii(*app.bundleId) != wanted;
  });
}

/// The first one with a build for the platform, else the first.
ITunesApp chosen(std::vector<ITunesApp> apps, std::optional<Platform> platform) {
  const auto fitting = std::find_if(apps.begin(), apps.end(), [platform](const ITunesApp& app) {
    return !platform || describesBuild(app, *platform);
  });
  return std::move(fitting == apps.end() ? apps.front() : *fitting);
}

/// A clause or a sentence. An answer's own text would say again that it could not be read.
std::string reasonOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const UnreadableAnswer& known) {
    return known.reason();
  } catch (...) {
    return toCLIError(error).what();
  }
}

}  // namespace

std::string appOperand(std::string_view command, const std::vector<std::string>& operands) {
  if (operands.size() > 1) {
    throw CLIError(
        CLIError::Code::validation,
        fmt::format("{} takes one track ID or bundle ID; got {}.", command, operands.size()));
  }
  std::string operand(operands.empty() ? "" : trimmed(operands.front()));
  if (operand.empty()) {
    throw CLIError(CLIError::Code::missingRequired,
                   fmt::format("{} needs a track ID or a bundle ID.", command),
                   {fmt::format("quillet {} 1480068668 --json", command)});
  }
  return operand;
}

Task<ITunesApp> lookUpApp(std::string operand, CommandCall call, StopToken stop) {
  const RequestContext context{.stop = std::move(stop)};
  const std::string& country = call.options.country;
  ITunesClient& itunes = call.services.itunes;
  call.services.progress.report("Looking up the app");
  std::vector<ITunesApp> apps;
  if (isTrackId(operand)) {
    // An ID that no app can have is not asked for.
    const std::vector<std::int64_t> ids{parseWhole(operand).value_or(0)};
    if (ids.front() > 0) apps = co_await itunes.lookup(ids, country, context);
    if (apps.empty()) throw nothingWithId(operand, country);
  } else {
    const std::vector<std::string> bundleIds{operand};
    apps = co_await itunes.lookupBundles(bundleIds, country, context);
    dropOtherBundles(apps, operand);
    if (apps.empty()) throw nothingMatching(operand, call.options);
  }
  co_return chosen(std::move(apps), call.options.platform);
}

Platform ownPlatform(const ITunesApp& app) {
  if (isMacApp(app)) return Platform::mac;
  const auto holds = [](const auto& addresses) { return addresses && !addresses->empty(); };
  return !holds(app.screenshotUrls) && holds(app.ipadScreenshotUrls) ? Platform::ipad
                                                                     : Platform::iphone;
}

bool describesBuild(const ITunesApp& app, Platform platform) {
  return isMacApp(app) == (platform == Platform::mac);
}

bool knowsBuild(const AppEnrichment& enrichment, Platform platform) {
  if (!enrichment.platform || enrichment.platform->deviceFamilies.empty()) {
    return enrichment.platform || !enrichment.versions.empty();
  }
  const std::vector<std::string>& families = enrichment.platform->deviceFamilies;
  return std::any_of(families.begin(), families.end(), [platform](std::string_view family) {
    return platform == Platform::mac ? family == "mac" : family == "iphone" || family == "ipad";
  });
}

std::string missingBuildNotice(const ITunesApp& app, Platform platform,
                               const AppEnrichment& enrichment) {
  if (describesBuild(app, platform) || knowsBuild(enrichment, platform)) return {};
  return fmt::format("the store describes no {} build of this app.", platformName(platform));
}

std::string unreadNotice(std::string_view what, const std::exception_ptr& error) {
  const std::string reason = reasonOf(error);
  return fmt::format("{} could not be read: {}{}", what, reason, reason.ends_with('.') ? "" : ".");
}

}  // namespace quillet
