// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/find_field.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kRest = 120ms;  // after the last key
constexpr int kWidth = 232;
constexpr int kTextLeft = 23;  // beside the field's own margin
constexpr double kGlass = 14;
constexpr TypeStyle kKeysType{10.5, 500};

}  // namespace

FindField::FindField(QWidget* parent) : QLineEdit(parent), clear_(new QToolButton(this)) {
  setSearchField(*this);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  setTextMargins(kTextLeft, 0, 24, 0);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &FindField::tell);
  connect(this, &QLineEdit::textEdited, this, [this] { rest_.start(); });
  connect(this, &QLineEdit::textChanged, this, &FindField::showClear);
  clear_->setText(tr("Clear"));
  clear_->setToolTip(tr("Clear (Esc)"));
  clear_->setCursor(Qt::ArrowCursor);
  clear_->setFocusPolicy(Qt::NoFocus);
  setIconName(*clear_, QStringLiteral("x"), 16);
  connect(clear_, &QToolButton::clicked, this, [this] {
    clear();
    tell();
  });
  showClear();
}

void FindField::setPrompt(const QString& prompt) {
  if (prompt_ == prompt) return;
  prompt_ = prompt;
  setAccessibleName(prompt);
  update();
}

void FindField::setKeys(const QString& keys) {
  keys_ = keys;
  update();
}

void FindField::setShownText(const QString& text) {
  if (rest_.isActive() || text == this->text()) return;
  setText(text);
}

QSize FindField::sizeHint() const { return {kWidth, QLineEdit::sizeHint().height()}; }

void FindField::tell() {
  rest_.stop();
  Q_EMIT found(text());
}

void FindField::showClear() { clear_->setVisible(!text().isEmpty()); }

void FindField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  constexpr int kSize = 24;
  const int gap = (height() - kSize) / 2;
  clear_->setGeometry(QStyle::visualRect(layoutDirection(), rect(),
                                         QRect(width() - kSize - gap, gap, kSize, kSize)));
}

/// Esc is the field's own while there is something to clear, and the window's else.
bool FindField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && !text().isEmpty() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return QLineEdit::event(event);
}

void FindField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      tell();
      Q_EMIT left();
      return;
    case Qt::Key_Down: Q_EMIT left(); return;
    case Qt::Key_Escape:
      if (text().isEmpty()) break;
      clear();
      tell();
      return;
    default: break;
  }
  QLineEdit::keyPressEvent(event);
}

void FindField::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  Look& look = lookOf(*this);
  const auto placed = [this](const QRectF& part) {
    return QRectF(QStyle::visualRect(layoutDirection(), rect(), part.toRect()));
  };
  look.icons.draw(painter, placed({10, (height() - kGlass) / 2, kGlass, kGlass}).topLeft(),
                  QStringLiteral("search"), kGlass, look[Token::tertiary]);
  if (!text().isEmpty()) return;
  double room = width() - 32 - 10;
  if (!keys_.isEmpty() && !hasFocus()) {
    const double keys = look.text.width(keys_, kKeysType) + 10;
    const QRectF box = placed({width() - 9 - keys, (height() - 16) / 2.0, keys, 16});
    paintBox(painter, box, 4, look[Token::neutralTint]);
    look.text.draw(painter, {box, TextAnchor::centre}, keys_, kKeysType, look[Token::secondary]);
    room -= keys + 8;
  }
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  look.text.drawElided(painter,
                       {placed({32, 0, room, static_cast<double>(height())}),
                        isMirrored ? TextAnchor::right : TextAnchor::left},
                       prompt_, kBodyType, look[Token::tertiary]);
}

}  // namespace quillet
