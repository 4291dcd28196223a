// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/images/image_store.h"
#include "desktop/page/page_marks.h"

namespace quillet {

class ArtworkLabel;

/// What stays in sight of a page's header once that is scrolled away.
class StickyHeader : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 44;

  StickyHeader(ImageStore& images, QWidget* parent);

  void show(const std::string& artwork, const QString& name, const PageMark& price);
  /// How far its contents are from both edges.
  void setInset(int inset);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void placeArtwork();

  ArtworkLabel* artwork_;
  QString name_;
  PageMark price_;
  int inset_ = 0;
};

}  // namespace quillet
