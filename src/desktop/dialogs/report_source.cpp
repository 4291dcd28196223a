// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_source.h"

#include <algorithm>

#include "analysis/app_build.h"
#include "base/errors.h"
#include "desktop/models/row_parts.h"
#include "library/recorded_history.h"
#include "library/store_rows.h"

namespace quillet {

namespace {

/// Without the store's answer it is what the library kept of it.
std::optional<DescribedApp> describedApp(const PageFacts& facts) {
  if (facts.store) return facts.store->app;
  if (!facts.cached) return {};
  ITunesApp record = recordOf(*facts.cached);
  const Platform platform = facts.listedAs.value_or(ownPlatform(record));
  return describeApp(std::move(record), platform, std::nullopt);
}

}  // namespace

ReportSource::ReportSource(const ViewWorld& world) : world_(world), page_(world, Visits::unnoted) {
  connect(&page_, &PageController::factsChanged, this, &ReportSource::takeFacts);
  connect(&page_, &PageController::stateChanged, this, &ReportSource::changed);
  connect(&page_, &PageController::unreadable, this, &ReportSource::changed);
  page_.setSeen(true);
}

ReportSource::~ReportSource() {
  page_.disconnect(this);
  if (reviews_) reviews_->disconnect(this);
}

void ReportSource::show(const AppKey& app) {
  if (page_.app() == app) return;
  reviews_.reset();
  prices_.clear();
  isStopped_ = false;
  page_.show(app);
  Q_EMIT changed();
}

void ReportSource::wantReviews(std::size_t count) {
  wanted_ = count;
  isStopped_ = false;
  readOn();
  Q_EMIT changed();
}

void ReportSource::takeFacts() {
  const PageFacts& facts = *page_.facts();
  if (facts.store && !reviews_) beginReviews(*facts.store);
  detach(readPrices(this, facts.app), "A report's prices");
  Q_EMIT changed();
}

/// Unlike a page's, they may be in several currencies: a report says which.
Task<> ReportSource::readPrices(QPointer<ReportSource> source, AppKey app) {
  std::vector<PricePoint> points;
  try {
    points = co_await source->world_.library.read(pricePointsOf, std::vector<AppKey>{app});
  } catch (const DatabaseError&) {
    points.clear();
  }
  if (source.isNull() || source->page_.app() != app) co_return;
  auto prices = recordedPrices(points);
  if (prices == source->prices_) co_return;
  source->prices_ = std::move(prices);
  Q_EMIT source->changed();
}

void ReportSource::beginReviews(const StoreFacts& store) {
  // Of an app that the catalog does not have, it knows no reviews either.
  if (!store.catalog || *store.catalog == AppEnrichment{}) return;
  const AppKey& app = *page_.app();
  reviews_ = std::make_unique<ReviewReader>(ReviewSubject{app.trackId, store.app.platform},
                                            store.catalog->versions, world_.store, world_.clock);
  connect(reviews_.get(), &ReviewReader::changed, this, [this] {
    readOn();
    Q_EMIT changed();
  });
  reviews_->know(app.country, store.catalog->reviews);
  reviews_->choose(ReviewOrder::asTheStoreHasThem, {app.country});
}

void ReportSource::readOn() {
  if (!reviews_ || reviews_->count() == 0 || isStopped_) return;
  const ReviewSample& sample = reviews_->sample(0);
  const bool isEnough = sample.reviews.size() >= wanted_ || !sample.next;
  if (!isEnough && std::holds_alternative<Ready>(sample.state)) reviews_->readMore(0);
}

std::optional<AppKnowledge> ReportSource::known() const {
  if (!page_.facts()) return {};
  std::optional<DescribedApp> app = describedApp(*page_.facts());
  if (!app) return {};
  AppKnowledge known{std::move(*app), page_.app()->country, {}, prices_};
  if (!reviews_ || reviews_->count() == 0) return known;
  const auto& read = reviews_->sample(0).reviews;
  for (std::size_t i = 0; i < std::min(wanted_, read.size()); ++i)
    known.reviews.push_back(read[i].review);
  return known;
}

QString ReportSource::name() const {
  return page_.facts() ? nameLine(page_.facts()->name) : QString();
}

std::optional<std::size_t> ReportSource::reviewsSoFar() const {
  if (!reviews_ || reviews_->count() == 0) return {};
  const ReviewSample& sample = reviews_->sample(0);
  if (!sample.isUnderWay()) return {};
  return sample.reviews.size();
}

ListState ReportSource::state() const {
  const ListState page = page_.state();
  if (!reviews_ || stripOf(page, world_.clock.now())) return page;
  return stateOf(*reviews_);
}

void ReportSource::act(StripAction action) {
  page_.act(action);
  if (!reviews_) return;
  if (action == StripAction::stop) {
    isStopped_ = true;
    reviews_->stop();
  }
  if (action == StripAction::tryAgain) reviews_->tryAgain();
  Q_EMIT changed();
}

}  // namespace quillet
