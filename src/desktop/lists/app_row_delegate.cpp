// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/app_row_delegate.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/note_editor.h"
#include "desktop/lists/row_texts.h"
#include "desktop/lists/row_types.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/app_list_model.h"

namespace quillet {

namespace {

constexpr int kKeptCuts = 2000;
constexpr int kKeptStars = 64;
constexpr double kCorner = 8;
constexpr double kRing = 2;
constexpr int kWatchMargin = 8;  // around its mark, where a click is still on it

const QString kArrowIcon = QStringLiteral("arrow-right");
const QString kWatchIcon = QStringLiteral("eye");
const QString kWatchedIcon = QStringLiteral("eye-fill");

Token toneOf(RowTone tone) {
  switch (tone) {
    case RowTone::good: return Token::down;
    case RowTone::bad: return Token::up;
    case RowTone::mine: return Token::accentText;
    case RowTone::warning: return Token::low;
    case RowTone::quiet: break;
  }
  return Token::secondary;
}

RowHeading headingOf(const QModelIndex& index) {
  return index.data(HeadingRole).isValid() ? RowHeading::day : RowHeading::none;
}

int heightWithEditor(const RowLayout& layout, const Look& look) {
  constexpr int kBelow = 13;
  return noteTop(layout, look) + NoteEditor::heightIn(look) + kBelow;
}

/// From right to left in windows that are read so.
QRectF mirrored(const QRectF& rect, const QRectF& within) {
  return {within.left() + within.right() - rect.right(), rect.top(), rect.width(), rect.height()};
}

}  // namespace

struct AppRowDelegate::Canvas {
  QPainter& painter;
  Look& look;
  const AppRow& row;
  const RowExtras* extras;
  RowPlaces places;
  QRectF item;
  int index = 0;
  double ratio = 1;
  bool isSelected = false;
  bool isHovered = false;
  bool showsRing = false;
  bool isMirrored = false;
  bool isNoteEdited = false;

  [[nodiscard]] const QColor& operator[](Token token) const { return look[token]; }
  /// Neither is to stand on the colour of a selection.
  [[nodiscard]] const QColor& quiet() const {
    return look[isSelected ? Token::secondary : Token::tertiary];
  }
  [[nodiscard]] QRectF at(const QRectF& rect) const {
    return isMirrored ? mirrored(rect, item) : rect;
  }
};

AppRowDelegate::AppRowDelegate(AppListView& view, const RowLayout& layout, ImageStore& images)
    : QStyledItemDelegate(&view),
      view_(view),
      layout_(layout),
      pictures_(images),
      cuts_(kKeptCuts),
      stars_(kKeptStars) {}

void AppRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  Look& look = lookOf(view_);
  const AppRow& row = *index.data(RowRole).value<const AppRow*>();
  const QVariant day = index.data(HeadingRole);
  const auto heading = day.isValid() ? RowHeading::day : RowHeading::none;
  Canvas canvas{*painter,
                look,
                row,
                index.data(ExtrasRole).value<const RowExtras*>(),
                placesOf(row, layout_, heading, option.rect, look),
                option.rect};
  canvas.index = index.row();
  canvas.ratio = PixelGrid(*painter).ratio();
  canvas.isSelected = option.state.testFlag(QStyle::State_Selected);
  canvas.isHovered = view_.hovered() == index;
  canvas.showsRing = option.state.testFlag(QStyle::State_HasFocus) &&
                     option.state.testFlag(QStyle::State_KeyboardFocusChange);
  canvas.isMirrored = option.direction == Qt::RightToLeft;
  canvas.isNoteEdited = view_.isNoteEdited(index);
  painter->save();
  if (day.isValid())
    text(canvas, canvas.places.heading.adjusted(16, 8, 0, 0), day.toString(), kHeadingType,
         look[Token::tertiary]);
  paintGround(canvas);
  paintPictures(canvas);
  paintRank(canvas);
  paintTexts(canvas);
  paintPrice(canvas);
  paintMarks(canvas);
  paintLine(canvas);
  painter->restore();
}

QSize AppRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& index) const {
  // As wide as the list is, which it decides itself.
  const AppRow& row = *index.data(RowRole).value<const AppRow*>();
  const Look& look = lookOf(view_);
  const int height = itemHeight(row, layout_, headingOf(index), look);
  return {1, view_.isNoteEdited(index) ? heightWithEditor(layout_, look) : height};
}

void AppRowDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
  const AppRow& row = *index.data(RowRole).value<const AppRow*>();
  Look& look = lookOf(view_);
  const QRectF item = option.rect;
  QRectF place = placesOf(row, layout_, headingOf(index), item, look).name;
  place.setTop(item.top() + noteTop(layout_, look));
  place.setHeight(NoteEditor::heightIn(look));
  place.setRight(item.right() - kCorner);
  editor->setGeometry(
      (option.direction == Qt::RightToLeft ? mirrored(place, item) : place).toRect());
}

/// What lies under the texts: colour, bar, ring or hairline.
void AppRowDelegate::paintGround(Canvas& canvas) const {
  const QRectF row = canvas.at(canvas.places.row);
  if (canvas.isSelected || canvas.isHovered)
    paintBox(canvas.painter, row, kCorner,
             canvas[canvas.isSelected ? Token::selection : Token::hover]);
  if (canvas.showsRing) {
    paintBox(canvas.painter, row, kCorner, Qt::transparent, {canvas[Token::accentText], kRing});
  } else if (canvas.isSelected && canvas.places.dot.isNull()) {
    const QRectF& place = canvas.places.row;
    const QRectF bar(place.left() + 4, place.top() + 18, 3, place.height() - 36);
    paintBox(canvas.painter, canvas.at(bar), 2, canvas[Token::accentText]);
  }
  if (canvas.showsRing || !view_.hasHairlineBelow(canvas.index)) return;
  const QRectF line = canvas.at(QRectF(QPointF(canvas.places.name.left(), canvas.places.row.top()),
                                       canvas.places.row.bottomRight() - QPointF(kCorner, 0)));
  PixelGrid(canvas.painter)
      .horizontal(line.left(), line.right(), line.bottom() - 1, canvas[Token::line]);
}

void AppRowDelegate::text(Canvas& canvas, const QRectF& line, const QString& text,
                          const TypeStyle& style, const QColor& color, TextAnchor anchor) const {
  if (line.isNull() || text.isEmpty()) return;
  if (canvas.isMirrored && anchor != TextAnchor::centre)
    anchor = anchor == TextAnchor::left ? TextAnchor::right : TextAnchor::left;
  canvas.look.text.draw(canvas.painter, {canvas.at(line), anchor},
                        cut(canvas.look, text, style, line.width()), style, color);
}

QString AppRowDelegate::cut(Look& look, const QString& text, const TypeStyle& style,
                            double width) const {
  // Places are sums, which differ from the width that they were made for by a breath.
  constexpr double kBreath = 0.01;
  if (look.text.width(text, style) <= width + kBreath) return text;
  if (std::exchange(cutsScale_, look.text.scale()) != look.text.scale()) cuts_.clear();
  const int type = static_cast<int>(style.pixels * 10) * 1000 + style.weight;
  const CutKey key{text, static_cast<int>(std::floor(width)), type};
  if (const QString* kept = cuts_.object(key)) return *kept;
  auto* made = new QString(look.text.elided(text, style, key.width));
  cuts_.insert(key, made);
  return *made;
}

void AppRowDelegate::paintTexts(Canvas& canvas) const {
  const AppRow& row = canvas.row;
  const RowPlaces& places = canvas.places;
  // Where some rows are unread, the others stand back.
  const bool isQuiet = layout_.hasGutter && !row.marks.testFlag(RowMark::unread);
  text(canvas, places.name, firstText(row), isQuiet ? kRowType.weighing(500) : kRowType,
       canvas[Token::text]);
  // A coloured icon is enough; without one the text itself has the colour.
  const Token tone =
      row.detail.isEmpty() || !row.detailIcon.isEmpty() ? Token::secondary : toneOf(row.detailTone);
  text(canvas, places.detail, secondText(row), row.detail.isEmpty() ? kFactType : kDetailType,
       canvas[tone]);
  text(canvas, places.ratingCount, row.ratingCount, kDetailType, canvas[Token::secondary]);
  text(canvas, places.was, row.was, places.arrow.isNull() ? kDetailType : kDealWasType,
       canvas.quiet(), TextAnchor::right);
  text(canvas, places.time, row.time,
       layout_.height < RowLayout().height || layout_.hasDealColumns ? kDetailType : kAsideType,
       canvas.quiet(), TextAnchor::right);
  if (places.note.isNull() || canvas.isNoteEdited) return;
  paintBox(canvas.painter, canvas.at(places.noteBar), 1, canvas[Token::edge]);
  text(canvas, places.note, row.note, kNoteType, canvas[Token::text]);
}

void AppRowDelegate::paintRank(Canvas& canvas) const {
  text(canvas, canvas.places.rank, canvas.row.rank, kRankType, canvas[Token::text],
       TextAnchor::centre);
  if (canvas.places.movement.isNull()) return;
  Movement movement{{}, canvas.isSelected};
  if (const auto& change = canvas.row.movement->change) movement.places = static_cast<int>(*change);
  paintMovement(canvas.painter, canvas.look, canvas.at(canvas.places.movement), movement);
}

void AppRowDelegate::paintPrice(Canvas& canvas) const {
  const AppRow& row = canvas.row;
  const RowPlaces& places = canvas.places;
  if (!places.price.isNull()) {
    const Pill pill = pricePill(row.price);
    const bool isPill = row.price.move != PriceMove::none &&
                        pillWidth(canvas.look, pill, PillSize::small) <= places.price.width() + 1;
    if (isPill) {
      paintPill(canvas.painter, canvas.look, canvas.at(places.price).topLeft(), pill,
                PillSize::small);
    } else {
      text(canvas, places.price, row.price.text, kPriceType, canvas[Token::text],
           TextAnchor::right);
    }
  }
  if (places.watch.isNull()) {
    const bool isPercent = row.price.move != PriceMove::none;
    text(canvas, places.aside, row.aside, kAsideType,
         isPercent ? canvas[Token::secondary] : canvas.quiet(), TextAnchor::right);
    text(canvas, places.lowText, lowText(), kAsideType, canvas[Token::low], TextAnchor::right);
  } else {
    paintDealColumns(canvas);
  }
  if (!places.badge.isNull())
    paintPill(canvas.painter, canvas.look, canvas.at(places.badge).topLeft(), badgePill(row.badge),
              PillSize::small);
}

/// What of a deal stands in columns: by how much it fell, its low, and whether it is watched.
void AppRowDelegate::paintDealColumns(Canvas& canvas) const {
  const AppRow& row = canvas.row;
  const RowPlaces& places = canvas.places;
  if (!places.arrow.isNull())
    canvas.look.icons.draw(canvas.painter, canvas.at(places.arrow).topLeft(), kArrowIcon,
                           places.arrow.width(), canvas.quiet());
  text(canvas, places.aside, row.aside, kPriceType, canvas[Token::text], TextAnchor::right);
  if (!places.share.isNull()) {
    const double fell = std::clamp(-row.changePercent.value_or(0) / 100, 0.0, 1.0);
    QRectF share = places.share;
    paintBox(canvas.painter, canvas.at(share), 2,
             canvas[canvas.isSelected ? Token::base : Token::neutralTint]);
    share.setWidth(std::max(share.height(), share.width() * fell));
    paintBox(canvas.painter, canvas.at(share), 2, canvas[Token::down]);
  }
  const bool isLowest = row.marks.testFlag(RowMark::atLowest);
  text(canvas, places.lowText, lowTextOf(row), isLowest ? kDealLowType : kDetailType,
       isLowest ? canvas[Token::low] : canvas.quiet());
  const bool isWatched = row.marks.testFlag(RowMark::watched);
  const QColor& plain = canvas.isHovered ? canvas[Token::text] : canvas.quiet();
  canvas.look.icons.draw(canvas.painter, canvas.at(places.watch).topLeft(),
                         isWatched ? kWatchedIcon : kWatchIcon, places.watch.width(),
                         isWatched ? canvas[Token::accentText] : plain);
}

void AppRowDelegate::paintMarks(Canvas& canvas) const {
  const RowPlaces& places = canvas.places;
  if (!places.dot.isNull()) {
    canvas.painter.setRenderHint(QPainter::Antialiasing);
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(canvas[canvas.isSelected ? Token::accentText : Token::accent]);
    canvas.painter.drawEllipse(canvas.at(places.dot));
  }
  if (!places.stars.isNull()) paintStarsOf(canvas);
  if (!places.detailIcon.isNull())
    canvas.look.icons.draw(canvas.painter, canvas.at(places.detailIcon).topLeft(),
                           canvas.row.detailIcon, places.detailIcon.width(),
                           canvas[toneOf(canvas.row.detailTone)]);
  if (!places.lowMark.isNull())
    paintLowMark(canvas.painter, canvas.at(places.lowMark).topLeft(), places.lowMark.width(),
                 canvas[Token::low]);
}

void AppRowDelegate::paintPictures(Canvas& canvas) const {
  const PixelGrid grid(canvas.painter);
  const auto paint = [&](const QRectF& rect, const QPixmap& picture) {
    const QRectF place = canvas.at(rect);
    canvas.painter.drawPixmap(QPointF(grid.x(place.left()), grid.y(place.top())), picture);
  };
  paint(canvas.places.artwork,
        pictures_.pictureOf(canvas.row, layout_.artwork, canvas.ratio, canvas.look,
                            // A tile of the selection's own colour would be gone on it.
                            canvas.isSelected ? Token::base : Token::sideSelection));
  for (std::size_t i = 0; i < canvas.places.pictures.size(); ++i) {
    const QRectF& place = canvas.places.pictures[i];
    if (!place.isNull())
      paint(place, pictures_.smallPicture(canvas.row.pictures[i], canvas.ratio, canvas.look));
  }
}

void AppRowDelegate::paintStarsOf(Canvas& canvas) const {
  const double size = canvas.places.stars.height();
  const StarColors colors{canvas[canvas.isSelected ? Token::secondary : Token::rowStar],
                          canvas[canvas.isSelected ? Token::selectedEmptyStar : Token::emptyStar]};
  const StarsKey key{*canvas.row.ratingHalves, static_cast<int>(canvas.ratio * 100),
                     static_cast<int>(size * 100), colors.full.rgba(), colors.empty.rgba()};
  QPixmap* kept = stars_.object(key);
  if (kept == nullptr) {
    const QSizeF area(starsWidth(size), size);
    kept = new QPixmap((area * canvas.ratio).toSize() + QSize(1, 1));
    kept->setDevicePixelRatio(canvas.ratio);
    kept->fill(Qt::transparent);
    QPainter painter(kept);
    paintStars(painter, {}, key.halves, size, colors);
    painter.end();
    stars_.insert(key, kept);
  }
  const PixelGrid grid(canvas.painter);
  const QRectF place = canvas.at(canvas.places.stars);
  canvas.painter.drawPixmap(QPointF(grid.x(place.left()), grid.y(place.top())), *kept);
}

void AppRowDelegate::paintLine(Canvas& canvas) const {
  if (canvas.places.sparkline.isNull() || canvas.extras == nullptr) return;
  std::vector<SparkPoint> points;
  points.reserve(canvas.extras->line.size());
  const bool isRank = canvas.extras->isRank;
  for (const SparkStep& step : canvas.extras->line)
    points.push_back({step.moment, isRank ? -step.price : step.price});
  const QColor& line = canvas[canvas.isSelected ? Token::secondary : Token::spark];
  Token dot = Token::spark;
  if (!isRank && canvas.row.price.move == PriceMove::down) dot = Token::down;
  if (!isRank && canvas.row.price.move == PriceMove::up) dot = Token::up;
  // Time goes from left to right in every language.
  paintSparkline(canvas.painter, canvas.at(canvas.places.sparkline), points,
                 {line, dot == Token::spark ? line : canvas[dot]});
}

QRect AppRowDelegate::watchMark(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
  const AppRow& row = *index.data(RowRole).value<const AppRow*>();
  const QRectF item = option.rect;
  const QRectF mark = placesOf(row, layout_, headingOf(index), item, lookOf(view_)).watch;
  if (mark.isNull()) return {};
  const bool isMirrored = option.direction == Qt::RightToLeft;
  return (isMirrored ? mirrored(mark, item) : mark)
      .toAlignedRect()
      .marginsAdded({kWatchMargin, kWatchMargin, kWatchMargin, kWatchMargin});
}

bool AppRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid())
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  Look& look = lookOf(view_);
  const AppRow& row = *index.data(RowRole).value<const AppRow*>();
  const RowPlaces places = placesOf(row, layout_, headingOf(index), option.rect, look);
  const QRectF item = option.rect;
  if (const QRect mark = watchMark(option, index); mark.contains(event->pos())) {
    const bool isWatched = row.marks.testFlag(RowMark::watched);
    QToolTip::showText(event->globalPos(), isWatched ? tr("Stop Watching") : tr("Watch"), view,
                       mark);
    return true;
  }
  const auto tells = [&](const QRectF& place, const QString& text, const TypeStyle& style) {
    const QRectF shown = option.direction == Qt::RightToLeft ? mirrored(place, item) : place;
    if (!shown.contains(event->pos()) || look.text.width(text, style) <= place.width())
      return false;
    QToolTip::showText(event->globalPos(), wrappedTip(text), view, shown.toRect());
    return true;
  };
  if (!tells(places.name, firstText(row), kRowType) &&
      !tells(places.detail, secondText(row), kDetailType) &&
      !tells(places.note, row.note, kNoteType))
    QToolTip::hideText();
  return true;
}

}  // namespace quillet
