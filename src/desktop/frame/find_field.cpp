// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/find_field.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include "desktop/look/look.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kRest = 120ms;  // after the last key
constexpr int kWidth = 232;

}  // namespace

FindField::FindField(const QString& keys, QWidget* parent) : SearchField({}, keys, parent) {
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &FindField::tell);
  connect(this, &QLineEdit::textChanged, this, &FindField::take);
}

void FindField::setPrompt(const QString& prompt) {
  if (placeholderText() == prompt) return;
  rest_.stop();  // what was typed was for another list
  setPlaceholderText(prompt);
  setAccessibleName(prompt);
}

void FindField::setShownText(const QString& text) {
  if (rest_.isActive() || text == this->text()) return;
  const QScopedValueRollback quiet(isTold_, false);
  setText(text);
}

QSize FindField::sizeHint() const {
  // The title needs some of what a larger text wants.
  constexpr double kShare = 0.5;
  const double width = kWidth * (1 + kShare * (lookOf(*this).growth() - 1));
  return {static_cast<int>(width), SearchField::sizeHint().height()};
}

void FindField::take(const QString& text) {
  if (!isTold_) return;
  if (text.isEmpty()) {
    tell();
  } else {
    rest_.start();
  }
}

void FindField::tell() {
  rest_.stop();
  Q_EMIT found(text());
}

/// Esc is the field's own while there is something to clear, and the window's else.
bool FindField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && !text().isEmpty() &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return SearchField::event(event);
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
      return;
    default: break;
  }
  SearchField::keyPressEvent(event);
}

}  // namespace quillet
