// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/sidebar.h"

#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr int kNarrowest = 180;
constexpr int kWidest = 320;
constexpr int kRail = 55;  // and the handle beside it

}  // namespace

Sidebar::Sidebar(SidebarModel& places, Clock& clock, UtcOffsetAt zone)
    : view_(new SidebarView(places)), foot_(new StatusFoot(clock, std::move(zone))) {
  setAccessibleName(tr("Sidebar"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(view_);
  layout->addWidget(foot_);
  setShape(SidebarShape::full);
}

void Sidebar::setShape(SidebarShape shape) {
  const bool isRail = shape == SidebarShape::rail;
  view_->setShape(shape);
  foot_->setRail(isRail);
  setMinimumWidth(isRail ? kRail : kNarrowest);
  setMaximumWidth(isRail ? kRail : kWidest);
}

void Sidebar::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), lookOf(*this)[Token::side]);
}

}  // namespace quillet
