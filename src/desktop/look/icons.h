// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QString>

class QPainter;

namespace quillet {

/// The drawings that the build picked for the application, by the names of icon_list.txt, in any
/// colour and sharp at any ratio. Drawn ones are kept.
///
/// An object of the event-loop thread.
class Icons {
 public:
  Icons();

  /// `size` in pixels, `ratio` device pixels each. Empty for a name that is not in the list.
  [[nodiscard]] QPixmap pixmap(const QString& name, double size, const QColor& color, double ratio);

  /// Its upper left corner on whole device pixels.
  void draw(QPainter& painter, const QPointF& corner, const QString& name, double size,
            const QColor& color);

 private:
  QCache<QString, QPixmap> cache_;
};

}  // namespace quillet
