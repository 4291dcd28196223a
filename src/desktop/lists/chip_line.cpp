// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/chip_line.h"

#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <span>

#include "desktop/lists/chip.h"
#include "desktop/look/button_look.h"

namespace quillet {

namespace {

constexpr int kGap = 6;
constexpr int kHairlineGap = 12;  // on both sides
constexpr int kClearPadding = 10;

}  // namespace

ChipLine::ChipLine(QWidget& bar)
    : QObject(&bar),
      bar_(bar),
      more_(new MoreChip(&bar)),
      menu_(new QMenu(&bar)),
      clear_(new QPushButton(tr("Clear"), &bar)) {
  more_->setMenu(menu_);
  setButtonKind(*clear_, ButtonKind::flat);
  clear_->setAccessibleName(tr("Clear filters"));
  connect(menu_, &QMenu::aboutToShow, this, &ChipLine::fillMenu);
  connect(clear_, &QAbstractButton::clicked, this, [this] {
    if (!chips_.empty() && clear_->hasFocus()) chips_.front()->setFocus();
    Q_EMIT clearAsked();
  });
}

void ChipLine::setChips(std::vector<Chip*> chips, std::size_t leading) {
  chips_ = std::move(chips);
  leading_ = leading;
  QWidget* before = nullptr;
  for (Chip* chip : chips_) {
    disconnect(chip, &Chip::stepped, this, nullptr);
    connect(chip, &Chip::stepped, this, [this, chip](int by) { step(chip, by); });
    if (before != nullptr) QWidget::setTabOrder(before, chip);
    before = chip;
  }
  if (before != nullptr) QWidget::setTabOrder(before, more_);
  QWidget::setTabOrder(more_, clear_);
}

QWidget* ChipLine::last() const { return clear_; }

int ChipLine::gapBefore(std::size_t chip) const {
  if (chip == 0) return 0;
  return chip == leading_ ? 2 * kHairlineGap + 1 : kGap;
}

int ChipLine::clearWidth() const {
  return canClear_ ? clear_->sizeHint().width() - kClearPadding : 0;
}

int ChipLine::wholeWidth() const {
  int width = canClear_ ? kGap + clearWidth() : 0;
  for (std::size_t i = 0; i < chips_.size(); ++i)
    width += gapBefore(i) + chips_[i]->sizeHint().width();
  return width;
}

std::size_t ChipLine::fitting(int width) const {
  int used = 0;
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    used += gapBefore(i) + chips_[i]->sizeHint().width();
    const bool isLast = i + 1 == chips_.size();
    // The menu has to have room beside each chip but the last.
    const int rest = isLast ? 0 : kGap + more_->sizeHint().width();
    if (used + rest > width) return i;
  }
  return chips_.size();
}

int ChipLine::arrange(int left, int right) {
  const int height = grownLine(bar_, kChipHeight);
  const int top = (bar_.height() - height) / 2;
  shown_ = fitting(right - left - (canClear_ ? kGap + clearWidth() : 0));
  int x = left;
  const auto put = [&](QWidget* widget, int gap, int width) {
    if (x > left) x += gap;
    const QRect place(x, top, width, height);
    widget->setGeometry(QStyle::visualRect(bar_.layoutDirection(), bar_.rect(), place));
    x += width;
  };
  hairline_.reset();
  QStringList hiddenSet;
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    chips_[i]->setVisible(i < shown_);
    if (i >= shown_ && chips_[i]->isChecked()) hiddenSet << chips_[i]->plainText();
    if (i >= shown_) continue;
    if (i > 0 && i == leading_) hairline_ = x + kHairlineGap;
    put(chips_[i], gapBefore(i), chips_[i]->sizeHint().width());
  }
  const bool hasMore = shown_ < chips_.size();
  more_->setVisible(hasMore);
  more_->setChosen(hiddenSet);
  if (hasMore) put(more_, kGap, more_->sizeHint().width());
  clear_->setVisible(canClear_);
  if (canClear_) put(clear_, kGap, clearWidth());
  return x;
}

void ChipLine::fillMenu() {
  menu_->clear();
  for (Chip* chip : std::span(chips_).subspan(shown_)) {
    QAction* action = menu_->addAction(chip->text());
    action->setCheckable(true);
    action->setChecked(chip->isChecked());
    connect(action, &QAction::toggled, chip, &Chip::click);
  }
}

void ChipLine::step(QObject* from, int by) {
  std::vector<QWidget*> reached(chips_.begin(),
                                chips_.begin() + static_cast<std::ptrdiff_t>(shown_));
  if (!more_->isHidden()) reached.push_back(more_);
  const auto here = std::ranges::find(reached, from);
  const auto next = (here - reached.begin()) + by;
  if (next >= 0 && next < static_cast<std::ptrdiff_t>(reached.size()))
    reached[static_cast<std::size_t>(next)]->setFocus(by < 0 ? Qt::BacktabFocusReason
                                                             : Qt::TabFocusReason);
}

}  // namespace quillet
