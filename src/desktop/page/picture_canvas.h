// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include "desktop/page/picture_zoom.h"
#include "net/task.h"

class QLabel;

namespace quillet {

/// Where one picture is looked at: fitted, or larger and moved about with the pointer.
class PictureCanvas : public QWidget {
  Q_OBJECT

 public:
  explicit PictureCanvas(QWidget* parent = nullptr);

  /// While the picture itself is on its way; null for none.
  void showPreview(const QPixmap& preview);
  /// Fitted, unless it is the one that is shown.
  void showPicture(const QImage& picture);
  void showFailure(const QString& text);

  [[nodiscard]] const PictureZoom& zoom() const { return zoom_; }
  void toggleZoom();
  void zoomIn();
  void zoomOut();
  void fit();
  /// By some of what is seen, to each side.
  void move(int right, int down);

 Q_SIGNALS:
  void zoomed();
  void triesAgain();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  static Task<> scale(QPointer<PictureCanvas> canvas, QImage picture, QSize size);

  [[nodiscard]] QRect room() const;
  [[nodiscard]] QPointF inDevice(const QPointF& point) const;
  [[nodiscard]] QPointF middle() const;
  void follow();
  [[nodiscard]] bool isMadeSmaller() const;
  void keepFitted();
  void takeFitted(const QImage& picture, const QImage& fitted);
  void keepTurning();
  [[nodiscard]] QRectF place() const;
  void paintPicture(QPainter& painter) const;
  void paintRing(QPainter& painter) const;
  void paintPreview(QPainter& painter) const;

  QImage picture_;
  QPixmap preview_;
  bool isLoading_ = false;
  PictureZoom zoom_;
  QImage fitted_;  ///< made smaller on a thread, for a painter would do it worse and each time
  bool isScaling_ = false;
  std::optional<QPointF> grabbed_;  ///< where the pointer moves it from
  int wheeled_ = 0;
  QWidget* failure_;
  QLabel* reason_;
  QBasicTimer turn_;
  double turned_ = 0;
};

}  // namespace quillet
