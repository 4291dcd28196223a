// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QPixmap>

#include "desktop/images/image_store.h"
#include "desktop/look/look.h"
#include "desktop/models/app_row.h"

namespace quillet {

inline constexpr double kSmallPicture = 28;

/// The pictures of rows as they are painted, with corners and edge; a tile with the first letter
/// until a picture came. Framed ones are kept.
class RowPictures {
 public:
  /// The store outlives it.
  explicit RowPictures(ImageStore& images) : images_(images) {}

  /// `size` in pixels, `ratio` device pixels each; a symbol lies on `symbolGround`. Valid until the
  /// next call.
  [[nodiscard]] const QPixmap& pictureOf(const AppRow& row, double size, double ratio, Look& look,
                                         Token symbolGround);
  /// One of the smaller ones at a row's end.
  [[nodiscard]] const QPixmap& smallPicture(const std::string& address, double ratio, Look& look);

  /// What to ask the store for: all that the row shows.
  [[nodiscard]] static std::vector<ImageKey> keysOf(const AppRow& row, double size, double ratio);

 private:
  struct Framed {
    ImageKey picture;
    QString name;   ///< of a tile
    QRgb edge = 0;  ///< or of a symbol's ground
    bool operator==(const Framed&) const = default;
    friend size_t qHash(const Framed& key, size_t seed) {
      return qHashMulti(qHash(key.picture, seed), key.name, key.edge);
    }
  };

  /// Null before it came.
  const QPixmap* framed(const ImageKey& key, double size, double ratio, Look& look);
  const QPixmap& keep(const Framed& key, QPixmap pixmap);

  ImageStore& images_;
  QCache<Framed, QPixmap> kept_{qsizetype{4} * 1024 * 1024};  // in bytes
};

}  // namespace quillet
