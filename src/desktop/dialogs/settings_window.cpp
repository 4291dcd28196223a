// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/settings_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>
#include <algorithm>

#include "desktop/dialogs/notice_bar.h"
#include "desktop/dialogs/settings_index.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr QSize kUsual(608, 520);
constexpr QSize kSmallest(480, 360);
constexpr double kMostGrowth = 1.4;

// Stored; never change.
constexpr auto kRememberedPage = "settingsPage"_L1;

std::vector<SettingsPage*> madePages(const SettingsWorld& world) {
  std::vector<SettingsPage*> pages{makeGeneralPage(world), makeWatchlistPage(world)};
  if (world.system.notifications != nullptr) pages.push_back(makeNotificationsPage(world));
  for (auto* make : {makeMaintenancePage, makeAppearancePage, makeDataPage, makeStoragePage})
    pages.push_back(make(world));
  if (world.system.updates != nullptr) pages.push_back(makeUpdatesPage(world));
  return pages;
}

}  // namespace

SettingsWindow::SettingsWindow(const ViewWorld& world, const SystemChoices& system, QWidget* parent)
    : QDialog(parent),
      world_(world),
      system_(system),
      edit_(world.settings),
      pages_(madePages({world_, system_, edit_})),
      index_(new SettingsIndex(pages_)),
      notice_(new NoticeBar),
      stack_(new QStackedWidget) {
  setWindowTitle(tr("Settings"));
  setMinimumSize(kSmallest);
  // As much larger as its texts are; beyond that it scrolls.
  resize(kUsual * std::min(lookOf(*this).growth(), kMostGrowth));
  for (SettingsPage* page : pages_) stack_->addWidget(page);
  auto* beside = new QVBoxLayout;
  beside->setSpacing(0);
  beside->addWidget(notice_);
  beside->addWidget(stack_, 1);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(0);
  row->addWidget(index_);
  row->addLayout(beside, 1);
  connect(index_, &SettingsIndex::pageChosen, this,
          [this](SettingsPage* page) { showPage(*page); });
  connect(index_, &SettingsIndex::rowChosen, this,
          [this](SettingsPage* page, SettingRow* found) { showRow(*page, *found); });
  connect(&edit_, &SettingsEdit::failed, notice_, &NoticeBar::say);
  connect(&edit_, &SettingsEdit::succeeded, notice_, [this] { notice_->say({}); });
  auto* closes = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_W), this);
  connect(closes, &QShortcut::activated, this, &QWidget::close);
  auto* finds = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
  connect(finds, &QShortcut::activated, index_, &SettingsIndex::takeSearchFocus);
  const auto remembered =
      std::ranges::find(pages_, world_.state.value(kRememberedPage).toString(), &SettingsPage::id);
  showPage(remembered == pages_.end() ? *pages_.front() : **remembered);
  index_->takeFocus();
}

void SettingsWindow::showFirst() { showPage(*pages_.front()); }

void SettingsWindow::showPage(SettingsPage& page) {
  stack_->setCurrentWidget(&page);
  index_->choose(page);
  world_.state.setValue(kRememberedPage, page.id());
}

void SettingsWindow::showRow(SettingsPage& page, SettingRow& row) {
  showPage(page);
  page.reveal(row);
}

/// What others wrote meanwhile counts.
bool SettingsWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) {
    for (SettingsPage* page : pages_) page->refresh();
  }
  return QDialog::event(event);
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && index_->isSearching()) return index_->stopSearching();
  QDialog::keyPressEvent(event);
}

void SettingsWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), lookOf(*this)[Token::base]);
}

}  // namespace quillet
