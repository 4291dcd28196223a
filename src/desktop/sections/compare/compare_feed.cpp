// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_feed.h"

#include <algorithm>
#include <utility>

#include "analysis/app_build.h"
#include "analysis/monetization.h"
#include "base/errors.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kYoung = 1h;
constexpr std::size_t kLeast = 2;  // one app alone is compared with nothing

using Ids = std::vector<std::int64_t>;

std::vector<PageFacts> readAll(SQLite::Database& database, const std::vector<AppKey>& apps) {
  std::vector<PageFacts> facts;
  for (const AppKey& app : apps) facts.push_back(readPageFacts(database, app));
  return facts;
}

std::vector<AppKey> keysOf(const CompareList& list) {
  std::vector<AppKey> keys;
  for (const ComparedKey& each : list.apps()) keys.push_back(each.app);
  return keys;
}

}  // namespace

CompareFeed::CompareFeed(const ViewWorld& world, QObject* parent)
    : QObject(parent),
      world_(world),
      comparison_(world.store, world.clock),
      releases_(world.store, world.clock) {
  connect(&world_.compared, &CompareList::changed, this, &CompareFeed::takeList);
  connect(&world_.library, &LibraryGateway::changed, this, &CompareFeed::take);
  connect(&world_.library, &LibraryGateway::changedElsewhere, this, &CompareFeed::readLibrary);
  for (StoreQuestion* question : {&comparison_, &releases_})
    connect(question, &StoreQuestion::stateChanged, this, &CompareFeed::stateChanged);
  readLibrary();
}

CompareFeed::~CompareFeed() {
  for (StoreQuestion* question : {&comparison_, &releases_}) question->disconnect(this);
}

std::vector<ComparedFacts> CompareFeed::apps() const {
  std::vector<ComparedFacts> apps;
  for (const ComparedKey& key : world_.compared.apps()) {
    ComparedFacts facts{key};
    if (const auto known = library_.find(key.app); known != library_.end())
      facts.library = known->second;
    if (const auto told = told_.find(key.app); told != told_.end()) {
      facts.told = told->second.app;
      facts.isMissing = !facts.told;
    }
    if (const auto known = catalog_.find(key.app); known != catalog_.end())
      facts.catalog = known->second;
    apps.push_back(std::move(facts));
  }
  return apps;
}

void CompareFeed::take(const LibraryChanges& changes) {
  const auto isTouched = [&](const AppKey& app) {
    return changes.cachedApps.contains(app) || changes.watchedApps.contains(app) ||
           changes.ownedApps.contains(app) || changes.prices.contains(app);
  };
  if (std::ranges::any_of(keysOf(world_.compared), isTouched)) readLibrary();
}

void CompareFeed::takeList() {
  const auto isRead = [this](const AppKey& app) { return library_.contains(app); };
  if (!std::ranges::all_of(keysOf(world_.compared), isRead)) readLibrary();
  if (releasesOf_ && !world_.compared.has(*releasesOf_)) releases_.forget();
  ask(Visit::same);
  askReleases();
  Q_EMIT changed();
}

/// One reading at a time.
void CompareFeed::readLibrary() {
  isStale_ = isReading_;
  if (isReading_ || world_.compared.apps().empty()) return;
  isReading_ = true;
  detach(read(this), "Compared apps");
}

Task<> CompareFeed::read(QPointer<CompareFeed> feed) {
  std::vector<PageFacts> facts;
  const std::vector<AppKey> wanted = keysOf(feed->world_.compared);
  try {
    facts = co_await feed->world_.library.read(readAll, wanted);
  } catch (const DatabaseError&) {
    facts.clear();  // what the store tells is shown without it
  }
  if (feed.isNull()) co_return;
  feed->isReading_ = false;
  for (PageFacts& each : facts) {
    const AppKey app = each.app;
    feed->library_.insert_or_assign(app, std::move(each));
  }
  if (std::exchange(feed->isStale_, false)) feed->readLibrary();
  Q_EMIT feed->changed();
}

void CompareFeed::setSeen(bool seen) {
  if (std::exchange(isSeen_, seen) == seen || !seen) return;
  ask(Visit::another);
  askReleases();
}

void CompareFeed::refresh() {
  for (auto& [app, told] : told_) told.asOf = {};
  for (const auto& [app, catalog] : catalog_) anew_.insert(app);
  releases_.forget();
  comparison_.forget();
  ask(Visit::another);
}

void CompareFeed::act(StripAction action) {
  for (StoreQuestion* question : {&comparison_, &releases_}) {
    if (action == StripAction::stop) question->stop();
    if (action == StripAction::tryAgain && question->isUnanswered()) question->tryAgain();
  }
  if (action == StripAction::tryAgain && unread() && !comparison_.isUnanswered())
    ask(Visit::another);
}

ListState CompareFeed::state() const {
  for (const StoreQuestion* question : {&comparison_, &releases_}) {
    if (stripOf(question->state(), world_.clock.now())) return question->state();
  }
  if (comparison_.isUnderWay()) return comparison_.state();
  const std::exception_ptr failure = unread();
  return failure ? listStateOf(failure) : releases_.state();
}

/// Why it could not be read what some app sells; null where nothing failed.
std::exception_ptr CompareFeed::unread() const {
  const std::vector<AppKey> compared = keysOf(world_.compared);
  if (compared.size() < kLeast) return {};
  for (const AppKey& app : compared) {
    const auto told = told_.find(app);
    if (told == told_.end() || !told->second.app) continue;
    if (const std::exception_ptr failure = told->second.app->sold.failure) return failure;
  }
  return {};
}

bool CompareFeed::isKnown(const AppKey& app, Visit visit) const {
  const auto told = told_.find(app);
  if (told == told_.end()) return false;
  if (visit == Visit::same) return true;
  const std::optional<ComparedApp>& known = told->second.app;
  const bool isWhole = !known || (known->sold.check == PurchaseCheck::done && !known->sold.failure);
  return isWhole && world_.clock.now() - told->second.asOf < kYoung;
}

void CompareFeed::ask(Visit visit) {
  if (!isSeen_) return;
  Ids ids;
  for (const AppKey& app : keysOf(world_.compared)) {
    if (!isKnown(app, visit)) ids.push_back(app.trackId);
  }
  const bool isCompared = world_.compared.apps().size() >= kLeast;
  if (ids.empty() || !isCompared) {
    asked_.clear();
    return comparison_.forget();
  }
  const bool isAsked = comparison_.isUnanswered() && ids == asked_ &&
                       world_.compared.storefront() == askedStorefront_;
  if (!isAsked) askFor(std::move(ids));
}

void CompareFeed::askFor(Ids ids) {
  asked_ = ids;
  askedStorefront_ = world_.compared.storefront();
  comparison_.ask(
      [ids = std::move(ids), country = askedStorefront_](QueryServices services, QueryCall call) {
        return readAppComparison(ids, country, services, std::move(call));
      },
      [this, country = askedStorefront_](AppComparison answer) {
        takeAnswer(country, std::move(answer));
      });
}

void CompareFeed::takeAnswer(const std::string& country, AppComparison answer) {
  const Instant now = world_.clock.now();
  asked_.clear();
  for (ComparedApp& each : answer.apps) {
    const AppKey app{each.app.trackId, country};
    world_.records.keep(app, {each.app, ownPlatform(each.app), now});
    learn(app, std::move(each));
  }
  for (const std::int64_t id : answer.missing) told_[{id, country}] = {{}, now};
  askReleases();
  Q_EMIT changed();
}

void CompareFeed::learn(const AppKey& app, ComparedApp told) {
  Told& kept = told_[app];
  SoldInside& sold = told.sold;
  if (sold.failure && isRateLimit(sold.failure)) sold.check = PurchaseCheck::rateLimited;
  if (sold.failure && kept.app && kept.app->sold.check == PurchaseCheck::done) {
    sold.check = PurchaseCheck::done;
    sold.purchases = kept.app->sold.purchases;
    setPurchaseFlags(told.app, sold.purchases);
  }
  kept = {std::move(told), world_.clock.now()};
}

void CompareFeed::showReleases(const std::set<AppKey>& seen) {
  seen_ = seen;
  askReleases();
}

void CompareFeed::askReleases() {
  if (!isSeen_ || releases_.isUnanswered()) return;
  if (comparison_.isUnderWay()) return;
  for (const ComparedFacts& facts : apps()) {
    const AppKey app = facts.key.app;
    const std::optional<Platform> build = comparedBuild(facts);
    const bool isAnew = anew_.contains(app);
    const bool isKnown = facts.catalog && !isAnew;
    if (!build || isKnown || !seen_.contains(app)) continue;
    const Platform platform = *build;
    releasesOf_ = app;
    return releases_.ask(
        [app, platform, isAnew](QueryServices services, QueryCall call) {
          if (isAnew) services.catalog.forgetEnrichment(app.trackId, app.country, platform);
          return services.catalog.enrichment(app.trackId, app.country, platform,
                                             std::move(call.context));
        },
        [this, app](AppEnrichment catalog) {
          catalog_[app] = std::move(catalog);
          anew_.erase(app);
          Q_EMIT changed();
          askReleases();
        });
  }
}

}  // namespace quillet
