// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/limit_remark.h"
#include "cli/online/command_handlers.h"
#include "cli/online/prices/deals_result.h"
#include "cli/online/prices/last_look.h"

namespace quillet {

Task<CommandResult> runDeals(CommandCall call) {
  const CLIOptions& options = call.options;
  if (!options.operands.empty()) {
    throw CLIError(CLIError::Code::validation, "deals takes no arguments, only options.");
  }
  const DealCriteria criteria{options.country, options.platform, options.minimumDrop.value_or(0),
                              options.limit};
  call.services.progress.report("Reading the published prices");
  PriceSeedReader reader = co_await call.services.prices.storefront(options.country, StopToken{});
  const LocaleFormats& formats = call.services.formats;
  CLIDealsPayload payload = findDeals(reader, criteria, formats);
  payload.lookedAt = co_await lastLookAt(call.services, options.country);
  payload.oldLook = oldLookText(payload.lookedAt, call.services.clock.now());
  CommandResult result;
  result.text = call.form == OutputForm::json ? renderDealsJson(payload)
                                              : renderDealsText(payload, formats, call.style);
  if (payload.deals.size() < payload.total) result.remark = limitRemark({.limit = options.limit});
  if (payload.deals.empty()) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
