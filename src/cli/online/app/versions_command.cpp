// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/app_build.h"
#include "analysis/described_app.h"
#include "cli/limit_remark.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/app/versions_result.h"
#include "cli/online/app/versions_text.h"
#include "cli/online/command_handlers.h"
#include "cli/track_id_operand.h"

namespace quillet {

namespace {

CLIVersionsPayload payloadFor(const ITunesApp& app, Platform platform,
                              const AppEnrichment& enrichment, const CommandCall& call) {
  const DescribedApp described = describeApp(app, platform, enrichment);
  const MaintenanceView view{call.services.maintenance, call.services.clock.now()};
  CLIVersionsPayload payload;
  payload.history = releaseHistory(described.versions.value_or(std::vector<VersionEntry>()),
                                   described.record.currentVersionReleaseDate, view);
  payload.limit = call.options.limit;
  payload.trackId = app.trackId;
  payload.name = app.trackName;
  payload.seller = app.sellerName;
  payload.platform = platform;
  payload.country = call.options.country;
  return payload;
}

}  // namespace

Task<CommandResult> runVersions(CommandCall call) {
  const CLIOptions& options = call.options;
  const std::int64_t trackId =
      numericTrackId(options.operands, "versions needs one numeric track ID.",
                     "quillet versions 824183456 --json");
  const ITunesApp app = co_await lookUpApp(std::to_string(trackId), call);
  const Platform platform = options.platform.value_or(ownPlatform(app));
  call.services.progress.report("Reading the release history");
  const AppEnrichment enrichment = co_await call.services.catalog.enrichment(
      app.trackId, options.country, platform, RequestContext{});

  const CLIVersionsPayload payload = payloadFor(app, platform, enrichment, call);
  CommandResult result;
  result.notice = missingBuildNotice(app, platform, enrichment);
  result.text = call.form == OutputForm::json
                    ? renderVersionsJson(payload)
                    : renderVersionsText(payload, call.services.formats, call.style);
  // The text says it at the list's end.
  if (call.form == OutputForm::json && payload.listed().size() < payload.history.releases.size()) {
    result.remark = limitRemark({.limit = options.limit, .longest = kLongestHistory});
  }
  co_return result;
}

}  // namespace quillet
