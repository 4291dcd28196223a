// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deals_section.h"

#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/lists/day_turn.h"
#include "desktop/lists/list_pane.h"
#include "desktop/models/new_search.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/models/storefronts.h"
#include "desktop/models/watch_edits.h"
#include "desktop/sections/deals/deal_feed.h"
#include "desktop/sections/deals/deals_bar.h"
#include "desktop/sections/deals/deals_empty.h"
#include "desktop/sections/deals/deals_tools.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr std::size_t kMostTargets = 100;

class DealsSection final : public Section {
 public:
  explicit DealsSection(const ViewWorld& world);
  ~DealsSection() override;

  QWidget* view() override { return pane_; }
  void show(const Place& place) override;
  [[nodiscard]] Place place() const override { return pane_->keptIn(place_); }
  [[nodiscard]] std::vector<AppKey> chosen() const override { return pane_->chosen(); }
  void refresh() override;
  [[nodiscard]] QString title() const override { return tr("Deals"); }
  [[nodiscard]] QString findText() const override { return tr("Find in Deals"); }
  void setRowView(const RowView& view) override;
  [[nodiscard]] std::span<const SortChoice> sorts() const override { return table_.sorts; }
  [[nodiscard]] const RowFilterModel* rows() const override { return &pane_->rows(); }
  void choose(const RowKey& row) override { pane_->choose(row); }
  void takeFocus() override { pane_->takeFocus(); }
  QWidget* tools() override { return tools_; }
  [[nodiscard]] ToolsPlace toolsPlace() const override { return ToolsPlace::beside; }
  QWidget* bar() override { return bar_; }
  [[nodiscard]] bool hasSelectors() const override { return true; }
  [[nodiscard]] std::vector<SelectorChoice> choicesOf(Selector which) const override;
  void select(Selector which, const std::string& id) override;
  [[nodiscard]] std::optional<LibraryEdit> targetWatch() const override;

 private:
  [[nodiscard]] const DealPlace& deals() const { return std::get<DealPlace>(place_.what); }
  [[nodiscard]] std::string storefront() const {
    return deals().country.value_or(world_.storefront());
  }
  [[nodiscard]] DealPlace firstDeals() const;
  [[nodiscard]] bool isPublished() const;
  [[nodiscard]] bool isPicked() const;
  [[nodiscard]] DealsEmptyState emptyState(const PriceDataState& data) const;
  [[nodiscard]] QString nothingText(const PriceDataState& data) const;

  void listen();
  void takePlatform(const std::string& word);
  void takeStorefront(const std::string& code);
  void takeDrop(int percent);
  void clear();
  void go(const DealPlace& deals);
  void replace(const DealPlace& deals, const RowView& view);
  void ask();
  void showAround();
  void showBar(const PriceDataState& data);
  void toggleWatch(const RowKey& row);
  void takeSettings(const std::set<std::string>& keys);

  ViewWorld world_;
  RowTable table_ = dealsTable();
  DealFeed* feed_;  ///< the pane's
  QPointer<ListPane> pane_;
  QPointer<DealsTools> tools_;
  QPointer<DealsBar> bar_;
  DealsEmpty* empty_;
  DayTurn dayTurn_;
  bool isShown_ = false;  ///< some place was
  Place place_;
};

DealsSection::DealsSection(const ViewWorld& world)
    : world_(world),
      feed_(new DealFeed(world)),
      pane_(new ListPane(tr("Deals"), table_, std::unique_ptr<RowFeed>(feed_), world)),
      tools_(new DealsTools),
      bar_(new DealsBar),
      empty_(new DealsEmpty),
      dayTurn_(world) {
  place_.section = SectionId::deals;
  place_.what = firstDeals();
  pane_->setEmptyView(empty_);
  listen();
}

// Those that the window has not taken with it.
DealsSection::~DealsSection() {
  delete tools_;
  delete bar_;
  delete pane_;
}

void DealsSection::listen() {
  connect(pane_, &ListPane::changed, this, &Section::placeChanged);
  connect(pane_, &ListPane::opened, this, &Section::opens);
  connect(pane_, &ListPane::actionAsked, this, &Section::actionAsked);
  connect(pane_, &ListPane::menuAsked, this, &Section::menuAsked);
  connect(pane_, &ListPane::watchClicked, this, &DealsSection::toggleWatch);
  connect(feed_, &RowFeed::filled, this, &DealsSection::showAround);
  connect(&world_.prices, &PriceData::changed, this, &DealsSection::showAround);
  connect(&world_.settings, &LiveSettings::changed, this, &DealsSection::takeSettings);
  connect(&dayTurn_, &DayTurn::turned, feed_, &RowFeed::refresh);
  connect(tools_, &DealsTools::platformChosen, this, &DealsSection::takePlatform);
  connect(tools_, &DealsTools::storefrontChosen, this, &DealsSection::takeStorefront);
  connect(bar_, &DealsBar::dropChosen, this, &DealsSection::takeDrop);
  connect(bar_, &DealsBar::chipsChosen, this, [this](const std::vector<std::string>& chips) {
    RowView view = pane_->rowView();
    view.chips = chips;
    setRowView(view);
  });
  connect(empty_, &DealsEmpty::checkAsked, this, [this] { world_.prices.check(); });
  connect(empty_, &DealsEmpty::clearAsked, this, &DealsSection::clear);
  connect(empty_, &DealsEmpty::storefrontChosen, this, &DealsSection::takeStorefront);
}

DealPlace DealsSection::firstDeals() const {
  DealPlace deals;
  if (newSearch(world_.settings).request.platform != Platform::mac)
    deals.platform = Platform::iphone;
  return deals;
}

void DealsSection::show(const Place& place) {
  const auto* asked = std::get_if<DealPlace>(&place.what);
  const DealPlace next = asked != nullptr ? *asked : firstDeals();
  const bool isSame =
      std::exchange(isShown_, true) && deals() == next && place.rows == pane_->rowView();
  place_ = place;
  place_.what = next;
  world_.prices.follow(storefront());
  if (isSame) {
    pane_->bringBack(place_);
    dayTurn_.look();
  } else {
    ask();
    pane_->expect(place_);
  }
  showAround();
}

void DealsSection::refresh() {
  feed_->refresh();
  world_.prices.check();
}

/// What the library picks and orders by is asked of it anew.
void DealsSection::setRowView(const RowView& view) {
  if (view == pane_->rowView()) return;
  replace(deals(), view);
}

std::vector<SelectorChoice> DealsSection::choicesOf(Selector which) const {
  switch (which) {
    case Selector::platform: return dealPlatforms(deals().platform);
    case Selector::storefront: return dealStorefronts(world_.settings, storefront());
    case Selector::chart:
    case Selector::category: break;
  }
  return {};
}

void DealsSection::select(Selector which, const std::string& id) {
  if (which == Selector::platform) takePlatform(id);
  if (which == Selector::storefront) takeStorefront(id);
}

void DealsSection::takePlatform(const std::string& word) {
  DealPlace next = deals();
  next.platform = dealPlatformOf(word);
  replace(next, pane_->rowView());
}

void DealsSection::takeDrop(int percent) {
  DealPlace next = deals();
  next.minimumDrop = percent;
  replace(next, pane_->rowView());
}

void DealsSection::takeStorefront(const std::string& code) {
  DealPlace next = deals();
  next.country.reset();
  if (code != world_.storefront()) next.country = code;
  if (next != deals()) go(next);
}

/// All that leaves deals out but the storefront.
void DealsSection::clear() {
  DealPlace next = deals();
  next.platform.reset();
  next.minimumDrop = 0;
  replace(next, {{}, {}, pane_->rowView().sort});
}

/// Elsewhere: one comes back to where one was.
void DealsSection::go(const DealPlace& deals) {
  Place next = place_;
  next.what = deals;
  next.rows = pane_->rowView();
  next.chosen.reset();
  next.anchor = {};
  Q_EMIT goes(next);
}

/// The same storefront's, picked or ordered otherwise. The chosen row stays, if it is among them.
void DealsSection::replace(const DealPlace& deals, const RowView& view) {
  Place kept = pane_->keptIn(place_);
  kept.what = deals;
  kept.rows = view;
  kept.anchor = {};
  place_ = kept;
  ask();
  pane_->expect(kept);
  showAround();
  Q_EMIT placeChanged();
}

void DealsSection::ask() {
  feed_->show(dealQueryOf(deals(), place_.rows, world_.storefront()));
  dayTurn_.await();
}

bool DealsSection::isPublished() const {
  return std::ranges::any_of(dealStorefronts(world_.settings, storefront()),
                             &SelectorChoice::isChosen);
}

bool DealsSection::isPicked() const {
  const RowView& view = pane_->rowView();
  return deals().platform || deals().minimumDrop > 0 || !view.chips.empty() || !view.text.isEmpty();
}

void DealsSection::showAround() {
  if (!isShown_) return;
  const PriceDataState data = world_.prices.stateOf(storefront());
  tools_->show(deals().platform, storefront(), dealStorefronts(world_.settings, storefront()));
  showBar(data);
  empty_->show(emptyState(data));
  // Without rows what failed is said in their place.
  const bool tells = feed_->tally().shown > 0 && !data.failure.empty() && !data.isReading;
  pane_->setRemark(
      tells ? ListState(Failed{QString::fromStdString(data.failure)}) : ListState(Ready{}),
      QStringLiteral("check-price-data"));
}

void DealsSection::showBar(const PriceDataState& data) {
  const DealReading& tally = feed_->tally();
  DealsBarState state;
  state.chips = pane_->rowView().chips;
  state.minimumDrop = static_cast<int>(std::lround(deals().minimumDrop));
  state.facts = recordedText(tally.recorded, data, world_.clock.now(), world_.zone);
  state.shown = tally.shown;
  state.all = tally.all;
  bar_->show(state);
}

QString DealsSection::nothingText(const PriceDataState& data) const {
  if (data.isReading) return tr("Reading price data…");
  if (!data.failure.empty()) return QString::fromStdString(data.failure);
  return tr("Price history starts when price data is read.");
}

DealsEmptyState DealsSection::emptyState(const PriceDataState& data) const {
  const DealReading& tally = feed_->tally();
  if (tally.all > 0) return {.line = tr("Nothing matches."), .canClear = isPicked()};
  if (!isPublished())
    return {.line = tr("No price data is published for %1.").arg(storefrontName(storefront())),
            .sentence = tr("It is for these storefronts:"),
            .storefronts = dealStorefronts(world_.settings, storefront())};
  const bool isDone = tally.wasImported && data.failure.empty();
  if (isDone && !data.isReading)
    return {.line = tr("No price drops in the %1 storefront's latest data.")
                        .arg(QString::fromStdString(storefront()))};
  return {.line = nothingText(data), .canCheck = !data.isReading, .canExplain = true};
}

/// By a click on a row's mark.
void DealsSection::toggleWatch(const RowKey& key) {
  const int place = pane_->rows().find(key);
  if (place < 0) return;
  const AppRow& row = pane_->rows().at(place);
  if (row.marks.testFlag(RowMark::watched))
    return world_.edits.perform(stopEdit({key.app}, {row.name, 1}));
  world_.edits.perform(watchEdit({toWatch(row, world_.records)}, watchDefaults(world_.settings),
                                 world_.clock.now()));
}

/// Of as many as one looks through.
std::optional<LibraryEdit> DealsSection::targetWatch() const {
  const std::vector<RowKey> chosen = pane_->chosenRows();
  if (chosen.empty() || chosen.size() > kMostTargets) return {};
  std::vector<AppToWatch> apps;
  for (const RowKey& key : chosen) {
    const int place = pane_->rows().find(key);
    if (place < 0 || !pane_->rows().at(place).price.amount) return {};
    apps.push_back(toWatch(pane_->rows().at(place), world_.records));
  }
  return targetEdit(apps, watchDefaults(world_.settings), world_.clock.now());
}

void DealsSection::takeSettings(const std::set<std::string>& keys) {
  if (!isShown_) return;
  const bool isOther =
      keys.contains(std::string(kStorefrontCountry.key)) && !deals().country.has_value();
  if (isOther) {
    world_.prices.follow(storefront());
    ask();
    pane_->expect(place_);
  }
  showAround();
}

}  // namespace

std::unique_ptr<Section> makeDeals(const ViewWorld& world) {
  return std::make_unique<DealsSection>(world);
}

}  // namespace quillet
