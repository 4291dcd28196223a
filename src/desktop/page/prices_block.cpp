// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <array>

#include "desktop/charts/price_chart.h"
#include "desktop/look/button_look.h"
#include "desktop/look/segmented_control.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_price.h"
#include "desktop/page/page_text.h"
#include "desktop/page/price_sentence.h"
#include "desktop/page/price_table.h"
#include "desktop/page/watch_button.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr int kAboveSentence = 6;
constexpr int kTableButton = 28;
constexpr int kAboveWatch = 8;
constexpr int kWatch = 28;

/// How far back is looked; the last one is all there is.
constexpr std::array<std::chrono::milliseconds, 2> kRanges{30 * 24h, 365 * 24h};
constexpr int kUsualRange = 1;

/// What the price did: as a chart or as rows, and in a sentence.
class PricesBlock : public Block {
 public:
  PricesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        range_(new SegmentedControl(tr("Range"), {tr("30 days"), tr("1 year"), tr("All")}, this)),
        asTable_(new QToolButton(this)),
        chart_(new PriceChart({}, this)),
        table_(new PriceTable(this)),
        sentence_(new PageText(
            {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy},
            this)),
        watch_(new QPushButton(tr("Watch"), this)) {
    range_->choose(kUsualRange);
    setIconName(*asTable_, QStringLiteral("table"));
    asTable_->setAccessibleName(tr("Prices as a table"));
    asTable_->setToolTip(tr("Show the prices as a table"));
    asTable_->setCheckable(true);
    asTable_->setFixedSize(kTableButton, kTableButton);
    head().addWidget(range_);
    head().addWidget(asTable_);
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
    connect(range_, &SegmentedControl::chosenChanged, this, &PricesBlock::draw);
    connect(asTable_, &QAbstractButton::toggled, this, &PricesBlock::draw);
  }

  bool fill(const PageFacts& known) override {
    facts_ = known;
    prices_ = pricesSince(pricesToNow(known), Instant::min());
    chart_->setAccessibleName(tr("Price history of %1").arg(nameLine(known.name)));
    draw();
    return true;
  }

 private:
  [[nodiscard]] SentenceTerms terms() const {
    return {*world_.formats, world_.view.zone, world_.view.clock.now(), isSold(facts_)};
  }

  /// Where what is shown begins: with the record, where that is younger than the range.
  [[nodiscard]] Instant from(Instant now) const {
    const Instant first = *prices_.front().when;
    const auto range = static_cast<std::size_t>(std::max(0, range_->chosen()));
    return range < kRanges.size() ? std::max(first, now - kRanges.at(range)) : first;
  }

  void draw() {
    const bool hasChanged = !prices_.empty() && changesOf(prices_).count > 0;
    const SentenceTerms terms = this->terms();
    range_->setVisible(hasChanged && terms.now - *prices_.front().when > kRanges.front());
    asTable_->setVisible(hasChanged);
    chart_->setVisible(hasChanged && !asTable_->isChecked());
    table_->setVisible(hasChanged && asTable_->isChecked());
    aboveSentence_->changeSize(0, hasChanged ? kAboveSentence : 0);
    const bool isUnwatched = prices_.empty() && !facts_.watched;
    watch_->setVisible(isUnwatched);
    aboveWatch_->changeSize(0, isUnwatched ? kAboveWatch : 0);
    content().invalidate();
    if (prices_.empty()) {
      sentence_->show(
          tr("No price changes recorded yet. Quillet writes them down while you watch an app."));
      return;
    }
    const std::vector<RecordedPrice> shown = pricesSince(prices_, from(terms.now));
    const QString sentence = priceSentence(shown, terms);
    sentence_->show(sentence);
    table_->show(priceChanges(shown, terms));
    if (hasChanged) chart_->show(historyOf(shown, terms), sentence);
  }

  [[nodiscard]] PriceHistory historyOf(const std::vector<RecordedPrice>& shown,
                                       const SentenceTerms& terms) const {
    const std::string currency = prices_.back().currency.value_or("");
    PriceHistory history;
    for (const RecordedPrice& price : shown) history.steps.push_back({*price.when, price.amount});
    history.from = from(terms.now);
    history.now = terms.now;
    history.low = PriceMark{lowOf(prices_).amount, lowText(prices_, terms)};
    if (isTargetIn(currency)) history.newTarget = tr("Target");
    if (const auto target = targetIn(currency))
      history.target = PriceMark{*target, history.newTarget};
    history.priceText = [formats = world_.formats, currency](double price) {
      return price == 0 ? QString::fromStdString(formats->wholeCurrency(0, currency))
                        : priceText(price, currency, *formats);
    };
    return history;
  }

  /// Whether what is a target can be drawn among these prices.
  [[nodiscard]] bool isTargetIn(const std::string& currency) const {
    return facts_.watched && areComparable(facts_.watched->currency, currency);
  }

  [[nodiscard]] std::optional<double> targetIn(const std::string& currency) const {
    if (!isTargetIn(currency)) return {};
    return knownTargetPrice(*facts_.watched);
  }

  PageWorld world_;
  PageFacts facts_;
  std::vector<RecordedPrice> prices_;  ///< all that are recorded
  SegmentedControl* range_;
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
