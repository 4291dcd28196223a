// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "analysis/filter_relief.h"
#include "analysis/sorting.h"
#include "base/text.h"
#include "cli/limit_remark.h"
#include "cli/online/command_handlers.h"
#include "cli/online/search/examination_criteria.h"
#include "cli/online/search/search_result.h"
#include "store/records/app_genre.h"

namespace quillet {

namespace {

// Apple has no filters of its own: a filtered search reads as much as the service gives.
constexpr std::size_t kLongestSearch = 200;

std::string termOf(const std::vector<std::string>& operands) {
  if (operands.size() > 1) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("search takes one term; got {}.", operands.size()),
                   {"Quote terms with spaces: quillet search " + shellQuoted(join(operands, " "))});
  }
  std::string term(operands.empty() ? "" : trimmed(operands.front()));
  if (term.empty()) {
    throw CLIError(CLIError::Code::missingRequired, "search needs a term.",
                   {"quillet search \"markdown editor\" --json"});
  }
  return term;
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

/// The filter compares exactly, so that a category in another case, or its number, finds nothing.
std::string genreNotice(const std::optional<std::string>& asked) {
  if (!asked) return {};
  const std::string_view name = trimmed(*asked);
  if (const AppGenre* genre = findGenre(name)) {
    return genre->name == *asked ? "" : fmt::format("Apple names this category '{}'.", genre->name);
  }
  const AppGenre* nearest = nearestGenre(name);
  if (nearest == nullptr) return {};
  return fmt::format("Apple has no category '{}'; the nearest is '{}'.", name, nearest->name);
}

/// The filters judged by what the store's answer says alone, without the catalog.
FilterPredicate judgedBy(const ExaminationCriteria& criteria) {
  return [&criteria](const ITunesApp& app, const AppFilters& filters) {
    return matches(app, filters, criteria.ownedTrackIds, criteria.now, criteria.timeZone);
  };
}

/// Which filter to leave out, from the answer at hand; empty where no single one is to blame.
std::string reliefNotice(std::span<const ITunesApp> found, const ExaminationCriteria& criteria) {
  const auto relief = greatestRelief(found, criteria.filters, judgedBy(criteria));
  if (!relief) return {};
  if (found.size() == 1) {
    return fmt::format("The one scanned would match without {}.", relief->option);
  }
  return fmt::format("{} of the {} scanned would match without {}.", relief->count, found.size(),
                     relief->option);
}

/// A search for Mac apps answers with iPhone apps as well, which fail whatever is a Mac's alone.
std::string otherPlatformNotice(std::span<const ITunesApp> found,
                                const ExaminationCriteria& criteria) {
  AppFilters filters = criteria.filters;
  filters.architecture = ArchitectureFilter::any;
  if (filters == criteria.filters) return {};
  const auto count = std::ranges::count_if(found, [&](const ITunesApp& app) {
    return !isMacApp(app) && judgedBy(criteria)(app, filters);
  });
  if (count == 0) return {};
  return fmt::format("--architecture is for Mac apps: {} of --platform iphone match{} the rest.",
                     count, count == 1 ? "es" : "");
}

/// What helps someone who found nothing.
std::string emptyNotice(std::span<const ITunesApp> found, const ExaminationCriteria& criteria) {
  if (std::string genre = genreNotice(criteria.filters.genre); !genre.empty()) return genre;
  if (std::string elsewhere = otherPlatformNotice(found, criteria); !elsewhere.empty()) {
    return elsewhere;
  }
  return reliefNotice(found, criteria);
}

/// Where the limit ended the list; empty where it did not.
std::string cutRemark(const CLISearchPayload& payload, std::size_t found) {
  const CLISearchPayload::Query& query = payload.query;
  const bool isFull = payload.results.size() == query.limit;
  // The store gave less than it was asked for: that is all it has.
  const bool isAll =
      query.scanned == found && activeCount(query.filters) > 0 && found < kLongestSearch;
  if (!isFull || isAll) return {};
  return limitRemark({.limit = query.limit,
                      .more = MoreMatches::perhaps,
                      .sortedFrom = query.sort == SortOrder::relevance ? "" : "the store's"});
}

}  // namespace

Task<CommandResult> runSearch(CommandCall call) {
  const CLIOptions& options = call.options;
  const CommandServices& services = call.services;
  CLISearchPayload payload = payloadFor(termOf(options.operands), options);
  const ExaminationCriteria criteria = criteriaFor(options, services);
  const std::size_t asked = activeCount(options.filters) > 0 ? kLongestSearch : options.limit;
  const QueryCall question = call.question();
  question.report({QueryStage::search});
  std::vector<ITunesApp> found =
      co_await services.itunes.search(payload.query.term, options.country, payload.query.platform,
                                      asked, question.context, AppDetail::listing);
  const std::size_t answered = found.size();
  Examined examined =
      co_await examine(std::move(found), criteria, services.queries(), question, RowWatch{});
  payload.query.scanned = examined.scanned;
  sortApps(examined.apps, payload.query.sort, [&](std::string_view left, std::string_view right) {
    return services.formats.nameLess(left, right);
  });
  for (ITunesApp& app : examined.apps) {
    payload.results.push_back(summaryOf(std::move(app), services.formats));
  }

  CommandResult result;
  result.text = call.form == OutputForm::json
                    ? renderSearchJson(payload)
                    : renderSearchText(payload, services.formats, call.style);
  result.remark = cutRemark(payload, answered);
  if (payload.results.empty()) {
    result.status = ExitStatus::nothingFound;
    result.notice = emptyNotice(examined.none, criteria);
  }
  co_return result;
}

}  // namespace quillet
