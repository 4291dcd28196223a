// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/marks.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

// Drawn in a square of 10.
constexpr std::array<std::array<double, 2>, 10> kStarPoints{{
    {5, .6},
    {6.36, 3.52},
    {9.55, 3.9},
    {7.2, 6.1},
    {7.82, 9.26},
    {5, 7.7},
    {2.18, 9.26},
    {2.8, 6.1},
    {.45, 3.9},
    {3.64, 3.52},
}};
constexpr double kStarGap = 1;
constexpr double kArtworkCorner = 0.225;  // of the side

QPainterPath polygon(const auto& points, double scale, const QPointF& corner) {
  QPolygonF polygon;
  for (const auto& [x, y] : points) polygon << corner + QPointF(x, y) * scale;
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

struct PillTokens {
  Token tint;
  Token ink;
};

PillTokens tokensOf(PillKind kind) {
  switch (kind) {
    case PillKind::down: return {Token::downTint, Token::down};
    case PillKind::up: return {Token::upTint, Token::up};
    case PillKind::low: return {Token::lowTint, Token::low};
    case PillKind::fresh: return {Token::freshTint, Token::fresh};
    case PillKind::plain: return {Token::neutralTint, Token::text};
    case PillKind::mine: return {Token::selection, Token::tintedText};
    case PillKind::neutral: break;
  }
  return {Token::neutralTint, Token::neutral};
}

struct PillMetrics {
  double height;
  double padding;
  double gap;
};

PillMetrics metricsOf(const Look& look, PillSize size) {
  const double grown = look.growth();
  if (size == PillSize::large) return {24 * grown, 10 * grown, 6 * grown};
  return {20 * grown, 8 * grown, 5 * grown};
}

constexpr double kTriangle = 8;
constexpr double kLowMarkWidth = 12;
constexpr double kPillIcon = 12;

double markWidth(const Pill& pill) {
  switch (pill.kind) {
    case PillKind::down:
    case PillKind::up: return kTriangle;
    case PillKind::low: return kLowMarkWidth;
    default: return pill.icon.isEmpty() ? 0 : kPillIcon;
  }
}

void paintPillMark(QPainter& painter, Look& look, const QRectF& rect, const Pill& pill) {
  const double grown = look.growth();
  const QColor& ink = look[tokensOf(pill.kind).ink];
  const auto corner = [&](double height) {
    return QPointF(rect.left(), rect.center().y() - height * grown / 2);
  };
  switch (pill.kind) {
    case PillKind::down:
      paintTriangle(painter, corner(kTriangle), kTriangle * grown, Direction::down, ink);
      break;
    case PillKind::up:
      paintTriangle(painter, corner(kTriangle), kTriangle * grown, Direction::up, ink);
      break;
    case PillKind::low: paintLowMark(painter, corner(10), kLowMarkWidth * grown, ink); break;
    default:
      if (!pill.icon.isEmpty())
        look.icons.draw(painter, corner(kPillIcon), pill.icon, kPillIcon * grown, ink);
  }
}

/// Where a sparkline's steps go, from its points.
QPainterPath steps(const QRectF& rect, const std::vector<SparkPoint>& points) {
  const auto [lowest, highest] = std::ranges::minmax_element(points, {}, &SparkPoint::value);
  const double range = highest->value - lowest->value;
  const auto place = [&](const SparkPoint& point) {
    return QPointF(rect.left() + point.moment * rect.width(),
                   rect.bottom() - (point.value - lowest->value) / range * rect.height());
  };
  QPainterPath path(place(points.front()));
  for (const SparkPoint& point : points) {
    const QPointF next = place(point);
    path.lineTo(next.x(), path.currentPosition().y());
    path.lineTo(next);
  }
  path.lineTo(rect.right(), path.currentPosition().y());
  return path;
}

/// The same for a name in every run, from 0 to 359.
int hueOf(const QString& name) {
  unsigned hash = 2166136261U;  // FNV-1a
  for (const QChar c : name) hash = (hash ^ c.unicode()) * 16777619U;
  return static_cast<int>(hash % 360);
}

}  // namespace

void paintTriangle(QPainter& painter, const QPointF& corner, double size, Direction direction,
                   const QColor& color) {
  constexpr std::array<std::array<double, 2>, 3> kDown{{{4, 6.5}, {.6, 1.2}, {7.4, 1.2}}};
  constexpr std::array<std::array<double, 2>, 3> kUp{{{4, 1.5}, {7.4, 6.8}, {.6, 6.8}}};
  const PixelGrid grid(painter);
  const QPointF snapped(grid.x(corner.x()), grid.y(corner.y()));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(polygon(direction == Direction::down ? kDown : kUp, size / 8, snapped), color);
}

void paintLowMark(QPainter& painter, const QPointF& corner, double width, const QColor& color) {
  const PixelGrid grid(painter);
  const double scale = width / kLowMarkWidth;
  const QPointF snapped(grid.x(corner.x()), grid.y(corner.y()));
  QPainterPath path(snapped + QPointF(.8, 1.8) * scale);
  path.lineTo(snapped + QPointF(4.4, 1.8) * scale);
  path.lineTo(snapped + QPointF(4.4, 8.2) * scale);
  path.lineTo(snapped + QPointF(11.2, 8.2) * scale);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1.6 * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

double pillHeight(const Look& look, PillSize size) { return metricsOf(look, size).height; }

double pillWidth(Look& look, const Pill& pill, PillSize size) {
  const PillMetrics metrics = metricsOf(look, size);
  const double mark = markWidth(pill) * look.growth();
  return 2 * metrics.padding + (mark == 0 ? 0 : mark + metrics.gap) +
         look.text.width(pill.text, kPillType);
}

double paintPill(QPainter& painter, Look& look, const QPointF& anchor, const Pill& pill,
                 PillSize size, TextAnchor side) {
  const PillMetrics metrics = metricsOf(look, size);
  const double width = pillWidth(look, pill, size);
  const double left = side == TextAnchor::right ? anchor.x() - width : anchor.x();
  const QRectF rect(left, anchor.y(), width, metrics.height);
  const PillTokens tokens = tokensOf(pill.kind);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look[tokens.tint]);
  painter.drawRoundedRect(rect, metrics.height / 2, metrics.height / 2);
  const QRectF content = rect.adjusted(metrics.padding, 0, -metrics.padding, 0);
  paintPillMark(painter, look, content, pill);
  look.text.draw(painter, {content, TextAnchor::right}, pill.text, kPillType, look[tokens.ink]);
  return width;
}

double paintBadge(QPainter& painter, Look& look, const QPointF& right, const QString& text) {
  const double height = 16 * look.growth();
  const double width = std::max(height + 2, std::ceil(look.text.width(text, kBadgeType)) + 10);
  const QRectF rect(right.x() - width, right.y() - height / 2, width, height);
  paintBox(painter, rect, height / 2, look[Token::accent]);
  look.text.draw(painter, {rect, TextAnchor::centre}, text, kBadgeType, look[Token::onAccent]);
  return width;
}

void paintUnreadDot(QPainter& painter, Look& look, const QPointF& middle) {
  constexpr double kSize = 8;
  const QRectF rect =
      PixelGrid(painter).rect({middle.x() - kSize / 2, middle.y() - kSize / 2, kSize, kSize});
  paintBox(painter, rect, rect.height() / 2, look[Token::accent]);
}

void paintProgressRing(QPainter& painter, Look& look, const QPointF& corner, double angle) {
  constexpr double kPen = 2;
  constexpr int kDegree = 16;  // as arcs are counted, from the right to the top
  const QRectF rect(corner + QPointF(2, 2), QSizeF(12, 12));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(look[Token::line], kPen));
  painter.drawEllipse(rect);
  painter.setPen(QPen(look[Token::accentText], kPen, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(rect, static_cast<int>(std::lround((90 - angle) * kDegree)), -90 * kDegree);
}

void paintPlaceholderRow(QPainter& painter, Look& look, const QRectF& row, int place) {
  constexpr std::array<std::array<double, 2>, 4> kTexts{
      {{150, 96}, {120, 130}, {176, 80}, {108, 112}}};
  constexpr double kText = 68;
  constexpr double kArtwork = 44;
  constexpr QSizeF kPill(56, 16);
  // Tints are gone where more contrast is asked for.
  const bool isPlain = look.palette.contrast() == Contrast::more;
  const QColor& grey = look[isPlain ? Token::emptyStar : Token::neutralTint];
  const double middle = row.center().y();
  const auto& [name, below] = kTexts[static_cast<std::size_t>(place) % kTexts.size()];
  paintBox(painter, {row.left() + 12, middle - kArtwork / 2, kArtwork, kArtwork}, 10, grey);
  paintBox(painter, {row.left() + kText, middle - 14, name, 12}, 4, grey);
  paintBox(painter, {row.left() + kText, middle + 6, below, 8}, 4, grey);
  const double right = row.right() - 8 - kPill.width();
  paintBox(painter, {QPointF(right, middle - kPill.height() / 2), kPill}, 8, grey);
}

double starsWidth(double size) { return 5 * size + 4 * kStarGap; }

void paintStars(QPainter& painter, const QPointF& corner, int halves, double size,
                const StarColors& colors) {
  const PixelGrid grid(painter);
  const QPointF start(grid.x(corner.x()), grid.y(corner.y()));
  painter.setRenderHint(QPainter::Antialiasing);
  for (int i = 0; i < 5; ++i) {
    const QPointF place = start + QPointF(i * (size + kStarGap), 0);
    const QPainterPath star = polygon(kStarPoints, size / 10, place);
    const int filled = std::clamp(halves - 2 * i, 0, 2);
    painter.fillPath(star, filled == 2 ? colors.full : colors.empty);
    if (filled != 1) continue;
    painter.save();
    // By a rectangle: cut by a path, the two halves would leave a seam.
    painter.setClipRect(QRectF(place, QSizeF(size / 2, size)), Qt::IntersectClip);
    painter.fillPath(star, colors.full);
    painter.restore();
  }
}

void paintMovement(QPainter& painter, Look& look, const QRectF& line, const Movement& movement) {
  constexpr TypeStyle kNew{10.5, 600, 0.42};
  constexpr TypeStyle kPlaces{11.5, 600, 0, Digits::tabular};
  const double mark = 7 * look.growth();
  const double gap = 3 * look.growth();
  if (!movement.places) {
    look.text.draw(painter, {line, TextAnchor::centre}, QStringLiteral("NEW"), kNew,
                   look[Token::fresh]);
    return;
  }
  if (*movement.places == 0) {
    look.text.draw(painter, {line, TextAnchor::centre}, QStringLiteral("="), kPlaces,
                   look[movement.isOnSelection ? Token::secondary : Token::tertiary]);
    return;
  }
  const bool isUp = *movement.places > 0;
  const QColor& ink = look[isUp ? Token::down : Token::up];
  const QString text = QString::number(std::abs(*movement.places));
  const double width = mark + gap + look.text.width(text, kPlaces);
  const double left = line.center().x() - width / 2;
  paintTriangle(painter, {left, line.center().y() - mark / 2}, mark,
                isUp ? Direction::up : Direction::down, ink);
  look.text.draw(painter, {line.adjusted(left + mark + gap - line.left(), 0, 0, 0)}, text, kPlaces,
                 ink);
}

void paintSparkline(QPainter& painter, const QRectF& rect, const std::vector<SparkPoint>& points,
                    const SparkColors& colors) {
  constexpr double kPen = 1.25;
  constexpr double kDot = 2.5;
  if (points.size() < 2) return;
  const auto [lowest, highest] = std::ranges::minmax_element(points, {}, &SparkPoint::value);
  if (lowest->value == highest->value) return;
  const PixelGrid grid(painter);
  const QRectF inside = rect.adjusted(1, 3.5, -5, -3.5);
  const double whole = std::max(1.0, std::round(kPen * grid.ratio() - 0.3)) / grid.ratio();
  const QPainterPath path = steps(inside, points);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colors.line, kPen, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.drawPath(grid.stroked(path, whole));
  painter.setPen(Qt::NoPen);
  painter.setBrush(colors.dot);
  painter.drawEllipse(path.currentPosition(), kDot, kDot);
}

QPixmap framedArtwork(const QImage& picture, double size, double ratio, const QColor& edge) {
  const int side = static_cast<int>(std::lround(size * ratio));
  QImage framed(side, side, QImage::Format_ARGB32_Premultiplied);
  framed.fill(Qt::transparent);
  QPainter painter(&framed);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  // As a brush: a clip path would leave a seam under the edge.
  painter.setBrush(
      QBrush(picture.scaled(side, side, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)));
  const double radius = side * kArtworkCorner;
  painter.drawRoundedRect(QRectF(0, 0, side, side), radius, radius);
  const double width = std::max(1.0, std::floor(ratio + 0.25));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(edge, width));
  painter.drawRoundedRect(QRectF(width / 2, width / 2, side - width, side - width),
                          radius - width / 2, radius - width / 2);
  painter.end();
  QPixmap pixmap = QPixmap::fromImage(framed);
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

QPixmap letterTile(Look& look, const QString& name, double size, double ratio) {
  const int side = static_cast<int>(std::lround(size * ratio));
  const bool isDark = look.palette.scheme() == Scheme::dark;
  const int hue = hueOf(name);
  QImage tile(side, side, QImage::Format_RGB32);
  tile.setDevicePixelRatio(ratio);
  tile.fill(QColor::fromHsl(hue, 70, isDark ? 66 : 222));
  QPainter painter(&tile);
  const QString letter = name.trimmed().left(1).toUpper();
  constexpr double kLetter = 0.42;  // of the tile, whatever the size of texts
  QFont font = look.text.font({size * kLetter, 600});
  font.setPixelSize(static_cast<int>(std::lround(size * kLetter)));
  painter.setFont(font);
  painter.setPen(QColor::fromHsl(hue, 80, isDark ? 200 : 82));
  painter.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, letter);
  painter.end();
  tile.setDevicePixelRatio(1);
  return framedArtwork(tile, size, ratio, look[Token::artworkEdge]);
}

}  // namespace quillet
