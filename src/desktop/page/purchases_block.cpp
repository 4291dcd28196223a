// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <cmath>

#include "analysis/break_even.h"
#include "desktop/charts/break_even_bar.h"
#include "desktop/charts/price_chart.h"
#include "desktop/look/marks.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/block_table.h"
#include "desktop/page/money_words.h"
#include "desktop/page/page_price.h"
#include "desktop/page/page_text.h"
#include "desktop/page/price_drawing.h"
#include "desktop/page/purchase_table.h"

namespace quillet {

namespace {

constexpr int kBelowSentence = 10;
constexpr int kAboveBreakEven = 10;
constexpr int kAboveBar = 6;

// An app that is sold in many ways is not compared in all of them.
constexpr std::size_t kMostBreakEvens = 3;

/// A short statement at the right of a title.
class HeadPill : public QLabel {
 public:
  explicit HeadPill(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }

  void show(const QString& text) {
    setText(text);
    setVisible(!text.isEmpty());
    updateGeometry();
  }

  [[nodiscard]] QSize sizeHint() const override {
    Look& look = lookOf(*this);
    return {static_cast<int>(std::ceil(pillWidth(look, pill(), PillSize::small))),
            static_cast<int>(std::ceil(pillHeight(look, PillSize::small)))};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    paintPill(painter, lookOf(*this), {0, 0}, pill(), PillSize::small);
  }

 private:
  [[nodiscard]] Pill pill() const { return {PillKind::neutral, text(), {}}; }
};

/// What is sold inside the app, what a year of it costs, and how it earns its money.
class PurchasesBlock : public Block {
 public:
  PurchasesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        model_(new HeadPill(this)),
        sentence_(new PageText(factLook(), this)),
        table_(new PurchaseTable([this](const auto&... made) { return makeChart(made...); }, this)),
        breakEvens_(new QWidget(this)) {
    auto* breakEvens = new QVBoxLayout(breakEvens_);
    breakEvens->setContentsMargins(0, 0, 0, 0);
    breakEvens->setSpacing(0);
    head().addWidget(model_);
    content().addWidget(sentence_);
    content().addSpacerItem(belowSentence_);
    content().addWidget(table_);
    content().addWidget(breakEvens_);
  }

  bool fill(const PageFacts& known) override {
    if (known.app != app_) table_->forget();
    app_ = known.app;
    name_ = nameLine(known.name);
    const auto purchases = soldNow(known);
    if (purchases) {
      showPurchases(*purchases, known.purchases, known.store->asOf);
      showModel(known.store->app.monetization, purchases->empty());
      return true;
    }
    if (!known.purchases.empty()) {
      const std::vector<InAppPurchase> recorded = lastRecorded(known.purchases);
      showPurchases(recorded, known.purchases, lastDate(known.purchases));
      showModel(MonetizationModel::unknown, false);
      sentence_->show(tr("As last recorded, on %1.").arg(dayText(lastDate(known.purchases))));
      return true;
    }
    if (!known.watched) return false;
    showPurchases({}, {}, {});
    showModel(MonetizationModel::unknown, false);
    sentence_->show(
        tr("Nothing recorded yet. In-app prices are read with the watchlist's price "
           "checks, every few hours while Quillet runs."));
    return true;
  }

 private:
  static TextLook factLook() {
    return {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy};
  }

  /// Absent where the store did not tell.
  static const std::optional<std::vector<InAppPurchase>> soldNow(const PageFacts& known) {
    return known.store ? known.store->app.purchases : std::nullopt;
  }

  static Instant lastDate(const std::vector<PurchaseSeries>& recorded) {
    Instant last{};
    for (const PurchaseSeries& series : recorded)
      last = std::max(last, series.history.back().when.value_or(Instant{}));
    return last;
  }

  [[nodiscard]] QString dayText(Instant day) const {
    return dateText(day, world_.view.clock.now(), world_.view.zone);
  }

  void showModel(MonetizationModel model, bool sellsNothing) {
    model_->show(sellsNothing ? QString() : moneyText(model));
    const QString sentence = moneySentence(model);
    model_->setToolTip(sentence.isEmpty() ? QString() : wrappedTip(sentence));
    sentence_->show(sellsNothing ? tr("Nothing is sold inside.") : sentence);
  }

  void showPurchases(const std::vector<InAppPurchase>& purchases,
                     const std::vector<PurchaseSeries>& recorded, Instant asOf) {
    table_->show(purchaseGroups(purchases, recorded, {*world_.formats, asOf}));
    table_->setVisible(!purchases.empty());
    belowSentence_->changeSize(0, purchases.empty() ? 0 : kBelowSentence);
    content().invalidate();
    showBreakEvens(breakEvens(purchases));
  }

  void showBreakEvens(std::vector<BreakEven> all) {
    if (all.size() > kMostBreakEvens) all.resize(kMostBreakEvens);
    std::vector<std::pair<QString, std::optional<int>>> shown;
    for (const BreakEven& each : all)
      shown.emplace_back(plainLine(breakEvenSentence(each)), each.months);
    if (shown == shownBreakEvens_) return;
    shownBreakEvens_ = std::move(shown);
    qDeleteAll(breakEvens_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    delete breakEvens_->layout();
    auto* layout = new QVBoxLayout(breakEvens_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    const QString tip =
        wrappedTip(tr("Introductory offers are not known, so that they are not counted."));
    for (const auto& [sentence, months] : shownBreakEvens_) {
      auto* text = new PageText(factLook(), breakEvens_);
      text->show(sentence);
      text->setToolTip(tip);
      if (months) stressMonths(*text, *months);
      layout->addSpacing(kAboveBreakEven);
      layout->addWidget(text);
      if (!months) continue;
      auto* bar = new BreakEvenBar(*months, breakEvens_);
      bar->setToolTip(tip);
      layout->addSpacing(kAboveBar);
      layout->addWidget(bar);
    }
    breakEvens_->setVisible(!shownBreakEvens_.empty());
  }

  /// "… after 29 months.": that is what one wants to know.
  static void stressMonths(PageText& sentence, int months) {
    const QString text = sentence.text();
    const qsizetype start = text.lastIndexOf(QStringLiteral(" %1 month").arg(months)) + 1;
    if (start > 0) sentence.stress(start, text.size() - start - 1);
  }

  [[nodiscard]] QWidget* makeChart(const PurchaseRow& row, QWidget* parent) const {
    const ViewWorld& view = world_.view;
    const SentenceTerms terms{*world_.formats, view.zone, view.clock.now()};
    const PriceRecord record{pricesSince(row.history, Instant::min())};
    auto* chart = new PriceChart(tr("Price history of %1 in %2").arg(row.item, name_), parent);
    chart->show(priceDrawing(record, beginOf(record), terms, world_.formats),
                priceSentence(record.prices, terms));
    return chart;
  }

  PageWorld world_;
  AppKey app_{};
  QString name_;
  HeadPill* model_;
  PageText* sentence_;
  QSpacerItem* belowSentence_ = new QSpacerItem(0, 0);  ///< the layout's
  PurchaseTable* table_;
  QWidget* breakEvens_;
  std::vector<std::pair<QString, std::optional<int>>> shownBreakEvens_;
};

}  // namespace

Block* makePurchasesBlock(const QString& title, const PageWorld& world) {
  return new PurchasesBlock(title, world);
}

}  // namespace quillet
