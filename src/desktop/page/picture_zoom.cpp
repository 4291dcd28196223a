// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/picture_zoom.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillet {

namespace {

constexpr std::array kSteps{0.1, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0};
constexpr double kSame = 0.001;

/// In the middle where there is room, else so that no gap is at either edge.
double bounded(double corner, double size, double view) {
  return size <= view ? std::floor((view - size) / 2) : std::clamp(corner, view - size, 0.0);
}

}  // namespace

void PictureZoom::setPicture(const QSize& picture) {
  picture_ = picture;
  fit();
}

void PictureZoom::setView(const QSize& view) {
  // What was in the middle stays there.
  const QPointF moved((view.width() - view_.width()) / 2, (view.height() - view_.height()) / 2);
  view_ = view;
  setCorner(corner_ + moved);
}

double PictureZoom::fitScale() const {
  if (picture_.isEmpty() || view_.isEmpty()) return 1;
  return std::min({1.0, view_.width() / picture_.width(), view_.height() / picture_.height()});
}

QRectF PictureZoom::place() const {
  if (picture_.isEmpty()) return {};
  const double width = std::max(1.0, std::round(picture_.width() * scale()));
  const double height = std::max(1.0, std::round(picture_.height() * scale()));
  return {bounded(corner_.x(), width, view_.width()), bounded(corner_.y(), height, view_.height()),
          width, height};
}

bool PictureZoom::canBeMoved() const {
  const QRectF whole = place();
  return whole.width() > view_.width() || whole.height() > view_.height();
}

void PictureZoom::zoomTo(double scale, const QPointF& anchor) {
  const QRectF before = place();
  if (before.isEmpty()) return;
  const double by = std::clamp(scale, kSteps.front(), kSteps.back()) / this->scale();
  scale_ = this->scale() * by;
  setCorner(anchor + (before.topLeft() - anchor) * by);
}

void PictureZoom::toggle(const QPointF& anchor) {
  if (!isFit()) return fit();
  zoomTo(fitScale() < 1 - kSame ? 1 : 2, anchor);
}

bool PictureZoom::stepIn(const QPointF& anchor) {
  const auto next = std::ranges::upper_bound(kSteps, scale() + kSame);
  if (next == kSteps.end()) return false;
  zoomTo(*next, anchor);
  return true;
}

/// Not below what fits: smaller shows no more.
bool PictureZoom::stepOut(const QPointF& anchor) {
  if (scale() <= fitScale() + kSame) return false;
  const auto next = std::ranges::lower_bound(kSteps, scale() - kSame);
  const double smaller = next == kSteps.begin() ? 0 : *std::prev(next);
  if (smaller <= fitScale() + kSame) {
    fit();
  } else {
    zoomTo(smaller, anchor);
  }
  return true;
}

void PictureZoom::move(const QPointF& by) { setCorner(place().topLeft() + by); }

void PictureZoom::setCorner(const QPointF& corner) {
  corner_ = {std::round(corner.x()), std::round(corner.y())};
  corner_ = place().topLeft();
}

}  // namespace quillet
