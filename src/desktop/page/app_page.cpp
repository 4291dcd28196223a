// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/app_page.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/lists/list_strip.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/price_sums.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/arrange_window.h"
#include "desktop/page/choice_summary.h"
#include "desktop/page/note_row.h"
#include "desktop/page/page_blocks.h"
#include "desktop/page/page_header.h"
#include "desktop/page/page_layout.h"
#include "desktop/page/page_marks.h"
#include "desktop/page/page_text.h"
#include "desktop/page/sticky_header.h"
#include "desktop/page/watch_button.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr std::chrono::minutes kAgePasses{1};
constexpr std::string_view kNotesBlock = "notes";

constexpr std::array kVerdictKeys{kShowMaintenanceRating.key, kSlowingAfterMonths.key,
                                  kStaleAfterMonths.key, kAbandonedAfterMonths.key};

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

bool isKnown(const PageFacts& facts) { return !facts.name.empty() || facts.cached; }

/// Qt tells of a scroll area what scrolls and its bars alone; strip and sticky header are more.
QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
  auto* page = qobject_cast<AppPage*>(object);
  return page == nullptr ? nullptr : new QAccessibleWidget(page);
}

void beReadWhole() {
  static const bool isTold = [] {
    QAccessible::installFactory(accessibleOf);
    return true;
  }();
  static_cast<void>(isTold);
}

/// In the place of an app of which nothing is known (yet).
QString unknownText(const ListState& state) {
  if (std::holds_alternative<Loading>(state) || std::holds_alternative<BudgetWait>(state))
    return AppPage::tr("Asking the store…");
  if (std::holds_alternative<Ready>(state)) return {};
  return AppPage::tr("Nothing is known of this app");
}

}  // namespace

AppPage::AppPage(const ViewWorld& world)
    : world_{world, std::make_shared<const LocaleFormats>(world.locale),
             std::make_shared<StorefrontShelf>(world.clock, kStorefrontShelfLimits),
             [this] { Q_EMIT collectAsked(); }, [this] { Q_EMIT compareAsked(); }},
      controller_(world),
      strip_(new ListStrip(world.clock)),
      body_(new QWidget),
      layout_(new PageLayout(*this, body_)),
      header_(new PageHeader(world_)),
      notice_(
          new PageText({.type = kSectionType, .ink = Token::secondary, .lineHeight = 24}, this)),
      summary_(new ChoiceSummary),
      sticky_(new StickyHeader(world_, this)),
      edge_(new FocusEdge(this)) {
  beReadWhole();
  setAccessibleName(tr("App page"));
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->lower();
  verticalScrollBar()->parentWidget()->raise();  // above what stays in sight
  body_->setBackgroundRole(QPalette::Base);
  layout_->addWidget(header_);
  blocks_ = new PageBlocks(world_, *this, *layout_);
  blocks_->setParent(this);
  connect(blocks_, &PageBlocks::shownChanged, this, &AppPage::blocksChanged);
  setWidget(body_);
  notice_->setParent(viewport());
  summary_->setParent(viewport());
  age_.setInterval(kAgePasses);
  connect(&age_, &QTimer::timeout, this, &AppPage::fillHeader);
  strip_->setParent(this);
  connect(&controller_, &PageController::factsChanged, this, &AppPage::fill);
  connect(&controller_, &PageController::stateChanged, this, &AppPage::showState);
  connect(&controller_, &PageController::unreadable, this, [this] {
    facts_.reset();
    blocks_->clear();
    say(tr("The library cannot be read."));
  });
  connect(header_, &PageHeader::goes, this, &AppPage::goes);
  connect(header_, &PageHeader::said, this, &AppPage::said);
  connect(header_, &PageHeader::arrangeAsked, this, &AppPage::arrangeBlocks);
  connect(&world.settings, &LiveSettings::changed, this, &AppPage::follow);
  connect(strip_, &ListStrip::acted, &controller_, &PageController::act);
  show(std::nullopt);
}

void AppPage::show(const std::optional<AppKey>& app) {
  leaveSummary();
  controller_.show(app);
  if (app) return;
  facts_.reset();
  blocks_->clear();
  say({});
}

void AppPage::showSeveral(const std::vector<KnownPrice>& prices) {
  controller_.show(std::nullopt);
  facts_.reset();
  blocks_->clear();
  say({});
  const bool isAnyKnown = priceTotals(prices).unknown < prices.size();
  const QStringList sums = isAnyKnown ? sumParts(prices, *world_.formats) : QStringList();
  summary_->show(static_cast<int>(prices.size()), sums.join(QStringLiteral(" · ")));
}

void AppPage::setCommonActions(const std::vector<QAction*>& actions) {
  summary_->setActions(actions);
}

/// The page keeps the focus that a button there had.
void AppPage::leaveSummary() {
  const QWidget* focused = window()->focusWidget();
  if (focused != nullptr && summary_->isAncestorOf(focused)) setFocus(Qt::OtherFocusReason);
  summary_->hide();
}

void AppPage::refresh() {
  controller_.refresh();
  blocks_->askAgain();
}

void AppPage::openWatchOptions() {
  WatchButton& button = sticky_->isVisible() ? sticky_->watch() : header_->watch();
  button.openOptions(WatchOptionsStart::alerts);
}

void AppPage::arrangeBlocks() { quillet::arrangeBlocks(this, world_.view.settings); }

bool AppPage::hasNotes() const {
  return facts_ && !facts_->entries.empty() && blocks_->has(kNotesBlock);
}

void AppPage::editNote(RowId collection) {
  if (!hasNotes()) return;
  blocks_->finish();
  const QList<NoteRow*> rows = findChildren<NoteRow*>();
  const auto wanted = std::ranges::find(rows, collection, &NoteRow::collection);
  NoteRow* row = wanted == rows.end() ? rows.value(0) : *wanted;
  if (row == nullptr) return;
  row->edit();
  ensureWidgetVisible(row);
}

bool AppPage::shows(std::string_view block) const { return facts_ && blocks_->shows(block); }

void AppPage::goTo(std::string_view block) {
  if (facts_) blocks_->goTo(block);
}

void AppPage::fill() {
  const PageFacts& facts = *controller_.facts();
  const bool isOther = !facts_ || facts_->app != facts.app;
  facts_ = facts;
  if (isKnown(facts)) {
    showFacts(isOther ? Scroll::top : Scroll::stays);
    place();
  } else {
    blocks_->clear();
    say(unknownText(controller_.state()));
  }
  Q_EMIT filled();
}

void AppPage::showFacts(Scroll scroll) {
  notice_->show({});
  body_->setVisible(true);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  fillHeader();
  if (scroll == Scroll::top) verticalScrollBar()->setValue(0);
  blocks_->show(*facts_);
}

/// What is known stays below the strip.
void AppPage::showState() {
  strip_->setState(controller_.state());
  blocks_->setMayAsk(controller_.isSettled());
  if (facts_ && !isKnown(*facts_)) say(unknownText(controller_.state()));
  place();
  if (std::exchange(wasAsking_, isAsking()) != isAsking()) Q_EMIT askingChanged();
}

/// What the user wants of verdicts is seen at once.
void AppPage::follow(const std::set<std::string>& keys) {
  const bool isAboutVerdicts = std::ranges::any_of(
      kVerdictKeys, [&](std::string_view key) { return keys.contains(std::string(key)); });
  if (!isAboutVerdicts || !facts_ || !isKnown(*facts_)) return;
  fillHeader();
  blocks_->show(*facts_);
}

void AppPage::fillHeader() {
  if (!facts_ || !isKnown(*facts_)) return;
  const std::vector<PageMark> marks = pageMarks(*facts_, world_);
  header_->show(*facts_, marks);
  sticky_->show(*facts_, marks.front());
}

/// In the place of an app; an empty text says nothing.
void AppPage::say(const QString& notice) {
  body_->setVisible(false);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // of what is hidden
  sticky_->setVisible(false);
  notice_->show(notice);
  place();
}

void AppPage::place() {
  const int top = strip_->isHidden() ? 0 : strip_->height();
  // The scroll bar lies above the page, whose screenshots go on to the edge.
  const int bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  setViewportMargins(isMirrored ? -bar : 0, top, isMirrored ? 0 : -bar, 0);
  strip_->setGeometry(isMirrored ? bar : 0, 0, width() - bar, strip_->height());
  const QSize said = notice_->sizeHint();
  const QPoint in((width() - said.width()) / 2, height() * 2 / 5);
  notice_->setGeometry({in - viewport()->pos(), said});
  summary_->setGeometry(viewport()->rect());
  edge_->setGeometry(rect());
  sticky_->setInset(layout_->inset());
  sticky_->setGeometry(0, top, width(), StickyHeader::kHeight);
  const int nameBottom = header_->geometry().top() + header_->nameBottom();
  sticky_->setVisible(body_->isVisibleTo(this) && verticalScrollBar()->value() >= nameBottom);
}

void AppPage::resizeEvent(QResizeEvent* event) {
  layout_->invalidate();
  QScrollArea::resizeEvent(event);
  place();
  blocks_->look();
}

void AppPage::scrollContentsBy(int dx, int dy) {
  QScrollArea::scrollContentsBy(dx, dy);
  place();
  blocks_->look();
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
  controller_.setSeen(true);
  fillHeader();
  blocks_->look();
  age_.start();
}

void AppPage::hideEvent(QHideEvent* event) {
  QScrollArea::hideEvent(event);
  controller_.setSeen(false);
  age_.stop();
}

void AppPage::keyPressEvent(QKeyEvent* event) {
  QScrollBar& bar = *verticalScrollBar();
  if (event->key() == Qt::Key_Home) return bar.setValue(bar.minimum());
  if (event->key() == Qt::Key_End) {
    blocks_->finish();
    return bar.setValue(bar.maximum());
  }
  if (event->key() == Qt::Key_Space) {
    const bool isBack = event->modifiers().testFlag(Qt::ShiftModifier);
    return bar.triggerAction(isBack ? QScrollBar::SliderPageStepSub
                                    : QScrollBar::SliderPageStepAdd);
  }
  QScrollArea::keyPressEvent(event);
}

void AppPage::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) layout_->invalidate();
}

}  // namespace quillet
