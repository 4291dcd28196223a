// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/storefronts_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/online/storefronts_result.h"
#include "cli/track_id_operand.h"
#include "net/all_of.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

/// `found` lives until the task has ended.
Task<> lookUp(ITunesClient* itunes, std::int64_t trackId, std::string country,
              std::optional<ITunesApp>* found) {
  const std::vector<std::int64_t> ids{trackId};
  std::vector<ITunesApp> apps = co_await itunes->lookup(ids, country, RequestContext{});
  if (!apps.empty()) *found = std::move(apps.front());
}

CLIError soldNowhere(std::int64_t trackId) {
  return {CLIError::Code::notFound,
          fmt::format("No app with track ID {} in any tracked storefront.", trackId)};
}

}  // namespace

Task<CommandResult> runStorefronts(CommandCall call) {
  const CommandServices& services = call.services;
  const std::int64_t trackId = soleTrackId("storefronts", call.options.operands);
  std::vector<std::optional<ITunesApp>> found(kTrackedStorefronts.size());
  std::vector<Task<>> lookups;
  for (std::size_t i = 0; i < found.size(); ++i) {
    lookups.push_back(
        lookUp(&services.itunes, trackId, std::string(kTrackedStorefronts.at(i)), &found[i]));
  }
  services.progress.report("Looking up the app in every tracked storefront");
  co_await allOf(std::move(lookups));

  CLIStorefrontsPayload payload;
  payload.trackId = trackId;
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (found[i] && payload.name.empty()) payload.name = found[i]->trackName;
    payload.storefronts.push_back(
        storefrontPrice(std::string(kTrackedStorefronts.at(i)), found[i], services.formats));
  }
  if (std::ranges::none_of(found, [](const auto& app) { return app.has_value(); })) {
    throw soldNowhere(trackId);
  }
  CommandResult result;
  result.text = call.form == OutputForm::json ? renderStorefrontsJson(payload)
                                              : renderStorefrontsText(payload, call.style);
  co_return result;
}

}  // namespace quillet
