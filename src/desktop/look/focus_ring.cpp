// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/focus_ring.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QSlider>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QVariant>
#include <algorithm>

#include "desktop/look/style_parts.h"

namespace quillet {

namespace {

constexpr const char* kCorner = "quilletRingCorner";
constexpr const char* kInside = "quilletRingInside";

bool showsFocusItself(const QWidget& widget) {
  if (widget.property(kInside).toBool()) return true;
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->isEditable();
  return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
         qobject_cast<const QTabBar*>(&widget) != nullptr ||
         qobject_cast<const QMenuBar*>(&widget) != nullptr;
}

QRect indicatorOf(const QWidget& button, QStyle::SubElement element) {
  QStyleOptionButton option;
  option.initFrom(&button);
  return parts::indicatorIn(button.style()->subElementRect(element, &option, &button)).toRect();
}

bool isModifier(int key) {
  switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock: return true;
    default: return false;
  }
}

}  // namespace

std::optional<RingShape> ringShapeOf(const QWidget& widget) {
  if (showsFocusItself(widget)) return std::nullopt;
  if (qobject_cast<const QCheckBox*>(&widget) != nullptr) {
    return RingShape{indicatorOf(widget, QStyle::SE_CheckBoxIndicator), parts::kCheckBoxCorner};
  }
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr) {
    const QRectF circle = indicatorOf(widget, QStyle::SE_RadioButtonIndicator);
    return RingShape{circle, circle.height() / 2};
  }
  if (const auto* slider = qobject_cast<const QSlider*>(&widget)) {
    const QRectF knob = parts::sliderKnob(*slider);
    return RingShape{knob, knob.height() / 2};
  }
  const QVariant corner = widget.property(kCorner);
  const double radius = corner.isValid() ? corner.toDouble() : parts::cornerOf(widget.rect());
  return RingShape{widget.rect(), std::min(radius, widget.height() / 2.0)};
}

void setRingCorner(QWidget& widget, double radius) { widget.setProperty(kCorner, radius); }

void keepRingInside(QWidget& widget) { widget.setProperty(kInside, true); }

FocusRing::FocusRing(QApplication& application) : QObject(&application) {
  application.installEventFilter(this);
  connect(&application, &QApplication::focusChanged, this,
          [this](QWidget* /*before*/, QWidget* now) { follow(now); });
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:  // which no key press follows where a shortcut takes the key
    case QEvent::KeyPress:
      if (!isModifier(static_cast<QKeyEvent*>(event)->key())) setLastUse(Use::keys);
      break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::TabletPress: setLastUse(Use::pointer); break;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

void FocusRing::setLastUse(Use use) {
  if (use == lastUse_) return;
  lastUse_ = use;
  follow(QApplication::focusWidget());
}

void FocusRing::follow(QWidget* focused) {
  const bool isShown = lastUse_ == Use::keys;
  if (focused != nullptr) {
    focused->window()->setAttribute(Qt::WA_KeyboardFocusChange, isShown);
    focused->update();
    if (const auto* area = qobject_cast<QAbstractScrollArea*>(focused)) area->viewport()->update();
  }
  if (focused != nullptr && isShown && ringShapeOf(*focused)) {
    if (!frame_) frame_ = new QFocusFrame(focused->window());
    frame_->setWidget(focused);
    // Around a knob it goes along.
    if (const auto* slider = qobject_cast<QAbstractSlider*>(focused)) {
      connect(slider, &QAbstractSlider::valueChanged, frame_, qOverload<>(&QWidget::update));
    }
  } else if (frame_) {
    frame_->setWidget(nullptr);
  }
}

}  // namespace quillet
