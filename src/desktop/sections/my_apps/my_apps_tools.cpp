// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_tools.h"

#include <QStyle>

#include "desktop/look/segmented_control.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {
constexpr int kHeight = 52;
constexpr int kControl = 32;
constexpr int kGap = 8;
}  // namespace

MyAppsTools::MyAppsTools()
    : sights_(new SegmentedControl(tr("View"), {tr("List"), tr("Upkeep")}, this)) {
  setAccessibleName(tr("View of My Apps"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  connect(sights_, &SegmentedControl::chosenChanged, this,
          [this](int index) { Q_EMIT sightChosen(static_cast<MyAppsSight>(index)); });
}

void MyAppsTools::setButton(QWidget* button) {
  button_ = button;
  button_->setParent(this);
  updateGeometry();
  arrange();
}

void MyAppsTools::show(MyAppsSight sight) { sights_->choose(static_cast<int>(sight)); }

QSize MyAppsTools::sizeHint() const {
  const int button = button_ == nullptr ? 0 : kGap + button_->sizeHint().width();
  return {sights_->sizeHint().width() + button, kHeight};
}

QSize MyAppsTools::minimumSizeHint() const {
  const int button = button_ == nullptr ? 0 : kGap + button_->minimumSizeHint().width();
  return {sights_->sizeHint().width() + button, kHeight};
}

void MyAppsTools::arrange() {
  const auto put = [&](QWidget* widget, int right, int wide) {
    const QRect place(right - wide, (height() - kControl) / 2, wide, kControl);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  };
  int right = width();
  if (button_ != nullptr) {
    const bool hasRoom = width() >= sizeHint().width();
    put(button_, right, (hasRoom ? button_->sizeHint() : button_->minimumSizeHint()).width());
    right -= button_->width() + kGap;
  }
  put(sights_, right, std::min(right, sights_->sizeHint().width()));
}

bool MyAppsTools::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    arrange();
  }
  return QWidget::event(event);
}

void MyAppsTools::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void MyAppsTools::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event) || sights_ == nullptr) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet
