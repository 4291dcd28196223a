// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>

#include "analysis/app_build.h"
#include "cli/limit_remark.h"
#include "cli/online/app/app_lookup.h"
#include "cli/online/command_handlers.h"
#include "cli/online/reviews/reviews_text.h"
#include "cli/track_id_operand.h"
#include "queries/review_reading.h"

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

/// Whether a lookup came back without the app, and nothing went wrong.
bool saysNotFound(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const CLIError& known) {
    return known.code() == CLIError::Code::notFound;
  } catch (...) {
    return false;
  }
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
      const auto error = std::current_exception();
      const bool isFailure = !saysNotFound(error);
      if (!failure || (isFailure && failures == 0)) failure = error;
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
    if (saysNotFound(std::current_exception())) throw;
  }
}

/// The storefront whose history dates the reviews: releases are the same everywhere.
std::optional<std::string> firstWithDates(const CLIReviewsPayload& payload) {
  const auto hasDate = [](const VersionedReview& each) { return each.review.date.has_value(); };
  const auto found = std::ranges::find_if(payload.storefronts, [&](const StorefrontReviews& s) {
    return std::ranges::any_of(s.reviews, hasDate);
  });
  if (found == payload.storefronts.end()) return {};
  return found->country;
}

/// Returns a notice where the history cannot be read: the reviews are worth printing without.
Task<std::string> readVersions(CLIReviewsPayload* payload, CommandCall call) {
  const std::optional<std::string> country = firstWithDates(*payload);
  if (!country) co_return {};
  try {
    const std::vector<VersionEntry> releases = co_await readReleases(
        payload->trackId, payload->platform, *country, call.services.queries(), call.question());
    for (StorefrontReviews& each : payload->storefronts) addVersions(each.reviews, releases);
  } catch (...) {
    co_return unreadNotice("the release history", std::current_exception());
  }
  co_return {};
}

bool isCut(const CLIReviewsPayload& payload, std::size_t limit) {
  return std::ranges::any_of(payload.storefronts,
                             [limit](const auto& each) { return each.reviews.size() == limit; });
}

ReviewQuestion questionOf(const Subject& subject, const CLIOptions& options) {
  ReviewQuestion question;
  question.trackId = subject.trackId;
  question.platform = subject.platform;
  question.countries = countriesIn(options);
  if (options.recentFirst) question.order = ReviewOrder::mostRecent;
  question.stars = options.stars;
  question.limit = options.limit;
  return question;
}

/// Whoever filters several storefronts has to wait for more than the reviews that are shown.
void announce(const ReviewQuestion& question, const Progress& progress) {
  if (!question.stars || question.countries.size() < 2) return;
  progress.announce(
      fmt::format("looking for those reviews in {} storefronts may take up to {} requests.",
                  question.countries.size(), mostRequests(question)));
}

CLIReviewsPayload payloadOf(const Subject& subject, const ReviewQuestion& question,
                            std::vector<StorefrontReviews> storefronts) {
  CLIReviewsPayload payload;
  payload.trackId = subject.trackId;
  payload.platform = subject.platform;
  payload.name = subject.name;
  payload.stars = question.stars;
  payload.recentFirst = question.order == ReviewOrder::mostRecent;
  payload.countries = question.countries;
  for (StorefrontReviews& each : storefronts) {
    if (each.failure) {
      payload.unavailable.push_back(std::move(each.country));
    } else {
      payload.storefronts.push_back(std::move(each));
    }
  }
  return payload;
}

}  // namespace

Task<CommandResult> runReviews(CommandCall call) {
  const CLIOptions& options = call.options;
  const Subject subject = co_await subjectOf(soleTrackId("reviews", options.operands), call);
  const ReviewQuestion question = questionOf(subject, options);
  announce(question, call.services.progress);
  std::vector<StorefrontReviews> storefronts =
      co_await readReviews(question, call.services.queries(), call.question());
  CLIReviewsPayload payload = payloadOf(subject, question, std::move(storefronts));
  // Of an ID that nobody looked up, no reviews can also mean that there is no such app.
  if (!subject.name && payload.fetched() == 0) co_await requireSold(subject.trackId, call);

  CommandResult result;
  // The recent feed names versions itself; what stands in for it is told without them.
  if (options.wantsVersions && !options.recentFirst) {
    result.notice = co_await readVersions(&payload, call);
  }
  result.text = call.form == OutputForm::json
                    ? renderReviewsJson(payload)
                    : renderReviewsText(payload, call.services.formats, call.style);
  if (isCut(payload, options.limit)) {
    result.remark = limitRemark({.limit = options.limit, .more = MoreMatches::perhaps});
  }
  if (payload.count() == 0) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
