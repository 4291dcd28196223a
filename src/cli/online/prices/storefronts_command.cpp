// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>

#include "cli/online/command_handlers.h"
#include "cli/online/prices/storefronts_result.h"
#include "cli/track_id_operand.h"
#include "queries/storefront_prices.h"

namespace quillet {

namespace {

CLIError soldNowhere(std::int64_t trackId) {
  return {CLIError::Code::notFound,
          fmt::format("No app with track ID {} in any tracked storefront.", trackId)};
}

}  // namespace

Task<CommandResult> runStorefronts(CommandCall call) {
  const CommandServices& services = call.services;
  const std::int64_t trackId = soleTrackId("storefronts", call.options.operands);
  const std::vector<StorefrontPrice> prices =
      co_await readStorefrontPrices(trackId, services.queries(), call.question());

  CLIStorefrontsPayload payload;
  payload.trackId = trackId;
  for (const StorefrontPrice& each : prices) {
    if (each.app && payload.name.empty()) payload.name = each.app->trackName;
    payload.storefronts.push_back(storefrontPrice(each.country, each.app, services.formats));
  }
  if (std::ranges::none_of(prices, [](const auto& each) { return each.app.has_value(); })) {
    throw soldNowhere(trackId);
  }
  CommandResult result;
  result.text = call.form == OutputForm::json ? renderStorefrontsJson(payload)
                                              : renderStorefrontsText(payload, call.style);
  co_return result;
}

}  // namespace quillet
