// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/watch_button.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "analysis/price_series.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/models/row_parts.h"
#include "desktop/page/page_price.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kArrow = 30;
constexpr int kSmall = 28;
constexpr double kEye = 16;
constexpr double kChevron = 12;
constexpr int kCorner = 12;  // more than any corner is round

}  // namespace

enum class SplitSide { leading, trailing };

/// One of the two parts: its inner edge is straight.
class SplitPart : public QPushButton {
 public:
  SplitPart(SplitSide side, QWidget* parent) : QPushButton(parent), side_(side) {
    setAutoDefault(false);
  }

  /// Without the other part.
  void setWhole(bool isWhole) { isWhole_ = isWhole; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    QStyleOptionButton panel = option;
    if (!isWhole_) {
      const bool goesRight =
          (side_ == SplitSide::leading) == (layoutDirection() == Qt::LeftToRight);
      panel.rect.adjust(goesRight ? 0 : -kCorner, 0, goesRight ? kCorner : 0, 0);
    }
    painter.save();
    painter.setClipRect(rect());
    painter.drawControl(QStyle::CE_PushButtonBevel, panel);
    painter.restore();
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
  }

 private:
  SplitSide side_;
  bool isWhole_ = false;
};

void watchShown(const ViewWorld& view, const PageFacts& facts) {
  view.edits.perform(
      watchEdit({toWatch(facts, view.records)}, watchDefaults(view.settings), view.clock.now()));
}

std::optional<double> lowestRecorded(const PageFacts& facts) {
  const std::vector<RecordedPrice> prices = pricesToNow(facts);
  if (prices.empty() || !facts.watched) return {};
  if (!areComparable(prices.back().currency, facts.watched->currency)) return {};
  const double low = lowOf(prices).amount;
  return low > 0 ? std::optional(low) : std::nullopt;
}

WatchButton::WatchButton(const PageWorld& world, WatchButtonSize size, QWidget* parent)
    : QWidget(parent),
      world_(world),
      main_(new SplitPart(SplitSide::leading, this)),
      arrow_(new SplitPart(SplitSide::trailing, this)),
      menu_(new QMenu(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(1);
  row->addWidget(main_);
  row->addWidget(arrow_);
  arrow_->setFixedWidth(kArrow);
  setIconName(*arrow_, QStringLiteral("chevron-down"), kChevron);
  arrow_->setAccessibleName(tr("More about watching"));
  arrow_->setToolTip(tr("Alerts, target price"));
  if (size == WatchButtonSize::small) {
    main_->setFixedHeight(kSmall);
    arrow_->setFixedHeight(kSmall);
  }
  connect(main_, &QPushButton::clicked, this, &WatchButton::press);
  connect(arrow_, &QPushButton::clicked, this, &WatchButton::showMenu);
}

void WatchButton::show(const PageFacts& facts) {
  facts_ = facts;
  const bool isWatched = facts.watched.has_value();
  main_->setText(isWatched ? tr("Watching") : tr("Watch"));
  main_->setToolTip(isWatched ? tr("Change what it alerts to") : tr("Hear when it gets cheaper"));
  setIconName(*main_, isWatched ? QStringLiteral("eye-fill") : QStringLiteral("eye"), kEye);
  const ButtonKind kind = isWatched ? ButtonKind::tinted : ButtonKind::plain;
  setButtonKind(*main_, kind);
  setButtonKind(*arrow_, kind);
  arrow_->setVisible(isWatched);
  main_->setWhole(!isWatched);
  updateGeometry();
  update();
}

WatchedNames WatchButton::names() const { return {nameLine(facts_.name), 1}; }

void WatchButton::press() {
  if (facts_.watched) return openOptions(WatchOptionsStart::alerts);
  watchShown(world_.view, facts_);
}

void WatchButton::openOptions(WatchOptionsStart start) {
  if (!facts_.watched || options_) return;
  options_ = new WatchOptionsPopover(world_, *facts_.watched, lowestRecorded(facts_), window());
  options_->openBelow(*this, start);
}

void WatchButton::change(const WatchChange& change) {
  world_.view.edits.perform(changeEdit({facts_.app}, names(), change));
}

void WatchButton::mute(std::optional<Instant> until) {
  world_.view.edits.perform(muteEdit({facts_.app}, names(), until));
}

void WatchButton::showMenu() {
  fillMenu();
  const int x = layoutDirection() == Qt::RightToLeft ? width() - menu_->sizeHint().width() : 0;
  menu_->popup(mapToGlobal(QPoint(x, height() + 2)));
}

void WatchButton::fillMenu() {
  menu_->clear();
  qDeleteAll(menu_->findChildren<QMenu*>());
  if (!facts_.watched) return;
  for (const WatchAlert& alert : kWatchAlerts) {
    QAction* action = menu_->addAction(watchWord(alert.text));
    action->setCheckable(true);
    action->setChecked(*facts_.watched.*alert.isOn);
    connect(action, &QAction::toggled, this, [this, &alert](bool isOn) {
      WatchChange other;
      other.*alert.change = isOn;
      change(other);
    });
  }
  menu_->addSeparator();
  connect(menu_->addAction(tr("Target Price…")), &QAction::triggered, this,
          [this] { openOptions(WatchOptionsStart::target); });
  fillMuteMenu(*menu_->addMenu(tr("Mute Alerts")));
  connect(menu_->addAction(tr("Watch Options…")), &QAction::triggered, this,
          [this] { openOptions(WatchOptionsStart::alerts); });
  menu_->addSeparator();
  connect(menu_->addAction(tr("Stop Watching")), &QAction::triggered, this,
          [this] { world_.view.edits.perform(stopEdit({facts_.app}, names())); });
}

void WatchButton::fillMuteMenu(QMenu& menu) {
  const Instant now = world_.view.clock.now();
  for (const MuteChoice& choice : kMuteChoices) {
    connect(menu.addAction(watchWord(choice.text)), &QAction::triggered, this,
            [this, span = choice.span] { mute(mutedUntil(span, world_.view.clock.now())); });
  }
  if (!isMuted(*facts_.watched, now)) return;
  menu.addSeparator();
  connect(menu.addAction(tr("Turn On Alerts")), &QAction::triggered, this,
          [this] { mute(std::nullopt); });
}

}  // namespace quillet
