// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/row_pictures.h"

#include <cmath>

#include "desktop/look/marks.h"

namespace quillet {

namespace {

constexpr double kSymbolIcon = 0.45;  // of the tile
constexpr double kTileCorner = 0.225;

/// What stands in the place of a picture where there never is one.
QPixmap symbolTile(Look& look, const QString& icon, Token ground, double size, double ratio) {
  const int side = static_cast<int>(std::lround(size * ratio));
  QPixmap tile(side, side);
  tile.setDevicePixelRatio(ratio);
  tile.fill(Qt::transparent);
  QPainter painter(&tile);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look[ground]);
  painter.drawRoundedRect(QRectF(0, 0, size, size), size * kTileCorner, size * kTileCorner);
  const double drawn = std::round(size * kSymbolIcon / 2) * 2;
  const double start = (size - drawn) / 2;
  look.icons.draw(painter, {start, start}, icon, drawn, look[Token::accentText]);
  return tile;
}

ImageKey keyOf(const std::string& address, double size, double ratio) {
  return {address, static_cast<int>(std::lround(size * ratio))};
}

}  // namespace

std::vector<ImageKey> RowPictures::keysOf(const AppRow& row, double size, double ratio) {
  std::vector<ImageKey> keys;
  if (!row.artwork.empty()) keys.push_back(keyOf(row.artwork, size, ratio));
  for (const std::string& each : row.pictures) {
    if (!each.empty()) keys.push_back(keyOf(each, kSmallPicture, ratio));
  }
  return keys;
}

const QPixmap& RowPictures::pictureOf(const AppRow& row, double size, double ratio, Look& look,
                                      Token symbolGround) {
  ImageKey picture = keyOf(row.artwork, size, ratio);
  if (const QPixmap* found = framed(picture, size, ratio, look)) return *found;
  picture.address.clear();
  const bool isSymbol = !row.symbol.isEmpty();
  const Framed key{picture, isSymbol ? row.symbol + u'/' : row.name,
                   look[isSymbol ? symbolGround : Token::artworkEdge].rgba()};
  if (const QPixmap* kept = kept_.object(key)) return *kept;
  return keep(key, isSymbol ? symbolTile(look, row.symbol, symbolGround, size, ratio)
                            : letterTile(look, row.name, size, ratio));
}

const QPixmap& RowPictures::smallPicture(const std::string& address, double ratio, Look& look) {
  if (const auto* found = framed(keyOf(address, kSmallPicture, ratio), kSmallPicture, ratio, look))
    return *found;
  const Framed key{keyOf({}, kSmallPicture, ratio), QStringLiteral("/"),
                   look[Token::artworkEdge].rgba()};
  if (const QPixmap* kept = kept_.object(key)) return *kept;
  QImage plain(1, 1, QImage::Format_RGB32);
  plain.fill(look[Token::neutralTint]);
  return keep(key, framedArtwork(plain, kSmallPicture, ratio, look[Token::artworkEdge]));
}

const QPixmap* RowPictures::framed(const ImageKey& key, double size, double ratio, Look& look) {
  if (key.address.empty()) return nullptr;
  // With the edge's colour in its key, which differs from scheme to scheme.
  const QColor& edge = look[Token::artworkEdge];
  const Framed kept{key, {}, edge.rgba()};
  if (const QPixmap* found = kept_.object(kept)) return found;
  const QPixmap* picture = images_.find(key);
  if (picture == nullptr) return nullptr;
  return &keep(kept, framedArtwork(picture->toImage(), size, ratio, edge));
}

const QPixmap& RowPictures::keep(const Framed& key, QPixmap pixmap) {
  constexpr int kPixelBytes = 4;
  const int bytes = kPixelBytes * pixmap.width() * pixmap.height();
  auto* kept = new QPixmap(std::move(pixmap));
  kept_.insert(key, kept, bytes);
  return *kept;
}

}  // namespace quillet
