// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/images/image_store.h"

namespace quillet {

/// An app's picture, a square of fixed size; the first letter of its name until the picture came.
/// Decoration: the name stands beside it.
class ArtworkLabel : public QWidget {
  Q_OBJECT

 public:
  ArtworkLabel(ImageStore& images, int size, QWidget* parent = nullptr);

  void show(const std::string& address, const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] ImageKey key() const;
  void draw();

  ImageStore& images_;
  int size_;
  std::string address_;
  QString name_;
  QPixmap drawn_;
  qint64 drawnOf_ = 0;  ///< the picture's own key; 0 for the letter
  QColor drawnEdge_;
};

}  // namespace quillet
