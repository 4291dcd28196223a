// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "desktop/page/review_card.h"
#include "desktop/page/reviews_window.h"
#include "queries/review_reading.h"

namespace quillet {

namespace {

constexpr std::size_t kShown = 3;
constexpr int kFoldedLines = 4;
constexpr int kBetween = 12;
constexpr int kUsualWidth = 480;

/// One review, and what leads to the rest of it. A label, so that assistive technology reads it.
class ReviewLabel : public QLabel {
 public:
  explicit ReviewLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
  }

  void show(const ReviewText& review) {
    review_ = review;
    setText(sentenceOf(review));
    forget();
  }
  void setFolded(bool isFolded) {
    isFolded_ = isFolded;
    forget();
  }
  [[nodiscard]] bool isCutAt(int width) const { return cardAt(width).isCut(); }

  [[nodiscard]] QSize sizeHint() const override {
    return {kUsualWidth, heightForWidth(kUsualWidth)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return cardAt(width).height(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    cardAt(width()).paint(painter, lookOf(*this), {0, 0}, ReviewGround::sheet,
                          layoutDirection() == Qt::RightToLeft);
  }
  void contextMenuEvent(QContextMenuEvent* event) override {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Copy Review"), this,
                    [this] { QGuiApplication::clipboard()->setText(copyOf(review_)); });
    menu->popup(event->globalPos());
  }
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) forget();
  }

 private:
  const ReviewCard& cardAt(int width) const {
    if (!card_ || cardWidth_ != width) {
      ReviewFold fold;
      if (isFolded_) fold.body = kFoldedLines;
      card_.emplace(review_, width, fold, lookOf(*this));
      cardWidth_ = width;
    }
    return *card_;
  }
  void forget() {
    card_.reset();
    updateGeometry();
    update();
  }

  ReviewText review_;
  bool isFolded_ = true;
  mutable std::optional<ReviewCard> card_;
  mutable int cardWidth_ = 0;
};

/// A review with the button that folds it.
class ReviewItem : public QWidget {
 public:
  explicit ReviewItem(QWidget* parent)
      : QWidget(parent),
        label_(new ReviewLabel(this)),
        more_(new LinkButton({}, kSmallControlType, {}, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, kBetween);
    column->setSpacing(2);
    column->addWidget(label_);
    column->addWidget(more_, 0, Qt::AlignLeft);
    connect(more_, &QAbstractButton::clicked, this, [this] { fold(!isFolded_); });
    fold(true);
  }

  void show(const ReviewText& review) {
    if (review == review_) return;
    review_ = review;
    label_->show(review);
    fold(true);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    showMore();
  }

 private:
  void fold(bool isFolded) {
    isFolded_ = isFolded;
    label_->setFolded(isFolded);
    more_->setText(isFolded ? tr("More") : tr("Less"));
    more_->setAccessibleName(
        (isFolded ? tr("More of the review \"%1\"") : tr("Less of the review \"%1\""))
            .arg(review_.title));
    showMore();
  }
  void showMore() { more_->setVisible(!isFolded_ || label_->isCutAt(width())); }

  ReviewLabel* label_;
  LinkButton* more_;
  ReviewText review_;
  bool isFolded_ = true;
};

/// The first reviews, as the store has them, and the way to all.
class ReviewsBlock : public Block {
 public:
  ReviewsBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        all_(new LinkButton(tr("All Reviews"), kSmallControlType, QStringLiteral("chevron-right"),
                            this)),
        nothing_(
            new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 16}, this)) {
    head().addWidget(all_);
    content().addWidget(nothing_);
    connect(all_, &QAbstractButton::clicked, this, &ReviewsBlock::openAll);
  }

  bool fill(const PageFacts& known) override {
    if (!known.store || !known.store->catalog) return false;
    const AppEnrichment& catalog = *known.store->catalog;
    // Of an app that the catalog does not have, it knows no reviews either.
    if (catalog == AppEnrichment{}) return false;
    app_ = known.app;
    reviews_ = {{known.app.trackId, known.store->app.platform},
                nameLine(known.name),
                known.app.country,
                catalog.reviews,
                catalog.versions};
    const std::vector<VersionedReview> shown = firstReviews(catalog);
    for (std::size_t i = 0; i < std::max(shown.size(), items_.size()); ++i) {
      ReviewItem& item = itemAt(i);
      item.setVisible(i < shown.size());
      if (i < shown.size())
        item.show(reviewTextOf(shown[i], world_.view.clock.now(), world_.view.zone));
    }
    nothing_->show(shown.empty() ? tr("No reviews published for this app in this storefront")
                                 : QString());
    return true;
  }

 private:
  static std::vector<VersionedReview> firstReviews(const AppEnrichment& catalog) {
    std::vector<VersionedReview> shown;
    const std::size_t count = std::min(kShown, catalog.reviews.size());
    for (std::size_t i = 0; i < count; ++i) shown.push_back({catalog.reviews[i], {}});
    addVersions(shown, catalog.versions);
    return shown;
  }

  ReviewItem& itemAt(std::size_t index) {
    if (index == items_.size()) {
      items_.push_back(new ReviewItem(this));
      content().addWidget(items_.back());
    }
    return *items_[index];
  }

  void openAll() {
    const bool isOthers = window_ && opened_ != app_;
    if (isOthers) window_->close();
    if (!window_ || isOthers) {
      window_ = new ReviewsWindow(reviews_, world_.view, window());
      opened_ = app_;
    }
    bringUp(*window_);
  }

  PageWorld world_;
  LinkButton* all_;
  std::vector<ReviewItem*> items_;
  PageText* nothing_;
  AppKey app_;
  ReviewsOf reviews_;
  QPointer<ReviewsWindow> window_;
  AppKey opened_;  ///< whose reviews the window shows
};

}  // namespace

Block* makeReviewsBlock(const QString& title, const PageWorld& world) {
  return new ReviewsBlock(title, world);
}

}  // namespace quillet
