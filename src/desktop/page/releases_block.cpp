// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <cmath>

#include "desktop/charts/release_chart.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/release_list.h"

namespace quillet {

namespace {

constexpr int kBelowChart = 8;
constexpr int kBelowSentence = 8;
constexpr double kWordGap = 4;

/// A figure with what it is called, at the right of a title.
class HeadFigure : public QLabel {
 public:
  explicit HeadFigure(const QString& name, QWidget* parent) : QLabel(parent), name_(name) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }

  /// Hidden without a figure.
  void show(const QString& figure) {
    figure_ = figure;
    setText(QStringLiteral("%1 %2").arg(name_, figure));
    setVisible(!figure.isEmpty());
    updateGeometry();
  }

  [[nodiscard]] QSize sizeHint() const override {
    Look& look = lookOf(*this);
    const double width =
        look.text.width(name_, kFactType) + kWordGap + look.text.width(figure_, kFigure);
    return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(kLine * look.growth()))};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    look.text.draw(painter, {rect()}, name_, kFactType, look[Token::tertiary]);
    look.text.draw(painter, {rect(), TextAnchor::right}, figure_, kFigure, look[Token::text]);
  }

 private:
  static constexpr TypeStyle kFigure = kFactType.tabular();
  static constexpr double kLine = 16;

  QString name_;
  QString figure_;
};

/// When the app was released, how often, and what each release brought.
class ReleasesBlock : public Block {
 public:
  ReleasesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        gap_(new HeadFigure(tr("Usual gap"), this)),
        chart_(new ReleaseChart(this)),
        sentence_(new PageText(
            {.type = kFactType, .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy},
            this)),
        list_(new ReleaseList(this)) {
    head().addWidget(gap_);
    content().addWidget(chart_);
    content().addSpacerItem(belowChart_);
    content().addWidget(sentence_);
    content().addSpacing(kBelowSentence);
    content().addWidget(list_);
  }

  bool fill(const PageFacts& known) override {
    const Instant now = world_.view.clock.now();
    const ReleaseHistory history =
        releasesOf(known, {readMaintenanceThresholds(world_.view.settings), now});
    const QString sentence = releaseSentence(history);
    std::vector<ReleaseDot> dots = releaseDots(history);
    chart_->setVisible(!dots.empty());
    belowChart_->changeSize(0, dots.empty() ? 0 : kBelowChart);
    content().invalidate();
    gap_->show(usualGapText(history));
    chart_->show(ReleaseAxis(std::move(dots), now), sentence);
    sentence_->show(sentence);
    list_->show(releaseRows(history));
    return !history.releases.empty();
  }

 private:
  PageWorld world_;
  HeadFigure* gap_;
  ReleaseChart* chart_;
  QSpacerItem* belowChart_ = new QSpacerItem(0, 0);  ///< the layout's
  PageText* sentence_;
  ReleaseList* list_;
};

}  // namespace

Block* makeReleasesBlock(const QString& title, const PageWorld& world) {
  return new ReleasesBlock(title, world);
}

}  // namespace quillet
