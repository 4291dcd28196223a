// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/app_page.h"

#include <QKeyEvent>
#include <QScrollBar>

#include "base/errors.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_header.h"
#include "desktop/page/page_layout.h"
#include "desktop/page/page_marks.h"
#include "desktop/page/page_metrics.h"
#include "desktop/page/page_text.h"
#include "desktop/page/sticky_header.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

std::vector<PageMark> pageMarks(const PageFacts& facts, const PageWorld& world) {
  const ViewWorld& view = world.view;
  MarkTerms terms{*world.formats, {}, view.zone, view.clock.now()};
  if (readSetting(view.settings, kShowMaintenanceRating))
    terms.maintenance = readMaintenanceThresholds(view.settings);
  return marksOf(facts, terms);
}

bool touches(const LibraryChanges& changes, const AppKey& app) {
  return changes.watchedApps.contains(app) || changes.ownedApps.contains(app) ||
         changes.cachedApps.contains(app) || changes.prices.contains(app) ||
         !changes.collections.empty();
}

}  // namespace

AppPage::AppPage(const ViewWorld& world, Prompts& prompts)
    : world_{world, prompts, std::make_shared<const LocaleFormats>(world.locale)},
      body_(new QWidget),
      layout_(new PageLayout(*this, body_)),
      header_(new PageHeader(world_)),
      notice_(
          new PageText({.type = kSectionType, .ink = Token::secondary, .lineHeight = 24}, this)),
      sticky_(new StickyHeader(world.images, this)) {
  setAccessibleName(tr("App page"));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
  body_->setBackgroundRole(QPalette::Base);
  layout_->addWidget(header_);
  setWidget(body_);
  connect(&world_.view.library, &LibraryGateway::changed, this, &AppPage::note);
  show(std::nullopt);
}

void AppPage::show(const std::optional<AppKey>& app, std::size_t chosen) {
  app_ = app;
  if (app_) return want();
  shown_ = std::nullopt;
  say(chosen > 1 ? tr("%n apps chosen", nullptr, static_cast<int>(chosen)) : QString());
}

/// One reading at a time: of apps that are passed by while it lasts, only the last is read.
void AppPage::want() {
  if (isReading_) {
    isStale_ = true;
    return;
  }
  isReading_ = true;
  isStale_ = false;
  detach(read(this, *app_), "an app's page");
}

Task<> AppPage::read(QPointer<AppPage> page, AppKey app) {
  std::optional<PageFacts> facts;
  try {
    facts = co_await page->world_.view.library.read(readPageFacts, app);
  } catch (const DatabaseError&) {
    facts.reset();
  }
  if (!page.isNull()) page->take(app, facts);
}

void AppPage::take(const AppKey& app, const std::optional<PageFacts>& facts) {
  isReading_ = false;
  if (app == app_ && facts) {
    fill(*facts);
  } else if (app == app_) {
    shown_ = std::nullopt;
    say(tr("The library cannot be read."));
  }
  if (isStale_ && app_) want();
}

void AppPage::note(const LibraryChanges& changes) {
  if (app_ && touches(changes, *app_)) want();
}

void AppPage::fill(const PageFacts& facts) {
  const std::vector<PageMark> marks = pageMarks(facts, world_);
  say({});
  body_->setVisible(true);
  header_->show(facts, marks);
  fillBlocks(facts);
  sticky_->show(facts.artwork.value_or(""), nameLine(facts.name), marks.front());
  if (shown_ != app_) verticalScrollBar()->setValue(0);
  shown_ = app_;
  placeSticky();
  Q_EMIT filled();
}

void AppPage::fillBlocks(const PageFacts& facts) {
  for (std::size_t i = blocks_.size(); i < blockTable().size(); ++i) {
    const BlockRow& row = blockTable()[i];
    blocks_.push_back(row.make(QCoreApplication::translate("Page", row.title), world_));
    layout_->addWidget(blocks_.back());
  }
  for (Block* block : blocks_) block->setVisible(block->fill(facts));
}

/// In the place of an app; an empty text says nothing.
void AppPage::say(const QString& notice) {
  body_->setVisible(false);
  sticky_->setVisible(false);
  notice_->show(notice);
}

void AppPage::placeSticky() {
  const int scrolled = verticalScrollBar()->value();
  sticky_->setInset(layout_->inset());
  sticky_->setGeometry(0, 0, width(), StickyHeader::kHeight);
  sticky_->setVisible(shown_.has_value() &&
                      scrolled >= header_->geometry().top() + header_->nameBottom());
}

void AppPage::resizeEvent(QResizeEvent* event) {
  layout_->invalidate();
  QScrollArea::resizeEvent(event);
  const QSize size = notice_->sizeHint();
  notice_->setGeometry(QRect(QPoint((width() - size.width()) / 2, height() * 2 / 5), size));
  placeSticky();
}

void AppPage::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  placeSticky();
}

void AppPage::keyPressEvent(QKeyEvent* event) {
  QScrollBar& bar = *verticalScrollBar();
  if (event->key() == Qt::Key_Home) return bar.setValue(bar.minimum());
  if (event->key() == Qt::Key_End) return bar.setValue(bar.maximum());
  QScrollArea::keyPressEvent(event);
}

void AppPage::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) layout_->invalidate();
}

}  // namespace quillet
