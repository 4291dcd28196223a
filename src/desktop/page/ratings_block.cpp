// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "analysis/release_ratings.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kBars = 5;
constexpr int kBarLine = 20;
constexpr double kBarHeight = 6;
constexpr double kShortestBar = 3;
constexpr double kGap = 8;
constexpr double kColumnGap = 24;
constexpr double kBarStar = 9;
constexpr double kStar = 13;
constexpr int kAboveReleases = 12;
constexpr TypeStyle kMeanType{36, kBold, 0, Digits::tabular};
constexpr TypeStyle kBarType = kCaptionType.tabular();
constexpr TextLook kSentence{
    .type = kFactType.tabular(), .ink = Token::secondary, .lineHeight = 16, .use = TextUse::copy};

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

/// How many gave so many stars.
struct Share {
  QString stars;
  double share = 0;
  QString percent;
  QString count;
};

struct Ratings {
  QString mean;
  QString count;  ///< empty where it is unknown
  int halves = 0;
  std::vector<Share> shares;  ///< from five stars down; empty where they are unknown
};

std::vector<Share> sharesOf(const std::vector<std::int64_t>& histogram,
                            const LocaleFormats& formats) {
  std::vector<Share> shares;
  const bool isWhole = histogram.size() == kBars &&
                       std::ranges::all_of(histogram, [](std::int64_t each) { return each >= 0; });
  const double total = std::accumulate(histogram.begin(), histogram.end(), 0.0);
  if (!isWhole || total == 0) return shares;
  for (std::size_t stars = kBars; stars > 0; --stars) {
    const std::int64_t count = histogram[stars - 1];
    const double share = static_cast<double>(count) / total;
    shares.push_back({QString::fromStdString(formats.integer(static_cast<std::int64_t>(stars))),
                      share, QStringLiteral("%1\u00a0%").arg(std::lround(share * 100)),
                      QString::fromStdString(formats.integer(count))});
  }
  return shares;
}

QString countText(std::int64_t count, const LocaleFormats& formats) {
  return count == 1 ? tr("1 rating")
                    : tr("%1 ratings").arg(QString::fromStdString(formats.integer(count)));
}

bool isMac(const PageFacts& facts) {
  if (facts.store) return facts.store->app.platform == Platform::mac;
  return facts.cached && facts.cached->kind == kMacSoftwareKind;
}

/// Why there is nothing to draw; empty where nothing is known of ratings at all.
QString absenceText(const PageFacts& facts) {
  const bool isCatalogRead = facts.store && facts.store->catalog;
  if (isMac(facts) && !isCatalogRead)
    return tr(
        "Unknown until the catalog has been read: Apple's search tells no ratings of Mac apps.");
  const bool isKnown = isCatalogRead || facts.cached->ratingCount == 0;
  return isKnown ? tr("Nobody has rated it in this storefront yet.") : QString();
}

std::optional<Ratings> ratingsOf(const CachedApp& app, const LocaleFormats& formats) {
  // The services have 0 stars for what nobody rated, and for ratings that they do not know.
  if (!app.rating || *app.rating <= 0 || app.ratingCount == 0) return {};
  const double mean = std::clamp(*app.rating, 0.0, 5.0);
  return Ratings{QString::fromStdString(formats.oneDecimal(mean)),
                 app.ratingCount.value_or(0) > 0 ? countText(*app.ratingCount, formats) : QString(),
                 static_cast<int>(std::lround(mean * 2)),
                 sharesOf(app.ratingHistogram.value_or(std::vector<std::int64_t>()), formats)};
}

/// What recent reviews say of the releases, and of the latest ones above all; nothing where they
/// are too few.
void tellReleases(PageText& sentence, const PageFacts& facts, const LocaleFormats& formats) {
  if (!facts.store || !facts.store->catalog) return sentence.show({});
  const AppEnrichment& catalog = *facts.store->catalog;
  const auto ratings = releaseRatings(catalog.reviews, catalog.versions);
  if (!ratings) return sentence.show({});
  const QString version = plainLine(ratings->version);
  const QString since = QString::fromStdString(formats.oneDecimal(ratings->since));
  const QString before = QString::fromStdString(formats.oneDecimal(ratings->before));
  const QString text =
      tr("Reviews since %1 average %2, those before it %3.").arg(version, since, before);
  sentence.show(text);
  sentence.stress(text.indexOf(since, text.indexOf(version) + version.size()), since.size());
}

QString spoken(const Ratings& ratings) {
  QStringList texts{tr("%1 out of 5").arg(ratings.mean)};
  if (!ratings.count.isEmpty()) texts << ratings.count;
  for (const Share& each : ratings.shares) {
    const QString said =
        &each == &ratings.shares.back() ? tr("%1 star: %2, %3") : tr("%1 stars: %2, %3");
    texts << said.arg(each.stars, each.percent, each.count);
  }
  return texts.join(QStringLiteral("; "));
}

/// The mean with its stars, and a bar for each number of stars. A label, so that assistive
/// technology reads it.
class RatingsChart : public QLabel {
 public:
  explicit RatingsChart(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  void show(const Ratings& ratings) {
    ratings_ = ratings;
    setText(spoken(ratings));
    updateGeometry();
  }

  [[nodiscard]] QSize sizeHint() const override {
    const int height = ratings_.shares.empty() ? kMeanBlock : kBars * kBarLine;
    return {480, grownBy(lookOf(*this), height)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const double left = paintMean(painter, look) + kColumnGap;
    paintBars(painter, look, left);
  }

 private:
  static constexpr int kMeanLine = 40;
  static constexpr int kCountLine = 16;
  static constexpr int kMeanGap = 4;
  static constexpr int kMeanBlock =
      kMeanLine + kMeanGap + static_cast<int>(kStar) + kMeanGap + kCountLine;

  /// Returns where it ends.
  double paintMean(QPainter& painter, Look& look) const {
    const double grown = look.growth();
    const double star = std::floor(kStar * grown);
    double top = std::floor((height() - kMeanBlock * grown) / 2);
    const double width = look.text.draw(painter, {QRectF(0, top, this->width(), kMeanLine * grown)},
                                        ratings_.mean, kMeanType, look[Token::text]);
    top += std::floor(kMeanLine * grown) + kMeanGap;
    paintStars(painter, {0, top}, ratings_.halves, star,
               {look[Token::star], look[Token::emptyStar]});
    top += star + kMeanGap;
    const double count =
        look.text.draw(painter, {QRectF(0, top, this->width(), kCountLine * grown)}, ratings_.count,
                       kCaptionType.tabular(), look[Token::tertiary]);
    return std::max({width, count, starsWidth(star)});
  }

  double widest(Look& look, QString Share::* text, double least) const {
    for (const Share& each : ratings_.shares)
      least = std::max(least, std::ceil(look.text.width(each.*text, kBarType)));
    return least;
  }

  void paintBars(QPainter& painter, Look& look, double left) const {
    constexpr double kLeastStars = 8;
    constexpr double kLeastPercent = 28;
    constexpr double kLeastCount = 36;
    const double starsWidth = widest(look, &Share::stars, kLeastStars);
    const double countWidth = widest(look, &Share::count, kLeastCount);
    const double percentWidth = widest(look, &Share::percent, kLeastPercent);
    const double line = grownBy(look, kBarLine);
    const double star = std::floor(kBarStar * look.growth());
    double top = 0;
    for (const Share& each : ratings_.shares) {
      const auto text = [&](double from, double width, const QString& text, Token ink) {
        const TextPlace place{QRectF(from, top, width, line), TextAnchor::right};
        look.text.draw(painter, place, text, kBarType, look[ink]);
      };
      double right = width();
      text(right -= countWidth, countWidth, each.count, Token::tertiary);
      text(right -= kGap + percentWidth, percentWidth, each.percent, Token::tertiary);
      double x = left;
      text(x, starsWidth, each.stars, Token::secondary);
      look.icons.draw(painter, {x += starsWidth + kGap, top + (line - star) / 2},
                      QStringLiteral("star-fill"), star, look[Token::rowStar]);
      x += star + kGap;
      paintBar(painter, look,
               {x, top + std::floor((line - kBarHeight) / 2), right - kGap - x, kBarHeight},
               each.share);
      top += line;
    }
  }

  static void paintBar(QPainter& painter, Look& look, const QRectF& track, double share) {
    if (track.width() <= kShortestBar) return;
    paintBox(painter, track, kBarHeight / 2, look[Token::neutralTint]);
    QRectF bar = track;
    bar.setWidth(std::max(kShortestBar, track.width() * share));
    if (share > 0)
      paintBox(painter, bar, std::min(kBarHeight, bar.width()) / 2, look[Token::rowStar]);
  }

  Ratings ratings_;
};

class RatingsBlock : public Block {
 public:
  RatingsBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        chart_(new RatingsChart(this)),
        absence_(new PageText(kSentence, this)),
        releases_(new PageText(kSentence, this)) {
    releases_->setToolTip(wrappedTip(tr(
        "A guess from the latest reviews that the store shows first: each counts for the release "
        "that was the newest on its day.")));
    content().addWidget(chart_);
    content().addSpacerItem(aboveReleases_);
    content().addWidget(absence_);
    content().addWidget(releases_);
  }

  bool fill(const PageFacts& known) override {
    if (!known.cached) return false;
    const auto ratings = ratingsOf(*known.cached, *world_.formats);
    const QString absence = ratings ? QString() : absenceText(known);
    if (ratings) chart_->show(*ratings);
    chart_->setVisible(ratings.has_value());
    absence_->show(absence);
    ratings ? tellReleases(*releases_, known, *world_.formats) : releases_->show({});
    aboveReleases_->changeSize(0, releases_->isHidden() ? 0 : kAboveReleases);
    content().invalidate();
    return ratings || !absence.isEmpty();
  }

 private:
  PageWorld world_;
  RatingsChart* chart_;
  PageText* absence_;
  PageText* releases_;
  QSpacerItem* aboveReleases_ = new QSpacerItem(0, 0);  ///< the layout's
};

}  // namespace

Block* makeRatingsBlock(const QString& title, const PageWorld& world) {
  return new RatingsBlock(title, world);
}

}  // namespace quillet
