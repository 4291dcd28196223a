// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/state_line.h"

#include <QVBoxLayout>

#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"

namespace quillet {

StateLine::StateLine(QWidget* parent)
    : QWidget(parent),
      text_(new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 16}, this)),
      again_(new LinkButton(tr("Try Again"), kSmallControlType, {}, this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  layout->addWidget(text_);
  layout->addWidget(again_, 0, Qt::AlignLeft);
  connect(again_, &QAbstractButton::clicked, this, &StateLine::triesAgain);
}

bool StateLine::show(const ListState& state, Instant now) {
  const auto strip = stripOf(state, now);
  setVisible(strip.has_value());
  if (!strip) return false;
  text_->show(strip->text);
  again_->setVisible(strip->action == StripAction::tryAgain);
  return true;
}

}  // namespace quillet
