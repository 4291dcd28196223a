// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/catalog_client.h"

#include <fmt/format.h>

#include <set>

#include "base/text.h"
#include "store/browser_identity.h"
#include "store/id_batches.h"
#include "store/records/catalog_bundles_json.h"
#include "store/records/catalog_editorial_json.h"
#include "store/records/catalog_enrichment_json.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "store/records/catalog_reviews_json.h"
#include "store/records/itunes_error.h"
#include "store/retried_request.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view kCatalogRoot = "/api/apps/v1/catalog/";
constexpr std::string_view kEditorialRoot = "/api/apps/v1/editorial/";
constexpr const char* kLanguage = "en-US";

constexpr int kOneTry = 1;
constexpr int kThreeTries = 3;
constexpr double kLargestExtraWait = 1500;  // milliseconds

constexpr auto kTimeout = 20s;
// The catalog puts the purchases of fifty apps together while one waits.
constexpr auto kPurchasesTimeout = 60s;

/// The catalog knows no iPhone: its apps are among the iPad's.
std::string platformItem(Platform platform) { return platform == Platform::mac ? "mac" : "ipad"; }

std::string bundlesKey(const std::vector<std::int64_t>& ids, const std::string& storefront) {
  const std::set<std::int64_t> set(ids.begin(), ids.end());
  return fmt::format("{}-{}", storefront, fmt::join(set, ","));
}

/// The key of an app or a story: platforms that are asked for alike are kept apart.
std::string keyOf(std::string_view id, const std::string& storefront, Platform platform) {
  return fmt::format("{}-{}-{}", id, storefront, textOf(kPlatformWords, platform));
}

/// What is kept of a list of answers, and the IDs to ask for.
template <typename Id, typename Value>
struct KeptAnswers {
  std::map<Id, Value> known;
  std::vector<Id> missing;
};

template <typename Id, typename Key, typename Value, typename KeyOfId>
KeptAnswers<Id, Value> keptAnswers(const AnswerCache<Key, Value>& cache, const std::vector<Id>& ids,
                                   KeyOfId keyOfId) {
  KeptAnswers<Id, Value> kept;
  for (const Id& id : ids) {
    if (auto value = cache.find(keyOfId(id))) {
      kept.known.emplace(id, std::move(*value));
    } else {
      kept.missing.push_back(id);
    }
  }
  return kept;
}

std::vector<EditorialStory> inOrderOf(const std::vector<std::string>& ids,
                                      const std::map<std::string, EditorialStory>& stories) {
  std::vector<EditorialStory> inOrder;
  for (const std::string& id : ids) {
    if (const auto story = stories.find(id); story != stories.end()) {
      inOrder.push_back(story->second);
    }
  }
  return inOrder;
}

/// `random`: from 0 to below 1.
RetryRules retryRules(int tries, std::function<double()> random) {
  return {.tries = tries,
          .canHelpAfterStatus = [](int status) { return status == 429 || status >= 500; },
          .canHelpAfterFailure = [](NetworkError::Kind) { return false; },
          .waitAfter = [random = std::move(random)](int attempt) -> std::chrono::milliseconds {
            const std::chrono::milliseconds extra(static_cast<int>(random() * kLargestExtraWait));
            return std::chrono::seconds(1 << attempt) + extra;
          }};
}

}  // namespace

CatalogClient::CatalogClient(HttpClient& http, Clock& clock, std::string address,
                             std::function<double()> random, AnswerCacheLimits limits)
    : http_(http),
      clock_(clock),
      address_(std::move(address)),
      random_(std::move(random)),
      enrichments_(clock, limits),
      bundles_(clock, limits),
      stories_(clock, limits),
      flags_(clock, limits) {}

Task<AppEnrichment> CatalogClient::enrichment(std::int64_t trackId, std::string storefront,
                                              Platform platform, RequestContext context) {
  const std::string key = keyOf(std::to_string(trackId), storefront, platform);
  if (auto kept = enrichments_.find(key)) co_return std::move(*kept);
  HttpRequest request = requestFor(fmt::format("{}{}/apps/{}", kCatalogRoot, storefront, trackId),
                                   {{"platform", platformItem(platform)},
                                    {"extend", "versionHistory"},
                                    {"include", "reviews,top-in-apps,related-editorial-items"},
                                    {"limit[reviews]", std::to_string(kEnrichmentReviews)}});
  const std::string body = co_await fetch(std::move(request), kThreeTries, std::move(context));
  AppEnrichment answer = decodeEnrichment(body, platform);
  enrichments_.keep(key, answer);
  co_return answer;
}

bool CatalogClient::keepsEnrichment(std::int64_t trackId, const std::string& storefront,
                                    Platform platform) const {
  return enrichments_.has(keyOf(std::to_string(trackId), storefront, platform));
}

void CatalogClient::forgetEnrichment(std::int64_t trackId, const std::string& storefront,
                                     Platform platform) {
  enrichments_.forget(keyOf(std::to_string(trackId), storefront, platform));
}

Task<ReviewsPage> CatalogClient::reviewsPage(std::int64_t trackId, std::string storefront,
                                             Platform platform, int limit, int offset,
                                             RequestContext context) {
  HttpRequest request =
      requestFor(fmt::format("{}{}/apps/{}/reviews", kCatalogRoot, storefront, trackId),
                 {{"platform", platformItem(platform)},
                  {"limit", std::to_string(limit)},
                  {"offset", std::to_string(offset)}});
  const std::string body = co_await fetch(std::move(request), kThreeTries, std::move(context));
  co_return decodeReviewsPage(body);
}

Task<std::vector<AppBundleInfo>> CatalogClient::bundles(std::vector<std::int64_t> ids,
                                                        std::string storefront,
                                                        RequestContext context) {
  if (ids.empty()) co_return {};
  const std::string key = bundlesKey(ids, storefront);
  if (auto kept = bundles_.find(key)) co_return std::move(*kept);
  HttpRequest request =
      requestFor(fmt::format("{}{}/app-bundles", kCatalogRoot, storefront),
                 {{"ids", joinedIds(ids)}, {"platform", "mac"}, {"include", "apps"}});
  const std::string body = co_await fetch(std::move(request), kThreeTries, std::move(context));
  auto answer = decodeBundles(body);
  bundles_.keep(key, answer);
  co_return answer;
}

void CatalogClient::forgetBundles(const std::vector<std::int64_t>& ids,
                                  const std::string& storefront) {
  bundles_.forget(bundlesKey(ids, storefront));
}

Task<std::vector<EditorialStory>> CatalogClient::stories(std::vector<std::string> ids,
                                                         std::string storefront, Platform platform,
                                                         RequestContext context) {
  const auto keyOfId = [&](const std::string& id) { return keyOf(id, storefront, platform); };
  auto kept = keptAnswers(stories_, ids, keyOfId);
  if (!kept.missing.empty()) {
    HttpRequest request =
        requestFor(fmt::format("{}{}/editorial-items", kEditorialRoot, storefront),
                   {{"ids", join(kept.missing, ",")}, {"platform", platformItem(platform)}});
    const std::string body = co_await fetch(std::move(request), kThreeTries, std::move(context));
    for (const EditorialStory& story : decodeStories(body)) {
      stories_.keep(keyOfId(story.id), story);
      kept.known.emplace(story.id, story);
    }
  }
  co_return inOrderOf(ids, kept.known);
}

void CatalogClient::forgetStories(const std::vector<std::string>& ids,
                                  const std::string& storefront, Platform platform) {
  for (const std::string& id : ids) stories_.forget(keyOf(id, storefront, platform));
}

Task<std::map<std::int64_t, bool>> CatalogClient::macCompatibilityFlags(
    std::vector<std::int64_t> trackIds, std::string storefront, RequestContext context) {
  auto kept = keptAnswers(flags_, trackIds, [](std::int64_t id) { return id; });
  for (const std::string& ids : idBatches(kept.missing, kCatalogBatch)) {
    HttpRequest request = listRequest(storefront, ids, Platform::mac, {});
    const std::string body = co_await fetch(std::move(request), kOneTry, context);
    for (const auto& [id, flag] : decodeMacCompatibilityFlags(body)) {
      flags_.keep(id, flag);
      kept.known.emplace(id, flag);
    }
  }
  co_return std::move(kept.known);
}

Task<std::map<std::int64_t, PlatformFacts>> CatalogClient::platformAttributes(
    std::vector<std::int64_t> trackIds, std::string storefront, RequestContext context) {
  std::map<std::int64_t, PlatformFacts> all;
  for (const std::string& ids : idBatches(trackIds, kCatalogBatch)) {
    HttpRequest request = listRequest(storefront, ids, Platform::mac, {});
    const std::string body = co_await fetch(std::move(request), kOneTry, context);
    all.merge(decodePlatformFacts(body));
  }
  co_return all;
}

Task<std::map<std::int64_t, AppEnrichment>> CatalogClient::macBuilds(
    std::vector<std::int64_t> trackIds, std::string storefront, RequestContext context) {
  std::map<std::int64_t, AppEnrichment> all;
  for (const std::string& ids : idBatches(trackIds, kCatalogBatch)) {
    HttpRequest request =
        listRequest(storefront, ids, Platform::mac, {{"extend", "versionHistory"}});
    const std::string body = co_await fetch(std::move(request), kOneTry, context);
    all.merge(decodeMacBuilds(body));
  }
  co_return all;
}

Task<std::map<std::int64_t, std::vector<InAppPurchase>>> CatalogClient::purchases(
    std::vector<std::int64_t> trackIds, std::string storefront, Platform platform,
    RequestContext context) {
  std::map<std::int64_t, std::vector<InAppPurchase>> all;
  for (const std::string& ids : idBatches(trackIds, kCatalogBatch)) {
    HttpRequest request =
        listRequest(storefront, ids, platform, {{"views", "top-in-app-purchasables"}});
    request.idleTimeout = kPurchasesTimeout;
    request.cachePolicy = CachePolicy::ignore;
    const std::string body = co_await fetch(std::move(request), kThreeTries, context);
    all.merge(decodePurchases(body));
  }
  co_return all;
}

HttpRequest CatalogClient::listRequest(const std::string& storefront, const std::string& ids,
                                       Platform platform, const QueryItems& more) const {
  QueryItems items{{"ids", ids}, {"platform", platformItem(platform)}};
  items.insert(items.end(), more.begin(), more.end());
  return requestFor(fmt::format("{}{}/apps", kCatalogRoot, storefront), std::move(items));
}

HttpRequest CatalogClient::requestFor(std::string_view path, QueryItems items) const {
  items.emplace_back("l", kLanguage);
  HttpRequest request;
  request.url = buildUrl(address_, path, items);
  request.headers.emplace_back(kUserAgentHeader, kBrowserUserAgent);
  request.idleTimeout = kTimeout;
  return request;
}

Task<std::string> CatalogClient::fetch(HttpRequest request, int tries, RequestContext context) {
  if (!canBeAsked(request.url)) throw ITunesError::invalidURL();
  request.requestClass = context.requestClass;
  return bodyWithRetries([this, request, stop = context.stop] { return http_.get(request, stop); },
                         retryRules(tries, random_), &clock_, context.stop);
}

}  // namespace quillet
