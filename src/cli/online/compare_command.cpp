// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "analysis/catalog_facts.h"
#include "cli/online/command_handlers.h"
#include "cli/online/compare_result.h"
#include "cli/online/compare_text.h"
#include "cli/track_id_operand.h"
#include "net/all_of.h"

namespace quillet {

namespace {

using Ids = std::vector<std::int64_t>;
using Sold = std::map<std::int64_t, SoldInside>;

// More would fit no screen, and no decision.
constexpr std::size_t kMostApps = 8;

/// Each once, in the order in which they were named.
Ids trackIdsOf(const std::vector<std::string>& operands) {
  Ids ids;
  for (const std::string& operand : operands) {
    const auto id = trackIdIn(operand);
    if (!id) throw CLIError(CLIError::Code::validation, "compare takes track IDs only.");
    if (std::find(ids.begin(), ids.end(), *id) == ids.end()) ids.push_back(*id);
  }
  if (ids.size() < 2) {
    throw CLIError(CLIError::Code::missingRequired, "compare needs at least two track IDs.",
                   {"quillet search <name> --json to find them"});
  }
  if (ids.size() > kMostApps) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("compare takes at most {} apps.", kMostApps),
                   {"quillet compare 1176895641 1289583905 --json"});
  }
  return ids;
}

/// The records in the order of the IDs; of an ID that two apps share, the first. Adds the IDs that
/// are not found to `missing`.
std::vector<ITunesApp> inOrderOf(const Ids& ids, const std::vector<ITunesApp>& found,
                                 Ids& missing) {
  std::vector<ITunesApp> apps;
  for (const std::int64_t id : ids) {
    const auto app = std::find_if(found.begin(), found.end(),
                                  [id](const ITunesApp& each) { return each.trackId == id; });
    if (app == found.end()) {
      missing.push_back(id);
    } else {
      apps.push_back(*app);
    }
  }
  return apps;
}

Ids idsOf(const std::vector<ITunesApp>& apps, bool (*isMeant)(const ITunesApp&)) {
  Ids ids;
  for (const ITunesApp& app : apps) {
    if (isMeant(app)) ids.push_back(app.trackId);
  }
  return ids;
}

bool isMobileApp(const ITunesApp& app) { return !isMacApp(app); }
bool isUnratedMacApp(const ITunesApp& app) { return isMacApp(app) && hasUnknownRating(app); }

PurchaseCheck checkThatFailed(const std::exception_ptr& failure) {
  return toCLIError(failure).code() == CLIError::Code::rateLimited ? PurchaseCheck::rateLimited
                                                                   : PurchaseCheck::failed;
}

/// Writes into `sold`, which outlives the task, what can be read; a failure is noted there too.
Task<> readPurchases(CommandServices services, Ids ids, std::string country, Platform platform,
                     Sold* sold) {
  if (ids.empty()) co_return;
  try {
    auto purchases = co_await services.catalog.purchases(ids, country, platform, RequestContext{});
    for (auto& [id, list] : purchases) (*sold)[id] = {PurchaseCheck::done, std::move(list)};
  } catch (...) {
    const PurchaseCheck check = checkThatFailed(std::current_exception());
    for (const std::int64_t id : ids) (*sold)[id].check = check;
  }
}

/// The search service does not know the ratings of Mac apps; without the catalog's they stay
/// unknown.
Task<> readRatings(CommandServices services, std::string country, std::vector<ITunesApp>* apps) {
  const Ids ids = idsOf(*apps, isUnratedMacApp);
  if (ids.empty()) co_return;
  try {
    const auto facts = co_await services.catalog.platformAttributes(ids, country, RequestContext{});
    for (ITunesApp& app : *apps) {
      const auto known = facts.find(app.trackId);
      if (known != facts.end() && isMacApp(app)) setPlatformFacts(app, known->second);
    }
  } catch (const std::exception&) {
    co_return;
  }
}

}  // namespace

Task<CommandResult> runCompare(CommandCall call) {
  const CommandServices& services = call.services;
  const std::string& country = call.options.country;
  const Ids ids = trackIdsOf(call.options.operands);
  services.progress.report("Looking up the apps");
  const std::vector<ITunesApp> found =
      co_await services.itunes.lookup(ids, country, RequestContext{});
  CLIComparison comparison{country, {}, {}};
  std::vector<ITunesApp> apps = inOrderOf(ids, found, comparison.missing);
  if (apps.empty()) {
    throw CLIError(CLIError::Code::notFound,
                   fmt::format("None of those IDs exist in the {} storefront.", country));
  }
  Sold sold;
  std::vector<Task<>> reading;
  reading.push_back(readPurchases(services, idsOf(apps, isMacApp), country, Platform::mac, &sold));
  reading.push_back(
      readPurchases(services, idsOf(apps, isMobileApp), country, Platform::iphone, &sold));
  reading.push_back(readRatings(services, country, &apps));
  services.progress.report("Reading what the apps sell");
  co_await allOf(std::move(reading));

  for (const ITunesApp& app : apps) {
    comparison.entries.push_back(comparedEntry(app, sold[app.trackId], services.formats));
  }
  CommandResult result;
  result.text = call.form == OutputForm::json
                    ? renderComparisonJson(comparison)
                    : renderComparisonText(comparison, services.formats, call.style);
  co_return result;
}

}  // namespace quillet
