// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "net/http_client.h"
#include "store/records/itunes_app_json.h"
#include "store/records/review_feed_json.h"
#include "store/request_budget.h"
#include "store/request_context.h"

namespace quillet {

/// IDs that one lookup takes. A longer list is several requests, so a caller who may stop early
/// asks for so many at a time.
inline constexpr std::size_t kLookupBatch = 100;

/// The feed of reviews goes no further back.
inline constexpr int kReviewFeedPages = 10;

/// The one gateway to Apple's public search, lookup and feed service: it keeps the budget of
/// requests a minute, tries again where that can help, and decodes the answers.
///
/// An object of the event-loop thread that lives as long as its face. All operations throw
/// ITunesError for an HTTP error, NetworkError for a transfer that failed or was stopped,
/// DecodingError for an answer of another shape. `country` is a two-letter storefront code in lower
/// case.
class ITunesClient {
 public:
  /// `address`: scheme, host and port of the service, without a path.
  ITunesClient(HttpClient& http, Clock& clock, std::string address,
               std::size_t requestsPerMinute = kRequestsPerMinute);

  /// At most `limit` (1 to 200) apps in the store's order of relevance.
  Task<std::vector<ITunesApp>> search(std::string term, std::string country, Platform platform,
                                      std::size_t limit, RequestContext context,
                                      AppDetail detail = AppDetail::page);

  /// IDs that the storefront does not know are simply absent. Asks for kLookupBatch at a time; an
  /// empty list sends nothing.
  Task<std::vector<ITunesApp>> lookup(std::vector<std::int64_t> trackIds, std::string country,
                                      RequestContext context);

  /// As lookup(), with what of the answers could not be read: those apps are there all the same.
  Task<StoreAnswer> lookupAnswer(std::vector<std::int64_t> trackIds, std::string country,
                                 RequestContext context);

  /// As lookup(), by bundle ID; a Mac and an iOS app may share one. One request at most, so that
  /// at most 200 apps are found.
  Task<std::vector<ITunesApp>> lookupBundles(std::vector<std::string> bundleIds,
                                             std::string country, RequestContext context);

  /// What the developer sells in a store, at most 200 apps.
  Task<std::vector<ITunesApp>> developerApps(std::int64_t developerId, Platform platform,
                                             std::string country, RequestContext context);

  /// Page `page` (1 to kReviewFeedPages) of the newest reviews, whatever the platform.
  Task<ReviewFeedPage> recentReviews(std::int64_t trackId, std::string country, int page,
                                     RequestContext context);

  /// The body behind an address of the service, within its budget: tried up to three times on
  /// server errors and passing network failures. Other parts of the store's service (feeds) are
  /// read through this too.
  Task<std::string> fetch(std::string url, RequestContext context);

  /// How long the next request has still to wait for the budget; absent while none waits.
  [[nodiscard]] std::optional<std::chrono::milliseconds> budgetWait() const {
    return budget_.currentWait();
  }

 private:
  Task<std::vector<ITunesApp>> fetchApps(std::string url, RequestContext context,
                                         AppDetail detail = AppDetail::page);
  Task<StoreAnswer> fetchAnswer(std::string url, RequestContext context, AppDetail detail);
  Task<HttpResponse> getWithinBudget(std::string url, RequestContext context);

  HttpClient& http_;
  Clock& clock_;
  std::string address_;
  RequestBudget budget_;
};

}  // namespace quillet
