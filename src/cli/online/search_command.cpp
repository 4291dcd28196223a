// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search_command.h"

#include <fmt/format.h>

#include "analysis/filter_match.h"
#include "analysis/sorting.h"
#include "base/text.h"
#include "cli/online/examination_criteria.h"
#include "cli/online/search_result.h"
#include "store/records/app_genre.h"

namespace quillet {

namespace {

// Apple has no filters of its own: a filtered search reads as much as the service gives.
constexpr int kLongestSearch = 200;

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
  const AppGenre* genre = asked ? findGenre(trimmed(*asked)) : nullptr;
  if (genre == nullptr || genre->name == *asked) return {};
  return fmt::format("Apple names this category '{}'.", genre->name);
}

}  // namespace

Task<CommandResult> runSearch(CommandCall call) {
  const CLIOptions& options = call.options;
  const CommandServices& services = call.services;
  CLISearchPayload payload = payloadFor(termOf(options.operands), options);
  ExaminationCriteria criteria = criteriaFor(options, services);
  const int asked = activeCount(options.filters) > 0 ? kLongestSearch : options.limit;
  const QueryCall question = call.question();
  question.report({QueryStage::search});
  std::vector<ITunesApp> found =
      co_await services.itunes.search(payload.query.term, options.country, payload.query.platform,
                                      asked, question.context, AppDetail::listing);

  Examined examined = co_await examine(std::move(found), std::move(criteria), services.queries(),
                                       question, RowWatch{});
  payload.query.scanned = examined.scanned;
  sortApps(examined.apps, payload.query.sort, [&](std::string_view left, std::string_view right) {
    return services.formats.nameLess(left, right);
  });
  for (const ITunesApp& app : examined.apps) {
    payload.results.push_back(summaryOf(app, services.formats));
  }

  CommandResult result;
  result.text = call.form == OutputForm::json
                    ? renderSearchJson(payload)
                    : renderSearchText(payload, services.formats, call.style);
  if (payload.results.empty()) {
    result.status = ExitStatus::nothingFound;
    result.notice = genreNotice(options.filters.genre);
  }
  co_return result;
}

}  // namespace quillet
