// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/version_at.h"
#include "base/numbers.h"
#include "cli/online/app_lookup.h"
#include "cli/online/reviews_reading.h"
#include "cli/online/reviews_text.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

// One storefront may be out of order; two that fail mean that the service is.
constexpr int kMostFailedLookups = 2;

constexpr int kNotFound = 404;

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

CLIError soldInNone(std::string_view trackId) {
  return {CLIError::Code::notFound,
          fmt::format("Nothing with ID {} in any of those storefronts.", trackId)};
}

/// The app as the first storefront that sells it describes it.
Task<Subject> lookUpSubject(std::string trackId, std::vector<std::string> countries,
                            CommandCall call) {
  std::exception_ptr failure;
  int failures = 0;
  for (const std::string& country : countries) {
    if (failures == kMostFailedLookups) break;
    call.options.country = country;
    try {
      const ITunesApp app = co_await lookUpApp(trackId, call);
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
Task<Subject> subjectOf(std::string trackId, std::vector<std::string> countries, CommandCall call) {
  const std::int64_t id = parseWhole(trackId).value_or(0);
  if (call.options.platform && id > 0) co_return Subject{id, *call.options.platform, {}};
  Subject found = co_await lookUpSubject(std::move(trackId), std::move(countries), std::move(call));
  co_return found;
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
        payload->trackId, storefront->country, payload->platform, StopToken{});
    addVersions(*payload, enrichment.versions);
  } catch (...) {
    const CLIError error = toCLIError(std::current_exception());
    co_return fmt::format("the release history could not be read: {}", error.what());
  }
  co_return {};
}

std::string operandOf(const std::vector<std::string>& operands) {
  if (operands.size() > 1) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("reviews takes one track ID; got {}.", operands.size()));
  }
  return trackIdOperand(operands, "reviews needs a track ID.", "quillet reviews 1176895641 --json");
}

ReviewsQuestion questionOf(const Subject& subject, const CLIOptions& options) {
  ReviewsQuestion question;
  question.trackId = subject.trackId;
  question.platform = subject.platform;
  question.limit = static_cast<std::size_t>(options.limit);
  question.stars = options.stars;
  question.recentFirst = options.recentFirst;
  return question;
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

/// Of an ID that nobody looked up, the catalog says no more than that it is not there: whether the
/// app exists is worth one more question.
Task<ReviewsRead> readOrSayNotSold(Subject subject, CommandCall call) {
  const CLIOptions& options = call.options;
  std::exception_ptr failure;
  try {
    ReviewsRead read =
        co_await readReviews(questionOf(subject, options), countriesIn(options), call.services);
    co_return read;
  } catch (const ITunesError& error) {
    if (subject.name || error.status() != kNotFound) throw;
    failure = std::current_exception();
  }
  co_await lookUpSubject(std::to_string(subject.trackId), countriesIn(options), call);
  std::rethrow_exception(failure);
}

}  // namespace

Task<CommandResult> runReviews(CommandCall call) {
  const CLIOptions& options = call.options;
  std::string trackId = operandOf(options.operands);
  const Subject subject = co_await subjectOf(std::move(trackId), countriesIn(options), call);
  CLIReviewsPayload payload = payloadOf(subject, options);
  ReviewsRead read = co_await readOrSayNotSold(subject, call);
  payload.storefronts = std::move(read.storefronts);
  payload.unavailable = std::move(read.unavailable);

  CommandResult result;
  // The recent feed names versions itself; what stands in for it is told without them.
  if (options.wantsVersions && !options.recentFirst) {
    result.notice = co_await readVersions(&payload, call.services);
  }
  result.text = call.form == OutputForm::json
                    ? renderReviewsJson(payload)
                    : renderReviewsText(payload, call.services.formats, call.style);
  if (payload.count() == 0) result.status = ExitStatus::nothingFound;
  co_return result;
}

}  // namespace quillet
