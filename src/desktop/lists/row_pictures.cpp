// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/row_pictures.h"

#include <cmath>

#include "desktop/look/marks.h"

namespace quillet {

namespace {

constexpr double kEmblemIcon = 0.45;  // of the tile
constexpr double kTileCorner = 0.225;

/// What stands in the place of a picture where there never is one.
QPixmap emblemTile(Look& look, const QString& icon, double size, double ratio) {
  const int side = static_cast<int>(std::lround(size * ratio));
  QPixmap tile(side, side);
  tile.setDevicePixelRatio(ratio);
  tile.fill(Qt::transparent);
  QPainter painter(&tile);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look[Token::sideSelection]);
  painter.drawRoundedRect(QRectF(0, 0, size, size), size * kTileCorner, size * kTileCorner);
  const double drawn = std::round(size * kEmblemIcon / 2) * 2;
  const double start = (size - drawn) / 2;
  look.icons.draw(painter, {start, start}, icon, drawn, look[Token::accentText]);
  return tile;
}

}  // namespace

ImageKey RowPictures::keyOf(const AppRow& row, double size, double ratio) {
  return {row.artwork, static_cast<int>(std::lround(size * ratio))};
}

const QPixmap& RowPictures::pictureOf(const AppRow& row, double size, double ratio, Look& look) {
  // With the edge's colour in its key, which differs from scheme to scheme.
  Framed key{keyOf(row, size, ratio), {}, look[Token::artworkEdge].rgba()};
  if (!row.artwork.empty()) {
    if (const QPixmap* kept = kept_.object(key)) return *kept;
    if (const QPixmap* picture = images_.find(key.picture))
      return keep(key, framedArtwork(picture->toImage(), size, ratio, look[Token::artworkEdge]));
  }
  key.picture.address.clear();
  key.name = row.emblem.isEmpty() ? row.name : row.emblem + u'/';
  if (const QPixmap* kept = kept_.object(key)) return *kept;
  return keep(key, row.emblem.isEmpty() ? letterTile(look, row.name, size, ratio)
                                        : emblemTile(look, row.emblem, size, ratio));
}

const QPixmap& RowPictures::keep(const Framed& key, QPixmap pixmap) {
  constexpr int kPixelBytes = 4;
  const int bytes = kPixelBytes * pixmap.width() * pixmap.height();
  auto* kept = new QPixmap(std::move(pixmap));
  kept_.insert(key, kept, bytes);
  return *kept;
}

}  // namespace quillet
