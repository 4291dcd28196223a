// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

#include "desktop/look/look.h"

namespace quillet {

/// The one style of the application: Qt's Fusion for where things go, our own drawing for all that
/// is seen. It owns the look, which widgets that paint themselves find by lookOf().
class QuilletStyle : public QProxyStyle {
  Q_OBJECT

 public:
  QuilletStyle();

  /// Shows all of the application's widgets in other colours; nothing else changes.
  void setPalette(const Palette& palette);

  /// Shows all of its texts in another size, 1 for 100 %.
  void setTextScale(double scale);

  [[nodiscard]] Look& look() const { return look_; }

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override;
  using QProxyStyle::polish;
  void polish(QWidget* widget) override;

 private:
  // Painting fills its caches, though for whoever asks nothing changes.
  mutable Look look_;
};

}  // namespace quillet
