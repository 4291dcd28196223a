// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/row_places.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "desktop/lists/row_pictures.h"
#include "desktop/lists/row_texts.h"
#include "desktop/lists/row_types.h"
#include "desktop/look/marks.h"

namespace quillet {

namespace {

constexpr double kInset = 8;  // of rows from the list's left edge; right of them is its scroll bar
constexpr double kEnd = 8;    // from a row's right edge to its pill
constexpr double kFigureEnd = 8;  // from there to the end of figures, in pills or not
constexpr double kGap = 12;
constexpr double kSmallGap = 6;
constexpr double kSpareOfGap = 4;  // beside a sparkline, which is empty at its end
constexpr double kStart = 12;
constexpr double kStartBesideGutter = 16;
// Places in a chart: a numeral, and below it whence it came.
constexpr double kRankColumn = 44;
constexpr double kRankLine = 24;
constexpr double kMovementLine = 14;
constexpr double kMovementGap = 1;
constexpr double kStartBesideRank = 4;
constexpr double kNameLine = 20;
constexpr double kDetailLine = 16;
constexpr double kNoteLine = 18;
constexpr int kHeadingHeight = 28;
constexpr double kHeadingLine = 16;
constexpr double kNoteGap = 4;
constexpr int kNoteHeight = 24;
constexpr double kTopWithNotes = 13;
constexpr int kTwoLines = 64;  // rows below have one line of figures, in columns
constexpr double kSparkWidth = 64;
constexpr double kSparkHeight = 24;
constexpr double kIcon = 12;
constexpr double kStar = 11;
constexpr double kLowMark = 11;
constexpr double kLowGap = 4;
constexpr double kDot = 8;
constexpr double kPictureGap = 6;
// Columns of figures, wider only for what is wider itself.
constexpr double kFiguresBesideSparkline = 104;
constexpr double kFigures = 72;
constexpr double kPriceColumn = 88;
constexpr double kWasColumn = 84;
constexpr double kTimeColumn = 44;
// Where lists become too narrow for a part.
constexpr double kWidthForWas = 460;
constexpr double kWidthForStars = 360;
constexpr double kLeastName = 80;
constexpr double kLeastDetail = 24;
constexpr double kMostFigures = 0.45;  // of a row
constexpr double kMostBesideRank = 0.36;

// The columns of deals, from the right; a gap of their own lies between them.
constexpr double kDealGap = 16;
constexpr double kWatchBox = 32;
constexpr double kWatchIcon = 16;
constexpr double kDealDay = 48;
constexpr double kDealLow = 148;
constexpr double kDealPercent = 52;
constexpr double kDealShare = 48;
constexpr double kShareHeight = 4;
constexpr double kDealPrice = 80;
constexpr double kWidestDealPrice = 140;
constexpr double kPillOut = 8;  // so far a pill stands before its column
constexpr double kArrow = 16;
constexpr double kDealWas = 64;
constexpr double kDealSpark = 112;
constexpr double kDealSparkHeight = 28;
constexpr double kDealMark = 12;
constexpr double kDealMarkGap = 6;
// From where a list has room for the columns at all, for that of lows, and for lines.
constexpr double kWidthForDeals = 700;
constexpr double kWidthForLows = 840;
constexpr double kWidthForDealLines = 960;

/// Places the parts one after the other: the figures from the right, then texts into what is left.
class RowPlacer {
 public:
  RowPlacer(const AppRow& row, const RowLayout& layout, const QRectF& item, Look& look)
      : row_(row),
        layout_(layout),
        grown_(look.growth()),
        width_(item.width() / grown_),
        look_(look),
        area_(item) {}

  RowPlaces place(RowHeading heading) {
    if (heading == RowHeading::day) {
      places_.heading =
          QRectF(area_.left() + kInset, area_.top(), area_.width() - kInset, headingHeight(look_));
      area_.setTop(area_.top() + headingHeight(look_));
    }
    area_.setLeft(area_.left() + kInset);
    places_.row = area_;
    placeStart();
    right_ = area_.right() - kEnd;
    if (hasDealColumns()) {
      placeDealColumns();
    } else if (isSlim()) {
      placeColumns();
    } else {
      placeFigures();
    }
    placeTexts();
    return places_;
  }

 private:
  [[nodiscard]] bool isSlim() const { return layout_.height < kTwoLines; }
  [[nodiscard]] bool hasDealColumns() const {
    return layout_.hasDealColumns && width_ >= kWidthForDeals;
  }
  [[nodiscard]] double middle(double height) const {
    return area_.top() + (rowHeight(layout_, look_) - height) / 2;
  }
  [[nodiscard]] bool hasSecondLine() const {
    return !secondText(row_).isEmpty() || !row_.detailIcon.isEmpty() || showsStars();
  }
  [[nodiscard]] bool showsStars() const {
    return layout_.hasStars && row_.ratingHalves && width_ >= kWidthForStars;
  }
  [[nodiscard]] bool showsSparkline() const {
    return layout_.hasSparkline && width_ >= layout_.sparklineFrom;
  }
  [[nodiscard]] double nameLine() const { return kNameLine * grown_; }
  [[nodiscard]] double detailLine() const { return kDetailLine * grown_; }
  [[nodiscard]] bool isPill() const { return row_.price.move != PriceMove::none; }
  [[nodiscard]] double most() const {
    return area_.width() * (layout_.hasRanks ? kMostBesideRank : kMostFigures);
  }
  /// What a price may have of its list, and of what is left beside the name.
  double shownPriceWidth() {
    return std::min({priceWidth(), most(), right_ - kGap - kLeastName - left_});
  }
  /// Whether the name keeps its room beside a part of this width.
  [[nodiscard]] bool hasRoomFor(double width) const { return right_ - width - left_ >= kLeastName; }

  double textWidth(const QString& text, const TypeStyle& style) {
    return text.isEmpty() ? 0 : look_.text.width(text, style);
  }
  double priceWidth() {
    if (row_.price.text.isEmpty()) return 0;
    return isPill() ? pillWidth(look_, pricePill(row_.price), PillSize::small)
                    : textWidth(row_.price.text, kPriceType) + kFigureEnd;
  }
  double lowWidth() {
    if (!row_.marks.testFlag(RowMark::atLowest)) return 0;
    return kLowMark * grown_ + (saysLow() ? kLowGap + textWidth(lowText(), kAsideType) : 0);
  }
  double asideWidth() {
    const double low = lowWidth();
    const double text = textWidth(row_.aside, kAsideType);
    const double gap = low > 0 && text > 0 ? kSmallGap : 0;
    return low + gap + text > 0 ? low + gap + text + kFigureEnd : 0;
  }
  /// In the narrow column beside places the mark alone says it, where there is more to say.
  [[nodiscard]] bool saysLow() const { return !layout_.hasRanks || row_.aside.isEmpty(); }

  void placeStart();
  void placeRank();
  void placeFigures();
  void placePrice(double right, double top);
  void placeAside(double top);
  void placeTimeAtTop();
  void placePictures();
  void placeColumns();
  void placeDealColumns();
  void placeDealLow();
  void placeDealPrice();
  [[nodiscard]] QRectF takeColumn(double width, double height);
  void placeBadge();
  void placeTexts();
  void placeSecondLine(double top, double right);

  const AppRow& row_;
  const RowLayout& layout_;
  double grown_;
  double width_;  // of the list, in texts of 100 %
  Look& look_;
  QRectF area_;
  RowPlaces places_;
  double left_ = 0;   // of the texts
  double right_ = 0;  // of what is still free
};

void RowPlacer::placeStart() {
  double start = layout_.hasGutter ? kStartBesideGutter : kStart;
  if (layout_.hasRanks) {
    placeRank();
    start = kStartBesideRank + kRankColumn * grown_ + kGap;
  }
  places_.artwork =
      QRectF(area_.left() + start, middle(layout_.artwork), layout_.artwork, layout_.artwork);
  if (layout_.hasGutter && row_.marks.testFlag(RowMark::unread))
    places_.dot = QRectF(area_.left() + 2, middle(kDot), kDot, kDot);
  left_ = places_.artwork.right() + kGap;
}

void RowPlacer::placeRank() {
  const double line = kRankLine * grown_;
  const double below = row_.movement ? (kMovementGap + kMovementLine) * grown_ : 0;
  places_.rank =
      QRectF(area_.left() + kStartBesideRank, middle(line + below), kRankColumn * grown_, line);
  if (!row_.movement) return;
  places_.movement = places_.rank.translated(0, line + kMovementGap * grown_);
  places_.movement.setHeight(kMovementLine * grown_);
}

/// The price, and a line below it; a sparkline beside them.
void RowPlacer::placeFigures() {
  const double aside = asideWidth();
  const bool hasAside = aside > 0 && aside <= most();
  const double price = shownPriceWidth();
  if (!row_.pictures.empty()) {
    placePictures();
  } else if (price == 0 && !hasAside) {
    placeTimeAtTop();
  } else {
    const bool isWide = showsSparkline() && !layout_.hasRanks;
    const double least = isWide ? kFiguresBesideSparkline : kFigures * grown_;
    double top = middle(nameLine() + (hasAside ? 2 + detailLine() : 2));
    if (layout_.hasNotes) top = area_.top() + kTopWithNotes;
    placePrice(right_, top);
    if (hasAside) placeAside(top + nameLine() + (layout_.hasNotes ? 0 : 2));
    // What is a little wider leaves the sparkline in its column.
    right_ -= std::max({least, price, hasAside ? aside - kSpareOfGap : 0}) + kGap;
  }
  if (showsSparkline()) {
    places_.sparkline =
        QRectF(right_ - kSparkWidth, middle(kSparkHeight), kSparkWidth, kSparkHeight);
    right_ -= kSparkWidth + kGap;
  }
}

void RowPlacer::placePrice(double right, double top) {
  const double width = shownPriceWidth();
  if (width <= 0) return;
  places_.price = QRectF(right - width, top, width, nameLine());
  if (!isPill()) places_.price.adjust(0, 0, -kFigureEnd, 0);
}

void RowPlacer::placeAside(double top) {
  double right = right_ - kFigureEnd;
  if (const double low = lowWidth(); low > 0) {
    if (saysLow()) {
      const double text = low - kLowMark * grown_ - kLowGap;
      places_.lowText = QRectF(right - text, top, text, detailLine());
    }
    places_.lowMark =
        QRectF(right - low, top + 4 * grown_, kLowMark * grown_, kLowMark * grown_ * 5 / 6);
    right -= low + kSmallGap;
  }
  const double text = textWidth(row_.aside, kAsideType);
  if (text > 0) places_.aside = QRectF(right - text, top, text, detailLine());
}

void RowPlacer::placeTimeAtTop() {
  const double time = textWidth(row_.time, kAsideType);
  if (time == 0 || time > most()) return;
  places_.time = QRectF(right_ - kFigureEnd - time, area_.top() + kTopWithNotes - 1 + 2 * grown_,
                        time, detailLine());
  right_ = places_.time.left() - kGap;
}

void RowPlacer::placePictures() {
  const std::size_t count = std::min(row_.pictures.size(), places_.pictures.size());
  const double width =
      static_cast<double>(count) * (kSmallPicture + kPictureGap) - kPictureGap + kFigureEnd;
  if (!hasRoomFor(width + kGap)) return;
  right_ -= width;
  for (std::size_t i = 0; i < count; ++i) {
    const double left = right_ + static_cast<double>(i) * (kSmallPicture + kPictureGap);
    places_.pictures[i] = QRectF(left, middle(kSmallPicture), kSmallPicture, kSmallPicture);
  }
  right_ -= kGap;
}

/// What it cost, what it costs, and when: each in a column of its own.
void RowPlacer::placeColumns() {
  const double line = middle(nameLine());
  const double time = textWidth(row_.time, kDetailType);
  const double column = std::max(kTimeColumn * grown_, time + kFigureEnd) + kGap;
  if (time > 0 && hasRoomFor(column + kGap + std::min(priceWidth(), kPriceColumn * grown_))) {
    places_.time = QRectF(right_ - kFigureEnd - time, line, time, nameLine());
    right_ -= column;
  }
  const double was = width_ < kWidthForWas ? 0 : textWidth(row_.was, kDetailType);
  const double price = shownPriceWidth();
  const double priceColumn = std::max(kPriceColumn * grown_, price) + kGap;
  placePrice(right_, line);
  if (was > 0 && hasRoomFor(priceColumn + was)) {
    right_ -= priceColumn;
    places_.was = QRectF(right_ - was, line, was, nameLine());
    right_ -= std::max(kWasColumn * grown_, was) + kGap;
  } else if (price > 0) {
    right_ -= price + kGap;
  }
}

/// A column at the right of what is still free.
QRectF RowPlacer::takeColumn(double width, double height) {
  const QRectF column(right_ - width, middle(height), width, height);
  right_ -= width + kDealGap;
  return column;
}

/// All that a deal is about side by side. What is wider than its column has none.
void RowPlacer::placeDealColumns() {
  left_ += kDealGap - kGap;
  const QRectF watch = takeColumn(kWatchBox, kWatchBox);
  places_.watch = QRectF(0, 0, kWatchIcon * grown_, kWatchIcon * grown_);
  places_.watch.moveCenter(watch.center());
  const QRectF day = takeColumn(kDealDay * grown_, nameLine());
  if (const double time = textWidth(row_.time, kDetailType); time > 0 && time <= day.width())
    places_.time = day.adjusted(day.width() - time, 0, 0, 0);
  if (width_ >= kWidthForLows) placeDealLow();
  const QRectF share = takeColumn((kDealShare + 4) * grown_, kShareHeight * grown_);
  right_ += kDealGap - kFigureEnd;
  const QRectF percent = takeColumn(kDealPercent * grown_, nameLine());
  const double aside = textWidth(row_.aside, kPriceType);
  if (aside > 0 && aside <= percent.width()) {
    places_.aside = percent.adjusted(percent.width() - aside, 0, 0, 0);
    places_.share = share.adjusted(0, 0, -4 * grown_, 0);
  }
  placeDealPrice();
  if (width_ >= kWidthForDealLines && hasRoomFor(kDealSpark + kDealGap))
    places_.sparkline = takeColumn(kDealSpark, kDealSparkHeight);
}

void RowPlacer::placeDealLow() {
  QRectF low = takeColumn(kDealLow * grown_, nameLine());
  const bool isLowest = row_.marks.testFlag(RowMark::atLowest);
  const double text = textWidth(lowTextOf(row_), isLowest ? kDealLowType : kDetailType);
  const double mark = isLowest ? (kDealMark + kDealMarkGap) * grown_ : 0;
  if (text == 0 || mark + text > low.width()) return;
  const double markHeight = kDealMark * grown_ * 5 / 6;
  if (isLowest)
    places_.lowMark = QRectF(low.left(), middle(markHeight), kDealMark * grown_, markHeight);
  places_.lowText = QRectF(low.left() + mark, low.top(), text, low.height());
}

/// What is wider than its column widens it, as far as the name bears.
void RowPlacer::placeDealPrice() {
  const double price = std::min(priceWidth(), kWidestDealPrice * grown_);
  const QRectF now = takeColumn(std::max(kDealPrice * grown_, price), nameLine());
  if (price > 0) places_.price = QRectF(now.left(), now.top(), price, now.height());
  if (price > 0 && !isPill()) places_.price.adjust(kPillOut, 0, kPillOut - kFigureEnd, 0);
  right_ += kPillOut;
  const double text = textWidth(row_.was, kDealWasType);
  const double was = std::max(kDealWas * grown_, std::min(text, kWidestDealPrice * grown_));
  if (text == 0 || !hasRoomFor(kArrow * grown_ + was + 2 * kDealGap)) return;
  places_.arrow = takeColumn(kArrow * grown_, kArrow * grown_);
  const QRectF column = takeColumn(was, nameLine());
  places_.was = column.adjusted(column.width() - std::min(text, was), 0, 0, 0);
}

/// At the end of the name's line, which is shorter for it.
void RowPlacer::placeBadge() {
  if (row_.badge.isEmpty()) return;
  const double badge = pillWidth(look_, badgePill(row_.badge), PillSize::small);
  if (!hasRoomFor(badge + kGap)) return;
  places_.badge = QRectF(right_ - badge, places_.name.top(), badge, nameLine());
  places_.name.setRight(places_.badge.left() - kGap);
}

void RowPlacer::placeTexts() {
  const bool isTight = isSlim() || layout_.hasNotes;
  const double gap = isTight ? 0 : 2;
  double top = middle(nameLine());
  if (hasSecondLine()) top = middle(nameLine() + gap + detailLine());
  if (layout_.hasNotes) top = area_.top() + kTopWithNotes;
  const double width = std::max(0.0, right_ - left_);
  places_.name = QRectF(left_, top, width, nameLine());
  const double second = top + nameLine() + gap;
  if (hasSecondLine()) placeSecondLine(second, right_);
  placeBadge();
  if (!layout_.hasNotes || row_.note.isEmpty()) return;
  const double note = second + detailLine() + kNoteGap;
  places_.noteBar = QRectF(left_, note, 2, kNoteLine * grown_);
  places_.note = QRectF(left_ + kGap, note, std::max(0.0, width - kGap), kNoteLine * grown_);
}

void RowPlacer::placeSecondLine(double top, double right) {
  double left = left_;
  if (showsStars() && left + starsWidth(kStar * grown_) <= right) {
    places_.stars = QRectF(left, top + 3 * grown_, starsWidth(kStar * grown_), kStar * grown_);
    left = places_.stars.right() + kSmallGap;
    const double count = textWidth(row_.ratingCount, kDetailType);
    if (count > 0 && left + count <= right) {
      places_.ratingCount = QRectF(left, top, count, detailLine());
      left = places_.ratingCount.right() + kSpareOfGap + kSmallGap / 2;
    }
  }
  if (!row_.detailIcon.isEmpty() && left + kIcon * grown_ <= right) {
    places_.detailIcon = QRectF(left, top + 2 * grown_, kIcon * grown_, kIcon * grown_);
    left = places_.detailIcon.right() + kSmallGap;
  }
  if (right - left >= kLeastDetail) places_.detail = QRectF(left, top, right - left, detailLine());
}

/// What lines of this height take besides in larger text.
int more(double line, const Look& look) {
  return static_cast<int>(std::ceil(line * (look.growth() - 1)));
}

}  // namespace

RowPlaces placesOf(const AppRow& row, const RowLayout& layout, RowHeading heading,
                   const QRectF& item, Look& look) {
  return RowPlacer(row, layout, item, look).place(heading);
}

int itemHeight(const AppRow& row, const RowLayout& layout, RowHeading heading, const Look& look) {
  int height = rowHeight(layout, look);
  if (layout.hasNotes && !row.note.isEmpty()) height += kNoteHeight + more(kNoteLine, look);
  if (heading == RowHeading::day) height += headingHeight(look);
  return height;
}

int rowHeight(const RowLayout& layout, const Look& look) {
  return layout.height + more(kNameLine + kDetailLine, look);
}

int noteTop(const RowLayout& layout, const Look& look) {
  constexpr double kAbove = kTopWithNotes + kNameLine + kDetailLine + kNoteGap;
  return static_cast<int>(kAbove) + rowHeight(layout, look) - layout.height;
}

int headingHeight(const Look& look) { return kHeadingHeight + more(kHeadingLine, look); }

}  // namespace quillet
