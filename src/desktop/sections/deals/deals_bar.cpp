// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deals_bar.h"

#include <QLocale>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/lists/chip.h"
#include "desktop/lists/chip_line.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kHeight = 44;
constexpr int kMargin = 16;
constexpr int kGap = 6;
constexpr int kWideGap = 16;
constexpr int kHairline = 20;
constexpr int kHairlineGap = 14;
constexpr int kSlider = 120;
constexpr int kSliderHeight = 20;
constexpr int kStep = 5;
constexpr int kPage = 25;
constexpr int kMostDrop = 95;  // what is free has fallen by more, and has a chip
constexpr int kLeastChips = 96;
constexpr TypeStyle kValueType = kSmallControlType.tabular();

struct DealChip {
  const char* id;
  const char* text;
};
constexpr std::array kChips{DealChip{"free", QT_TRANSLATE_NOOP("DealsBar", "Free")},
                            DealChip{"lowest", QT_TRANSLATE_NOOP("DealsBar", "At lowest")},
                            DealChip{"watched", QT_TRANSLATE_NOOP("DealsBar", "Watched")},
                            DealChip{"chart", QT_TRANSLATE_NOOP("DealsBar", "In a chart")}};

QString dropText(int percent) {
  if (percent == 0) return DealsBar::tr("any");
  return DealsBar::tr("%1\u00a0%").arg(QLocale().toString(percent));
}

QString countText(const DealsBarState& state) {
  if (state.all == 0) return {};
  const QString all = QLocale().toString(static_cast<qlonglong>(state.all));
  const QString shown = QLocale().toString(static_cast<qlonglong>(state.shown));
  if (state.shown != state.all) return DealsBar::tr("%1 of %2").arg(shown, all);
  return state.all == 1 ? DealsBar::tr("1 drop") : DealsBar::tr("%1 drops").arg(all);
}

}  // namespace

DealsBar::DealsBar()
    : dropName_(new TextLabel(kFactType, Token::secondary, TextAnchor::left, this)),
      dropValue_(new TextLabel(kValueType, Token::text, TextAnchor::left, this)),
      facts_(new TextLabel(kFactType.tabular(), Token::tertiary, TextAnchor::right, this)),
      count_(new TextLabel(kValueType, Token::secondary, TextAnchor::right, this)) {
  setAccessibleName(tr("Filters of the deals"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  for (const DealChip& each : kChips) {
    auto* chip = new Chip(tr(each.text), this);
    // Not "clicked": a screen reader ticks without a click.
    connect(chip, &Chip::toggled, this, &DealsBar::tellChips);
    chips_.push_back(chip);
  }
  line_ = new ChipLine(*this);
  line_->setChips(chips_);
  connect(line_, &ChipLine::clearAsked, this, [this] {
    {
      const QScopedValueRollback quiet(isTold_, false);
      for (Chip* chip : chips_) chip->setChecked(false);
    }
    tellChips();
  });
  // Later than the chips, whose place in the order of the tab key is before it.
  drop_ = new QSlider(Qt::Horizontal, this);
  dropName_->setText(tr("Drop at least"));
  drop_->setAccessibleName(tr("Drop at least"));
  drop_->setRange(0, kMostDrop);
  drop_->setSingleStep(kStep);
  drop_->setPageStep(kPage);
  // What is read at once would move the list under the hand that drags.
  drop_->setTracking(false);
  connect(drop_, &QSlider::valueChanged, this, [this](int percent) {
    showDrop(percent);
    Q_EMIT dropChosen(percent);
  });
  connect(drop_, &QSlider::sliderMoved, this, &DealsBar::showDrop);
  showDrop(0);
}

std::vector<std::string> DealsBar::chosen() const {
  std::vector<std::string> ids;
  for (std::size_t i = 0; i < kChips.size(); ++i) {
    if (chips_[i]->isChecked()) ids.emplace_back(kChips.at(i).id);
  }
  return ids;
}

void DealsBar::tellChips() {
  if (!isTold_) return;
  arrange();
  Q_EMIT chipsChosen(chosen());
}

void DealsBar::showDrop(int percent) {
  dropValue_->setText(dropText(percent));
  drop_->setAccessibleDescription(dropText(percent));
}

void DealsBar::show(const DealsBarState& state) {
  const QScopedValueRollback quiet(isTold_, false);
  for (std::size_t i = 0; i < kChips.size(); ++i)
    chips_[i]->setChecked(std::ranges::find(state.chips, kChips.at(i).id) != state.chips.end());
  if (!drop_->isSliderDown()) {
    const QSignalBlocker untold(drop_);
    drop_->setValue(state.minimumDrop);
    showDrop(state.minimumDrop);
  }
  facts_->setText(state.facts);
  count_->setText(countText(state));
  arrange();
}

QSize DealsBar::sizeHint() const { return {2 * kMargin, grownLine(*this, kHeight)}; }
QSize DealsBar::minimumSizeHint() const { return sizeHint(); }

/// With less room, first goes of when the prices are, then chips go into their menu.
void DealsBar::arrange() {
  line_->setCanClear(chosen().size() >= 2);
  const int height = grownLine(*this, kChipHeight);
  const auto put = [&](QWidget* widget, int left, int itsWidth, int itsHeight) {
    widget->setVisible(itsWidth > 0);
    const QRect place(left, (this->height() - itsHeight) / 2, itsWidth, itsHeight);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  };
  const int name = dropName_->sizeHint().width();
  const int value =
      static_cast<int>(std::ceil(lookOf(*this).text.width(dropText(kMostDrop), kValueType))) + 4;
  const int drop = name + kGap + kSlider + kGap + value;
  const int count = count_->sizeHint().width();
  const int facts = facts_->text().isEmpty() ? 0 : facts_->sizeHint().width();
  int right = width() - kMargin;
  put(count_, right - count, count, height);
  if (count > 0) right -= count + kWideGap;
  const int whole = kMargin + line_->wholeWidth() + 2 * kHairlineGap + drop + kWideGap;
  const bool hasFacts = facts > 0 && whole + facts <= right;
  put(facts_, right - facts, hasFacts ? facts : 0, height);
  if (hasFacts) right -= facts + kWideGap;
  const int chips = std::max(kLeastChips, right - drop - 2 * kHairlineGap);
  const int end = line_->arrange(kMargin, std::min(chips, right));
  int left = end + kHairlineGap;
  const bool hasDrop = left + kHairlineGap + drop <= right + kWideGap;
  hairline_ = hasDrop ? std::optional(left) : std::nullopt;
  left += kHairlineGap;
  put(dropName_, left, hasDrop ? name : 0, height);
  put(drop_, left + name + kGap, hasDrop ? kSlider : 0, kSliderHeight);
  put(dropValue_, left + name + kSlider + 2 * kGap, hasDrop ? value : 0, height);
  update();
}

void DealsBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void DealsBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event) || line_ == nullptr) return;
  updateGeometry();
  arrange();
}

void DealsBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PixelGrid grid(painter);
  const QColor& line = lookOf(*this)[Token::line];
  grid.horizontal(0, width(), height() - 1, line);
  if (!hairline_) return;
  const double left = layoutDirection() == Qt::RightToLeft ? width() - *hairline_ - 1 : *hairline_;
  const double top = (height() - kHairline) / 2.0;
  grid.vertical(left, top, top + kHairline, line);
}

}  // namespace quillet
