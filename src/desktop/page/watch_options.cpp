// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/watch_options.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/button_look.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/page_metrics.h"
#include "desktop/page/popover_frame.h"
#include "desktop/page/watch_options_form.h"

namespace quillet {

namespace {

constexpr int kWidth = 320;
constexpr int kDialogWidth = 368;
constexpr int kPadding = 16;

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
                                         std::optional<double> lowest, QWidget* parent)
    : QWidget(parent, Qt::Popup),
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
}

void WatchOptionsPopover::openBelow(const QWidget& widget, WatchOptionsStart start) {
  below_ = &widget;
  fit();
  show();
  activateWindow();
  start == WatchOptionsStart::alerts ? form_->goToAlerts() : form_->goToTarget();
}

/// A remark comes and goes.
void WatchOptionsPopover::fit() {
  if (below_ == nullptr) return;
  form_->layout()->activate();
  const QSize size(kWidth, std::max(layout()->sizeHint().height(), 0));
  if (size == this->size()) return;
  setGeometry(popoverPlace(*below_, size));
  cutPopoverCorners(*this);
}

void WatchOptionsPopover::keep() {
  if (std::exchange(isKept_, true)) return;
  perform(world_.view, {app_}, form_->change());
}

void WatchOptionsPopover::paintEvent(QPaintEvent* /*event*/) { paintPopover(*this); }

void WatchOptionsPopover::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(event);
}

void WatchOptionsPopover::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  keep();
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
  setFixedWidth(kDialogWidth);
  auto* cancel = new QPushButton(tr("Cancel"));
  auto* done = new QPushButton(tr("Done"));
  setButtonKind(*done, ButtonKind::primary);
  done->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(done);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(20);
  column->addWidget(form_);
  column->addLayout(buttons);
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
