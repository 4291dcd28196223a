// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/watch_options.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/watch_options_form.h"

namespace quillet {

namespace {

constexpr int kWidth = 320;
constexpr int kDialogWidth = 368;
constexpr int kPadding = 16;
constexpr int kCorner = 10;
constexpr int kAway = 6;  // from the button

void perform(const ViewWorld& view, const std::vector<WatchedApp>& apps,
             const WatchChange& change) {
  if (change == WatchChange()) return;
  std::vector<AppKey> keys;
  for (const WatchedApp& app : apps) keys.push_back(keyOf(app));
  view.edits.perform(
      changeEdit(std::move(keys), {nameLine(apps.front().name), apps.size()}, change));
}

}  // namespace

WatchOptionsPopover::WatchOptionsPopover(const PageWorld& world, const WatchedApp& app,
                                         std::optional<double> lowest, QWidget* window)
    : QWidget(window),
      world_(world),
      app_(app),
      form_(new WatchOptionsForm(world, {app}, lowest, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(tr("Watch options"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  column->addWidget(form_);
  connect(form_, &WatchOptionsForm::submitted, this, [this] {
    if (form_->isValid()) close();
  });
  connect(form_, &WatchOptionsForm::changed, this, &WatchOptionsPopover::fit);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && !holds(now)) close();
  });
}

void WatchOptionsPopover::openBelow(const QWidget& widget, WatchOptionsStart start) {
  below_ = &widget;
  before_ = window()->focusWidget();
  fit();
  raise();
  show();
  start == WatchOptionsStart::alerts ? form_->goToAlerts() : form_->goToTarget();
  qApp->installEventFilter(this);
}

/// Also of what a combo box opens, which is a window.
bool WatchOptionsPopover::holds(const QObject* object) const {
  while (object != nullptr && object != this) object = object->parent();
  return object == this;
}

/// A remark comes and goes.
void WatchOptionsPopover::fit() {
  if (below_.isNull()) return;
  const QRect in = parentWidget()->rect();
  const QSize wanted = layout()->sizeHint();  // large texts are wide
  const QSize size(std::clamp(wanted.width(), kWidth, std::max(kWidth, in.width())),
                   wanted.height());
  const QRect at(below_->mapTo(window(), QPoint(0, 0)), below_->size());
  QRect place(QPoint(at.left(), at.bottom() + 1 + kAway), size);
  if (layoutDirection() == Qt::RightToLeft) place.moveRight(at.right());
  if (place.bottom() > in.bottom()) place.moveBottom(at.top() - 1 - kAway);
  place.moveLeft(std::clamp(place.left(), 0, std::max(0, in.width() - size.width())));
  place.moveTop(std::clamp(place.top(), 0, std::max(0, in.height() - size.height())));
  setGeometry(place);
}

void WatchOptionsPopover::keep() {
  if (std::exchange(isKept_, true)) return;
  perform(world_.view, {app_}, form_->change());
}

void WatchOptionsPopover::paintEvent(QPaintEvent* /*event*/) {
  const Look& look = lookOf(*this);
  QPainter painter(this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  paintBox(painter, rect(), kCorner, look[isDark ? Token::raised : Token::base],
           {look[Token::edge]});
}

/// Escape is its own here, before it leads to the list.
bool WatchOptionsPopover::event(QEvent* event) {
  const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
    return QWidget::event(event);
  event->accept();
  if (event->type() == QEvent::KeyPress) close();
  return true;
}

/// A click elsewhere, or another size of the window.
bool WatchOptionsPopover::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::MouseButtonPress && watched->isWidgetType();
  const bool isResize = event->type() == QEvent::Resize && watched == window();
  if ((isPress && !holds(watched)) || isResize) close();
  return false;
}

/// Goes round in it.
bool WatchOptionsPopover::focusNextPrevChild(bool next) {
  QWidget* at = focusWidget();
  if (at == nullptr) return QWidget::focusNextPrevChild(next);
  QWidget* to = at;
  do {
    to = next ? to->nextInFocusChain() : to->previousInFocusChain();
  } while (to != at && (!holds(to) || !to->isVisible() || !to->isEnabled() ||
                        (to->focusPolicy() & Qt::TabFocus) == 0));
  to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void WatchOptionsPopover::hideEvent(QHideEvent* event) {
  qApp->removeEventFilter(this);
  QWidget::hideEvent(event);
  keep();
  const QWidget* now = window()->focusWidget();
  if (before_ && (now == nullptr || holds(now))) before_->setFocus(Qt::PopupFocusReason);
}

WatchOptionsDialog::WatchOptionsDialog(const PageWorld& world, std::vector<WatchedApp> apps,
                                       std::optional<double> lowest, QWidget* parent)
    : QDialog(parent),
      world_(world),
      apps_(std::move(apps)),
      form_(new WatchOptionsForm(world, apps_, lowest, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  const QString title =
      apps_.size() == 1 ? tr("Watch Options of “%1”").arg(nameLine(apps_.front().name))
                        : tr("Watch Options of %n apps", nullptr, static_cast<int>(apps_.size()));
  setWindowTitle(title);
  setAccessibleName(title);
  auto* cancel = new DialogButton(tr("Cancel"));
  auto* done = new DialogButton(tr("Done"), ButtonKind::primary);
  done->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(done);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(20);
  column->addWidget(form_);
  column->addLayout(buttons);
  setFixedWidth(std::max(kDialogWidth, sizeHint().width()));
  setTabOrder(form_, cancel);
  setTabOrder(cancel, done);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(done, &QPushButton::clicked, this, &QDialog::accept);
  connect(this, &QDialog::accepted, this, &WatchOptionsDialog::keep);
  connect(form_, &WatchOptionsForm::changed, this,
          [this, done] { done->setEnabled(form_->isValid()); });
  form_->goToAlerts();
}

void WatchOptionsDialog::keep() { perform(world_.view, apps_, form_->change()); }

}  // namespace quillet
