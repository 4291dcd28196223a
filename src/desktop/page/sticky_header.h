// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/page/page_marks.h"
#include "desktop/page/page_world.h"

namespace quillet {

class ArtworkLabel;
class WatchButton;

/// What stays in sight of a page's header once that is scrolled away.
class StickyHeader : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kHeight = 44;

  StickyHeader(const PageWorld& world, QWidget* parent);

  void show(const PageFacts& facts, const PageMark& price);
  [[nodiscard]] WatchButton& watch() const { return *watch_; }
  /// How far its contents are from both edges.
  void setInset(int inset);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();

  ArtworkLabel* artwork_;
  WatchButton* watch_;
  QString name_;
  PageMark price_;
  int inset_ = 0;
};

}  // namespace quillet
