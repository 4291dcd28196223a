// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QVBoxLayout>

#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/price_sentence.h"

namespace quillet {

namespace {

/// What the price did.
class PricesBlock : public Block {
 public:
  PricesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        sentence_(new PageText({.type = kFactType.tabular(),
                                .ink = Token::secondary,
                                .lineHeight = 16,
                                .use = TextUse::copy},
                               this)) {
    content().addWidget(sentence_);
  }

  bool fill(const PageFacts& known) override {
    const ViewWorld& view = world_.view;
    const std::vector<RecordedPrice> prices = pricesSince(known.prices.prices, Instant::min());
    const bool isSold = !known.watched || !known.watched->isUnavailable;
    const QString sentence =
        priceSentence(prices, {*world_.formats, view.zone, view.clock.now(), isSold});
    sentence_->show(sentence.isEmpty() ? tr("No price changes recorded yet. Quillet writes them "
                                            "down while you watch an app.")
                                       : sentence);
    return true;
  }

 private:
  PageWorld world_;
  PageText* sentence_;
};

}  // namespace

Block* makePricesBlock(const QString& title, const PageWorld& world) {
  return new PricesBlock(title, world);
}

}  // namespace quillet
