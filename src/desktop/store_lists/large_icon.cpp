// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/large_icon.h"

#include <QPainter>

#include "desktop/look/look.h"

namespace quillet {

namespace {
constexpr int kSize = 48;
}

LargeIcon::LargeIcon(QString name) : name_(std::move(name)) { setFixedSize(kSize, kSize); }

void LargeIcon::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  look.icons.draw(painter, {}, name_, kSize, look[Token::edge]);
}

}  // namespace quillet
