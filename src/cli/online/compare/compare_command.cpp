// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>

#include "base/store_links.h"
#include "cli/cli_error.h"
#include "cli/online/command_handlers.h"
#include "cli/online/compare/compare_result.h"
#include "cli/online/compare/compare_text.h"
#include "cli/track_id_operand.h"
#include "queries/app_comparison.h"

namespace quillet {

namespace {

using Ids = std::vector<std::int64_t>;

/// Each once, in the order in which they were named.
Ids trackIdsOf(const std::vector<std::string>& operands) {
  Ids ids;
  for (const std::string& operand : operands) {
    const auto id = trackIdIn(operand);
    if (!id) {
      throw CLIError(CLIError::Code::validation, "compare takes track IDs only.",
                     bundleIdHints(operand));
    }
    if (std::find(ids.begin(), ids.end(), *id) == ids.end()) ids.push_back(*id);
  }
  if (ids.size() < 2) {
    throw CLIError(CLIError::Code::missingRequired, "compare needs at least two track IDs.",
                   {"quillet search <name> --json to find them"});
  }
  if (ids.size() > kMostCompared) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("compare takes at most {} apps.", kMostCompared),
                   {"quillet compare 1176895641 1289583905 --json"});
  }
  return ids;
}

}  // namespace

Task<CommandResult> runCompare(CommandCall call) {
  const LocaleFormats& formats = call.services.formats;
  const std::string& country = call.options.country;
  const AppComparison read = co_await readAppComparison(trackIdsOf(call.options.operands), country,
                                                        call.services.queries(), call.question());
  if (read.apps.empty()) {
    throw CLIError(CLIError::Code::notFound,
                   fmt::format("None of those IDs exist in the {} storefront.", country));
  }
  CLIComparison comparison{country, {}, read.missing};
  for (const ComparedApp& each : read.apps) {
    comparison.entries.push_back(comparedEntry(each, formats));
  }
  CommandResult result;
  if (read.catalogFailure) result.notice = unreadNotice("the catalog", read.catalogFailure);
  result.text = call.form == OutputForm::json
                    ? renderComparisonJson(comparison)
                    : renderComparisonText(comparison, formats, call.style);
  co_return result;
}

}  // namespace quillet
