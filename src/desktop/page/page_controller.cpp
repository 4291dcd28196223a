// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_controller.h"

#include <algorithm>

#include "analysis/app_build.h"
#include "base/errors.h"
#include "desktop/page/visit.h"
#include "library/store_rows.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// Whoever goes through rows with the arrow keys rests nowhere as long.
constexpr auto kRest = 300ms;

constexpr auto kYoung = 1h;

// Pages are gone back to; what is kept of one is some hundred kilobytes.
constexpr std::size_t kKeptPages = 3;

bool touches(const LibraryChanges& changes, const AppKey& app) {
  return changes.watchedApps.contains(app) || changes.ownedApps.contains(app) ||
         changes.cachedApps.contains(app) || changes.prices.contains(app) ||
         changes.purchasePrices.contains(app) || !changes.collections.empty();
}

/// What the library would keep of the record alone.
CachedApp rowOf(const ShelvedRecord& record, const AppKey& app) {
  return cachedAppOf(describeApp(record.app, record.platform, std::nullopt),
                     {app.country, record.platform, record.asOf});
}

CachedApp rowOf(const StoreFacts& facts, const AppKey& app) {
  return cachedAppOf(facts.app, {app.country, facts.app.platform, facts.asOf});
}

Task<std::optional<ITunesApp>> lookUp(AppKey app, QueryServices services, QueryCall call) {
  const std::vector<std::int64_t> ids{app.trackId};
  auto found = co_await services.itunes.lookup(ids, app.country, call.context);
  if (found.empty()) co_return std::nullopt;
  co_return std::move(found.front());
}

}  // namespace

PageController::PageController(const ViewWorld& world, Visits visits, QObject* parent)
    : QObject(parent),
      world_(world),
      visits_(visits),
      record_(world.store, world.clock),
      catalog_(world.store, world.clock) {
  connect(&world_.library, &LibraryGateway::changed, this, &PageController::note);
  connect(&world_.library, &LibraryGateway::changedElsewhere, this, [this] {
    if (app_) wantLibrary();
  });
  for (StoreQuestion* question : {&record_, &catalog_})
    connect(question, &StoreQuestion::stateChanged, this, &PageController::takeState);
}

PageController::~PageController() {
  for (StoreQuestion* question : {&record_, &catalog_}) question->disconnect(this);
  endRest();
}

void PageController::show(const std::optional<AppKey>& app) {
  if (app == app_) {
    if (app_) wantLibrary();
    return;
  }
  endRest();
  app_ = app;
  library_.reset();
  facts_.reset();
  hasRested_ = hasAsked_ = isGone_ = false;
  isVisitNoted_ = isRankNoted_ = false;
  forgetQuestions();
  if (!app_) return;
  wantLibrary();
  if (isSeen_) beginRest();
}

void PageController::setSeen(bool seen) {
  if (seen == std::exchange(isSeen_, seen)) return;
  endRest();
  if (isSeen_ && app_) beginRest();
}

/// One reading at a time: of apps that are passed by while it lasts, only the last is read.
void PageController::wantLibrary() {
  isStale_ = isReading_;
  if (isReading_) return;
  isReading_ = true;
  detach(readLibrary(this, *app_), "an app's page");
}

Task<> PageController::readLibrary(QPointer<PageController> controller, AppKey app) {
  std::optional<PageFacts> facts;
  try {
    facts = co_await controller->world_.library.read(readPageFacts, app);
  } catch (const DatabaseError&) {
    facts.reset();
  }
  if (!controller.isNull()) controller->takeLibrary(app, std::move(facts));
}

void PageController::takeLibrary(const AppKey& app, std::optional<PageFacts> facts) {
  isReading_ = false;
  if (app == app_) {
    library_ = std::move(facts);
    if (library_) {
      compose();
      if (hasRested_) ask(Freshness::known);
    } else {
      facts_.reset();
      Q_EMIT unreadable();
    }
  }
  if (isStale_ && app_) wantLibrary();
}

void PageController::note(const LibraryChanges& changes) {
  if (app_ && touches(changes, *app_)) wantLibrary();
}

/// The facts of the library, with what the store told over them.
void PageController::compose() {
  PageFacts facts = *library_;
  facts.store = kept();
  facts.isGone = isGone_;
  if (const auto record = world_.records.find(*app_)) addRecord(facts, rowOf(*record, *app_));
  if (facts.store) addRecord(facts, rowOf(*facts.store, *app_));
  facts_ = std::move(facts);
  Q_EMIT factsChanged();
}

void PageController::beginRest() {
  resting_ = StopSource();
  detach(rest(this, resting_.token()), "An app that is looked at");
}

void PageController::endRest() { resting_.requestStop(); }

Task<> PageController::rest(QPointer<PageController> controller, StopToken stop) {
  co_await controller->world_.clock.sleepFor(kRest, stop);
  if (!controller.isNull() && !stop.stopRequested()) controller->takeRest();
}

/// Again each time that somebody comes back to the page: what was young may be old by then.
void PageController::takeRest() {
  hasRested_ = true;
  const bool isSettled = !isAsking() && std::holds_alternative<Ready>(state());
  if (isSettled) hasAsked_ = false;
  if (library_) ask(Freshness::known);
}

void PageController::refresh() {
  if (!app_) return;
  hasRested_ = true;
  hasAsked_ = false;
  if (library_) {
    ask(Freshness::anew);
  } else {
    wantLibrary();
  }
}

void PageController::ask(Freshness freshness) {
  if (std::exchange(hasAsked_, true)) return;
  freshness_ = freshness;
  isGone_ = false;
  answer_.reset();
  platform_ = knownPlatform();
  const auto known = newestRecord();
  if (freshness == Freshness::anew || !known || !isYoung(*known)) askRecord();
  if (platform_) askCatalog();
}

void PageController::askRecord() {
  record_.ask([app = *app_](QueryServices services,
                            QueryCall call) { return lookUp(app, services, std::move(call)); },
              [this](std::optional<ITunesApp> app) { takeRecord(std::move(app)); });
}

void PageController::askCatalog() {
  catalog_.ask(
      [app = *app_, platform = *platform_, freshness = freshness_](QueryServices services,
                                                                   QueryCall call) {
        return askCatalogFor(app, platform, freshness, services, std::move(call));
      },
      [this](CatalogAnswer answer) { takeCatalog(std::move(answer)); });
}

Task<PageController::CatalogAnswer> PageController::askCatalogFor(AppKey app, Platform platform,
                                                                  Freshness freshness,
                                                                  QueryServices services,
                                                                  QueryCall call) {
  CatalogClient& client = services.catalog;
  if (freshness == Freshness::anew) {
    client.forgetEnrichment(app.trackId, app.country, platform);
    services.pages.forget(app.trackId, app.country);  // which blocks read
  }
  CatalogAnswer answer;
  answer.isNew = !client.keepsEnrichment(app.trackId, app.country, platform);
  answer.catalog =
      co_await client.enrichment(app.trackId, app.country, platform, std::move(call.context));
  co_return answer;
}

void PageController::takeRecord(std::optional<ITunesApp> app) {
  isGone_ = !app.has_value();
  if (isGone_) {
    // It can only fail on what the storefront does not have.
    catalog_.forget();
    return compose();
  }
  const bool asksCatalogNow = !platform_;
  if (!platform_) platform_ = ownPlatform(*app);
  world_.records.keep(*app_, {std::move(*app), *platform_, world_.clock.now()});
  hasNews_ = true;
  if (asksCatalogNow) askCatalog();
  if (catalog_.isUnderWay()) compose();  // the rest follows
}

void PageController::takeCatalog(CatalogAnswer answer) {
  answer_ = std::move(answer);
  hasNews_ = true;
}

void PageController::takeState() {
  settle();
  Q_EMIT stateChanged();
}

/// Joins the answers once none is to come. Where one failed, what was known before counts.
void PageController::settle() {
  if (!app_ || !library_) return;
  const bool waitsLong = std::holds_alternative<Throttled>(catalog_.state());
  if (record_.isUnderWay() || (catalog_.isUnderWay() && !waitsLong)) return;
  const auto record = newestRecord();
  if (!record || isGone_) return;
  const bool isCurrent = hasAsked_ && isYoung(*record);
  bool isMore = false;
  if ((hasNews_ || isCurrent) && !catalog_.isUnderWay()) isMore = join(*record);
  if (isCurrent && (isMore || !isVisitNoted_)) noteVisit(*record);
}

/// Whether more is known then.
bool PageController::join(const ShelvedRecord& record) {
  hasNews_ = false;
  const auto before = kept();
  std::optional<AppEnrichment> catalog = before ? before->catalog : std::nullopt;
  if (answer_) catalog = answer_->catalog;
  if (before && before->asOf == record.asOf && before->catalog == catalog) {
    keep(before);  // as one that was shown last
    return false;
  }
  const Platform platform = platform_.value_or(record.platform);
  StoreFacts facts{describeApp(record.app, platform, catalog), catalog, record.asOf};
  world_.records.keep(*app_, {facts.app.record, platform, record.asOf});
  keep(std::make_shared<const StoreFacts>(std::move(facts)));
  compose();
  return true;
}

void PageController::forgetQuestions() {
  platform_.reset();
  answer_.reset();
  hasNews_ = false;
  for (StoreQuestion* question : {&record_, &catalog_}) question->forget();
}

void PageController::act(StripAction action) {
  if (action == StripAction::refresh) return refresh();
  for (StoreQuestion* question : {&record_, &catalog_}) {
    if (action == StripAction::stop) question->stop();
    if (action == StripAction::tryAgain && question->isUnanswered()) question->tryAgain();
  }
}

bool PageController::isSettled() const {
  const ListState now = state();
  const bool isWaiting =
      std::holds_alternative<Loading>(now) || std::holds_alternative<BudgetWait>(now);
  return hasAsked_ && !(isWaiting && isAsking());
}

ListState PageController::state() const {
  for (const StoreQuestion* question : {&record_, &catalog_}) {
    if (stripOf(question->state(), world_.clock.now())) return question->state();
  }
  if (isGone_) {
    const QString country = QString::fromStdString(app_->country);
    const bool wasSold = library_ && !library_->name.empty();
    return Gone{(wasSold ? tr("Not sold in the %1 storefront any more.")
                         : tr("Not sold in the %1 storefront."))
                    .arg(country)};
  }
  return record_.isUnderWay() ? record_.state() : catalog_.state();
}

std::optional<ShelvedRecord> PageController::newestRecord() const {
  std::optional<ShelvedRecord> record = world_.records.find(*app_);
  const std::optional<CachedApp>& row = library_->cached;
  if (!row || (record && record->asOf >= row->updatedAt)) return record;
  ITunesApp app = recordOf(*row);
  Platform platform = ownPlatform(app);
  if (record && describesBuild(app, record->platform)) platform = record->platform;
  return ShelvedRecord{std::move(app), platform, row->updatedAt};
}

/// A list says which build its app is; of others it is what the record was looked for as.
std::optional<Platform> PageController::knownPlatform() const {
  if (library_->listedAs) return library_->listedAs;
  const auto record = newestRecord();
  return record ? std::optional(record->platform) : std::nullopt;
}

bool PageController::isYoung(const ShelvedRecord& record) const {
  return world_.clock.now() - record.asOf < kYoung;
}

std::shared_ptr<const StoreFacts> PageController::kept() const {
  const auto found = std::ranges::find(kept_, *app_, [](const auto& each) { return each.first; });
  return found == kept_.end() ? nullptr : found->second;
}

void PageController::keep(std::shared_ptr<const StoreFacts> facts) {
  std::erase_if(kept_, [this](const auto& each) { return each.first == *app_; });
  kept_.insert(kept_.begin(), {*app_, std::move(facts)});
  if (kept_.size() > kKeptPages) kept_.pop_back();
}

/// The first time it is a visit; later answers renew what was kept of it.
void PageController::noteVisit(const ShelvedRecord& record) {
  const auto store = kept();
  const bool isJoined = store && store->asOf == record.asOf;
  Visit visit{.app = isJoined ? rowOf(*store, *app_) : rowOf(record, *app_),
              .when = world_.clock.now()};
  if (std::exchange(isVisitNoted_, true)) visit.step = Visit::Step::renewal;
  const bool isNoted = visits_ == Visits::noted && readSetting(world_.settings, kKeepHistory);
  if (!isNoted) visit.step = Visit::Step::unnoted;
  if (isJoined && answer_ && answer_->isNew && !isRankNoted_) {
    visit.rank = rankPointOf(store->app, *app_, visit.when);
    isRankNoted_ = visit.rank.has_value();
  }
  detach(world_.library.change(keepVisit, std::move(visit)), "A visit");
}

}  // namespace quillet
