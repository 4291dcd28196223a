// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/counts_feed.h"

#include <algorithm>

#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kBurst = 100ms;

SidebarFacts readFacts(SQLite::Database& database, const std::string& storefront) {
  return {libraryCounts(database, storefront), savedQueries(database)};
}

}  // namespace

CountsFeed::CountsFeed(const ViewWorld& world, SidebarFacts known)
    : library_(world.library), storefront_(world.storefront), facts_(std::move(known)) {
  again_.setSingleShot(true);
  again_.setInterval(kBurst);
  connect(&again_, &QTimer::timeout, this, [this] { detach(read(this), "Counts"); });
  connect(&library_, &LibraryGateway::changed, this, &CountsFeed::take);
  connect(&library_, &LibraryGateway::changedElsewhere, &again_, qOverload<>(&QTimer::start));
  connect(&world.settings, &LiveSettings::changed, this, [this](const auto& keys) {
    if (keys.contains(std::string(kStorefrontCountry.key))) readSoon();
  });
  detach(read(this), "Counts");
}

void CountsFeed::take(const LibraryChanges& changes) {
  const bool isTouched = !changes.watchedApps.empty() || !changes.ownedApps.empty() ||
                         !changes.collections.empty() || !changes.alerts.empty() ||
                         !changes.cachedApps.empty() || !changes.savedSearches.empty() ||
                         changes.deals.contains(storefront_());
  if (isTouched) readSoon();
}

void CountsFeed::readSoon() {
  if (!again_.isActive()) again_.start();
}

const SavedQuery* CountsFeed::search(RowId key) const {
  const auto found = std::ranges::find(facts_.searches, key, &SavedQuery::key);
  return found == facts_.searches.end() ? nullptr : &*found;
}

Task<> CountsFeed::read(QPointer<CountsFeed> feed) {
  LibraryGateway& library = feed->library_;
  SidebarFacts facts = co_await library.read(readFacts, feed->storefront_());
  if (!feed) co_return;
  feed->facts_ = std::move(facts);
  Q_EMIT feed->changed();
}

}  // namespace quillet
