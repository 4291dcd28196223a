// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/charts/charts_section.h"

#include <QPointer>
#include <algorithm>
#include <utility>

#include "analysis/calendar.h"
#include "base/numbers.h"
#include "desktop/lists/list_pane.h"
#include "desktop/models/new_search.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/charts/chart_rows.h"
#include "desktop/sections/charts/chart_tools.h"
#include "desktop/store_lists/filtered_view.h"
#include "desktop/store_lists/nothing_found.h"
#include "desktop/store_lists/relief.h"
#include "desktop/store_lists/selector_choices.h"
#include "desktop/store_lists/store_feed.h"
#include "store/records/app_genre.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kYoungChart = 15min;  // is shown as it is

bool isGenre(int id) {
  return std::ranges::find(kAppGenres, id, &AppGenre::id) != kAppGenres.end();
}

/// What can be asked: a chart of a category that there is, which is no filter besides.
StoreQuery soundQuery(StoreQuery query) {
  query.request.query.clear();
  query.developer.reset();
  query.request.filters.genre.reset();
  query.request.sort = SortOrder::relevance;
  if (!query.chart) query.chart.emplace();
  if (query.chart->genreId && !isGenre(*query.chart->genreId)) query.chart->genreId.reset();
  if (!isPublished(query.chart->type, query.request.platform))
    query.chart->type = ChartType::topFree;
  return query;
}

class ChartsSection final : public Section {
 public:
  explicit ChartsSection(const ViewWorld& world);
  ~ChartsSection() override;

  QWidget* view() override { return view_; }
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override { return pane_->keptIn(place_); }
  [[nodiscard]] std::vector<AppKey> chosen() const override { return pane_->chosen(); }
  void refresh() override { feed_->refresh(); }
  [[nodiscard]] QString title() const override { return tr("Charts"); }
  [[nodiscard]] QString findText() const override { return {}; }
  void setRowView(const RowView& view) override;
  [[nodiscard]] std::span<const SortChoice> sorts() const override { return {}; }
  [[nodiscard]] const RowFilterModel* rows() const override { return &pane_->rows(); }
  void choose(const RowKey& row) override { pane_->choose(row); }
  void takeFocus() override { pane_->takeFocus(); }
  QWidget* tools() override { return tools_; }
  [[nodiscard]] int leastWidth() const override { return view_->leastWidth(); }
  [[nodiscard]] std::optional<bool> filtersShown() const override { return view_->showsFilters(); }
  void toggleFilters() override;
  [[nodiscard]] bool hasSelectors() const override { return true; }
  [[nodiscard]] std::vector<SelectorChoice> choicesOf(Selector which) const override;
  void select(Selector which, const std::string& id) override;

 private:
  [[nodiscard]] const StoreQuery& query() const { return std::get<StoreQuery>(place_.what); }
  [[nodiscard]] std::string storefront() const;

  void listen();
  void go(const StoreQuery& query);
  void takeFilters(const AppFilters& filters);
  void replace(const StoreQuery& query, const RowView& rows);
  void clearAll();

  void showQuery();
  void showTools();
  void showRows();
  void showEmpty();
  [[nodiscard]] FilterPanelState panelState() const;

  ViewWorld world_;
  StoreFeed* feed_;  ///< the pane's
  ListPane* pane_;
  QPointer<FilteredView> view_;
  QPointer<ChartTools> tools_;
  NothingFound* nothing_;
  bool isShown_ = false;      ///< some place was
  bool areRowsTold_ = false;  ///< once they were, since others were asked for
  Place place_;
};

ChartsSection::ChartsSection(const ViewWorld& world)
    : world_(world),
      feed_(new StoreFeed(world, chartRow)),
      pane_(new ListPane(tr("Charts"), chartTable(), std::unique_ptr<RowFeed>(feed_), world)),
      view_(new FilteredView(pane_, world.state, QStringLiteral("chartFiltersShown"), false)),
      tools_(new ChartTools),
      nothing_(new NothingFound) {
  place_.section = SectionId::charts;
  place_.what = soundQuery(newSearch(world.settings));
  pane_->setEmptyView(nothing_);
  listen();
}

// Those that the window has not taken with it.
ChartsSection::~ChartsSection() {
  delete tools_;
  delete view_;
}

void ChartsSection::listen() {
  connect(pane_, &ListPane::changed, this, [this] {
    showEmpty();
    Q_EMIT placeChanged();
  });
  connect(pane_, &ListPane::opened, this, &Section::opens);
  connect(pane_, &ListPane::menuAsked, this, &Section::menuAsked);
  connect(feed_, &RowFeed::filled, this, &ChartsSection::showRows);
  const auto chooses = [this](Selector which) {
    return [this, which](const std::string& id) { select(which, id); };
  };
  connect(tools_, &ChartTools::chartChosen, this, chooses(Selector::chart));
  connect(tools_, &ChartTools::platformChosen, this, chooses(Selector::platform));
  connect(tools_, &ChartTools::categoryChosen, this, chooses(Selector::category));
  connect(tools_, &ChartTools::storefrontChosen, this, chooses(Selector::storefront));
  connect(tools_, &ChartTools::filtersToggled, this, &ChartsSection::toggleFilters);
  connect(view_, &FilteredView::filtersChanged, this, &ChartsSection::takeFilters);
  connect(nothing_, &NothingFound::clearAsked, this, &ChartsSection::clearAll);
  connect(nothing_, &NothingFound::reliefAsked, this, &ChartsSection::takeFilters);
}

std::string ChartsSection::storefront() const {
  return query().request.country.value_or(world_.storefront());
}

void ChartsSection::show(const Place& place) {
  const auto* asked = std::get_if<StoreQuery>(&place.what);
  const StoreQuery next = soundQuery(asked != nullptr ? *asked : newSearch(world_.settings));
  const bool isSame = std::exchange(isShown_, true) && isSameQuestion(query(), next);
  place_ = place;
  place_.what = next;
  showQuery();
  isSame ? pane_->bringBack(place_) : pane_->expect(place_);
  // What is there stays meanwhile.
  if (feed_->found() != nullptr) feed_->renewIfOlder(kYoungChart);
}

void ChartsSection::setRowView(const RowView& view) { pane_->setRowView(view); }

void ChartsSection::toggleFilters() {
  view_->toggleFilters();
  showTools();
  showRows();
  Q_EMIT placeChanged();
}

std::vector<SelectorChoice> ChartsSection::choicesOf(Selector which) const {
  const StoreQuery& now = query();
  switch (which) {
    case Selector::chart: return chartChoices(now.chart->type, now.request.platform);
    case Selector::platform: return platformChoices(now.request.platform);
    case Selector::storefront: return storefrontChoices(storefront());
    case Selector::category: return chartCategoryChoices(now.chart->genreId);
  }
  return {};
}

void ChartsSection::select(Selector which, const std::string& id) {
  StoreQuery next = query();
  switch (which) {
    case Selector::chart:
      next.chart->type = valueOf(kChartTypeWords, id).value_or(ChartType::topFree);
      break;
    case Selector::platform:
      next.request.platform = valueOf(kPlatformWords, id).value_or(Platform::mac);
      break;
    case Selector::storefront:
      next.request.country.reset();
      if (id != world_.storefront()) next.request.country = id;
      break;
    case Selector::category:
      next.chart->genreId.reset();
      if (const auto genre = parseWhole(id)) next.chart->genreId = static_cast<int>(*genre);
      break;
  }
  go(soundQuery(std::move(next)));
}

void ChartsSection::go(const StoreQuery& query) {
  if (query == this->query()) return showTools();
  Place place;
  place.section = SectionId::charts;
  place.what = query;
  place.rows = pane_->rowView();
  Q_EMIT goes(place);
}

void ChartsSection::takeFilters(const AppFilters& filters) {
  StoreQuery next = query();
  next.request.filters = filters;
  replace(soundQuery(std::move(next)), pane_->rowView());
}

void ChartsSection::clearAll() {
  StoreQuery next = query();
  next.request.filters = {};
  replace(next, {});
}

/// The same chart, filtered otherwise. The chosen row stays, if it is among those that are left.
void ChartsSection::replace(const StoreQuery& query, const RowView& rows) {
  Place kept = pane_->keptIn(place_);
  place_.what = query;
  place_.rows = rows;
  kept.rows = rows;
  kept.anchor = {};
  showQuery();
  pane_->bringBack(kept);
  Q_EMIT placeChanged();
}

/// Lets the rows follow the place.
void ChartsSection::showQuery() {
  showTools();
  areRowsTold_ = false;
  feed_->show(query());
  if (!areRowsTold_) showRows();
}

void ChartsSection::showTools() {
  tools_->setQuery(query(), storefront());
  tools_->setFilters(activeCount(query().request.filters), view_->showsFilters());
}

/// What is told of the rows around them.
void ChartsSection::showRows() {
  areRowsTold_ = true;
  view_->show(panelState(), *feed_);
  const KnownChart* chart = feed_->chart();
  pane_->setCaption(chart == nullptr ? QStringList()
                                     : movementTexts(*chart, world_.clock.now(), world_.zone));
  showEmpty();
}

void ChartsSection::showEmpty() {
  if (pane_->rows().rowCount() > 0) return;
  const bool isFiltered = feed_->tally().all > 0;
  std::optional<Relief> relief;
  if (feed_->tally().shown == 0 && isFiltered) relief = reliefOf(*feed_, query().request.filters);
  nothing_->show(
      isFiltered ? tr("Nothing in this chart matches.") : tr("This chart is not available."),
      std::move(relief), isFiltered);
}

FilterPanelState ChartsSection::panelState() const {
  const SearchRequest& request = query().request;
  FilterPanelState state;
  state.filters = request.filters;
  state.platform = request.platform;
  state.thisYear = calendarYear(world_.clock.now(), world_.zone);
  state.hasCategories = false;
  return state;
}

}  // namespace

std::unique_ptr<Section> makeCharts(const ViewWorld& world) {
  return std::make_unique<ChartsSection>(world);
}

}  // namespace quillet
