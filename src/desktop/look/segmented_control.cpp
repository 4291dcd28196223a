// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/segmented_control.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <cmath>

#include "desktop/look/focus_ring.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/style_parts.h"
#include "desktop/look/widgets.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

constexpr int kInset = 2;
constexpr int kPadding = 10;
constexpr double kLine = 24;
constexpr double kText = 16;  // of it

/// A radio button, so that assistive technology reads it as one, that looks like a segment.
class Segment : public QRadioButton {
 public:
  Segment(const QString& text, QWidget* parent) : QRadioButton(controlText(text), parent) {
    setAttribute(Qt::WA_Hover);
    keepRingInside(*this);  // between its neighbours there is no room for one outside
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  }

  [[nodiscard]] QSize sizeHint() const override {
    const double width = lookOf(*this).text.width(textOfControl(text()), kSmallControlType);
    const double height = kLine + kText * (lookOf(*this).growth() - 1);
    return {static_cast<int>(std::ceil(width)) + 2 * kPadding, static_cast<int>(std::ceil(height))};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }

  void paintEvent(QPaintEvent* /*event*/) override {
    QStyleOptionButton option;
    initStyleOption(&option);
    const parts::State state = parts::stateOf(option);
    Look& look = lookOf(*this);
    QPainter painter(this);
    if (isChecked())
      paintBox(painter, rect(), 6, look[Token::segment], parts::borderOf(look, look[Token::edge]));
    Token ink = isChecked() || state.isHovered ? Token::text : Token::secondary;
    if (!state.isEnabled) ink = Token::disabled;
    look.text.draw(painter, {QRectF(rect()), TextAnchor::centre}, textOfControl(text()),
                   kSmallControlType, look[ink]);
    if (state.showsRing) {
      paintBox(painter, rect(), 6, Qt::transparent, {look[Token::accentText], 2});
    }
  }
};

}  // namespace

SegmentedControl::SegmentedControl(const QString& name, const QStringList& choices, QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)) {
  setAccessibleName(name);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(kInset, kInset, kInset, kInset);
  layout->setSpacing(0);
  for (qsizetype i = 0; i < choices.size(); ++i) {
    auto* segment = new Segment(choices[i], this);
    segment->setChecked(i == 0);
    group_->addButton(segment, static_cast<int>(i));
    layout->addWidget(segment);
  }
  // Not clicks alone: assistive technology chooses without one.
  connect(group_, &QButtonGroup::idToggled, this, [this](int index, bool isChosen) {
    if (isChosen) Q_EMIT chosenChanged(index);
  });
}

int SegmentedControl::chosen() const { return group_->checkedId(); }

void SegmentedControl::choose(int index) {
  const QSignalBlocker untold(group_);
  if (QAbstractButton* segment = group_->button(index)) segment->setChecked(true);
}

void SegmentedControl::setOffered(int index, bool isOffered, const QString& why) {
  QAbstractButton* segment = group_->button(index);
  segment->setEnabled(isOffered);
  segment->setToolTip(isOffered ? QString() : wrappedTip(why));
  segment->setAccessibleDescription(isOffered ? QString() : why);
}

void SegmentedControl::takeFocus(Qt::FocusReason reason) {
  group_->checkedButton()->setFocus(reason);
}

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintBox(painter, rect(), 8, lookOf(*this)[Token::neutralTint]);
}

}  // namespace quillet
