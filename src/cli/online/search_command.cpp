// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search_command.h"

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "analysis/sorting.h"
#include "base/text.h"
#include "cli/online/search_result.h"

namespace quillet {

namespace {

// Apple has no filters of its own: a filtered search reads as much as the service gives.
constexpr int kLongestSearch = 200;

std::string termOf(const std::vector<std::string>& operands) {
  if (operands.size() > 1) {
    throw CLIError(
        CLIError::Code::validation, fmt::format("search takes one term; got {}.", operands.size()),
        {fmt::format("Quote terms with spaces: quillet search \"{}\"", join(operands, " "))});
  }
  std::string term(operands.empty() ? "" : trimmed(operands.front()));
  if (term.empty()) {
    throw CLIError(CLIError::Code::missingRequired, "search needs a term.",
                   {"quillet search \"markdown editor\" --json"});
  }
  return term;
}

/// Filters that need what the search answer does not hold.
void refuseUnreadFilters(const AppFilters& filters) {
  if (filters.purchases != PurchaseFilter::any) throw notBuiltYet("--purchases");
  if (filters.architecture != ArchitectureFilter::any) throw notBuiltYet("--architecture");
  if (filters.hideOwned) throw notBuiltYet("--hide-owned");
}

/// Keeps the first `limit` apps that pass, in the store's order; returns how many were examined.
std::size_t keepMatches(std::vector<ITunesApp>& apps, const CLIOptions& options,
                        const CommandServices& services) {
  const Instant now = services.clock.now();
  const auto limit = static_cast<std::size_t>(options.limit);
  std::vector<ITunesApp> kept;
  std::size_t scanned = 0;
  for (; scanned < apps.size() && kept.size() < limit; ++scanned) {
    ITunesApp& app = apps[scanned];
    if (matches(app, options.filters, {}, now, services.timeZone)) kept.push_back(std::move(app));
  }
  apps = std::move(kept);
  return scanned;
}

CLISearchPayload payloadFor(const std::string& term, const CLIOptions& options) {
  CLISearchPayload payload;
  payload.query.term = term;
  payload.query.platform = options.platform.value_or(Platform::mac);
  payload.query.country = options.country;
  payload.query.limit = options.limit;
  payload.query.sort = options.sort.value_or(SortOrder::relevance);
  payload.query.filters = options.filters;
  return payload;
}

}  // namespace

Task<CommandResult> runSearch(CommandCall call) {
  const CLIOptions& options = call.options;
  const CommandServices& services = call.services;
  CLISearchPayload payload = payloadFor(termOf(options.operands), options);
  refuseUnreadFilters(options.filters);
  const int asked = activeCount(options.filters) > 0 ? kLongestSearch : options.limit;
  std::vector<ITunesApp> apps = co_await services.itunes.search(
      payload.query.term, options.country, payload.query.platform, asked, RequestContext{});

  payload.query.scanned = keepMatches(apps, options, services);
  sortApps(apps, payload.query.sort, [&](std::string_view left, std::string_view right) {
    return services.formats.nameLess(left, right);
  });
  for (const ITunesApp& app : apps) payload.results.push_back(summaryOf(app, services.formats));

  CommandResult result;
  result.text = call.form == OutputForm::json
                    ? renderSearchJson(payload)
                    : renderSearchText(payload, services.formats, call.style);
  if (payload.results.empty()) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
