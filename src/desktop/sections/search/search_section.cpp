// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_section.h"

#include <QPointer>
#include <QStackedWidget>
#include <algorithm>
#include <set>
#include <utility>

#include "analysis/calendar.h"
#include "base/text.h"
#include "desktop/lists/list_pane.h"
#include "desktop/models/new_search.h"
#include "desktop/models/recent_searches.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/search/search_bar.h"
#include "desktop/sections/search/search_hints.h"
#include "desktop/sections/search/search_runs.h"
#include "desktop/sections/search/search_start.h"
#include "desktop/sections/search/search_tools.h"
#include "desktop/store_lists/filtered_view.h"
#include "desktop/store_lists/nothing_found.h"
#include "desktop/store_lists/relief.h"
#include "desktop/store_lists/selector_choices.h"
#include "desktop/store_lists/store_feed.h"
#include "library/saved_searches.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kYoungAnswer = 15min;  // is shown as it is where the same is searched for again

class SearchSection final : public Section {
 public:
  explicit SearchSection(const ViewWorld& world);
  ~SearchSection() override;

  QWidget* view() override { return view_; }
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override;
  [[nodiscard]] std::vector<AppKey> chosen() const override { return pane_->chosen(); }
  void refresh() override { feed_->refresh(); }
  void renew() override { feed_->renewIfOlder(kYoungAnswer); }
  [[nodiscard]] QString title() const override;
  [[nodiscard]] QString findText() const override { return {}; }
  void setRowView(const RowView& view) override;
  [[nodiscard]] std::span<const SortChoice> sorts() const override { return table_.sorts; }
  [[nodiscard]] const RowFilterModel* rows() const override { return &pane_->rows(); }
  /// Before anything is asked there is none.
  [[nodiscard]] bool hasPages() const override { return isAsked(query()); }
  void choose(const RowKey& row) override { pane_->choose(row); }
  void takeFocus() override;
  QWidget* tools() override { return tools_; }
  bool placeSort(QWidget* button) override;
  QWidget* bar() override { return bar_; }
  [[nodiscard]] int leastWidth() const override { return view_->leastWidth(); }
  [[nodiscard]] std::optional<bool> filtersShown() const override { return view_->showsFilters(); }
  void toggleFilters() override;
  [[nodiscard]] bool hasSelectors() const override { return true; }
  [[nodiscard]] std::vector<SelectorChoice> choicesOf(Selector which) const override;
  void select(Selector which, const std::string& id) override;

 private:
  [[nodiscard]] const StoreQuery& query() const { return std::get<StoreQuery>(place_.what); }
  [[nodiscard]] Place placeOf(const StoreQuery& query) const;

  void listen();
  void search(const QString& text);
  void takePlatform(Platform platform);
  void takeStorefront(const std::string& storefront);
  void takeFilters(const AppFilters& filters);
  void go(const StoreQuery& query);
  void replace(const StoreQuery& query);

  void showQuery();
  void showTools();
  void showRows();
  void showEmpty();
  void takeAnswer();
  [[nodiscard]] FilterPanelState panelState() const;
  [[nodiscard]] std::vector<std::string> genres() const;
  void readSaved();
  static Task<> readSavedInto(QPointer<SearchSection> section);

  ViewWorld world_;
  RowTable table_ = searchTable();
  StoreFeed* feed_;  ///< the pane's
  ListPane* pane_;
  QPointer<FilteredView> view_;
  QPointer<SearchTools> tools_;
  QPointer<SearchBar> bar_;
  QStackedWidget* empty_;
  SearchStart* start_;
  NothingFound* nothing_;
  SearchRuns runs_;
  bool isShown_ = false;      ///< some place was
  bool areRowsTold_ = false;  ///< once they were, since others were asked for
  Place place_;
};

SearchSection::SearchSection(const ViewWorld& world)
    : world_(world),
      feed_(new StoreFeed(world)),
      pane_(new ListPane(tr("Search results"), table_, std::unique_ptr<RowFeed>(feed_), world)),
      view_(new FilteredView(pane_, world.state, QStringLiteral("filtersShown"), true)),
      tools_(new SearchTools(world)),
      bar_(new SearchBar),
      empty_(new QStackedWidget),
      start_(new SearchStart(world)),
      nothing_(new NothingFound),
      runs_(world) {
  place_.section = SectionId::search;
  place_.what = newSearch(world.settings);
  empty_->addWidget(start_);
  empty_->addWidget(nothing_);
  pane_->setEmptyView(empty_);
  listen();
  readSaved();
}

// Those that the window has not taken with it.
SearchSection::~SearchSection() {
  delete tools_;
  delete bar_;
  delete view_;
}

void SearchSection::listen() {
  connect(pane_, &ListPane::changed, this, &Section::placeChanged);
  connect(pane_, &ListPane::opened, this, &Section::opens);
  connect(pane_, &ListPane::menuAsked, this, &Section::menuAsked);
  connect(feed_, &RowFeed::filled, this, &SearchSection::showRows);
  connect(feed_, &StoreFeed::answered, this, &SearchSection::takeAnswer);
  connect(tools_, &SearchTools::submitted, this, &SearchSection::search);
  connect(tools_, &SearchTools::chosen, this, &SearchSection::go);
  connect(tools_, &SearchTools::platformChosen, this, &SearchSection::takePlatform);
  connect(tools_, &SearchTools::storefrontChosen, this, &SearchSection::takeStorefront);
  connect(tools_, &SearchTools::filtersToggled, this, &SearchSection::toggleFilters);
  connect(tools_, &SearchTools::left, pane_, &ListPane::takeFocus);
  connect(view_, &FilteredView::filtersChanged, this, &SearchSection::takeFilters);
  connect(bar_, &SearchBar::changed, this, &SearchSection::takeFilters);
  connect(bar_, &SearchBar::saveAsked, this, &Section::saveAsked);
  connect(start_, &SearchStart::presetChosen, this, &SearchSection::takeFilters);
  connect(start_, &SearchStart::chosen, this, &SearchSection::go);
  connect(nothing_, &NothingFound::clearAsked, this, [this] { takeFilters({}); });
  connect(nothing_, &NothingFound::reliefAsked, this, &SearchSection::takeFilters);
  connect(&world_.library, &LibraryGateway::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.savedSearches.empty()) readSaved();
  });
  connect(&world_.library, &LibraryGateway::changedElsewhere, this, &SearchSection::readSaved);
}

Place SearchSection::placeOf(const StoreQuery& query) const {
  Place place;
  place.section = SectionId::search;
  place.what = query;
  place.rows.sort = sortIdOf(query.request.sort);
  return place;
}

void SearchSection::show(const Place& place) {
  const auto* asked = std::get_if<StoreQuery>(&place.what);
  const StoreQuery next = asked != nullptr ? *asked : newSearch(world_.settings);
  const bool isSame = std::exchange(isShown_, true) && isSameQuestion(query(), next);
  place_ = place;
  place_.what = next;
  place_.rows.sort = sortIdOf(next.request.sort);
  showQuery();
  isSame ? pane_->bringBack(place_) : pane_->expect(place_);
}

Place SearchSection::place() const { return pane_->keptIn(place_); }

QString SearchSection::title() const {
  if (query().developer) return nameLine(query().developer->name);
  const QString words = plainLine(query().request.query);
  return words.isEmpty() ? tr("Search") : words;
}

void SearchSection::setRowView(const RowView& view) {
  if (view.sort == place_.rows.sort) return pane_->setRowView(view);
  StoreQuery next = query();
  next.request.sort = sortOfId(view.sort);
  replace(next);
}

void SearchSection::takeFocus() {
  if (isAsked(query())) {
    pane_->takeFocus();
  } else {
    tools_->setFocus(Qt::OtherFocusReason);
  }
}

bool SearchSection::placeSort(QWidget* button) {
  tools_->placeSort(button);
  return true;
}

void SearchSection::toggleFilters() {
  view_->toggleFilters();
  showTools();
  showRows();
  Q_EMIT placeChanged();
}

std::vector<SelectorChoice> SearchSection::choicesOf(Selector which) const {
  const SearchRequest& request = query().request;
  switch (which) {
    case Selector::platform: return platformChoices(request.platform);
    case Selector::storefront:
      return storefrontChoices(request.country.value_or(world_.storefront()));
    case Selector::category: return categoryChoices(panelState());
    case Selector::chart: break;
  }
  return {};
}

void SearchSection::select(Selector which, const std::string& id) {
  AppFilters filters = query().request.filters;
  switch (which) {
    case Selector::platform:
      return takePlatform(valueOf(kPlatformWords, id).value_or(Platform::mac));
    case Selector::storefront: return takeStorefront(id);
    case Selector::chart: return;
    case Selector::category: break;
  }
  filters.genre.reset();
  if (!id.empty()) filters.genre = id;
  takeFilters(filters);
}

void SearchSection::search(const QString& text) {
  StoreQuery next = query();
  next.developer.reset();
  next.request.query = trimmed(text.toStdString());
  if (isAsked(next)) go(next);
}

void SearchSection::takePlatform(Platform platform) {
  StoreQuery next = query();
  next.request.platform = platform;
  isAsked(next) ? go(next) : replace(next);
}

void SearchSection::takeStorefront(const std::string& storefront) {
  StoreQuery next = query();
  next.request.country.reset();
  if (storefront != world_.storefront()) next.request.country = storefront;
  isAsked(next) ? go(next) : replace(next);
}

void SearchSection::takeFilters(const AppFilters& filters) {
  StoreQuery next = query();
  next.request.filters = filters;
  replace(next);
}

/// The user asks for it: an answer that is not quite young is asked for again.
void SearchSection::go(const StoreQuery& query) {
  if (query != this->query()) Q_EMIT goes(placeOf(query));
  if (!isSameQuestion(query, this->query())) return;
  renew();
  pane_->takeFocus();
}

/// The same question, answered otherwise. The chosen row stays, if it is among those that are left.
void SearchSection::replace(const StoreQuery& query) {
  Place kept = pane_->keptIn(place_);
  place_.what = query;
  place_.rows.sort = sortIdOf(query.request.sort);
  kept.rows = place_.rows;
  kept.anchor = {};
  showQuery();
  pane_->bringBack(kept);
  Q_EMIT placeChanged();
}

/// Lets the rows follow the place.
void SearchSection::showQuery() {
  showTools();
  areRowsTold_ = false;
  feed_->show(query());
  if (!areRowsTold_) showRows();
}

void SearchSection::showTools() {
  const SearchRequest& request = query().request;
  tools_->setQuery(query(), request.country.value_or(world_.storefront()));
  tools_->setFilters(activeCount(request.filters), view_->showsFilters());
}

/// What is told of the rows around them.
void SearchSection::showRows() {
  areRowsTold_ = true;
  const AppFilters& filters = query().request.filters;
  const FoundApps* found = feed_->found();
  view_->show(panelState(), *feed_);
  const FoundTally tally = feed_->tally();
  SearchBarState state{filters, tally.shown, tally.all, tally.isPartial, {}, false};
  state.canSave = isAsked(query()) && !query().developer;
  const RowId saved = state.canSave ? runs_.find(query().request) : 0;
  if (saved != 0 && found != nullptr) {
    runs_.note(saved, *feed_);
    state.news = runs_.news(saved, *feed_);
  }
  bar_->show(state);
  if (tally.shown == 0) showEmpty();
}

void SearchSection::showEmpty() {
  if (!isAsked(query())) {
    empty_->setCurrentWidget(start_);
    return;
  }
  const bool isFiltered = feed_->tally().all > 0;
  nothing_->show(isFiltered ? tr("Nothing matches.") : tr("Nothing found."),
                 isFiltered ? reliefOf(*feed_, query().request.filters) : std::nullopt, isFiltered);
  empty_->setCurrentWidget(nothing_);
}

void SearchSection::takeAnswer() {
  if (query().developer) return;
  const QString key = QString::fromLatin1(kRecentSearchesKey);
  world_.state.setValue(key, withRecentSearch(world_.state.value(key), query().request));
}

FilterPanelState SearchSection::panelState() const {
  const SearchRequest& request = query().request;
  return {request.filters,
          {},
          request.platform,
          genres(),
          calendarYear(world_.clock.now(), world_.zone)};
}

std::vector<std::string> SearchSection::genres() const {
  std::set<std::string> names;
  if (const FoundApps* found = feed_->found()) {
    for (const ITunesApp& app : found->apps) {
      if (app.primaryGenreName) names.insert(*app.primaryGenreName);
      if (app.genres) names.insert(app.genres->begin(), app.genres->end());
    }
  }
  return {names.begin(), names.end()};
}

void SearchSection::readSaved() { detach(readSavedInto(this), "Saved searches"); }

Task<> SearchSection::readSavedInto(QPointer<SearchSection> section) {
  auto saved = co_await section->world_.library.read(savedSearches);
  if (section.isNull()) co_return;
  section->runs_.setSaved(std::move(saved));
  if (section->isShown_) section->showRows();
}

}  // namespace

std::unique_ptr<Section> makeSearch(const ViewWorld& world) {
  return std::make_unique<SearchSection>(world);
}

}  // namespace quillet
