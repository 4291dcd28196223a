// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/artwork_label.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/marks.h"

namespace quillet {

ArtworkLabel::ArtworkLabel(ImageStore& images, int size, QWidget* parent)
    : QWidget(parent), images_(images), size_(size) {
  setFixedSize(size, size);
  connect(&images, &ImageStore::arrived, this, [this](const ImageKey& arrived) {
    if (arrived == key()) update();
  });
}

void ArtworkLabel::show(const std::string& address, const QString& name) {
  if (address == address_ && name == name_) return;
  address_ = address;
  name_ = name;
  drawn_ = QPixmap();
  update();
}

ImageKey ArtworkLabel::key() const {
  return {address_, static_cast<int>(std::lround(size_ * devicePixelRatioF()))};
}

void ArtworkLabel::paintEvent(QPaintEvent* /*event*/) {
  draw();
  QPainter painter(this);
  painter.drawPixmap(QPointF(0, 0), drawn_);
}

void ArtworkLabel::draw() {
  // Here and not in show(): who is not seen asks for nothing.
  images_.want(this, {key()});
  Look& look = lookOf(*this);
  const double ratio = devicePixelRatioF();
  const QColor& edge = look[Token::artworkEdge];
  const QPixmap* picture = address_.empty() ? nullptr : images_.find(key());
  const qint64 source = picture == nullptr ? 0 : picture->cacheKey();
  const bool isSame = !drawn_.isNull() && source == drawnOf_ && edge == drawnEdge_ &&
                      drawn_.devicePixelRatio() == ratio;
  if (isSame) return;
  drawn_ = picture == nullptr ? letterTile(look, name_, size_, ratio)
                              : framedArtwork(picture->toImage(), size_, ratio, edge);
  drawnOf_ = source;
  drawnEdge_ = edge;
}

}  // namespace quillet
