// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <chrono>
#include <optional>

#include "base/enum_index.h"
#include "publisher/price_files.h"
#include "sandbox/answers.h"
#include "sandbox/page_answers.h"
#include "sandbox/price_history.h"

namespace quillet::sandbox {

namespace {

// A larger store publishes what moved among its first apps.
constexpr std::size_t kMostExamined = 50'000;

struct MovedApp {
  AppSketch app;
  std::vector<PriceChange> history;
};

std::vector<MovedApp> movedApps(const SampleStore& store) {
  std::vector<MovedApp> moved;
  const std::size_t examined = std::min<std::size_t>(store.size(), kMostExamined);
  for (AppNumber number = 0; number < examined; ++number) {
    AppSketch app = store.sketch(number);
    auto history = priceHistory(app, store.today());
    // What the day that is played does not know yet.
    std::erase_if(history,
                  [&](const PriceChange& change) { return change.day > store.pricesOf(); });
    if (!history.empty()) moved.push_back({std::move(app), std::move(history)});
  }
  return moved;
}

bool isSoldIn(const MovedApp& moved, Storefront storefront) {
  return moved.app.storefronts.test(indexOf(storefront));
}

/// When an app left a storefront: some do, a week after their price there moved last.
std::optional<Instant> leftSince(const MovedApp& moved, Storefront storefront) {
  const bool isOneOfThem = !isSoldIn(moved, storefront) && moved.app.id % 4 == 0;
  if (!isOneOfThem) return {};
  return Instant(moved.history.back().day + std::chrono::days(7));
}

RecordedApp recorded(const MovedApp& moved, Storefront storefront) {
  const AppSketch& app = moved.app;
  RecordedApp entry{.trackId = app.id,
                    .name = app.name,
                    .seller = app.maker.seller,
                    .currency = std::string(currencyOf(storefront)),
                    .kind = app.machines.ios() ? "software" : "mac-software"};
  for (const PriceChange& change : moved.history) {
    const Hundredths amount = priceIn(storefront, change.usCents);
    entry.prices.push_back({Instant(change.day), static_cast<double>(amount) / 100});
  }
  return entry;
}

RecordedStorefront published(const SampleStore& store, const std::vector<MovedApp>& moved,
                             Storefront storefront) {
  RecordedStorefront all{.country = std::string(codeOf(storefront)),
                         .stamp = Instant(store.pricesOf())};
  for (const MovedApp& app : moved) {
    const auto left = leftSince(app, storefront);
    const bool isGone = left && *left <= Instant(store.pricesOf());
    if (!isGone && !isSoldIn(app, storefront)) continue;
    all.apps.push_back(recorded(app, storefront));
    all.apps.back().goneSince = left;
  }
  return onlyMoved(std::move(all));
}

}  // namespace

Answer answerPriceManifest(const SampleStore& store, const Request&) {
  const std::vector<MovedApp> moved = movedApps(store);
  std::vector<ManifestEntry> entries;
  for (std::size_t i = 0; i < kStorefrontCount; ++i) {
    const auto storefront = published(store, moved, static_cast<Storefront>(i));
    entries.push_back(
        {storefront.country, storefront.stamp, storefront.apps.size(), Instant(store.pricesOf())});
  }
  return {.contentType = "application/json", .body = manifestFile(entries).bytes};
}

Answer answerPriceFile(const SampleStore& store, const Request& request) {
  for (std::size_t i = 0; i < kStorefrontCount; ++i) {
    const auto storefront = static_cast<Storefront>(i);
    if (priceFileName(codeOf(storefront)) != "changes-" + request.captures.front()) continue;
    PublishedFile file = priceFile(published(store, movedApps(store), storefront));
    return {.contentType = "application/gzip", .body = std::move(file.bytes)};
  }
  return pageNotFound();
}

}  // namespace quillet::sandbox
