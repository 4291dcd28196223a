// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/counts_feed.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kBurst = 100ms;

}  // namespace

CountsFeed::CountsFeed(LibraryGateway& library, LibraryCounts known)
    : library_(library), counts_(std::move(known)) {
  again_.setSingleShot(true);
  again_.setInterval(kBurst);
  connect(&again_, &QTimer::timeout, this, [this] { detach(read(this), "Counts"); });
  connect(&library, &LibraryGateway::changed, this, &CountsFeed::take);
  connect(&library, &LibraryGateway::changedElsewhere, &again_, qOverload<>(&QTimer::start));
  detach(read(this), "Counts");
}

void CountsFeed::take(const LibraryChanges& changes) {
  const bool isTouched = !changes.watchedApps.empty() || !changes.ownedApps.empty() ||
                         !changes.collections.empty() || !changes.alerts.empty() ||
                         !changes.cachedApps.empty();
  if (isTouched && !again_.isActive()) again_.start();
}

Task<> CountsFeed::read(QPointer<CountsFeed> feed) {
  LibraryGateway& library = feed->library_;
  LibraryCounts counts = co_await library.read(libraryCounts, std::string());
  if (!feed) co_return;
  feed->counts_ = std::move(counts);
  Q_EMIT feed->changed();
}

}  // namespace quillet
