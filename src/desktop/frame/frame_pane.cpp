// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/frame_pane.h"

#include <QMenuBar>
#include <QPainter>
#include <algorithm>

#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr int kRailBelow = 900;

/// Between sidebar and sheet, whose edge is line enough.
class PlainHandle : public QSplitterHandle {
 public:
  using QSplitterHandle::QSplitterHandle;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter(this).fillRect(contentsRect(), lookOf(*this)[Token::side]);
  }
};

}  // namespace

FramePane::FramePane(Sidebar* sidebar, QWidget* sheet, QMenuBar& menuBar, WindowMemory& memory)
    : QSplitter(Qt::Horizontal),
      sidebar_(sidebar),
      menuBar_(menuBar),
      memory_(memory),
      showsSidebar_(memory.showsSidebar()),
      showsMenuBar_(memory.showsMenuBar()),
      width_(memory.sidebarWidth()) {
  addWidget(sidebar);
  addWidget(sheet);
  setStretchFactor(0, 0);
  setStretchFactor(1, 1);
  setChildrenCollapsible(false);
  menuBar_.setVisible(showsMenuBar_);
  connect(this, &QSplitter::splitterMoved, this, [this] {
    if (sidebar_->view().shape() == SidebarShape::rail) return;
    width_ = sidebar_->width();
    memory_.setSidebarWidth(width_);
  });
  arrange();
}

void FramePane::toggleSidebar() {
  showsSidebar_ = !showsSidebar_;
  memory_.setShowsSidebar(showsSidebar_);
  arrange();
}

void FramePane::toggleMenuBar() {
  showsMenuBar_ = !showsMenuBar_;
  memory_.setShowsMenuBar(showsMenuBar_);
  menuBar_.setVisible(showsMenuBar_);
}

QSplitterHandle* FramePane::createHandle() { return new PlainHandle(orientation(), this); }

void FramePane::resizeEvent(QResizeEvent* event) {
  arrange();
  QSplitter::resizeEvent(event);
}

void FramePane::changeEvent(QEvent* event) {
  QSplitter::changeEvent(event);
  if (event->type() == QEvent::FontChange) arrange();
}

void FramePane::arrange() {
  const bool isRail = width() < kRailBelow;
  sidebar_->setShape(isRail ? SidebarShape::rail : SidebarShape::full);
  sidebar_->setVisible(showsSidebar_);
  constexpr double kNames = 0.6;  // of its width
  const double usual = Sidebar::kWidth * (1 + kNames * (lookOf(*this).growth() - 1));
  const int wanted = width_ > 0 ? width_ : static_cast<int>(usual);
  // The rail is narrower than anything wanted.
  const int sidebar = std::min(wanted, sidebar_->maximumWidth());
  setSizes({sidebar, width() - sidebar});
  Q_EMIT arranged();
}

}  // namespace quillet
