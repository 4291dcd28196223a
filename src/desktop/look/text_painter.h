// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QString>
#include <optional>

#include "desktop/look/type_styles.h"

class QPainter;

namespace quillet {

enum class TextAnchor { left, centre, right };

/// Where a text stands: `line` is its line's rectangle of height and width, in which the baseline
/// falls on a whole pixel.
struct TextPlace {
  QRectF line;
  TextAnchor anchor = TextAnchor::left;
};

/// Draws every text that is painted and not a widget's own: one line, in Inter where it is
/// installed and in the system's font elsewhere, in sizes of any fraction of a pixel (a QFont has
/// whole ones), and with digits of equal width where they stand in columns. Shaped texts are kept.
/// Texts are plain: nothing in them is markup, and what would break a line is a blank.
///
/// An object of the event-loop thread.
class TextPainter {
 public:
  /// `scale`: 1 for a text size of 100 %.
  explicit TextPainter(double scale = 1);

  void setScale(double scale);
  [[nodiscard]] double scale() const { return scale_; }

  /// For widgets, which know whole sizes alone: the next larger one.
  [[nodiscard]] QFont font(const TypeStyle& style) const;

  [[nodiscard]] double width(const QString& text, const TypeStyle& style);

  /// The text, or as much of its beginning as fits into `width` with an ellipsis behind it.
  [[nodiscard]] QString elided(const QString& text, const TypeStyle& style, double width);

  /// Draws the text, whatever its width. Returns how wide it is.
  double draw(QPainter& painter, const TextPlace& place, const QString& text,
              const TypeStyle& style, const QColor& color);

  /// As draw(), shortened to the width of the place.
  double drawElided(QPainter& painter, const TextPlace& place, const QString& text,
                    const TypeStyle& style, const QColor& color);

  /// The baseline of a text in a line that begins at `top` and is `height` high.
  [[nodiscard]] double baseline(double top, double height, const TypeStyle& style) const;

 private:
  struct Key {
    QString text;
    TypeStyle style;
    bool operator==(const Key&) const = default;
    friend size_t qHash(const Key& key, size_t seed) {
      return qHashMulti(seed, key.text, key.style.pixels, key.style.weight, key.style.spacing,
                        static_cast<int>(key.style.digits));
    }
  };
  struct Shaped {
    QList<QGlyphRun> runs;
    double width = 0;
  };

  const Shaped& shaped(const QString& text, const TypeStyle& style);
  [[nodiscard]] std::unique_ptr<Shaped> shape(const QString& text, const TypeStyle& style);
  [[nodiscard]] QRawFont sized(const QRawFont& font, double pixels);
  [[nodiscard]] const QHash<quint32, quint32>& tabularGlyphsOf(const QRawFont& font);
  double makeTabular(QGlyphRun& run, double spacing);

  double scale_;
  QString family_;
  QString displayFamily_;
  QCache<Key, Shaped> cache_;
  QHash<QString, QRawFont> fonts_;  // kept, for each holds a cache of glyphs
  QHash<QString, QHash<quint32, quint32>> tabular_;
};

}  // namespace quillet
