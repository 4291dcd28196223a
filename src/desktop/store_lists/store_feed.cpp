// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/store_feed.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "analysis/app_build.h"
#include "analysis/calendar.h"
#include "analysis/filter_counts.h"
#include "base/errors.h"
#include "library/chart_orders.h"
#include "queries/app_examination.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kKeptAnswers = 10;
constexpr int kPage = 20;  // rows that are read beyond those that are seen
constexpr auto kOldAnswer = 1h;
constexpr auto kOldReads = 6h;  // of the catalog, whose figures change seldom
constexpr auto kBurst = 250ms;

CatalogNeeds needsOf(FactKind what) {
  return {.purchases = what == FactKind::purchases,
          .build = what == FactKind::architecture,
          .ratings = what == FactKind::ratings};
}

/// What is to be waited out rather than answered.
bool waits(const ListState& state) {
  return std::holds_alternative<Throttled>(state) || std::holds_alternative<BudgetWait>(state) ||
         std::holds_alternative<Offline>(state);
}

bool isReady(const StoreQuestion& question) {
  return std::holds_alternative<Ready>(question.state());
}

std::vector<AppKey> appsOf(const FoundApps& found) {
  std::vector<AppKey> apps;
  for (const ITunesApp& app : found.apps) apps.push_back({app.trackId, found.country});
  std::ranges::sort(apps);
  const auto [first, last] = std::ranges::unique(apps);
  apps.erase(first, last);
  return apps;
}

AppRow searchRow(const FoundApps& found, std::size_t position, const RowKey& key,
                 const FoundContext& context) {
  return foundRow(found.apps[position], key, found.platform, context);
}

void shelve(RecordShelf& shelf, const FoundApps& found) {
  for (const ITunesApp& app : found.apps) {
    const Platform platform =
        describesBuild(app, found.platform) ? found.platform : ownPlatform(app);
    shelf.keep({app.trackId, found.country}, {app, platform, found.asOf});
  }
}

}  // namespace

StoreFeed::StoreFeed(const ViewWorld& world, FoundRowMaker rowOf)
    : world_(world),
      rowOf_(rowOf ? std::move(rowOf) : FoundRowMaker(searchRow)),
      formats_(std::make_shared<const LocaleFormats>(world.locale)),
      lines_(rows_, world.library, world.clock),
      question_(world.store, world.clock),
      catalog_(world.store, world.clock),
      answers_(world.clock, {{}, kKeptAnswers}) {
  connect(&question_, &StoreQuestion::stateChanged, this, &StoreFeed::followQuestion);
  connect(&catalog_, &StoreQuestion::stateChanged, this, &StoreFeed::followReading);
  libraryTimer_.setSingleShot(true);
  libraryTimer_.setInterval(kBurst);
  connect(&libraryTimer_, &QTimer::timeout, this, &StoreFeed::readLibrary);
  connect(&world.library, &LibraryGateway::changed, this, &StoreFeed::note);
  connect(&world.library, &LibraryGateway::changedElsewhere, this, [this] {
    lines_.noteAll();
    libraryTimer_.start();
  });
}

void StoreFeed::show(const StoreQuery& query) {
  const StoreAsk ask = askOf(query, world_.storefront());
  const bool isSameQuestion = isAsked(query) == isAsked(query_) && ask == ask_;
  const bool isSame = isFilled_ && query == query_;
  query_ = query;
  if (isSame) return setState(stateNow());
  wanted_ = kPage;
  isStopped_ = false;
  stopReading();
  if (isSameQuestion && (answer_ || !isReady(question_) || isWaiting_)) return arrange();
  question_.forget();
  ask_ = ask;
  isWaiting_ = false;
  order_ = {};
  answer_ = answers_.find(ask_).value_or(nullptr);
  lines_.forget();
  ++libraryReading_;  // nothing that is under way is of this question
  if (library_) library_->chart.reset();
  isFilled_ = !isAsked(query_);
  rows_.reset({});
  if (isFilled_) {
    setState(Ready{});
    Q_EMIT filled();
  } else if (answer_) {
    answers_.keep(ask_, answer_);  // as the latest
    readLibrary();
    arrange();
  } else {
    this->ask();
  }
}

void StoreFeed::renewIfOlder(std::chrono::minutes age) {
  if (!isAsked(query_) || question_.isUnderWay()) return;
  if (!answer_ || world_.clock.now() - answer_->asOf >= age) ask();
}

void StoreFeed::refresh() {
  if (isAsked(query_)) ask();
}

void StoreFeed::act(StripAction action) {
  switch (action) {
    case StripAction::refresh: return refresh();
    case StripAction::tryAgain:
      return isReady(question_) ? catalog_.tryAgain() : question_.tryAgain();
    case StripAction::goOn: isStopped_ = false; return readOn();
    case StripAction::stop: break;
    case StripAction::settings:
    case StripAction::none: return;
  }
  if (question_.isUnderWay()) return question_.stop();
  isStopped_ = true;
  stopReading();
  setState(stateNow());
  Q_EMIT filled();
}

/// What is under way may come; nothing begins any more.
void StoreFeed::rest() {
  isResting_ = true;
  followQuestion();
  followReading();
}

void StoreFeed::wake() {
  if (!std::exchange(isResting_, false)) return;
  lines_.follow();
  if (isWaiting_) return ask();
  readOn();
  setState(stateNow());
}

void StoreFeed::showUpTo(int row) {
  wanted_ = std::max(wanted_, row + 1 + kPage);
  readOn();
}

void StoreFeed::showExtras(std::set<AppKey> seen) {
  if (!query_.chart) return lines_.show(std::move(seen));
  seen_ = std::move(seen);
  showRanks();
}

int StoreFeed::total() const {
  return answer_ ? static_cast<int>(answer_->apps.size()) : RowFeed::total();
}

const KnownChart* StoreFeed::chart() const {
  return query_.chart && library_ && library_->chart ? &*library_->chart : nullptr;
}

bool StoreFeed::isBehind() const { return isFilled_ && catalog_.isUnderWay(); }

FoundTally StoreFeed::tally() const {
  return {static_cast<int>(order_.positions.size()),
          answer_ ? static_cast<int>(answer_->apps.size()) : 0, order_.isPartial};
}

std::vector<std::optional<std::size_t>> StoreFeed::countsOf(
    std::span<const AppFilters> choices) const {
  std::vector<std::optional<std::size_t>> counts(choices.size());
  if (!answer_) return counts;
  counts = filterCounts(answer_->apps, answer_->reads, choices, terms());
  for (std::size_t i = 0; !library_ && i < choices.size(); ++i) {
    if (choices[i].hideOwned) counts[i].reset();
  }
  return counts;
}

std::set<std::int64_t> StoreFeed::passing() const {
  std::set<std::int64_t> ids;
  if (!answer_) return ids;
  const MatchTerms terms = this->terms();
  const FilterJudge judge(filters(), terms);
  for (std::size_t i = 0; i < answer_->apps.size(); ++i) {
    if (judge(answer_->apps[i], answer_->reads[i]) != FilterVerdict::fails)
      ids.insert(answer_->apps[i].trackId);
  }
  return ids;
}

std::set<std::int64_t> StoreFeed::shown() const {
  std::set<std::int64_t> ids;
  for (const std::size_t position : order_.positions) ids.insert(answer_->apps[position].trackId);
  return ids;
}

MatchTerms StoreFeed::terms() const {
  return {library_ ? library_->owned : TrackIds(), world_.clock.now(), world_.zone};
}

ListState StoreFeed::stateNow() const {
  if (!isAsked(query_)) return Ready{};
  if (!isReady(question_)) return question_.state();
  if (!isFilled_) return Loading{world_.clock.now()};
  if (reading_ && !isReady(catalog_)) {
    const bool isUnderWay = std::holds_alternative<Loading>(catalog_.state()) ||
                            std::holds_alternative<BudgetWait>(catalog_.state());
    if (!isUnderWay) return catalog_.state();
    return Reading{reading_->what, reading_->done, reading_->total};
  }
  if (isStopped_ && order_.next)
    return Paused{order_.next->what, order_.next->done, order_.next->total};
  if (answer_ && world_.clock.now() - answer_->asOf > kOldAnswer) return Stale{answer_->asOf};
  return Ready{};
}

void StoreFeed::ask() {
  isWaiting_ = isResting_;
  if (isWaiting_) return setState(stateNow());
  stopReading();
  question_.ask([ask = ask_](QueryServices services,
                             QueryCall call) { return askStore(ask, services, std::move(call)); },
                [this, ask = ask_](FoundApps found) { take(ask, std::move(found)); });
}

void StoreFeed::take(const StoreAsk& ask, FoundApps found) {
  if (answer_ && found.asOf - answer_->readsSince < kOldReads) takeReads(found, *answer_);
  answer_ = std::make_shared<FoundApps>(std::move(found));
  answers_.keep(ask, answer_);
  shelve(world_.records, *answer_);
  isStopped_ = false;
  if (ask.chart) {
    const SeenChart seen{chartOf(ask), answer_->chart, answer_->asOf,
                         startOfDay(answer_->asOf, world_.zone)};
    detach(noteChart(this, seen, readSetting(world_.settings, kRecordCharts)), "A chart's record");
  } else {
    readLibrary();
  }
  arrange();
  Q_EMIT answered();
}

/// Judges and orders the answer anew, and asks for what that takes.
void StoreFeed::arrange() {
  // What is owned must be known to be left out.
  if (!answer_ || (filters().hideOwned && !library_)) return setState(stateNow());
  const auto before = [this](std::string_view left, std::string_view right) {
    return formats_->nameLess(left, right);
  };
  order_ = rowsOf(*answer_, filters(), query_.request.sort, terms(), before);
  fill();
  readOn();
  setState(stateNow());
  Q_EMIT filled();
}

void StoreFeed::fill() {
  static const FoundInLibrary kNothing;
  const FoundContext context{library_ ? *library_ : kNothing, *formats_, world_.clock.now()};
  const std::vector<RowKey> keys = keysOf(*answer_);
  std::vector<AppRow> rows;
  for (const std::size_t position : order_.positions)
    rows.push_back(rowOf_(*answer_, position, keys[position], context));
  if (std::exchange(isFilled_, true)) {
    rows_.arrange(std::move(rows));
  } else {
    rows_.reset(std::move(rows));
  }
  if (query_.chart) showRanks();
}

/// The lines of what is seen; there is nothing to wait for.
void StoreFeed::showRanks() {
  rows_.keepExtras(seen_);
  if (chart() == nullptr) return;
  std::map<AppKey, RowExtras> lines;
  for (const std::size_t position : order_.positions) {
    const AppKey app{answer_->apps[position].trackId, answer_->country};
    if (seen_.contains(app)) lines[app] = rankLine(*chart(), app.trackId, answer_->ranks[position]);
  }
  rows_.setExtras(std::move(lines));
}

/// Asks the catalog, unless that was done, or there are rows enough.
void StoreFeed::readOn() {
  if (!mayAsk() || !answer_ || !order_.next || isStopped_) return;
  if (question_.isUnderWay() || catalog_.isUnderWay() || !isReady(catalog_)) return;
  if (!order_.isOrderOpen && static_cast<int>(order_.positions.size()) >= wanted_) return;
  reading_ = order_.next;
  catalog_.ask(
      [asked = askedOf(*answer_, *reading_), needs = needsOf(reading_->what),
       country = answer_->country](QueryServices services, QueryCall call) {
        return readCatalogFacts(asked, needs, country, services, std::move(call));
      },
      [this, reading = *reading_](const std::vector<ITunesApp>& read) { takeRead(reading, read); });
}

void StoreFeed::takeRead(const FactReading& reading, const std::vector<ITunesApp>& read) {
  takeFacts(*answer_, reading, read);
  reading_.reset();
  arrange();
}

void StoreFeed::stopReading() {
  reading_.reset();
  catalog_.forget();
}

void StoreFeed::followQuestion() {
  if (isResting_ && waits(question_.state())) {
    isWaiting_ = true;
    question_.forget();
    return;
  }
  setState(stateNow());
}

void StoreFeed::followReading() {
  if (isResting_ && waits(catalog_.state())) return stopReading();
  setState(stateNow());
  // Whoever waits for more rows waits in vain.
  if (reading_ && !catalog_.isUnderWay() && !isReady(catalog_)) Q_EMIT filled();
}

void StoreFeed::note(const LibraryChanges& changes) {
  lines_.note(changes);
  if (!isResting_) lines_.follow();
  const auto chart = shownChart();
  const bool isTouched = !changes.ownedApps.empty() || !changes.watchedApps.empty() ||
                         !changes.prices.empty() ||
                         (chart && changes.charts.contains(chartKey(*chart)));
  if (isTouched && !libraryTimer_.isActive()) libraryTimer_.start();
}

std::optional<ChartQuery> StoreFeed::shownChart() const {
  return ask_.chart ? std::optional(chartOf(ask_)) : std::nullopt;
}

void StoreFeed::readLibrary() {
  libraryTimer_.stop();
  if (!answer_) return;
  detach(readKnown(this, ++libraryReading_, appsOf(*answer_), shownChart()),
         "What is known of found apps");
}

/// The rows wait for nothing; what is known of the chart is read then, whether it could be noted or
/// not.
Task<> StoreFeed::noteChart(QPointer<StoreFeed> feed, SeenChart seen, bool isRecorded) {
  std::exception_ptr failure;
  try {
    co_await feed->world_.library.change(noteSeenChart, std::move(seen), isRecorded);
  } catch (const DatabaseError&) {
    failure = std::current_exception();
  }
  if (feed.isNull()) co_return;
  feed->readLibrary();
  if (failure) std::rethrow_exception(failure);
}

Task<> StoreFeed::readKnown(QPointer<StoreFeed> feed, int generation, std::vector<AppKey> apps,
                            std::optional<ChartQuery> chart) {
  const Instant day = startOfDay(feed->world_.clock.now(), feed->world_.zone);
  auto known = co_await feed->world_.library.read(readFoundInLibrary, std::move(apps),
                                                  std::move(chart), day);
  if (feed.isNull() || feed->libraryReading_ != generation) co_return;
  feed->library_ = std::move(known);
  feed->arrange();
}

}  // namespace quillet
