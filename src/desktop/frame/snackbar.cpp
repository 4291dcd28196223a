// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/snackbar.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <cmath>

#include "desktop/look/entrance.h"
#include "desktop/look/focus_ring.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kShown = 10s;
constexpr int kHeight = 40;
constexpr int kPadding = 16;
constexpr int kAway = 16;  // from the sheet's edges
constexpr int kButtonHeight = 28;
constexpr int kButtonPadding = 10;
constexpr int kButtonInset = 6;  // from the bar's end
constexpr TypeStyle kButtonType = kControlType.weighing(600);

/// On the bar's own ground, which is dark where all else is light.
class SnackButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

  [[nodiscard]] QSize sizeHint() const override {
    const double width = lookOf(*this).text.width(text(), kButtonType);
    return {static_cast<int>(std::ceil(width)) + 2 * kButtonPadding, kButtonHeight};
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    constexpr float kHovered = 0.12F;
    constexpr float kPressed = 0.24F;
    QPainter painter(this);
    Look& look = lookOf(*this);
    const QColor& ink = look[Token::tooltipText];
    QColor ground = ink;
    ground.setAlphaF(isDown() ? kPressed : underMouse() ? kHovered : 0.0F);
    const bool hasRing = hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
    paintBox(painter, rect(), 7, ground, {hasRing ? ink : QColor(Qt::transparent), 2});
    look.text.draw(painter, {QRectF(rect()), TextAnchor::centre}, text(), kButtonType, ink);
  }
};

}  // namespace

Snackbar::Snackbar(Clock& clock, QWidget& sheet)
    : QWidget(&sheet),
      clock_(clock),
      sheet_(sheet),
      button_(new SnackButton(this)),
      entrance_(new Entrance(*this)) {
  connect(entrance_, &QVariantAnimation::valueChanged, this, &Snackbar::place);
  connect(entrance_, &QVariantAnimation::finished, this, &Snackbar::place);
  sheet.installEventFilter(this);
  button_->setFocusPolicy(Qt::TabFocus);
  keepRingInside(*button_);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
    if (now == button_) before_ = before;
  });
  connect(button_, &QPushButton::clicked, this, &Snackbar::act);
  hide();
}

void Snackbar::say(const QString& text) {
  run_ = nullptr;
  appear(text);
}

void Snackbar::offer(const QString& text, const QString& action, std::function<void()> run) {
  button_->setText(action);
  run_ = std::move(run);
  appear(text);
}

void Snackbar::appear(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  const bool hasButton = run_ != nullptr;
  if (!hasButton && button_->hasFocus()) leave();
  button_->setVisible(hasButton);
  setAttribute(Qt::WA_TransparentForMouseEvents, !hasButton);
  if (isHidden()) entrance_->begin();
  place();
  raise();
  show();
  update();
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
  detach(hideLater(this, ++generation_), "A message");
}

void Snackbar::takeFocus() {
  if (run_ != nullptr) button_->setFocus(Qt::TabFocusReason);
}

/// The bar is gone before it acts, which may have something else to say.
void Snackbar::act() {
  const std::function<void()> run = std::exchange(run_, nullptr);
  leave();
  if (run != nullptr) run();
}

void Snackbar::leave() {
  ++generation_;
  if (button_->hasFocus() && before_ != nullptr) before_->setFocus(Qt::OtherFocusReason);
  hide();
}

Task<> Snackbar::hideLater(QPointer<Snackbar> bar, int generation) {
  do {
    co_await bar->clock_.sleepFor(kShown, {});
  } while (bar && bar->generation_ == generation && bar->button_->hasFocus());
  if (bar && bar->generation_ == generation) bar->hide();
}

bool Snackbar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &sheet_ && event->type() == QEvent::Resize) place();
  return QWidget::eventFilter(watched, event);
}

void Snackbar::place() {
  const int most = sheet_.width() - 2 * kAway;
  const int button = run_ == nullptr ? 0 : button_->sizeHint().width();
  const int end = button == 0 ? kPadding : kPadding + button + kButtonInset;
  const int wanted =
      static_cast<int>(std::ceil(lookOf(*this).text.width(text_, kBodyType))) + kPadding + end;
  const int width = std::min(most, wanted);
  const int rest = sheet_.height() - kHeight - kAway;
  const int below = static_cast<int>(entrance_->left() * (kHeight + kAway));
  setGeometry((sheet_.width() - width) / 2, rest + below, width, kHeight);
  const QRect place(width - kButtonInset - button, (kHeight - kButtonHeight) / 2, button,
                    kButtonHeight);
  button_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

void Snackbar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBox(painter, rect(), 8, look[Token::tooltip]);
  QRect line = rect().adjusted(kPadding, 0, -kPadding, 0);
  if (run_ != nullptr) line.setRight(line.right() - button_->width() - kButtonInset);
  line = QStyle::visualRect(layoutDirection(), rect(), line);
  const TextAnchor anchor =
      layoutDirection() == Qt::RightToLeft ? TextAnchor::right : TextAnchor::left;
  look.text.drawElided(painter, {QRectF(line), run_ == nullptr ? TextAnchor::centre : anchor},
                       text_, kBodyType, look[Token::tooltipText]);
}

}  // namespace quillet
