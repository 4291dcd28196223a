// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/app_lookup.h"

#include <fmt/format.h>

#include "analysis/app_build.h"
#include "analysis/search_command_line.h"
#include "base/text.h"
#include "cli/online/app/info_text.h"
#include "queries/app_lookup.h"

namespace quillet {

namespace {

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
  QueryCall question = call.question();
  question.context.stop = std::move(stop);
  NamedApp named{operand, call.options.country, call.options.platform};
  std::optional<ITunesApp> app =
      co_await findApp(std::move(named), call.services.queries(), std::move(question));
  if (app) co_return std::move(*app);
  if (isTrackId(operand)) throw nothingWithId(operand, call.options.country);
  throw nothingMatching(operand, call.options);
}

std::string missingBuildNotice(const ITunesApp& app, Platform platform,
                               const AppEnrichment& enrichment) {
  if (describesBuild(app, platform) || knowsBuild(enrichment, platform)) return {};
  return fmt::format("the store describes no {} build of this app.", platformName(platform));
}

}  // namespace quillet
