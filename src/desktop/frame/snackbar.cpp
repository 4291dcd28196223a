// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/snackbar.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kShown = 10s;
constexpr int kHeight = 40;
constexpr int kPadding = 16;
constexpr int kAway = 16;  // from the sheet's edges

}  // namespace

Snackbar::Snackbar(Clock& clock, QWidget& sheet) : QWidget(&sheet), clock_(clock), sheet_(sheet) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  sheet.installEventFilter(this);
  hide();
}

void Snackbar::say(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  place();
  raise();
  show();
  update();
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
  detach(hideLater(this, ++generation_), "A message");
}

Task<> Snackbar::hideLater(QPointer<Snackbar> bar, int generation) {
  co_await bar->clock_.sleepFor(kShown, {});
  if (bar && bar->generation_ == generation) bar->hide();
}

bool Snackbar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &sheet_ && event->type() == QEvent::Resize) place();
  return QWidget::eventFilter(watched, event);
}

void Snackbar::place() {
  const int most = sheet_.width() - 2 * kAway;
  const int wanted =
      static_cast<int>(std::ceil(lookOf(*this).text.width(text_, kBodyType))) + 2 * kPadding;
  const int width = std::min(most, wanted);
  setGeometry((sheet_.width() - width) / 2, sheet_.height() - kHeight - kAway, width, kHeight);
}

void Snackbar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBox(painter, rect(), 8, look[Token::tooltip]);
  look.text.drawElided(painter,
                       {QRectF(rect()).adjusted(kPadding, 0, -kPadding, 0), TextAnchor::centre},
                       text_, kBodyType, look[Token::tooltipText]);
}

}  // namespace quillet
