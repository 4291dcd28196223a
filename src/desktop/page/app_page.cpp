// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/app_page.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include "base/errors.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_header.h"
#include "desktop/page/page_layout.h"
#include "desktop/page/page_marks.h"
#include "desktop/page/page_text.h"
#include "desktop/page/sticky_header.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr std::chrono::minutes kAgePasses{1};

std::vector<PageMark> pageMarks(const PageFacts& facts, const PageWorld& world) {
  const ViewWorld& view = world.view;
  MarkTerms terms{*world.formats, {}, view.zone, view.clock.now()};
  if (readSetting(view.settings, kShowMaintenanceRating))
    terms.maintenance = readMaintenanceThresholds(view.settings);
  return marksOf(facts, terms);
}

/// The focus ring of a page, inside its edge.
class FocusEdge : public QWidget {
 public:
  explicit FocusEdge(QWidget* page) : QWidget(page) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setVisible(false);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    paintBox(painter, rect(), 0, Qt::transparent, {lookOf(*this)[Token::accentText], 2});
  }
};

bool touches(const LibraryChanges& changes, const AppKey& app) {
  return changes.watchedApps.contains(app) || changes.ownedApps.contains(app) ||
         changes.cachedApps.contains(app) || changes.prices.contains(app) ||
         !changes.collections.empty();
}

}  // namespace

AppPage::AppPage(const ViewWorld& world)
    : world_{world, std::make_shared<const LocaleFormats>(world.locale)},
      body_(new QWidget),
      layout_(new PageLayout(*this, body_)),
      header_(new PageHeader(world_)),
      notice_(
          new PageText({.type = kSectionType, .ink = Token::secondary, .lineHeight = 24}, this)),
      sticky_(new StickyHeader(world.images, this)),
      edge_(new FocusEdge(this)) {
  setAccessibleName(tr("App page"));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
  body_->setBackgroundRole(QPalette::Base);
  layout_->addWidget(header_);
  setWidget(body_);
  age_.setInterval(kAgePasses);
  connect(&age_, &QTimer::timeout, this, &AppPage::fillHeader);
  connect(&world_.view.library, &LibraryGateway::changed, this, &AppPage::note);
  connect(&world_.view.library, &LibraryGateway::changedElsewhere, this, [this] {
    if (app_) want();
  });
  show(std::nullopt);
}

void AppPage::show(const std::optional<AppKey>& app, std::size_t chosen) {
  app_ = app;
  if (app_) return want();
  facts_.reset();
  say(chosen > 1 ? tr("%n apps chosen", nullptr, static_cast<int>(chosen)) : QString());
}

void AppPage::refresh() {
  if (app_) want();
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
    facts_.reset();
    say(tr("The library cannot be read."));
  }
  if (isStale_ && app_) want();
}

void AppPage::note(const LibraryChanges& changes) {
  if (app_ && touches(changes, *app_)) want();
}

void AppPage::fill(const PageFacts& facts) {
  const bool isOther = !facts_ || facts_->app != facts.app;
  facts_ = facts;
  notice_->show({});
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  body_->setVisible(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  fillHeader();
  fillBlocks();
  if (isOther) verticalScrollBar()->setValue(0);
  place();
  Q_EMIT filled();
}

void AppPage::fillHeader() {
  if (!facts_) return;
  const std::vector<PageMark> marks = pageMarks(*facts_, world_);
  header_->show(*facts_, marks);
  sticky_->show(facts_->artwork.value_or(""), nameLine(facts_->name), marks.front());
}

void AppPage::fillBlocks() {
  for (std::size_t i = blocks_.size(); i < blockTable().size(); ++i) {
    const BlockRow& row = blockTable()[i];
    blocks_.push_back(row.make(QCoreApplication::translate("Page", row.title), world_));
    layout_->addWidget(blocks_.back());
  }
  for (Block* block : blocks_) block->setVisible(block->fill(*facts_));
}

/// In the place of an app; an empty text says nothing.
void AppPage::say(const QString& notice) {
  // What is hidden would leave its scroll bar.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  body_->setVisible(false);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // of what is hidden
  sticky_->setVisible(false);
  notice_->show(notice);
  place();
}

void AppPage::place() {
  const QSize said = notice_->sizeHint();
  notice_->setGeometry(QRect(QPoint((width() - said.width()) / 2, height() * 2 / 5), said));
  edge_->setGeometry(rect());
  sticky_->setInset(layout_->inset());
  sticky_->setGeometry(0, 0, width(), StickyHeader::kHeight);
  const int nameBottom = header_->geometry().top() + header_->nameBottom();
  sticky_->setVisible(facts_.has_value() && verticalScrollBar()->value() >= nameBottom);
}

void AppPage::resizeEvent(QResizeEvent* event) {
  layout_->invalidate();
  QScrollArea::resizeEvent(event);
  place();
}

void AppPage::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  place();
}

void AppPage::focusInEvent(QFocusEvent* event) {
  QScrollArea::focusInEvent(event);
  edge_->setVisible(window()->testAttribute(Qt::WA_KeyboardFocusChange));
  edge_->raise();
}

void AppPage::focusOutEvent(QFocusEvent* event) {
  QScrollArea::focusOutEvent(event);
  edge_->setVisible(false);
}

void AppPage::showEvent(QShowEvent* event) {
  QScrollArea::showEvent(event);
  fillHeader();
  age_.start();
}

void AppPage::hideEvent(QHideEvent* event) {
  QScrollArea::hideEvent(event);
  age_.stop();
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
