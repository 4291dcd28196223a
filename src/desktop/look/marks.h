// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

#include "desktop/look/look.h"

namespace quillet {

enum class Direction { down, up };

/// What a pill says: the colours follow from it.
enum class PillKind {
  down,
  up,
  low,
  fresh,
  neutral,
  plain,  ///< a price that is what it was
  mine,   ///< what the user decided
};

struct Pill {
  PillKind kind = PillKind::neutral;
  QString text;
  QString icon;  ///< of those without a mark of their own; empty for none
};

/// In rows, and on an app's page.
enum class PillSize { small, large };

/// A filled triangle in a square of `size`, whose upper left corner is given.
void paintTriangle(QPainter& painter, const QPointF& corner, double size, Direction direction,
                   const QColor& color);

/// The mark of a lowest price, a step down: `width` wide, five sixths as high.
void paintLowMark(QPainter& painter, const QPointF& corner, double width, const QColor& color);

[[nodiscard]] double pillHeight(const Look& look, PillSize size);
[[nodiscard]] double pillWidth(Look& look, const Pill& pill, PillSize size);

/// Returns how wide it is. `anchor` is its upper left corner, or the upper right one.
double paintPill(QPainter& painter, Look& look, const QPointF& anchor, const Pill& pill,
                 PillSize size, TextAnchor side = TextAnchor::left);

/// The filled badge of a number of unread things, its right edge at `right`. Returns its width.
double paintBadge(QPainter& painter, Look& look, const QPointF& right, const QString& text);

/// What says that something was not seen yet, eight pixels wide.
void paintUnreadDot(QPainter& painter, Look& look, const QPointF& middle);

/// The ring of what is being done, 16 pixels wide, of which a quarter is drawn strongly. It begins
/// at `angle`, in degrees from the top to the right; twelve steps of a turn look like one movement.
void paintProgressRing(QPainter& painter, Look& look, const QPointF& corner, double angle);
inline constexpr double kProgressRingStep = 30;

/// A row whose app is not known yet. `place` is counted from the first row: texts differ in length.
void paintPlaceholderRow(QPainter& painter, Look& look, const QRectF& row, int place);

struct StarColors {
  QColor full;
  QColor empty;
};

/// Five stars for a rating in half steps, from 0 to 10; each `size` wide, one pixel apart.
void paintStars(QPainter& painter, const QPointF& corner, int halves, double size,
                const StarColors& colors);
[[nodiscard]] double starsWidth(double size);

/// What moved in a chart since the list before.
struct Movement {
  std::optional<int> places;   ///< upwards; absent for an app that is new
  bool isOnSelection = false;  ///< drawn on its colour
};

/// Centred in `line`.
void paintMovement(QPainter& painter, Look& look, const QRectF& line, const Movement& movement);

/// A price over time, newest last: each holds from its moment (0 to 1, left to right) to the next.
struct SparkPoint {
  double moment = 0;
  double value = 0;
};

struct SparkColors {
  QColor line;
  QColor dot;  ///< at now
};

/// Draws steps into `rect`, which shows the whole range of the values. Nothing for fewer than two
/// points or a value that never changed: there is nothing to see.
void paintSparkline(QPainter& painter, const QRectF& rect, const std::vector<SparkPoint>& points,
                    const SparkColors& colors);

/// An app's picture as all of them are shown: corners cut, a thin edge inside. `size` in pixels.
[[nodiscard]] QPixmap framedArtwork(const QImage& picture, double size, double ratio,
                                    const QColor& edge);

/// What stands for a picture that has not come or never will: the first letter of the name, on a
/// colour that the name always gets.
[[nodiscard]] QPixmap letterTile(Look& look, const QString& name, double size, double ratio);

}  // namespace quillet
