// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QWidget>
#include <map>
#include <string>
#include <vector>

#include "desktop/images/image_store.h"
#include "desktop/page/page_pictures.h"

namespace quillet {

/// What tells one strip from another.
struct StripLook {
  int height = 220;
  double radius = 6;
  int gap = 12;
  bool marksCurrent = false;  ///< always, not only for the keyboard's focus
};

/// Screenshots side by side, as high as the strip and each with its own proportions. It scrolls to
/// the side, and asks only for those that are seen and their neighbours. The arrow keys go from one
/// to the next.
class PictureStrip : public QWidget {
  Q_OBJECT

 public:
  /// The store outlives it.
  PictureStrip(ImageStore& images, const StripLook& look, QWidget* parent = nullptr);

  /// Goes to the first, unless the same are shown.
  void show(Platform platform, const std::vector<std::string>& addresses);
  [[nodiscard]] std::size_t count() const { return addresses_.size(); }

  [[nodiscard]] std::size_t current() const { return current_; }
  /// Scrolls to it.
  void setCurrent(std::size_t index);

  /// Tiles in the place of those that are not known yet.
  void setAwaiting(bool isAwaiting);

  /// Pixels that stay free behind the last one.
  void setEndRoom(int pixels);

  /// What a strip of this height asks the store for.
  [[nodiscard]] static ImageKey keyOf(const std::string& address, Platform platform, int height,
                                      double ratio);

  [[nodiscard]] QSize sizeHint() const override { return {480, look_.height}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, look_.height}; }

 Q_SIGNALS:
  /// By the user.
  void currentChanged(std::size_t index);
  /// The current one is to be seen in its full size.
  void opened();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  enum class Side { none, start, end };

  [[nodiscard]] ImageKey keyOf(std::size_t index) const;
  [[nodiscard]] double ratioOf(std::size_t index) const;
  void arrange();
  [[nodiscard]] int contentWidth() const;
  /// Those that are seen, and on request one more on each side.
  [[nodiscard]] std::vector<std::size_t> seen(std::size_t more) const;
  [[nodiscard]] QRect placeOf(std::size_t index) const;
  [[nodiscard]] std::optional<std::size_t> at(const QPoint& point) const;
  void scrollTo(int offset);
  void bringIntoView(std::size_t index);
  void go(std::size_t index);
  void lookForPictures();
  void take(const ImageKey& key);
  void hold(std::size_t index, const QPixmap& picture);

  [[nodiscard]] QRect buttonOf(Side side) const;
  [[nodiscard]] Side buttonAt(const QPoint& point) const;
  void turn(Side side);
  void paintPicture(QPainter& painter, std::size_t index) const;
  void paintAwaited(QPainter& painter) const;
  void paintButtons(QPainter& painter) const;
  void tell();

  ImageStore& images_;
  StripLook look_;
  Platform platform_ = Platform::mac;
  bool isAwaiting_ = false;
  std::vector<std::string> addresses_;
  std::vector<double> ratios_;           ///< of those that came; 0 of the others
  std::vector<int> lefts_;               ///< and where the strip ends, before it is scrolled
  std::map<std::size_t, QPixmap> held_;  ///< of those that are near what is seen
  double heldRatio_ = 0;                 ///< of the device that they were made for
  std::size_t current_ = 0;
  std::optional<std::size_t> pressed_;
  int offset_ = 0;
  int endRoom_ = 0;
};

}  // namespace quillet
