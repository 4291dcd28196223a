// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/viewer_notice.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kShown = 6s;
constexpr int kAround = 16;
constexpr int kAbove = 11;
constexpr int kWidest = 640;

}  // namespace

ViewerNotice::ViewerNotice(QWidget* view) : QLabel(view) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(Qt::AlignCenter);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setForegroundRole(QPalette::ToolTipText);
  setContentsMargins(kAround, kAbove, kAround, kAbove);
  pass_.setSingleShot(true);
  pass_.setInterval(kShown);
  connect(&pass_, &QTimer::timeout, this, &QWidget::hide);
  view->installEventFilter(this);
  hide();
}

void ViewerNotice::say(const QString& text, NoticeKind kind) {
  setText(text);
  setVisible(!text.isEmpty());
  pass_.stop();
  if (text.isEmpty()) return;
  if (kind == NoticeKind::passing) pass_.start();
  place();
  raise();
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void ViewerNotice::place() {
  const QRect view = parentWidget()->rect();
  const int most = std::min(kWidest, view.width() - 2 * kAround);
  const int text = fontMetrics().horizontalAdvance(this->text()) + 2 * kAround + 2;
  const int width = std::min(most, text);
  const int height = heightForWidth(width);
  setGeometry((view.width() - width) / 2, view.height() - height - kAround, width, height);
}

bool ViewerNotice::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && isVisible()) place();
  return QLabel::eventFilter(watched, event);
}

void ViewerNotice::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  paintBox(painter, rect(), 8, lookOf(*this)[Token::tooltip]);
  painter.end();
  QLabel::paintEvent(event);
}

}  // namespace quillet
