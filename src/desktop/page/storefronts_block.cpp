// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/models/store_question.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/figure_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/state_line.h"
#include "desktop/page/storefront_shelf.h"
#include "queries/storefront_prices.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

constexpr int kButton = 28;
constexpr int kAboveText = 6;
constexpr int kBelowText = 8;

StorefrontComparison comparisonOf(const std::vector<StorefrontPrice>& prices, Instant asOf) {
  StorefrontComparison comparison{{}, asOf};
  for (const StorefrontPrice& each : prices) {
    ComparedStorefront storefront{each.country, each.app.has_value()};
    if (each.app) {
      storefront.price = each.app->price;
      storefront.text = each.app->formattedPrice;
      storefront.currency = each.app->currency;
    }
    comparison.storefronts.push_back(std::move(storefront));
  }
  return comparison;
}

/// What the app costs in the ten storefronts with price data, once the user wants to know.
class StorefrontsBlock : public Block {
 public:
  StorefrontsBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        question_(world.view.store, world.view.clock),
        text_(new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 16}, this)),
        asks_(new QPushButton(this)),
        state_(new StateLine(world.view.clock, this)),
        table_(new FigureTable(tr("Storefronts"),
                               {tr("Storefront"), tr("Price"), tr("Against its own low")}, this)) {
    asks_->setFixedHeight(kButton);
    content().addWidget(state_);
    content().addWidget(table_);
    content().addSpacing(kAboveText);
    content().addWidget(text_);
    content().addSpacing(kBelowText);
    content().addWidget(asks_, 0, Qt::AlignLeft);
    connect(asks_, &QPushButton::clicked, this,
            [this] { question_.isUnderWay() ? question_.stop() : compare(); });
    connect(state_, &StateLine::acted, this, [this](StripAction action) {
      action == StripAction::stop ? question_.stop() : question_.tryAgain();
    });
    connect(&question_, &StoreQuestion::stateChanged, this, &StorefrontsBlock::draw);
    connect(&world.view.library, &LibraryGateway::changed, this,
            [this](const LibraryChanges& changes) {
              if (std::ranges::any_of(changes.prices, [this](const AppKey& key) {
                    return key.trackId == app_.trackId;
                  }))
                readLows();
            });
  }

  bool fill(const PageFacts& known) override {
    if (known.app.trackId != app_.trackId) {
      recorded_.clear();
      question_.forget();
    }
    app_ = known.app;
    if (recorded_.empty() && world_.compared->has(app_.trackId)) readLows();
    draw();
    return true;
  }

  void act() override {
    asks_->setFocus(Qt::TabFocusReason);
    if (!question_.isUnderWay() && !world_.compared->has(app_.trackId)) compare();
  }

 private:
  static Task<> readRecorded(QPointer<StorefrontsBlock> block, std::int64_t trackId) {
    std::vector<AppKey> keys;
    for (const std::string_view country : kTrackedStorefronts)
      keys.push_back({trackId, std::string(country)});
    auto recorded = co_await block->world_.view.library.read(priceSeriesOf, std::move(keys));
    if (block.isNull() || block->app_.trackId != trackId) co_return;
    block->recorded_ = std::move(recorded);
    block->draw();
  }

  void readLows() { detach(readRecorded(this, app_.trackId), "Lows of storefronts"); }

  void compare() {
    done_ = 0;
    question_.ask(
        [block = QPointer(this), trackId = app_.trackId, answered = noStorefrontAnswers()](
            QueryServices services, QueryCall call) {
          call.progress = [block, trackId](QueryProgress reached) {
            if (block && block->app_.trackId == trackId) block->takeProgress(reached.done);
          };
          return readStorefrontPrices(trackId, services, std::move(call), answered);
        },
        [this, trackId = app_.trackId](const std::vector<StorefrontPrice>& prices) {
          world_.compared->keep(trackId, comparisonOf(prices, world_.view.clock.now()));
          readLows();
        });
  }

  void takeProgress(std::size_t done) {
    done_ = done;
    draw();
  }

  void draw() {
    const auto known = world_.compared->find(app_.trackId);
    const bool isAsking = question_.isUnderWay();
    state_->show(question_.state());
    table_->setVisible(known.has_value());
    if (known)
      table_->show(storefrontRows(known->storefronts, recorded_,
                                  {*world_.formats, world_.view.zone, world_.view.clock.now()}));
    text_->show(textOf(known));
    asks_->setText(isAsking ? tr("Stop") : known ? tr("Compare Again") : tr("Compare Storefronts"));
    asks_->updateGeometry();
  }

  [[nodiscard]] QString textOf(const std::optional<StorefrontComparison>& known) const {
    const int all = static_cast<int>(kTrackedStorefronts.size());
    if (question_.isUnderWay()) return tr("Asked %1 of %2 storefronts.").arg(done_).arg(all);
    if (known) {
      const bool isSold = std::ranges::any_of(known->storefronts, &ComparedStorefront::isSold);
      const QString ago = agoText(known->asOf, world_.view.clock.now());
      return isSold ? tr("Compared %1. Prices are compared within one currency only.").arg(ago)
                    : tr("Compared %1: none of the %2 storefronts sells it.").arg(ago).arg(all);
    }
    return tr("Asks the %1 storefronts with published prices what it costs, one request each.")
        .arg(all);
  }

  PageWorld world_;
  AppKey app_{};
  std::size_t done_ = 0;  ///< storefronts that have answered
  std::vector<AppPriceSeries> recorded_;
  StoreQuestion question_;
  PageText* text_;
  QPushButton* asks_;
  StateLine* state_;
  FigureTable* table_;
};

}  // namespace

Block* makeStorefrontsBlock(const QString& title, const PageWorld& world) {
  return new StorefrontsBlock(title, world);
}

}  // namespace quillet
