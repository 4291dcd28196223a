// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/charts/rank_chart.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/choice_button.h"
#include "desktop/page/figure_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/rank_rows.h"
#include "library/rank_history.h"
#include "library/recorded_history.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr int kAboveSentence = 6;
constexpr int kAboveTitle = 14;
constexpr int kBelowTitle = 4;

/// How far back is looked; the last one is all there is.
constexpr std::array<std::chrono::milliseconds, 2> kRanges{60 * 24h, 365 * 24h};

/// Where the app stood in the charts that the library recorded, and where visits saw it.
class RanksBlock : public Block {
 public:
  RanksBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        which_(new ChoiceButton(tr("Chart"), this)),
        range_(new ChoiceButton(tr("Range"), this)),
        chart_(new RankChart({}, this)),
        sentence_(new PageText(
            {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy},
            this)),
        title_(new PageText({.type = kSmallControlType.weighing(600), .lines = 1}, this)),
        table_(new FigureTable(tr("Where it stands"),
                               {tr("Chart"), tr("Rank"), tr("Movement"), tr("Seen")}, this)) {
    range_->setChoices({{tr("60 days"), {}}, {tr("1 year"), {}}, {tr("All"), {}}});
    head().addWidget(which_);
    head().addWidget(range_);
    content().addWidget(chart_);
    content().addSpacing(kAboveSentence);
    content().addWidget(sentence_);
    content().addSpacing(kAboveTitle);
    content().addWidget(title_);
    content().addSpacing(kBelowTitle);
    content().addWidget(table_);
    title_->show(tr("Where it stands"));
    connect(which_, &ChoiceButton::chosenChanged, this, &RanksBlock::draw);
    connect(range_, &ChoiceButton::chosenChanged, this, &RanksBlock::draw);
    connect(&world.view.library, &LibraryGateway::changed, this, &RanksBlock::note);
    connect(&world.view.library, &LibraryGateway::changedElsewhere, this, &RanksBlock::read);
  }

  bool fill(const PageFacts& known) override {
    chart_->setAccessibleName(tr("Rank history of %1").arg(nameLine(known.name)));
    if (known.app != app_) {
      app_ = known.app;
      charts_.clear();
      read();
    }
    return !charts_.empty();
  }

  void act() override { chart_->setFocus(Qt::TabFocusReason); }

 private:
  /// Piece by piece, so that others get their turn between.
  static Task<> readRanks(QPointer<RanksBlock> block, AppKey app, int generation) {
    LibraryGateway& library = block->world_.view.library;
    const auto seen = co_await library.read(rankPointsOf, std::vector<AppKey>{app});
    std::vector<RecordedRanking> rankings;
    for (const std::string& key : co_await library.read(recordedChartKeys, app.country)) {
      auto more = co_await library.read(rankingsOf, key);
      std::ranges::move(more, std::back_inserter(rankings));
    }
    std::ranges::sort(rankings, {}, &RecordedRanking::day);
    RankRecord record(app.trackId);
    for (const RecordedRanking& ranking : rankings) record.add(ranking);
    if (!block.isNull() && block->generation_ == generation)
      block->take(rankedCharts(record.placed({}), seen));
  }

  void note(const LibraryChanges& changes) {
    if (changes.ranks.contains(app_) || !changes.charts.empty()) read();
  }

  /// The latest reading counts.
  void read() {
    if (app_.trackId != 0) detach(readRanks(this, app_, ++generation_), "Ranks of an app");
  }

  void take(std::vector<RankedChart> charts) {
    if (charts == charts_) return;
    charts_ = std::move(charts);
    std::vector<ButtonChoice> choices;
    for (const RankedChart& chart : charts_) choices.push_back({chart.title, {}});
    which_->setChoices(std::move(choices));
    if (which_->chosen() >= charts_.size()) which_->choose(0);
    which_->setVisible(charts_.size() > 1);
    draw();
    setVisible(!charts_.empty());
  }

  void draw() {
    if (charts_.empty()) return;
    const RankTerms terms{world_.view.zone, world_.view.clock.now()};
    const RankedChart& chart = charts_[which_->chosen()];
    const Instant first = chart.days.front().date;
    const std::size_t range = range_->chosen();
    const Instant from =
        range < kRanges.size() ? std::max(first, terms.now - kRanges.at(range)) : first;
    range_->setVisible(terms.now - first > kRanges.front());
    const QString sentence = rankSentence(chart, terms);
    chart_->setVisible(chart.days.size() > 1);
    chart_->show(rankDrawing(chart, from, terms.now), sentence);
    sentence_->show(sentence);
    table_->show(standingRows(charts_, terms));
  }

  PageWorld world_;
  AppKey app_{};
  int generation_ = 0;
  std::vector<RankedChart> charts_;
  ChoiceButton* which_;
  ChoiceButton* range_;
  RankChart* chart_;
  PageText* sentence_;
  PageText* title_;
  FigureTable* table_;
};

}  // namespace

Block* makeRanksBlock(const QString& title, const PageWorld& world) {
  return new RanksBlock(title, world);
}

}  // namespace quillet
