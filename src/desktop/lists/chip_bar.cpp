// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/chip_bar.h"

#include <QCoreApplication>
#include <QLocale>
#include <QScopedValueRollback>
#include <QStyle>
#include <algorithm>

#include "desktop/lists/chip.h"
#include "desktop/lists/chip_line.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kBarHeight = 44;
constexpr int kMargin = 12;
constexpr int kGap = 6;

QString rowsText(const char* text) { return QCoreApplication::translate("Rows", text); }

}  // namespace

ChipBar::ChipBar(const QString& name, const RowTable& table)
    : choices_(table.chips),
      countTexts_(table.count),
      count_(new TextLabel(kFactType.tabular(), Token::tertiary, TextAnchor::right, this)) {
  setAccessibleName(tr("Filters of %1").arg(name));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  std::vector<Chip*> chips;
  for (const ChipChoice& choice : choices_) {
    auto* chip = new Chip(rowsText(choice.text), this);
    // Not "clicked": a screen reader ticks without a click.
    connect(chip, &Chip::toggled, this, &ChipBar::tell);
    chips.push_back(chip);
  }
  line_ = new ChipLine(*this);
  line_->setChips(std::move(chips));
  connect(line_, &ChipLine::clearAsked, this, &ChipBar::clear);
}

QSize ChipBar::sizeHint() const { return {2 * kMargin, grownLine(*this, kBarHeight)}; }
QSize ChipBar::minimumSizeHint() const { return sizeHint(); }

std::vector<std::string> ChipBar::chosen() const {
  std::vector<std::string> ids;
  for (std::size_t i = 0; i < choices_.size(); ++i) {
    if (line_->chips()[i]->isChecked()) ids.emplace_back(choices_[i].id);
  }
  return ids;
}

void ChipBar::setChosen(const std::vector<std::string>& ids) {
  const QScopedValueRollback quiet(isTold_, false);
  for (std::size_t i = 0; i < choices_.size(); ++i)
    line_->chips()[i]->setChecked(std::ranges::find(ids, choices_[i].id) != ids.end());
  arrange();
}

void ChipBar::setCount(int shown, int all) {
  const QString most = QLocale().toString(all);
  QString text = tr("%1 of %2").arg(QLocale().toString(shown), most);
  if (shown == all) {
    const bool isLess = countTexts_.fewer != nullptr && all < countTexts_.whole;
    const char* many = isLess ? countTexts_.fewer : countTexts_.many;
    text = all == 1 ? rowsText(countTexts_.one) : rowsText(many).arg(most);
  }
  if (text == count_->text()) return;
  count_->setText(text);
  arrange();
}

void ChipBar::setBehind(QWidget* widget) {
  behind_ = widget;
  widget->setParent(this);
  widget->installEventFilter(this);
  QWidget* before = line_->last();
  for (QWidget* part : widget->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if ((part->focusPolicy() & Qt::TabFocus) == 0) continue;
    QWidget::setTabOrder(before, part);
    before = part;
  }
  arrange();
}

/// It says by itself when it needs another width.
bool ChipBar::eventFilter(QObject* watched, QEvent* event) {
  const bool isBehind = watched == behind_ && behind_ != nullptr;
  if (isBehind && (event->type() == QEvent::LayoutRequest ||
                   event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
    arrange();
  return QWidget::eventFilter(watched, event);
}

/// Returns how wide it is.
int ChipBar::placeBehind() {
  const int least = behind_->minimumSizeHint().width();
  const int most = std::max(least, width() - 2 * kMargin - line_->wholeWidth() - 2 * kGap);
  const int wide = std::min(behind_->sizeHint().width(), most);
  const QRect place(width() - kMargin - wide, 0, wide, height());
  behind_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  return wide;
}

void ChipBar::tell() {
  if (!isTold_) return;
  arrange();
  Q_EMIT chosenChanged(chosen());
}

void ChipBar::clear() {
  {
    const QScopedValueRollback quiet(isTold_, false);
    for (Chip* chip : line_->chips()) chip->setChecked(false);
  }
  tell();
}

void ChipBar::arrange() {
  line_->setCanClear(std::ranges::count_if(line_->chips(), &Chip::isChecked) >= 2);
  const bool hasBehind = behind_ != nullptr && !behind_->isHidden();
  const int countWidth = hasBehind ? placeBehind() : count_->sizeHint().width();
  // The number goes before a chip does, and the first chip before the number.
  const int right = width() - kMargin - (countWidth > 0 ? 2 * kGap + countWidth : 0);
  const int end = line_->arrange(kMargin, right);
  const int countLeft = width() - kMargin - countWidth;
  const int height = grownLine(*this, kChipHeight);
  const QRect place(countLeft, (this->height() - height) / 2, countWidth, height);
  count_->setVisible(!hasBehind && countLeft >= end + kGap);
  count_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

void ChipBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void ChipBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event) || line_ == nullptr) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet
