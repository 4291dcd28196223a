// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_pane.h"

#include <QVBoxLayout>
#include <algorithm>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/caption_line.h"
#include "desktop/lists/chip_bar.h"
#include "desktop/lists/list_placeholder.h"
#include "desktop/lists/list_strip.h"
#include "desktop/lists/row_pictures.h"

namespace quillet {

namespace {

constexpr int kTopGap = 8;  // where the rows are the first thing from above

template <typename... States>
bool isOneOf(const ListState& state) {
  return (std::holds_alternative<States>(state) || ...);
}

}  // namespace

ListPane::ListPane(const QString& name, const RowTable& table, std::unique_ptr<RowFeed> feed,
                   const ViewWorld& world)
    : world_(world),
      feed_(std::move(feed)),
      filter_(feed_->rows(), table),
      chips_(new ChipBar(name, table)),
      caption_(new CaptionLine),
      strip_(new ListStrip(world.clock)),
      view_(new AppListView(name, filter_, world.images)),
      placeholder_(new ListPlaceholder(name, table.empty)) {
  setAccessibleName(name);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  for (QWidget* part : std::initializer_list<QWidget*>{chips_, caption_, strip_})
    column->addWidget(part);
  column->addWidget(view_, 1);
  column->addWidget(placeholder_, 1);
  chips_->setVisible(!table.chips.empty());
  if (table.chips.empty() && !table.layout.hasDays) column->setContentsMargins(0, kTopGap, 0, 0);
  view_->hide();
  change_.setSingleShot(true);
  change_.setInterval(0);
  connect(&change_, &QTimer::timeout, this, &ListPane::changed);
  connect(chips_, &ChipBar::chosenChanged, this, [this](const std::vector<std::string>& chips) {
    RowView view = rowView();
    view.chips = chips;
    setRowView(view);
  });
  connect(strip_, &ListStrip::acted, this, [this](StripAction action) {
    if (action == StripAction::settings) return Q_EMIT settingsAsked();
    if (std::holds_alternative<Ready>(feed_->state())) return Q_EMIT actionAsked(remarkAction_);
    feed_->act(action);
  });
  connect(placeholder_, &ListPlaceholder::clearAsked, this,
          [this] { setRowView({{}, {}, rowView().sort}); });
  connect(placeholder_, &ListPlaceholder::actionAsked, this, &ListPane::actionAsked);
  connect(view_, &AppListView::noteWritten, this, &ListPane::noteWritten);
  connect(view_, &AppListView::watchClicked, this, &ListPane::watchClicked);
  connect(view_, &AppListView::opened, this, &ListPane::opened);
  connect(view_, &AppListView::menuAsked, this, &ListPane::menuAsked);
  connect(view_, &AppListView::chosenChanged, this, &ListPane::tellChanged);
  connect(view_, &AppListView::rested, this, &ListPane::askForSeen);
  connect(feed_.get(), &RowFeed::filled, this, &ListPane::showRows);
  connect(feed_.get(), &RowFeed::stateChanged, this, &ListPane::showState);
}

// Before the rows, which they show.
ListPane::~ListPane() {
  delete view_;
  delete board_;
}

void ListPane::expect(const Place& place) {
  pending_ = place;
  filter_.setView(place.rows);
  chips_->setChosen(rowView().chips);
  change_.stop();
  if (feed_->isFilled()) showRows();
}

void ListPane::bringBack(const Place& place) {
  pending_ = place;
  filter_.setView(place.rows);
  chips_->setChosen(rowView().chips);
  if (!feed_->isFilled()) return;
  // One that is not there may be among those that are still to be read.
  const bool mayCome = place.chosen && filter_.find(*place.chosen) < 0 && feed_->isBehind();
  if (!mayCome) showRows();
}

void ListPane::refresh() { feed_->refresh(); }

/// After rows came, went or changed.
void ListPane::showRows() {
  showState();
  if (pending_) {
    bringBackPending();
  } else {
    view_->settle();
  }
}

void ListPane::bringBackPending() {
  const Place place = *pending_;
  int row = place.chosen ? filter_.find(*place.chosen) : -1;
  if (row < 0) row = std::max(0, filter_.find(place.anchor.first));
  view_->chooseRow(row < filter_.rowCount() ? row : -1);
  view_->scrollToCurrent();
  view_->setAnchor(place.anchor);
  told_ = view_->anchor();
  pending_.reset();
  change_.stop();
  if (current() != place.chosen) change_.start();
}

void ListPane::showState() {
  const int shown = filter_.rowCount();
  const int all = feed_->rows().rowCount();
  // What the feed itself leaves out counts as left out by the chips.
  chips_->setCount(shown, std::max(all, feed_->total()));
  const bool isOff = std::holds_alternative<SwitchedOff>(remark_);
  strip_->setState(std::holds_alternative<Ready>(feed_->state()) ? remark_ : feed_->state());
  using Kind = ListPlaceholder::Kind;
  Kind kind = Kind::nothing;
  if (isOneOf<Loading, Reading>(feed_->state())) kind = Kind::loading;
  if (isOneOf<Ready, Stale, Paused>(feed_->state())) kind = all == 0 ? Kind::empty : Kind::noMatch;
  // What would come here comes no more.
  if (kind == Kind::empty && isOff) kind = Kind::nothing;
  placeholder_->setKind(shown > 0 ? Kind::nothing : kind);
  // Where there is nothing yet, there is nothing to filter.
  if (!filter_.table().chips.empty()) chips_->setVisible(shown > 0 || kind != Kind::empty);
  QWidget* alone = placeholder_;
  if (emptyView_ != nullptr && (kind == Kind::empty || kind == Kind::noMatch)) alone = emptyView_;
  showAlone(shown > 0 ? rowsView() : alone);
}

void ListPane::setRemark(const ListState& remark, const QString& action) {
  remark_ = remark;
  remarkAction_ = action;
  showState();
}

/// The focus stays with the list, whatever stands in its place for a while.
void ListPane::showAlone(QWidget* shown) {
  const QWidget* focused = window()->focusWidget();
  for (QWidget* part :
       {static_cast<QWidget*>(view_), static_cast<QWidget*>(placeholder_), emptyView_, board_}) {
    if (part == nullptr || part == shown) continue;
    const bool hadFocus = focused != nullptr && (focused == part || part->isAncestorOf(focused));
    shown->show();
    if (hadFocus) shown->setFocus(Qt::OtherFocusReason);
    part->hide();
  }
  shown->show();
}

void ListPane::setRowView(const RowView& view) {
  if (view == rowView()) return;
  filter_.setView(view);
  chips_->setChosen(rowView().chips);
  showState();
  if (pending_) {
    pending_->rows = view;
    Q_EMIT changed();
    return;
  }
  view_->settle();
  view_->scrollToCurrent();
  tellChanged();
}

std::optional<RowKey> ListPane::current() const { return view_->currentKey(); }

RowAnchor ListPane::anchor() const { return view_->anchor(); }

Place ListPane::keptIn(Place place) const {
  place.rows = rowView();
  place.chosen = pending_ ? pending_->chosen : current();
  place.anchor = pending_ ? pending_->anchor : anchor();
  return place;
}

std::vector<AppKey> ListPane::chosen() const {
  std::vector<AppKey> apps;
  std::set<AppKey> known;
  for (const RowKey& key : view_->chosenKeys()) {
    if (key.app.trackId != 0 && known.insert(key.app).second) apps.push_back(key.app);
  }
  return apps;
}

std::vector<RowKey> ListPane::chosenRows() const { return view_->chosenKeys(); }

void ListPane::choose(const RowKey& row) {
  const int place = filter_.find(row);
  if (place < 0) return;
  view_->chooseRow(place);
  view_->bringIntoSight(place);
}

void ListPane::takeFocus() {
  QWidget* widget = rowsView();
  if (widget->isHidden()) widget = placeholder_;
  if (emptyView_ != nullptr && !emptyView_->isHidden()) widget = emptyView_;
  widget->setFocus(Qt::OtherFocusReason);
}

void ListPane::editNote(const RowKey& row, const QString& note) {
  if (view_->isVisible()) view_->editNote(row, note);
}

void ListPane::setHead(QWidget* head) {
  delete std::exchange(head_, head);
  if (head == nullptr) return;
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->setContentsMargins({});
  column->insertWidget(0, head);
}

void ListPane::setCaption(const QStringList& texts) { caption_->setTexts(texts); }

void ListPane::setEmptyView(QWidget* view) {
  emptyView_ = view;
  view->hide();
  static_cast<QVBoxLayout*>(layout())->addWidget(view, 1);
}

QWidget* ListPane::rowsView() const { return usesBoard_ ? board_ : view_; }

void ListPane::setBoard(QWidget* board) {
  board_ = board;
  board->hide();
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->indexOf(view_) + 1, board, 1);
}

void ListPane::useBoard(bool isUsed) {
  if (std::exchange(usesBoard_, isUsed) == isUsed) return;
  showState();
}

void ListPane::setFoot(QWidget* foot) { static_cast<QVBoxLayout*>(layout())->addWidget(foot); }

void ListPane::setBehindChips(QWidget* widget) { chips_->setBehind(widget); }

void ListPane::tellChanged() {
  if (!pending_) change_.start();
}

/// What is seen comes first, then a page below and a page above.
void ListPane::askForSeen() {
  if (!view_->isVisible()) return;
  if (const RowAnchor now = anchor(); !pending_ && std::exchange(told_, now) != now) tellChanged();
  const RowRange inSight = view_->seen();
  feed_->showUpTo(inSight.last);
  if (inSight.first < 0) return;
  const int page = inSight.last - inSight.first + 1;
  const RowRange near{std::max(0, inSight.first - page),
                      std::min(filter_.rowCount() - 1, inSight.last + page)};
  const RowLayout& layout = filter_.table().layout;
  std::set<AppKey> apps;
  std::vector<ImageKey> pictures;
  const auto ask = [&](int first, int last) {
    for (int row = first; row <= last; ++row) {
      const AppRow& shown = filter_.at(row);
      if (shown.key.app.trackId != 0) apps.insert(shown.key.app);
      std::ranges::move(RowPictures::keysOf(shown, layout.artwork, devicePixelRatioF()),
                        std::back_inserter(pictures));
    }
  };
  ask(inSight.first, inSight.last);
  ask(inSight.last + 1, near.last);
  ask(near.first, inSight.first - 1);
  Q_EMIT seen(apps);
  if (layout.hasSparkline) feed_->showExtras(std::move(apps));
  world_.images.want(this, std::move(pictures));
}

void ListPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  feed_->wake();
}

void ListPane::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  feed_->rest();
  Q_EMIT seen({});
  world_.images.want(this, {});
}

}  // namespace quillet
