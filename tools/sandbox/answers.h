// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/request.h"
#include "sandbox/sample_store.h"

/// What the store answers to a GET, by the services that it plays.
namespace quillet::sandbox {

// The search service: itunes_endpoints.cpp.

/// /search with "term", "entity", "country" and "limit".
[[nodiscard]] Answer answerSearch(const SampleStore& store, const Request& request);

/// /lookup with "id" (apps, or one maker with "entity") or "bundleId", "country" and "limit".
[[nodiscard]] Answer answerLookup(const SampleStore& store, const Request& request);

/// A chart as a feed: the storefront, its name as "topfreemacapps", then settings, as
/// "genre=6007/limit=200/json". The Mac has no feed of its own for what grosses most and is
/// answered with the one for iPhone; it has none at all for what is paid for.
[[nodiscard]] Answer answerChartFeed(const SampleStore& store, const Request& request);

/// The newest reviews of an app, 50 a page and ten pages: the storefront, then settings in any
/// order, as "page=1/id=1480068668/sortBy=mostRecent/json".
[[nodiscard]] Answer answerReviewFeed(const SampleStore& store, const Request& request);

// The catalog and its editors: catalog_endpoints.cpp.

/// The entry of one app with "platform", and what "extend" and "include" ask for.
[[nodiscard]] Answer answerCatalogApp(const SampleStore& store, const Request& request);

/// The entries of up to 50 apps with "ids" and "platform"; with "views" their purchases as well.
[[nodiscard]] Answer answerCatalogApps(const SampleStore& store, const Request& request);

/// A page of an app's reviews with "platform", "limit" (at most 20) and "offset".
[[nodiscard]] Answer answerCatalogReviews(const SampleStore& store, const Request& request);

/// The entries of bundles with "ids" and "platform"; with "include" their apps.
[[nodiscard]] Answer answerCatalogBundles(const SampleStore& store, const Request& request);

/// Stories of the store's editors with "ids" and "platform".
[[nodiscard]] Answer answerEditorial(const SampleStore& store, const Request& request);

// The web pages: page_endpoints.cpp.

/// The page of an app. Its data stands in one of the forms that the real pages have.
[[nodiscard]] Answer answerProductPage(const SampleStore& store, const Request& request);

/// The page with the charts of a shelf and a category: the first fifty apps of each, and the IDs of
/// the rest. Every third category's data stands in lists where the others have objects.
[[nodiscard]] Answer answerChartPage(const SampleStore& store, const Request& request);

// The image servers: picture_endpoint.cpp.

/// An icon, a screenshot or a story's picture, in the largest size that fits in the one that its
/// address ends in, as PNG whatever the address says.
[[nodiscard]] Answer answerPicture(const SampleStore& store, const Request& request);

// The price files: price_file_endpoints.cpp.

/// Their list, manifest.json.
[[nodiscard]] Answer answerPriceManifest(const SampleStore& store, const Request& request);

/// The price changes of a storefront, changes-us.json.gz and its like.
[[nodiscard]] Answer answerPriceFile(const SampleStore& store, const Request& request);

}  // namespace quillet::sandbox
