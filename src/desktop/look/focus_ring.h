// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <optional>

class QApplication;
class QFocusFrame;
class QWidget;

namespace quillet {

/// What a ring goes around, one pixel away from it, in the widget's own coordinates.
struct RingShape {
  QRectF rect;
  double radius = 0;
};

/// Where the focus ring of a widget goes; absent for those that show their focus themselves: fields
/// by their border, lists and tabs inside the row or tab.
[[nodiscard]] std::optional<RingShape> ringShapeOf(const QWidget& widget);

/// For a widget with other corners than a control of its height has.
void setRingCorner(QWidget& widget, double radius);

/// For a widget that draws its ring itself, where State_KeyboardFocusChange says that it is shown.
void keepRingInside(QWidget& widget);

/// The one focus ring of the application: around the widget that has the focus, from the first key
/// until the pointer is used. It stands above all of the window, so that no neighbour and no edge
/// of a parent cuts it, and also keeps what widgets and delegates test who draw theirs inside.
class FocusRing : public QObject {
  Q_OBJECT

 public:
  /// The application owns it.
  explicit FocusRing(QApplication& application);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Use { keys, pointer };

  void setLastUse(Use use);
  void follow(QWidget* focused);

  Use lastUse_ = Use::pointer;
  QPointer<QFocusFrame> frame_;  ///< goes with the window that it was last in
};

}  // namespace quillet
