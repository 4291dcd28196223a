// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/picture_canvas.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <cmath>

#include "desktop/look/focus_ring.h"
#include "desktop/look/look.h"
#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/picture_paint.h"
#include "net/worker.h"

namespace quillet {

namespace {

constexpr int kAround = 24;  // of a fitted picture
constexpr double kCorner = 8;
constexpr int kTurn = 60;  // ms
constexpr double kRing = 16;
constexpr double kCrispFrom = 2;  // pixels are seen as what they are
constexpr int kWheelStep = 120;
constexpr int kKeyMove = 80;

}  // namespace

PictureCanvas::PictureCanvas(QWidget* parent)
    : QWidget(parent), failure_(new QWidget(this)), reason_(new QLabel(failure_)) {
  setFocusPolicy(Qt::StrongFocus);
  keepRingInside(*this);
  reason_->setTextFormat(Qt::PlainText);
  reason_->setWordWrap(true);
  reason_->setAlignment(Qt::AlignHCenter);
  auto* button = new QPushButton(tr("Try Again"), failure_);
  connect(button, &QPushButton::clicked, this, &PictureCanvas::triesAgain);
  auto* said = new QVBoxLayout(failure_);
  said->setSpacing(16);
  said->addStretch();
  said->addWidget(reason_);
  said->addWidget(button, 0, Qt::AlignHCenter);
  said->addStretch();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kAround, kAround, kAround, kAround);
  layout->addWidget(failure_);
  failure_->hide();
}

void PictureCanvas::showPreview(const QPixmap& preview) {
  preview_ = preview;
  picture_ = {};
  fitted_ = {};
  isLoading_ = true;
  zoom_.setPicture({});
  failure_->hide();
  keepTurning();
  follow();
}

void PictureCanvas::showPicture(const QImage& picture) {
  if (!picture_.isNull() && picture.cacheKey() == picture_.cacheKey()) return;
  picture_ = picture;
  fitted_ = {};
  isLoading_ = false;
  zoom_.setPicture(picture.size());
  failure_->hide();
  keepTurning();
  follow();
}

void PictureCanvas::showFailure(const QString& text) {
  showPicture({});
  reason_->setText(text);
  failure_->show();
}

QPointF PictureCanvas::inDevice(const QPointF& point) const {
  return (point - room().topLeft()) * devicePixelRatioF();
}

QPointF PictureCanvas::middle() const { return inDevice(QRectF(rect()).center()); }

/// What a fitted picture may have; one that is larger goes to the edges.
QRect PictureCanvas::room() const {
  const int around = zoom_.isFit() ? kAround : 0;
  return rect().adjusted(around, around, -around, -around);
}

void PictureCanvas::follow() {
  zoom_.setView((QSizeF(room().size()) * devicePixelRatioF()).toSize());
  setCursor(zoom_.canBeMoved() ? (grabbed_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor)
                               : Qt::ArrowCursor);
  keepFitted();
  update();
  Q_EMIT zoomed();
}

void PictureCanvas::toggleZoom() {
  zoom_.toggle(middle());
  follow();
}

void PictureCanvas::zoomIn() {
  zoom_.stepIn(middle());
  follow();
}

void PictureCanvas::zoomOut() {
  zoom_.stepOut(middle());
  follow();
}

void PictureCanvas::fit() {
  zoom_.fit();
  follow();
}

void PictureCanvas::move(int right, int down) {
  zoom_.move(QPointF(-right, -down) * kKeyMove * devicePixelRatioF());
  follow();
}

bool PictureCanvas::isMadeSmaller() const {
  return zoom_.isFit() && zoom_.place().width() < picture_.width();
}

void PictureCanvas::keepFitted() {
  const QSize size = zoom_.place().size().toSize();
  if (!isMadeSmaller() || isScaling_ || fitted_.size() == size) return;
  isScaling_ = true;
  detach(scale(this, picture_, size), "a screenshot");
}

Task<> PictureCanvas::scale(QPointer<PictureCanvas> canvas, QImage picture, QSize size) {
  auto job = [picture, size] {
    return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  };
  const QImage fitted = co_await onWorker(std::move(job));
  if (canvas) canvas->takeFitted(picture, fitted);
}

void PictureCanvas::takeFitted(const QImage& picture, const QImage& fitted) {
  isScaling_ = false;
  if (picture.cacheKey() == picture_.cacheKey()) {
    fitted_ = fitted;
    preview_ = {};
  }
  keepFitted();
  update();
}

void PictureCanvas::keepTurning() {
  turned_ = 0;
  isLoading_&& isVisible() ? turn_.start(kTurn, this) : turn_.stop();
}

void PictureCanvas::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::side]);
  if (!picture_.isNull()) {
    paintPicture(painter);
    return paintRing(painter);
  }
  if (!isLoading_) return;
  paintPreview(painter);
  const QPointF corner = preview_.isNull() ? QRectF(rect()).center() - QPointF(kRing / 2, kRing / 2)
                                           : QPointF(width() - kRing - 12, 12);
  paintProgressRing(painter, look, corner, turned_);
}

void PictureCanvas::paintPreview(QPainter& painter) const {
  if (preview_.isNull()) return;
  const QSizeF size = QSizeF(preview_.size()).scaled(room().size(), Qt::KeepAspectRatio);
  QRectF place(QPointF(0, 0), size);
  place.moveCenter(QRectF(rect()).center());
  drawPicture(painter, PixelGrid(painter).rect(place), preview_,
              {kCorner, lookOf(*this)[Token::line]});
}

QRectF PictureCanvas::place() const {
  const QRectF device = zoom_.place();
  const double ratio = devicePixelRatioF();
  return {device.topLeft() / ratio + room().topLeft(), device.size() / ratio};
}

/// Around the picture where all of it is seen.
void PictureCanvas::paintRing(QPainter& painter) const {
  if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange)) return;
  constexpr double kGap = 3;
  const QRectF around = place().adjusted(-kGap, -kGap, kGap, kGap);
  const bool isInside = zoom_.isFit();
  paintBox(painter, isInside ? around : QRectF(rect()), isInside ? kCorner + kGap : 0,
           Qt::transparent, {lookOf(*this)[Token::accentText], 2});
}

void PictureCanvas::paintPicture(QPainter& painter) const {
  const QRectF place = this->place();
  const PictureFrame frame{kCorner, lookOf(*this)[Token::line]};
  if (zoom_.isFit()) {
    // To make it smaller here would hold up all windows; what is at hand fills the time.
    if (!isMadeSmaller()) return drawPicture(painter, place, picture_, frame);
    if (!fitted_.isNull()) return drawPicture(painter, place, fitted_, frame);
    if (!preview_.isNull()) drawPicture(painter, place, preview_, frame);
    return;
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform, zoom_.scale() < kCrispFrom);
  painter.drawImage(place, picture_);
}

void PictureCanvas::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  follow();
}

void PictureCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && zoom_.canBeMoved()) grabbed_ = event->position();
  follow();
}

void PictureCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (!grabbed_) return;
  zoom_.move((event->position() - *grabbed_) * devicePixelRatioF());
  grabbed_ = event->position();
  follow();
}

void PictureCanvas::mouseReleaseEvent(QMouseEvent* /*event*/) {
  grabbed_.reset();
  follow();
}

void PictureCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  zoom_.toggle(inDevice(event->position()));
  follow();
}

/// With Ctrl it zooms at the pointer, else it moves what is larger than the view.
void PictureCanvas::wheelEvent(QWheelEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    const QPointF anchor = inDevice(event->position());
    for (wheeled_ += event->angleDelta().y(); std::abs(wheeled_) >= kWheelStep;) {
      const bool isIn = wheeled_ > 0;
      wheeled_ -= isIn ? kWheelStep : -kWheelStep;
      isIn ? zoom_.stepIn(anchor) : zoom_.stepOut(anchor);
    }
  } else {
    const QPoint by = event->pixelDelta().isNull() ? event->angleDelta() / 2 : event->pixelDelta();
    zoom_.move(QPointF(by) * devicePixelRatioF());
  }
  event->accept();
  follow();
}

void PictureCanvas::timerEvent(QTimerEvent* /*event*/) {
  turned_ = std::fmod(turned_ + kProgressRingStep, 360);
  update();
}

void PictureCanvas::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  keepTurning();
}

void PictureCanvas::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  turn_.stop();
}

}  // namespace quillet
