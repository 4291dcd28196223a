// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>

#include "analysis/version_at.h"
#include "cli/limit_remark.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/command_handlers.h"
#include "cli/online/reviews_reading.h"
#include "cli/online/reviews_text.h"
#include "cli/track_id_operand.h"

namespace quillet {

namespace {

// One storefront may be out of order; two that fail mean that the service is.
constexpr int kMostFailedLookups = 2;

/// Each one once, in the order given.
std::vector<std::string> countriesIn(const CLIOptions& options) {
  std::vector<std::string> countries;
  for (const std::string& country : options.countries) {
    if (std::ranges::find(countries, country) == countries.end()) countries.push_back(country);
  }
  if (countries.empty()) countries.push_back(options.country);
  return countries;
}

/// What the reviews are of.
struct Subject {
  std::int64_t trackId = 0;
  Platform platform = Platform::mac;
  std::optional<std::string> name;
};

CLIError soldInNone(std::int64_t trackId) {
  return {CLIError::Code::notFound,
          fmt::format("Nothing with ID {} in any of those storefronts.", trackId)};
}

/// The app as the first storefront that sells it describes it.
Task<Subject> lookUpSubject(std::int64_t trackId, std::vector<std::string> countries,
                            CommandCall call) {
  std::exception_ptr failure;
  int failures = 0;
  for (const std::string& country : countries) {
    if (failures == kMostFailedLookups) break;
    call.options.country = country;
    try {
      const ITunesApp app = co_await lookUpApp(std::to_string(trackId), call);
      co_return Subject{app.trackId, call.options.platform.value_or(ownPlatform(app)),
                        app.trackName};
    } catch (...) {
      const CLIError error = toCLIError(std::current_exception());
      const bool isFailure = error.code() != CLIError::Code::notFound;
      if (!failure || (isFailure && failures == 0)) failure = std::current_exception();
      if (isFailure) ++failures;
    }
  }
  if (failures == 0 && countries.size() > 1) throw soldInNone(trackId);
  std::rethrow_exception(failure);
}

/// Asks the store only where the options leave open which build is meant.
Task<Subject> subjectOf(std::int64_t trackId, CommandCall call) {
  if (call.options.platform) co_return Subject{trackId, *call.options.platform, {}};
  Subject found = co_await lookUpSubject(trackId, countriesIn(call.options), call);
  co_return found;
}

/// Throws CLIError where no storefront sells it; what a failure leaves open is no failure here.
Task<> requireSold(std::int64_t trackId, CommandCall call) {
  try {
    co_await lookUpSubject(trackId, countriesIn(call.options), call);
  } catch (...) {
    if (toCLIError(std::current_exception()).code() == CLIError::Code::notFound) throw;
  }
}

/// The storefront whose history dates the reviews: releases are the same everywhere.
const CLIStorefrontReviews* firstWithDates(const CLIReviewsPayload& payload) {
  const auto hasDate = [](const VersionedReview& each) { return each.review.date.has_value(); };
  const auto found = std::ranges::find_if(payload.storefronts, [&](const CLIStorefrontReviews& s) {
    return std::ranges::any_of(s.reviews, hasDate);
  });
  return found == payload.storefronts.end() ? nullptr : &*found;
}

void addVersions(CLIReviewsPayload& payload, const std::vector<VersionEntry>& history) {
  for (CLIStorefrontReviews& storefront : payload.storefronts) {
    for (VersionedReview& each : storefront.reviews) {
      if (each.review.date) each.version = versionAt(history, *each.review.date);
    }
  }
}

/// Returns a notice where the history cannot be read: the reviews are worth printing without.
Task<std::string> readVersions(CLIReviewsPayload* payload, CommandServices services) {
  const CLIStorefrontReviews* storefront = firstWithDates(*payload);
  if (storefront == nullptr) co_return {};
  services.progress.report("Reading the release history");
  try {
    const AppEnrichment enrichment = co_await services.catalog.enrichment(
        payload->trackId, storefront->country, payload->platform, RequestContext{});
    addVersions(*payload, enrichment.versions);
  } catch (...) {
    co_return unreadNotice("the release history", std::current_exception());
  }
  co_return {};
}

bool isCut(const CLIReviewsPayload& payload, std::size_t limit) {
  return std::ranges::any_of(payload.storefronts, [limit](const CLIStorefrontReviews& each) {
    return each.reviews.size() == limit;
  });
}

CLIReviewsPayload payloadOf(const Subject& subject, const CLIOptions& options) {
  CLIReviewsPayload payload;
  payload.trackId = subject.trackId;
  payload.platform = subject.platform;
  payload.name = subject.name;
  payload.stars = options.stars;
  payload.recentFirst = options.recentFirst;
  payload.countries = countriesIn(options);
  return payload;
}

}  // namespace

Task<CommandResult> runReviews(CommandCall call) {
  const CLIOptions& options = call.options;
  const Subject subject = co_await subjectOf(soleTrackId("reviews", options.operands), call);
  CLIReviewsPayload payload = payloadOf(subject, options);
  co_await readReviews(&payload, static_cast<std::size_t>(options.limit), call.services);
  // Of an ID that nobody looked up, no reviews can also mean that there is no such app.
  if (!subject.name && payload.fetched() == 0) co_await requireSold(subject.trackId, call);

  CommandResult result;
  // The recent feed names versions itself; what stands in for it is told without them.
  if (options.wantsVersions && !options.recentFirst) {
    result.notice = co_await readVersions(&payload, call.services);
  }
  result.text = call.form == OutputForm::json
                    ? renderReviewsJson(payload)
                    : renderReviewsText(payload, call.services.formats, call.style);
  if (isCut(payload, static_cast<std::size_t>(options.limit))) {
    result.remark = limitRemark({.limit = options.limit, .more = MoreMatches::perhaps});
  }
  if (payload.count() == 0) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
