// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <optional>

namespace quillet {

/// How a picture lies in its view: fitted into it, or at a scale of its own and moved about. All in
/// pixels of the device; a scale of 1 shows each pixel of the picture as one of them.
class PictureZoom {
 public:
  /// Fits another picture; an empty one lies nowhere.
  void setPicture(const QSize& picture);
  void setView(const QSize& view);

  [[nodiscard]] bool isFit() const { return !scale_; }
  [[nodiscard]] double scale() const { return scale_.value_or(fitScale()); }
  [[nodiscard]] double fitScale() const;

  /// Where the whole picture lies; beyond the view where it is larger.
  [[nodiscard]] QRectF place() const;
  [[nodiscard]] bool canBeMoved() const;

  void fit() { scale_.reset(); }
  /// Keeps what is at `anchor` there, as far as it can.
  void zoomTo(double scale, const QPointF& anchor);
  /// Between fitted and a scale of 1, which for a picture that fits so is twice as large.
  void toggle(const QPointF& anchor);
  /// To the next of the usual scales; false where there is none.
  bool stepIn(const QPointF& anchor);
  bool stepOut(const QPointF& anchor);
  void move(const QPointF& by);

 private:
  void setCorner(const QPointF& corner);

  QSizeF picture_;
  QSizeF view_;
  std::optional<double> scale_;
  QPointF corner_;  ///< where it is not fitted
};

}  // namespace quillet
