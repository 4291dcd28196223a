// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/caption_line.h"

#include <QPainter>
#include <algorithm>

#include "desktop/lists/chip.h"
#include "desktop/look/look.h"
#include "desktop/look/widgets.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

constexpr int kHeight = 22;
constexpr int kMargin = 20;
constexpr double kLine = 16;
constexpr TypeStyle kType = kCaptionType.tabular();

}  // namespace

CaptionLine::CaptionLine(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  hide();
}

void CaptionLine::setTexts(const QStringList& texts) {
  if (texts == texts_) return;
  texts_ = texts;
  const QString whole = texts_.value(0);
  setText(whole);
  setToolTip(texts_.size() > 1 ? wrappedTip(whole) : QString());
  setVisible(!texts_.isEmpty());
}

QSize CaptionLine::sizeHint() const { return {2 * kMargin, grownLine(*this, kHeight)}; }
QSize CaptionLine::minimumSizeHint() const { return sizeHint(); }

void CaptionLine::paintEvent(QPaintEvent* /*event*/) {
  if (texts_.isEmpty()) return;
  Look& look = lookOf(*this);
  const QRectF line(kMargin, 0, width() - 2 * kMargin, kLine * look.growth());
  const auto fits = [&](const QString& text) {
    return look.text.width(text, kType) <= line.width();
  };
  const auto shown = std::ranges::find_if(texts_, fits);
  const QString& text = shown == texts_.end() ? texts_.last() : *shown;
  QPainter painter(this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  look.text.drawElided(painter, {line, isMirrored ? TextAnchor::right : TextAnchor::left}, text,
                       kType, look[Token::tertiary]);
}

void CaptionLine::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (changesSizes(*event)) updateGeometry();
}

}  // namespace quillet
