// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_bar.h"

#include <QEvent>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "desktop/lists/chip.h"
#include "desktop/lists/chip_line.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

constexpr int kHeight = 44;
constexpr int kMargin = 16;
constexpr int kGap = 6;
constexpr int kHairline = 20;
constexpr int kSaveIcon = 14;
constexpr int kSaveIconGap = 8;  // a button's own
constexpr int kSavePadding = 8;
// With less room than that for chips, what is said at the end goes first.
constexpr int kRoomBesideNews = 300;
constexpr int kRoomBesideCount = 120;

}  // namespace

SearchBar::SearchBar()
    : presets_(searchPresets()),
      save_(new QPushButton(tr("Save Search…"), this)),
      news_(new TextLabel(kSmallControlType, Token::fresh, TextAnchor::right, this)),
      count_(new TextLabel(kFactType.tabular(), Token::tertiary, TextAnchor::right, this)) {
  setAccessibleName(tr("Filters of the search"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setButtonKind(*save_, ButtonKind::flat);
  setIconName(*save_, QStringLiteral("bookmark-plus"), kSaveIcon);
  save_->setAccessibleName(save_->text());
  connect(save_, &QPushButton::clicked, this, &SearchBar::saveAsked);
  addPresets();
  line_ = new ChipLine(*this);
  connect(line_, &ChipLine::clearAsked, this, [this] { Q_EMIT changed({}); });
  show(SearchBarState{});
}

void SearchBar::addPresets() {
  for (const SearchPreset& preset : presets_) {
    auto* chip = new Chip(QString::fromStdString(preset.title), this, Chip::Kind::preset);
    chip->setToolTip(wrappedTip(QString::fromStdString(presetTooltip(preset))));
    // Not "clicked": a screen reader ticks without a click.
    connect(chip, &Chip::toggled, this, [this, filters = preset.filters](bool isOn) {
      if (!isTold_) return;
      Q_EMIT changed(isOn ? withAll(state_.filters, filters) : withoutAll(state_.filters, filters));
    });
    presetChips_.push_back(chip);
  }
}

void SearchBar::show(const SearchBarState& state) {
  const QScopedValueRollback quiet(isTold_, false);
  state_ = state;
  set_ = setFilters(state_.filters);
  for (std::size_t i = 0; i < presets_.size(); ++i)
    presetChips_[i]->setChecked(holdsAll(state_.filters, presets_[i].filters));
  showChips();
  news_->setText(state_.news);
  count_->setText(countText());
  line_->setCanClear(set_.size() >= 2);
  arrange();
}

/// Chips are kept where they are, so that the focus stays beside one that goes.
void SearchBar::showChips() {
  const bool hadFocus = std::ranges::any_of(chips_, &QWidget::hasFocus);
  const std::size_t before = chips_.size();
  while (chips_.size() < set_.size()) addChip();
  for (std::size_t i = 0; i < set_.size(); ++i) {
    const QString text = plainLine(set_[i].label);
    chips_[i]->setPlainText(text);
    chips_[i]->setToolTip(wrappedTip(tr("Drop “%1”").arg(text)));
    chips_[i]->setChecked(true);
    chips_[i]->updateGeometry();
  }
  for (std::size_t i = set_.size(); i < chips_.size(); ++i) {
    chips_[i]->hide();
    chips_[i]->deleteLater();
  }
  if (set_.size() < chips_.size()) chips_.resize(set_.size());
  if (chips_.size() != before || line_->chips().empty()) {
    std::vector<Chip*> all = presetChips_;
    all.insert(all.end(), chips_.begin(), chips_.end());
    line_->setChips(std::move(all), presetChips_.size());
    setTabOrder(line_->last(), save_);
  }
  const bool hasFocus = std::ranges::any_of(chips_, &QWidget::hasFocus);
  if (hadFocus && !hasFocus) line_->chips().back()->setFocus();
}

void SearchBar::addChip() {
  const std::size_t place = chips_.size();
  auto* chip = new Chip({}, this);
  connect(chip, &Chip::toggled, this, [this, place] {
    if (isTold_) Q_EMIT changed(AppFilters(set_[place].others));
  });
  chips_.push_back(chip);
}

QString SearchBar::countText() const {
  if (state_.all == 0) return {};
  const QString all = QLocale().toString(state_.all);
  const QString shown = QLocale().toString(state_.shown);
  if (state_.isPartial) return tr("%1+ of %2").arg(shown, all);
  if (state_.shown != state_.all) return tr("%1 of %2").arg(shown, all);
  return state_.all == 1 ? tr("1 app") : tr("%1 apps").arg(all);
}

QSize SearchBar::sizeHint() const { return {2 * kMargin, grownLine(*this, kHeight)}; }
QSize SearchBar::minimumSizeHint() const { return sizeHint(); }

int SearchBar::saveWidth(bool hasText) const {
  if (!state_.canSave) return 0;
  int width = kSaveIcon + 2 * kSavePadding;
  if (hasText) {
    const double text = lookOf(*this).text.width(tr("Save Search…"), kSmallControlType);
    width += kSaveIconGap + static_cast<int>(std::ceil(text));
  }
  return width;
}

void SearchBar::arrange() {
  const int height = grownLine(*this, kChipHeight);
  const int top = (this->height() - height) / 2;
  int right = width() - kMargin + (state_.canSave ? kSavePadding : 0);
  const auto putAtEnd = [&](QWidget* widget, int itsWidth, int gap) {
    widget->setVisible(itsWidth > 0);
    const QRect place(right - itsWidth, top, itsWidth, height);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    if (itsWidth > 0) right -= itsWidth + gap;
  };
  const int count = count_->sizeHint().width();
  const int news = news_->text().isEmpty() ? 0 : news_->sizeHint().width();
  const int chips = line_->wholeWidth();
  const int ends = (count > 0 ? count + 2 * kGap : 0) + (news > 0 ? news + 2 * kGap : 0);
  const bool hasText = kMargin + chips + ends + saveWidth(true) + kGap <= right;
  save_->setText(hasText ? tr("Save Search…") : QString());
  save_->setToolTip(hasText ? QString() : tr("Save Search…"));
  putAtEnd(save_, saveWidth(hasText), kGap);
  const auto roomBeside = [&](int itsWidth) { return right - itsWidth - 2 * kGap - kMargin; };
  putAtEnd(count_, roomBeside(count) >= kRoomBesideCount ? count : 0, 2 * kGap);
  putAtEnd(news_, roomBeside(news) >= std::min(chips, kRoomBesideNews) ? news : 0, 2 * kGap);
  line_->arrange(kMargin, right);
  update();
}

void SearchBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void SearchBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event) || line_ == nullptr) return;
  updateGeometry();
  arrange();
}

void SearchBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PixelGrid grid(painter);
  const QColor& line = lookOf(*this)[Token::line];
  grid.horizontal(0, width(), height() - 1, line);
  if (const auto x = line_->hairline()) {
    const double left = layoutDirection() == Qt::RightToLeft ? width() - *x - 1 : *x;
    const double top = (height() - kHairline) / 2.0;
    grid.vertical(left, top, top + kHairline, line);
  }
}

}  // namespace quillet
