// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/notice_bar.h"

#include <QAccessible>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kInset = 24;
constexpr int kPadding = 10;
constexpr double kIcon = 14;
constexpr int kGap = 8;

}  // namespace

NoticeBar::NoticeBar() : text_(new PageText({.type = kFactType, .lineHeight = 17}, this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kInset + static_cast<int>(kIcon) + kGap, kPadding, kInset, kPadding);
  column->addWidget(text_);
  hide();
}

void NoticeBar::say(const QString& sentence) {
  setVisible(!sentence.isEmpty());
  text_->show(sentence);
  setAccessibleName(sentence);
  if (sentence.isEmpty()) return;
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void NoticeBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::neutralTint]);
  const double left = layoutDirection() == Qt::RightToLeft ? width() - kInset - kIcon : kInset;
  look.icons.draw(painter, {left, text_->y() + 1.0}, QStringLiteral("exclamation-circle-fill"),
                  kIcon, look[Token::up]);
}

}  // namespace quillet
