// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/block.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kAboveHead = 13;  // with the hairline
constexpr int kHead = 28;
constexpr int kBelowHead = 8;
constexpr int kHeadGap = 8;

}  // namespace

Block::Block(const QString& title, QWidget* parent)
    : QWidget(parent), head_(new QHBoxLayout), content_(new QVBoxLayout(this)) {
  setAccessibleName(title);
  auto* heading = new PageText({.type = kBlockType, .lineHeight = kHead, .lines = 1}, this);
  heading->show(title);
  head_->setSpacing(kHeadGap);
  head_->addWidget(heading, 1);
  content_->setContentsMargins(0, kAboveHead, 0, 0);
  content_->setSpacing(0);
  content_->addLayout(head_);
  content_->addSpacing(kBelowHead);
}

/// What is hidden is still within the reach of assistive technology, which could press what acts on
/// nothing.
bool Block::event(QEvent* event) {
  if (event->type() == QEvent::ShowToParent) setEnabled(true);
  if (event->type() == QEvent::HideToParent) setEnabled(false);
  return QWidget::event(event);
}

void Block::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect content = contentsRect();
  PixelGrid(painter).horizontal(content.left(), content.right() + 1, 0, lookOf(*this)[Token::line]);
}

}  // namespace quillet
