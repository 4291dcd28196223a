// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/search_field.h"

#include <QPainter>
#include <QToolButton>
#include <cmath>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kKeysType{10.5, 500};
constexpr double kGlass = 14;
constexpr int kInset = 11;
constexpr int kGap = 8;
constexpr int kKeysHeight = 16;
constexpr int kKeysPadding = 5;
constexpr int kKeysInset = 9;
constexpr int kClear = 22;

}  // namespace

SearchField::SearchField(const QString& name, const QString& keys, QWidget* parent)
    : QLineEdit(parent), keys_(keys), clear_(new QToolButton(this)) {
  setSearchField(*this);
  setPlaceholderText(name);
  setAccessibleName(name);
  setIconName(*clear_, QStringLiteral("x-circle-fill"), 14);
  clear_->setAccessibleName(tr("Clear"));
  clear_->setToolTip(tr("Clear"));
  clear_->setCursor(Qt::ArrowCursor);
  // With the keys a text is removed where it is.
  clear_->setFocusPolicy(Qt::NoFocus);
  clear_->hide();
  connect(clear_, &QToolButton::clicked, this, &QLineEdit::clear);
  connect(this, &QLineEdit::textChanged, this, [this] { makeRoom(); });
  makeRoom();
}

double SearchField::keysWidth() const {
  return keys_.isEmpty() ? 0 : lookOf(*this).text.width(keys_, kKeysType) + 2 * kKeysPadding;
}

/// Where there is no room for both, what is searched counts.
bool SearchField::showsKeys() const {
  if (keys_.isEmpty() || !text().isEmpty()) return false;
  const double words = lookOf(*this).text.width(placeholderText(), kBodyType);
  return kInset + kGlass + kGap + words + kGap + keysWidth() + kKeysInset <= width();
}

void SearchField::makeRoom() {
  if (clear_ == nullptr) return;  // so early that there is nothing to place
  clear_->setVisible(!text().isEmpty());
  const QRect place(width() - kClear - 5, (height() - kClear) / 2, kClear, kClear);
  clear_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  const int keys = showsKeys() ? static_cast<int>(std::ceil(keysWidth())) : 0;
  const int behind = text().isEmpty() ? keys : kClear;
  const int before = static_cast<int>(kGlass) + kGap;
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  setTextMargins(isMirrored ? behind : before, 0, isMirrored ? before : behind, 0);
}

void SearchField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  makeRoom();
}

void SearchField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  // A text size or direction of another kind: the keys take another room.
  makeRoom();
}

void SearchField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  Look& look = lookOf(*this);
  QPainter painter(this);
  const auto placed = [this](double left, double size, double height) {
    const QRectF place(left, (this->height() - height) / 2, size, height);
    if (layoutDirection() == Qt::LeftToRight) return place;
    return place.translated(width() - 2 * left - size, 0);
  };
  const Token ink = isEnabled() ? Token::tertiary : Token::disabled;
  look.icons.draw(painter, placed(kInset, kGlass, kGlass).topLeft(), QStringLiteral("search"),
                  kGlass, look[ink]);
  if (!showsKeys()) return;
  const double keys = keysWidth();
  const QRectF badge = placed(width() - kKeysInset - keys, keys, kKeysHeight);
  paintBox(painter, badge, 4, look[Token::neutralTint]);
  look.text.draw(painter, {badge, TextAnchor::centre}, keys_, kKeysType,
                 look[isEnabled() ? Token::secondary : Token::disabled]);
}

}  // namespace quillet
