// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/charts/price_chart.h"
#include "desktop/look/button_look.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/storefronts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/choice_button.h"
#include "desktop/page/page_price.h"
#include "desktop/page/page_text.h"
#include "desktop/page/price_drawing.h"
#include "desktop/page/price_table.h"
#include "desktop/page/watch_button.h"
#include "library/watched_apps.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr int kAboveSentence = 6;
constexpr int kTableButton = 28;
constexpr int kAboveWatch = 8;
constexpr int kWatch = 28;

/// How far back is looked; the last one is all there is.
constexpr std::array<std::chrono::milliseconds, 2> kRanges{30 * 24h, 365 * 24h};
constexpr std::size_t kUsualRange = 1;

/// Those with price data first, in their order, then the others.
std::vector<std::string> inOrder(std::vector<std::string> countries) {
  std::ranges::sort(countries, {}, [](const std::string& country) {
    const auto place = std::ranges::find(kTrackedStorefronts, country);
    return std::pair(place - kTrackedStorefronts.begin(), country);
  });
  return countries;
}

/// What the price did: as a chart or as rows, and in a sentence. In the app's storefront, unless
/// the user wants another one in which prices are recorded.
class PricesBlock : public Block {
 public:
  PricesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        storefront_(new ChoiceButton(tr("Storefront"), this)),
        range_(new ChoiceButton(tr("Range"), this)),
        asTable_(new QToolButton(this)),
        chart_(new PriceChart({}, this)),
        table_(new PriceTable(this)),
        sentence_(new PageText(
            {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy},
            this)),
        watch_(new QPushButton(tr("Watch"), this)) {
    range_->setChoices({{tr("30 days"), {}}, {tr("1 year"), {}}, {tr("All"), {}}});
    range_->choose(kUsualRange);
    setIconName(*asTable_, QStringLiteral("table"));
    asTable_->setAccessibleName(tr("Prices as a table"));
    asTable_->setToolTip(tr("Show the prices as a table"));
    asTable_->setCheckable(true);
    asTable_->setFixedSize(kTableButton, kTableButton);
    for (QWidget* control : std::array<QWidget*, 3>{storefront_, range_, asTable_})
      head().addWidget(control);
    content().addWidget(chart_);
    content().addWidget(table_);
    content().addSpacerItem(aboveSentence_);
    content().addWidget(sentence_);
    setIconName(*watch_, QStringLiteral("eye"));
    watch_->setFixedHeight(kWatch);
    content().addSpacerItem(aboveWatch_);
    content().addWidget(watch_, 0, Qt::AlignLeft);
    connect(chart_, &PriceChart::targetChosen, this, [this](double price) {
      WatchChange change;
      change.target = WatchChange::Target{price};
      world_.view.edits.perform(changeEdit({facts_.app}, {nameLine(facts_.name), 1}, change));
    });
    connect(watch_, &QPushButton::clicked, this, [this] { watchShown(world_.view, facts_); });
    connect(storefront_, &ChoiceButton::chosenChanged, this, [this] { turnTo(chosenCountry()); });
    connect(range_, &ChoiceButton::chosenChanged, this, &PricesBlock::draw);
    connect(asTable_, &QAbstractButton::toggled, this, &PricesBlock::draw);
    connect(&world.view.library, &LibraryGateway::changed, this,
            [this](const LibraryChanges& changes) {
              const AppKey shown{facts_.app.trackId, chosenCountry()};
              if (!isOwnCountry() && changes.prices.contains(shown)) turnTo(shown.country);
            });
  }

  bool fill(const PageFacts& known) override {
    const bool isOther = known.app != facts_.app;
    const bool hasGrown = isOther || known.prices != facts_.prices;
    facts_ = known;
    if (isOther) chart_->leaveTarget();
    if (isOther) setCountries({});
    if (hasGrown) detach(readCountries(this, known.app), "Storefronts with prices");
    chart_->setAccessibleName(tr("Price history of %1").arg(nameLine(known.name)));
    if (isOwnCountry()) {
      showOwn();
    } else if (hasGrown) {
      turnTo(chosenCountry());
    }
    return true;
  }

 private:
  static Task<> readCountries(QPointer<PricesBlock> block, AppKey app) {
    auto countries = co_await block->world_.view.library.read(storefrontsWithPrices, app.trackId);
    if (!block.isNull() && block->facts_.app == app) block->setCountries(std::move(countries));
  }

  static Task<> readPrices(QPointer<PricesBlock> block, AppKey shown) {
    auto all = co_await block->world_.view.library.read(priceSeriesOf, std::vector<AppKey>{shown});
    const bool isWanted = !block.isNull() && block->facts_.app.trackId == shown.trackId &&
                          block->chosenCountry() == shown.country;
    if (!isWanted || block->isOwnCountry()) co_return;
    block->show(all.empty() ? AppPriceSeries{shown, {}} : std::move(all.front()));
  }

  /// The app's own storefront is among them, recorded or not.
  void setCountries(std::vector<std::string> countries) {
    const std::string shown = chosenCountry();
    if (std::ranges::find(countries, facts_.app.country) == countries.end())
      countries.push_back(facts_.app.country);
    countries_ = inOrder(std::move(countries));
    std::vector<ButtonChoice> choices;
    for (const std::string& country : countries_)
      choices.push_back({storefrontName(country), QString::fromStdString(country)});
    storefront_->setChoices(std::move(choices));
    const bool isThere = std::ranges::find(countries_, shown) != countries_.end();
    choose(isThere ? shown : facts_.app.country);
    storefront_->setVisible(countries_.size() > 1);
  }

  void choose(const std::string& country) {
    const auto place = std::ranges::find(countries_, country);
    storefront_->choose(static_cast<std::size_t>(place - countries_.begin()));
  }

  [[nodiscard]] std::string chosenCountry() const {
    const std::size_t chosen = storefront_->chosen();
    return chosen < countries_.size() ? countries_[chosen] : facts_.app.country;
  }
  [[nodiscard]] bool isOwnCountry() const { return chosenCountry() == facts_.app.country; }

  void turnTo(const std::string& country) {
    if (isOwnCountry()) return showOwn();
    detach(readPrices(this, {facts_.app.trackId, country}), "Prices of another storefront");
  }

  void showOwn() { show({facts_.app, pricesToNow(facts_), facts_.prices.others}); }

  void show(const AppPriceSeries& series) {
    record_ = {onLocalDays(pricesSince(series.prices, Instant::min()), world_.view.zone),
               series.others, true};
    draw();
  }

  [[nodiscard]] SentenceTerms terms() const {
    return {*world_.formats, world_.view.zone, world_.view.clock.now(),
            !isOwnCountry() || isSold(facts_)};
  }

  /// Where what is shown begins: with the record, where that is younger than the range.
  [[nodiscard]] Instant from(Instant now) const {
    const Instant first = beginOf(record_);
    const std::size_t range = range_->chosen();
    return range < kRanges.size() ? std::max(first, now - kRanges.at(range)) : first;
  }

  void draw() {
    const std::vector<RecordedPrice>& prices = record_.prices;
    const SentenceTerms terms = this->terms();
    const bool isDrawn =
        !prices.empty() && (changesOf(prices).count > 0 || !record_.others.empty());
    range_->setVisible(isDrawn && terms.now - beginOf(record_) > kRanges.front());
    asTable_->setVisible(isDrawn);
    chart_->setVisible(isDrawn && !asTable_->isChecked());
    table_->setVisible(isDrawn && asTable_->isChecked());
    aboveSentence_->changeSize(0, isDrawn ? kAboveSentence : 0);
    const bool isUnwatched = prices.empty() && !facts_.watched && isOwnCountry();
    watch_->setVisible(isUnwatched);
    aboveWatch_->changeSize(0, isUnwatched ? kAboveWatch : 0);
    content().invalidate();
    if (prices.empty()) {
      sentence_->show(
          tr("No price changes recorded yet. Quillet writes them down while you watch an app."));
      return;
    }
    tellPrices(terms, isDrawn);
  }

  void tellPrices(const SentenceTerms& terms, bool isDrawn) {
    const Instant begin = from(terms.now);
    const std::vector<RecordedPrice> shown = pricesSince(record_.prices, begin);
    const QString sentence =
        (priceSentence(shown, terms) + u' ' + currencySentence(record_, terms)).trimmed();
    sentence_->show(sentence);
    table_->show(priceChanges(shown, terms));
    if (!isDrawn) return;
    PriceHistory history = priceDrawing(record_, begin, terms, world_.formats);
    addTarget(history);
    const QString summary = QStringLiteral("%1 %2.").arg(sentence, history.low->text);
    chart_->show(std::move(history), summary);
  }

  /// Whoever watches the app may set one in the currency that is shown.
  void addTarget(PriceHistory& history) const {
    const std::string currency = record_.prices.back().currency.value_or("");
    history.canTarget =
        isOwnCountry() && facts_.watched && areComparable(facts_.watched->currency, currency);
    if (!history.canTarget) return;
    if (const auto target = knownTargetPrice(*facts_.watched))
      history.target = PriceMark{*target, tr("Target")};
  }

  PageWorld world_;
  PageFacts facts_;
  std::vector<std::string> countries_;  ///< in which prices are recorded
  PriceRecord record_;                  ///< all that is recorded in the shown one
  ChoiceButton* storefront_;
  ChoiceButton* range_;
  QToolButton* asTable_;
  PriceChart* chart_;
  PriceTable* table_;
  QSpacerItem* aboveSentence_ = new QSpacerItem(0, 0);  ///< the layout's
  PageText* sentence_;
  QSpacerItem* aboveWatch_ = new QSpacerItem(0, 0);
  QPushButton* watch_;  ///< where nothing is recorded
};

}  // namespace

Block* makePricesBlock(const QString& title, const PageWorld& world) {
  return new PricesBlock(title, world);
}

}  // namespace quillet
