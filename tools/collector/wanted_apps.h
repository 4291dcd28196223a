// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "collector/collect_round.h"
#include "collector/lookup_queue.h"

namespace quillet {

/// Which apps a round looks up, in which storefronts. Sources add up.
struct WantedApps {
  std::vector<std::string> storefronts;
  std::vector<std::int64_t> ids;
  std::vector<std::string> searches;
  bool wantsCharts = false;
  bool wantsRecorded = false;  ///< all that the record holds
};

/// A list of track IDs with one each line; what follows a "#" is a remark. Throws BadSetting,
/// naming `file` and the line, for anything else.
[[nodiscard]] std::vector<std::int64_t> parseIds(std::string_view text, const std::string& file);

/// Asks the store, and the record, for the apps that are wanted, and makes lookups of them: each
/// app once in each storefront, a hundred at a time. A chart or search that the store does not
/// answer is left out with a line, unless it wants fewer requests or cannot be reached (which is
/// thrown).
Task<std::vector<LookupRequest>> wantedLookups(CollectorServices services, WantedApps wanted,
                                               StopToken stop);

}  // namespace quillet
