// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_headers.h"

#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kArtwork = 44;
constexpr int kGap = 12;
constexpr int kBelow = 13;
constexpr int kCross = 16;
constexpr int kLabels = 152;
constexpr double kName = 20;
constexpr double kSeller = 16;
constexpr double kLabelLine = 36;
constexpr TypeStyle kStrongType{13, 600};

AppRow rowOf(const CompareColumn& column) {
  AppRow row;
  row.key.app = column.app;
  row.name = column.name;
  row.artwork = column.artwork;
  return row;
}

QRectF mirroredIn(const QWidget& widget, const QRectF& within, const QRectF& rect) {
  if (widget.layoutDirection() == Qt::LeftToRight) return rect;
  return {within.left() + within.right() - rect.right(), rect.top(), rect.width(), rect.height()};
}

}  // namespace

bool endsTable(const CompareModel& model, int row) {
  return row + 1 == model.rowOf(CompareAspect::toOwn);
}

CompareApps::CompareApps(const CompareModel& model, ImageStore& images, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model), images_(images), pictures_(images) {
  setSectionsMovable(true);
  setSectionsClickable(true);
  setHighlightSections(false);
  setSectionResizeMode(QHeaderView::Fixed);
  viewport()->setAttribute(Qt::WA_Hover);
  connect(&images, &ImageStore::arrived, this, [this] { viewport()->update(); });
}

QSize CompareApps::sizeHint() const {
  const Look& look = lookOf(*this);
  const double texts = (kName + 2 + kSeller) * look.growth();
  return {0, static_cast<int>(std::ceil(std::max<double>(kArtwork, texts))) + kBelow};
}

void CompareApps::setChosen(int column) {
  if (std::exchange(chosen_, column) != column) viewport()->update();
}

QRect CompareApps::sectionRect(int column) const {
  return {sectionViewportPosition(column), 0, sectionSize(column), height()};
}

QRect CompareApps::crossIn(const QRect& section) const {
  const QRect cross(section.right() - kCompareInset - kCross + 1, (kArtwork - kCross) / 2, kCross,
                    kCross);
  return mirroredIn(*this, section, cross).toRect();
}

void CompareApps::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  Look& look = lookOf(*this);
  painter.fillRect(viewport()->rect(), look[Token::base]);
  std::vector<ImageKey> wanted;
  const double ratio = PixelGrid(painter).ratio();
  for (int column = 0; column < count(); ++column) {
    const QRect rect = sectionRect(column);
    if (!rect.intersects(viewport()->rect())) continue;
    for (ImageKey& key : RowPictures::keysOf(rowOf(model_.column(column)), kArtwork, ratio))
      wanted.push_back(std::move(key));
    paintSection(&painter, rect, column);
  }
  images_.want(this, std::move(wanted));
  const QRectF line(0, height() - 1, length() - offset(), 1);
  const QRectF below = mirroredIn(*this, viewport()->rect(), line);
  PixelGrid(painter).horizontal(below.left(), below.right(), below.top(), look[Token::edge]);
}

void CompareApps::paintSection(QPainter* painter, const QRect& rect, int column) const {
  Look& look = lookOf(*this);
  painter->fillRect(rect.adjusted(0, 0, 0, -1), look[Token::base]);
  const CompareColumn& app = model_.column(column);
  const double ratio = PixelGrid(*painter).ratio();
  const QRectF picture(rect.left() + kCompareInset, rect.top(), kArtwork, kArtwork);
  painter->drawPixmap(mirroredIn(*this, rect, picture).topLeft(),
                      pictures_.pictureOf(rowOf(app), kArtwork, ratio, look, Token::neutralTint));
  const bool hasCross = column == hovered_ || column == chosen_;
  const double left = picture.right() + kGap;
  const double right = rect.right() - kCompareInset - (hasCross ? kCross + 8 : 0);
  const TextAnchor anchor =
      layoutDirection() == Qt::LeftToRight ? TextAnchor::left : TextAnchor::right;
  const auto text = [&](double top, double height, const QString& line, const TypeStyle& style,
                        Token ink) {
    const QRectF place(left, rect.top() + top, std::max(0.0, right - left), height);
    look.text.drawElided(*painter, {mirroredIn(*this, rect, place), anchor}, line, style,
                         look[ink]);
  };
  const double growth = look.growth();
  const double top = std::max(0.0, (kArtwork - (kName + 2 + kSeller) * growth) / 2);
  text(top, kName * growth, app.name, kRowType, Token::text);
  text(top + (kName + 2) * growth, kSeller * growth, app.seller, kFactType, Token::secondary);
  if (hasCross)
    look.icons.draw(*painter, crossIn(rect).topLeft(), QStringLiteral("x"), kCross,
                    look[Token::tertiary]);
}

void CompareApps::mousePressEvent(QMouseEvent* event) {
  const int column = logicalIndexAt(event->position().toPoint());
  const bool isCross =
      column >= 0 && crossIn(sectionRect(column)).contains(event->position().toPoint());
  if (event->button() == Qt::LeftButton && isCross) {
    Q_EMIT removeAsked(column);
    return;
  }
  QHeaderView::mousePressEvent(event);
}

bool CompareApps::viewportEvent(QEvent* event) {
  int hovered = hovered_;
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
    hovered = logicalIndexAt(static_cast<QHoverEvent*>(event)->position().toPoint());
  if (event->type() == QEvent::HoverLeave) hovered = -1;
  if (std::exchange(hovered_, hovered) != hovered) viewport()->update();
  return QHeaderView::viewportEvent(event);
}

CompareLabels::CompareLabels(const CompareModel& model, QWidget* parent)
    : QHeaderView(Qt::Vertical, parent), model_(model) {
  setSectionResizeMode(QHeaderView::Fixed);
  setHighlightSections(false);
}

QSize CompareLabels::sizeHint() const {
  return {static_cast<int>(kLabels * lookOf(*this).growth()), 0};
}

void CompareLabels::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), lookOf(*this)[Token::base]);
  for (int row = 0; row < count(); ++row) {
    const QRect rect(0, sectionViewportPosition(row), width(), sectionSize(row));
    if (rect.intersects(viewport()->rect())) paintSection(&painter, rect, row);
  }
}

void CompareLabels::paintSection(QPainter* painter, const QRect& rect, int row) const {
  Look& look = lookOf(*this);
  const CompareAspect aspect = model_.aspect(row);
  const bool isStrong = aspect == CompareAspect::years || aspect == CompareAspect::toOwn;
  const TextAnchor anchor =
      layoutDirection() == Qt::LeftToRight ? TextAnchor::left : TextAnchor::right;
  const double line = kLabelLine * look.growth();
  // The sum stands in the upper part of its row, where the bars are.
  const double top = rect.top() + (aspect == CompareAspect::years ? 8 * look.growth() : 0);
  const double height = aspect == CompareAspect::sells ? rect.height() : line;
  const auto place = [&](double y, double right, double tall) {
    return mirroredIn(*this, rect, QRectF(rect.left(), y, rect.width() - right, tall));
  };
  look.text.drawElided(*painter, {place(top, 8, height), anchor}, model_.sheet().labels[row],
                       isStrong ? kStrongType : kFactType,
                       look[isStrong ? Token::text : Token::secondary]);
  if (aspect != CompareAspect::toOwn) {
    PixelGrid(*painter).horizontal(rect.left(), rect.right() + 1, rect.bottom(),
                                   look[endsTable(model_, row) ? Token::edge : Token::line]);
    return;
  }
  painter->setPen(look[Token::tertiary]);
  painter->setFont(look.text.font(kFactType));
  painter->drawText(place(top + line - 4, 24, 100),
                    Qt::AlignLeading | Qt::AlignTop | Qt::TextWordWrap,
                    tr("What each has cost after so many years"));
}

}  // namespace quillet
