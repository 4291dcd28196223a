// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_cells.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/sections/compare/compare_headers.h"

namespace quillet {

namespace {

constexpr double kRow = 36;
constexpr double kTotalRow = 66;
constexpr double kTotalLine = 18;
constexpr double kNoteLine = 16;
constexpr double kTwoLines = 54;
constexpr double kBar = 8;
constexpr double kWidestBar = 0.44;  // of a column
constexpr double kStar = 11;
constexpr double kGap = 6;
constexpr TypeStyle kText = kBodyType.tabular();
constexpr TypeStyle kStrong = kControlType.tabular();
constexpr TypeStyle kTotal{13, 600, 0, Digits::tabular};
constexpr TypeStyle kNote = kFactType.tabular();

/// Notes that stand below their text, and not behind it.
bool hasNoteBelow(CompareAspect aspect) { return aspect == CompareAspect::sells; }

Token inkOf(CellLook look, bool isSelected) {
  switch (look) {
    case CellLook::quiet: return isSelected ? Token::secondary : Token::tertiary;
    case CellLook::low: return Token::low;
    case CellLook::plain:
    case CellLook::strong: break;
  }
  return Token::text;
}

}  // namespace

struct CompareCells::Canvas {
  QPainter& painter;
  Look& look;
  const CompareCell& cell;
  QRectF rect;  ///< of the whole cell
  bool isSelected = false;
  bool showsRing = false;
  bool isMirrored = false;

  [[nodiscard]] double left() const { return rect.left() + kCompareInset; }
  [[nodiscard]] double right() const { return rect.right() - kCompareInset; }
  [[nodiscard]] const QColor& quiet() const {
    return look[isSelected ? Token::secondary : Token::tertiary];
  }
  [[nodiscard]] QRectF at(const QRectF& place) const {
    if (!isMirrored) return place;
    return {rect.left() + rect.right() - place.right(), place.top(), place.width(), place.height()};
  }
  /// From `x` on, as far as the cell goes; returns where it ends.
  double text(double x, double top, double height, const QString& line, const TypeStyle& style,
              const QColor& color) {
    const QRectF place(x, top, std::max(0.0, right() - x), height);
    const TextAnchor anchor = isMirrored ? TextAnchor::right : TextAnchor::left;
    return x + look.text.drawElided(painter, {at(place), anchor}, line, style, color);
  }
};

CompareCells::CompareCells(const CompareModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

int CompareCells::rowHeight(int row, const QWidget& view) const {
  const double growth = lookOf(view).growth();
  const CompareAspect aspect = model_.aspect(row);
  double height = kRow;
  if (aspect == CompareAspect::years) height = kTotalRow;
  const auto& columns = model_.sheet().columns;
  const bool hasNotes = std::ranges::any_of(columns, [row](const CompareColumn& column) {
    return !column.cells[static_cast<std::size_t>(row)].note.isEmpty();
  });
  if (hasNoteBelow(aspect) && hasNotes) height = kTwoLines;
  return static_cast<int>(std::ceil(height * growth));
}

void CompareCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const CompareAspect aspect = model_.aspect(index.row());
  Canvas canvas{*painter, lookOf(*option.widget), model_.cell(index), option.rect};
  const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
  canvas.isSelected = option.state.testFlag(QStyle::State_Selected);
  canvas.showsRing = hasFocus && option.state.testFlag(QStyle::State_KeyboardFocusChange);
  canvas.isMirrored = option.direction == Qt::RightToLeft;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  paintGround(canvas, index);
  // A chart stands there.
  if (aspect == CompareAspect::years) {
    paintTotal(canvas);
  } else if (hasNoteBelow(aspect) && !canvas.cell.note.isEmpty()) {
    paintLines(canvas);
  } else if (aspect != CompareAspect::toOwn) {
    paintLine(canvas, canvas.left());
  }
  painter->restore();
}

void CompareCells::paintGround(const Canvas& canvas, const QModelIndex& index) const {
  const CompareAspect aspect = model_.aspect(index.row());
  if (aspect == CompareAspect::toOwn) return;
  const QRectF box = canvas.rect.adjusted(4, 3, -4, -4);
  if (canvas.isSelected) paintBox(canvas.painter, box, 7, canvas.look[Token::selection]);
  if (canvas.showsRing)
    paintBox(canvas.painter, box, 7, Qt::transparent, {canvas.look[Token::accentText], 2});
  PixelGrid(canvas.painter)
      .horizontal(canvas.rect.left(), canvas.rect.right(), canvas.rect.bottom() - 1,
                  canvas.look[endsTable(model_, index.row()) ? Token::edge : Token::line]);
}

void CompareCells::paintLines(Canvas& canvas) {
  const double growth = canvas.look.growth();
  const double top = canvas.rect.top() + (canvas.rect.height() - 34 * growth) / 2;
  canvas.text(canvas.left(), top, kTotalLine * growth, canvas.cell.text, kText, canvas.quiet());
  canvas.text(canvas.left(), top + kTotalLine * growth, kNoteLine * growth, canvas.cell.note, kNote,
              canvas.quiet());
}

/// A bar, the sum, whether it is the least, and below it how it comes about.
void CompareCells::paintTotal(Canvas& canvas) {
  const CompareCell& cell = canvas.cell;
  const double growth = canvas.look.growth();
  const double top = canvas.rect.top() + 17 * growth;
  double x = canvas.left();
  if (cell.share) {
    const double width = std::max(2.0, *cell.share * kWidestBar * canvas.rect.width());
    const QRectF bar(x, top + (kTotalLine * growth - kBar) / 2, width, kBar);
    paintBox(canvas.painter, canvas.at(bar), 2,
             canvas.look[cell.isLeast ? Token::accent : Token::edge]);
    x += width + 8;
  }
  x = canvas.text(x, top, kTotalLine * growth, cell.text, kTotal,
                  canvas.look[inkOf(cell.look, canvas.isSelected)]);
  if (cell.isLeast) {
    constexpr double kCheck = 12;
    const QRectF mark(x + 10, top + (kTotalLine * growth - kCheck) / 2, kCheck, kCheck);
    canvas.look.icons.draw(canvas.painter, canvas.at(mark).topLeft(), QStringLiteral("check2"),
                           kCheck, canvas.look[Token::down]);
    canvas.text(mark.right() + 4, top, kTotalLine * growth, CompareModel::tr("least"),
                kSmallControlType, canvas.look[Token::down]);
  }
  canvas.text(canvas.left(), canvas.rect.top() + 39 * growth, kNoteLine * growth, cell.note, kNote,
              canvas.quiet());
}

void CompareCells::paintLine(Canvas& canvas, double left) {
  const CompareCell& cell = canvas.cell;
  Look& look = canvas.look;
  const QRectF& rect = canvas.rect;
  const double middle = rect.center().y();
  double x = left;
  if (cell.move != PriceMove::none) {
    const PillKind kind = cell.move == PriceMove::down ? PillKind::down : PillKind::up;
    const Pill pill{kind, cell.text, {}};
    const double height = pillHeight(look, PillSize::small);
    const double width = pillWidth(look, pill, PillSize::small);
    const QRectF place(x - 8, middle - height / 2, width, height);
    paintPill(canvas.painter, look, canvas.at(place).topLeft(), pill, PillSize::small);
    return;
  }
  if (cell.ratingHalves >= 0) {
    const QRectF stars(x, middle - kStar / 2, starsWidth(kStar), kStar);
    const StarColors colors{look[Token::rowStar],
                            look[canvas.isSelected ? Token::selectedEmptyStar : Token::emptyStar]};
    paintStars(canvas.painter, canvas.at(stars).topLeft(), cell.ratingHalves, kStar, colors);
    x = stars.right() + kGap;
  }
  if (cell.hasWrench) {
    constexpr double kIcon = 12;
    const QRectF icon(x, middle - kIcon / 2, kIcon, kIcon);
    look.icons.draw(canvas.painter, canvas.at(icon).topLeft(), QStringLiteral("wrench-adjustable"),
                    kIcon, look[Token::secondary]);
    x = icon.right() + kGap;
  }
  if (cell.look == CellLook::low) {
    const QRectF mark(x, middle - 5, 12, 10);
    paintLowMark(canvas.painter, canvas.at(mark).topLeft(), mark.width(), look[Token::low]);
    x = mark.right() + kGap;
  }
  const bool isHeavy = cell.look == CellLook::strong || cell.look == CellLook::low;
  const QColor& ink = look[inkOf(cell.look, canvas.isSelected)];
  const bool isOneText = cell.look == CellLook::low && !cell.note.isEmpty();
  const QString text = isOneText ? QStringLiteral("%1, %2").arg(cell.text, cell.note) : cell.text;
  x = canvas.text(x, rect.top(), rect.height() - 1, text, isHeavy ? kStrong : kText, ink);
  // A part of an aside says little; the tooltip has all of it.
  const bool hasRoom = x + kGap + look.text.width(cell.note, kText) <= canvas.right();
  if (cell.note.isEmpty() || isOneText || !hasRoom) return;
  canvas.text(x + kGap, rect.top(), rect.height() - 1, cell.note, kText, canvas.quiet());
}

}  // namespace quillet
