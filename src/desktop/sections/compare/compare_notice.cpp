// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_notice.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>

#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"

namespace quillet {

namespace {

constexpr int kInset = 24;
constexpr int kAbove = 6;

}  // namespace

CompareNotice::CompareNotice()
    : text_(new TextLabel(kFactType, Token::secondary)),
      add_(new QPushButton(tr("Add App…"))),
      remove_(new QPushButton(tr("Remove"))) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kInset, kAbove, kInset, kAbove);
  row->addWidget(text_, 1);
  row->addWidget(add_);
  row->addWidget(remove_);
  connect(add_, &QPushButton::clicked, this, &CompareNotice::addAsked);
  connect(remove_, &QPushButton::clicked, this, &CompareNotice::removeAsked);
  hide();
}

void CompareNotice::tell(const QString& text) { show(text, nullptr); }
void CompareNotice::tellMissing(const QString& text) { show(text, remove_); }
void CompareNotice::tellOneMore(const QString& text) { show(text, add_); }

void CompareNotice::show(const QString& text, const QWidget* button) {
  text_->setText(text);
  text_->setToolTip(wrappedTip(text));
  for (QPushButton* each : {add_, remove_}) each->setVisible(each == button);
  QWidget::show();
}

void CompareNotice::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PixelGrid(painter).horizontal(0, width(), height() - 1, lookOf(*this)[Token::line]);
}

}  // namespace quillet
