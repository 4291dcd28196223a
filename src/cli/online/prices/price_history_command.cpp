// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "cli/online/command_handlers.h"
#include "cli/online/prices/last_look.h"
#include "cli/online/prices/price_history_result.h"
#include "cli/online/prices/price_history_text.h"
#include "cli/track_id_operand.h"

namespace quillet {

namespace {

CLIError nothingRecorded(std::int64_t trackId, std::string_view country) {
  return {
      CLIError::Code::notFound,
      fmt::format("No recorded price changes for {} in the {} storefront.", trackId, country),
      {"The feed only carries apps whose price moved, not every app.", trackedStorefrontsHint()}};
}

}  // namespace

Task<CommandResult> runPriceHistory(CommandCall call) {
  const std::string& country = call.options.country;
  const std::int64_t trackId = soleTrackId("price-history", call.options.operands);
  call.services.progress.report("Reading the published prices");
  PriceSeedReader reader = co_await call.services.prices.storefront(country, StopToken{});
  auto payload = findPriceHistory(reader, trackId, country);
  if (!payload) throw nothingRecorded(trackId, country);
  payload->lookedAt = co_await lastLookAt(call.services, country);
  payload->oldLook = oldLookText(payload->lookedAt, call.services.clock.now());
  CommandResult result;
  result.text = call.form == OutputForm::json
                    ? renderPriceHistoryJson(*payload)
                    : renderPriceHistoryText(*payload, call.services.formats, call.style);
  co_return result;
}

}  // namespace quillet
