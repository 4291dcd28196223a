// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/itunes_client.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "base/errors.h"
#include "base/text.h"
#include "base/urls.h"
#include "store/id_batches.h"
#include "store/records/itunes_app_json.h"
#include "store/records/itunes_error.h"
#include "store/retried_request.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr int kTries = 3;
constexpr auto kRetryStep = 1500ms;
constexpr auto kTimeout = 20s;
constexpr const char* kLongestAnswer = "200";

RetryRules retryRules() {
  return {.tries = kTries,
          .canHelpAfterStatus = [](int status) { return status >= 500; },
          .canHelpAfterFailure =
              [](NetworkError::Kind kind) {
                return kind == NetworkError::Kind::cannotReach ||
                       kind == NetworkError::Kind::failed;
              },
          .waitAfter = [](int attempt) { return attempt * kRetryStep; }};
}

HttpRequest requestFor(std::string url, RequestClass requestClass) {
  HttpRequest request;
  request.url = std::move(url);
  request.idleTimeout = kTimeout;
  request.requestClass = requestClass;
  return request;
}

}  // namespace

ITunesClient::ITunesClient(HttpClient& http, Clock& clock, std::string address,
                           std::size_t requestsPerMinute)
    : http_(http), clock_(clock), address_(std::move(address)), budget_(clock, requestsPerMinute) {}

Task<std::vector<ITunesApp>> ITunesClient::search(std::string term, std::string country,
                                                  Platform platform, std::size_t limit,
                                                  RequestContext context, AppDetail detail) {
  const QueryItems items{{"term", std::move(term)},
                         {"entity", std::string(textOf(kPlatformEntities, platform))},
                         {"country", std::move(country)},
                         {"limit", std::to_string(limit)}};
  return fetchApps(buildUrl(address_, "/search", items), std::move(context), detail);
}

Task<std::vector<ITunesApp>> ITunesClient::lookup(std::vector<std::int64_t> trackIds,
                                                  std::string country, RequestContext context) {
  StoreAnswer answer =
      co_await lookupAnswer(std::move(trackIds), std::move(country), std::move(context));
  co_return std::move(answer.apps);
}

Task<StoreAnswer> ITunesClient::lookupAnswer(std::vector<std::int64_t> trackIds,
                                             std::string country, RequestContext context) {
  StoreAnswer answer;
  for (std::string& ids : idBatches(trackIds, kLookupBatch)) {
    const QueryItems items{{"id", std::move(ids)}, {"country", country}};
    const std::string url = buildUrl(address_, "/lookup", items);
    StoreAnswer chunk = co_await fetchAnswer(url, context, AppDetail::page);
    std::ranges::move(chunk.apps, std::back_inserter(answer.apps));
    std::ranges::move(chunk.unread, std::back_inserter(answer.unread));
  }
  co_return answer;
}

Task<std::vector<ITunesApp>> ITunesClient::lookupBundles(std::vector<std::string> bundleIds,
                                                         std::string country,
                                                         RequestContext context) {
  if (bundleIds.empty()) co_return {};
  const QueryItems items{{"bundleId", join(bundleIds, ",")},
                         {"country", std::move(country)},
                         {"limit", kLongestAnswer}};
  co_return co_await fetchApps(buildUrl(address_, "/lookup", items), std::move(context));
}

Task<std::vector<ITunesApp>> ITunesClient::developerApps(std::int64_t developerId,
                                                         Platform platform, std::string country,
                                                         RequestContext context) {
  const QueryItems items{{"id", std::to_string(developerId)},
                         {"entity", std::string(textOf(kPlatformEntities, platform))},
                         {"country", std::move(country)},
                         {"limit", kLongestAnswer}};
  return fetchApps(buildUrl(address_, "/lookup", items), std::move(context));
}

Task<std::vector<ITunesApp>> ITunesClient::fetchApps(std::string url, RequestContext context,
                                                     AppDetail detail) {
  StoreAnswer answer = co_await fetchAnswer(std::move(url), std::move(context), detail);
  co_return std::move(answer.apps);
}

Task<StoreAnswer> ITunesClient::fetchAnswer(std::string url, RequestContext context,
                                            AppDetail detail) {
  const std::string body = co_await fetch(std::move(url), std::move(context));
  co_return decodeStoreAnswer(body, detail);
}

Task<ReviewFeedPage> ITunesClient::recentReviews(std::int64_t trackId, std::string country,
                                                 int page, RequestContext context) {
  const std::string path = fmt::format(
      "/{}/rss/customerreviews/page={}/id={}/sortBy=mostRecent/json", country, page, trackId);
  const std::string body = co_await fetch(buildUrl(address_, path, {}), std::move(context));
  co_return decodeReviewFeed(body, page);
}

Task<std::string> ITunesClient::fetch(std::string url, RequestContext context) {
  if (!canBeAsked(url)) throw ITunesError::invalidURL();
  return bodyWithRetries([this, url, context] { return getWithinBudget(url, context); },
                         retryRules(), &clock_, context.stop);
}

Task<HttpResponse> ITunesClient::getWithinBudget(std::string url, RequestContext context) {
  co_await budget_.take(context.requestClass, context.stop);
  HttpRequest request = requestFor(std::move(url), context.requestClass);
  HttpResponse response = co_await http_.get(std::move(request), context.stop);
  co_return response;
}

}  // namespace quillet
