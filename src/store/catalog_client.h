// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "base/urls.h"
#include "net/http_client.h"
#include "store/answer_cache.h"
#include "store/records/app_bundle_info.h"
#include "store/records/app_enrichment.h"
#include "store/records/editorial_story.h"
#include "store/records/platform.h"
#include "store/request_context.h"

namespace quillet {

/// IDs that the catalog takes at a time. A list of at most so many is one request, so a caller who
/// may stop early asks for so many at a time.
inline constexpr std::size_t kCatalogBatch = 50;

/// Reviews that the catalog gives at most in one page.
inline constexpr int kCatalogReviewsPage = 20;

/// Reviews that come with an enrichment at most: the first of the store's order.
inline constexpr int kEnrichmentReviews = 10;

/// Reads the store's catalog, the service behind its web pages, for what search and lookup do not
/// tell: ratings, releases, reviews, purchases, chart positions, builds, bundles and stories. It
/// sends no credential of any kind.
///
/// An object of the event-loop thread that lives as long as its face. All operations throw
/// ITunesError for an HTTP error, NetworkError for a transfer that failed or was stopped,
/// DecodingError for an answer of another shape; nothing is kept then. A person's requests go
/// before the background's where they wait for a connection; there is no budget. Status 429 and
/// those from 500 on are tried up to three times where nothing else is said. `storefront` is a
/// two-letter code in lower case. Texts come in English, prices in the storefront's currency.
class CatalogClient {
 public:
  /// `address`: scheme, host and port of the store's web host, without a path. `random` gives
  /// numbers from 0 to below 1, evenly, that keep apart the retries of many users.
  CatalogClient(HttpClient& http, Clock& clock, std::string address, std::function<double()> random,
                AnswerCacheLimits limits);

  /// Empty for an app that the catalog does not have. Kept.
  Task<AppEnrichment> enrichment(std::int64_t trackId, std::string storefront, Platform platform,
                                 RequestContext context);
  /// Whether the same would be answered without a request.
  [[nodiscard]] bool keepsEnrichment(std::int64_t trackId, const std::string& storefront,
                                     Platform platform) const;
  /// So that it is asked for anew.
  void forgetEnrichment(std::int64_t trackId, const std::string& storefront, Platform platform);

  /// `limit`: 1 to kCatalogReviewsPage. Fails with 404 where there are none from `offset` on.
  Task<ReviewsPage> reviewsPage(std::int64_t trackId, std::string storefront, Platform platform,
                                int limit, int offset, RequestContext context);

  /// In the catalog's order; IDs that it does not know are absent. Kept by the set of IDs.
  Task<std::vector<AppBundleInfo>> bundles(std::vector<std::int64_t> ids, std::string storefront,
                                           RequestContext context);

  /// So that they are asked for anew.
  void forgetBundles(const std::vector<std::int64_t>& ids, const std::string& storefront);

  /// In the order of `ids`; those that the catalog does not know are absent. Kept one by one.
  Task<std::vector<EditorialStory>> stories(std::vector<std::string> ids, std::string storefront,
                                            Platform platform, RequestContext context);

  void forgetStories(const std::vector<std::string>& ids, const std::string& storefront,
                     Platform platform);

  /// Whether each app's iPhone or iPad build runs on a Mac. An app that is not in the map is
  /// unknown. Tried once. Kept one by one, whatever the storefront.
  Task<std::map<std::int64_t, bool>> macCompatibilityFlags(std::vector<std::int64_t> trackIds,
                                                           std::string storefront,
                                                           RequestContext context);

  /// What is said of each app's Mac build, and its ratings there. Tried once.
  Task<std::map<std::int64_t, PlatformFacts>> platformAttributes(std::vector<std::int64_t> trackIds,
                                                                 std::string storefront,
                                                                 RequestContext context);

  /// What is said of each app's Mac build, with its releases. Where an app has none, that of the
  /// other build may be said; see knowsBuild(). Tried once.
  Task<std::map<std::int64_t, AppEnrichment>> macBuilds(std::vector<std::int64_t> trackIds,
                                                        std::string storefront,
                                                        RequestContext context);

  /// What is sold inside each app. An app with an empty list sells nothing; one that is not in the
  /// map is unknown.
  Task<std::map<std::int64_t, std::vector<InAppPurchase>>> purchases(
      std::vector<std::int64_t> trackIds, std::string storefront, Platform platform,
      RequestContext context);

 private:
  Task<std::string> fetch(HttpRequest request, int tries, RequestContext context);
  [[nodiscard]] HttpRequest listRequest(const std::string& storefront, const std::string& ids,
                                        Platform platform, const QueryItems& more) const;
  [[nodiscard]] HttpRequest requestFor(std::string_view path, QueryItems items) const;

  HttpClient& http_;
  Clock& clock_;
  std::string address_;
  std::function<double()> random_;
  AnswerCache<std::string, AppEnrichment> enrichments_;
  AnswerCache<std::string, std::vector<AppBundleInfo>> bundles_;
  AnswerCache<std::string, EditorialStory> stories_;
  AnswerCache<std::int64_t, bool> flags_;
};

}  // namespace quillet
