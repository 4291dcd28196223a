// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/section_bars.h"

namespace quillet {

namespace {

constexpr int kHeight = 44;

}  // namespace

SectionBars::SectionBars(QWidget* parent) : QWidget(parent), layout_(new QStackedLayout(this)) {
  layout_->setContentsMargins({});
  setMinimumHeight(kHeight);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  hide();
}

void SectionBars::add(QWidget* bar) { layout_->addWidget(bar); }

void SectionBars::showBar(QWidget* bar) {
  if (bar != nullptr) layout_->setCurrentWidget(bar);
  setVisible(bar != nullptr);
}

/// The first thing in it that takes the focus.
void SectionBars::takeFocus() {
  const QWidget* const bar = layout_->currentWidget();
  if (bar == nullptr) return;
  for (QWidget* each : bar->findChildren<QWidget*>()) {
    if (each->isVisible() && each->isEnabled() && (each->focusPolicy() & Qt::TabFocus) != 0)
      return each->setFocus(Qt::ShortcutFocusReason);
  }
}

}  // namespace quillet
