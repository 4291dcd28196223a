// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/chip_bar.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kBarHeight = 44;
constexpr int kChipHeight = 26;
constexpr int kMargin = 12;
constexpr int kGap = 6;
constexpr int kPadding = 10;
constexpr int kPaddingBesideIcon = 6;
constexpr int kIcon = 14;
constexpr double kHovered = 0.05;
constexpr double kPressed = 0.09;

QString rowsText(const char* text) { return QCoreApplication::translate("Rows", text); }

int grown(const QWidget& widget, int line) {
  constexpr double kText = 16;  // of the height
  return line + static_cast<int>(std::ceil(kText * (lookOf(widget).growth() - 1)));
}

QSize chipSize(const QAbstractButton& chip, const QString& icon) {
  const double text = lookOf(chip).text.width(chip.text(), kSmallControlType);
  const int end = icon.isEmpty() ? kPadding : kGap + kIcon + kPaddingBesideIcon;
  return {kPadding + static_cast<int>(std::ceil(text)) + end, grown(chip, kChipHeight)};
}

/// With an icon at the end where one is named.
void paintChip(QAbstractButton& chip, const QString& icon, Token ink) {
  QPainter painter(&chip);
  Look& look = lookOf(chip);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  QColor fill = look[Token::neutralTint];
  if (chip.isDown() || chip.underMouse())
    fill = mixed(fill, isDark ? Qt::white : Qt::black, chip.isDown() ? kPressed : kHovered);
  paintBox(painter, chip.rect(), chip.height() / 2.0, fill);
  QRectF content = QRectF(chip.rect()).adjusted(kPadding, 0, -kPaddingBesideIcon, 0);
  const bool isMirrored = chip.layoutDirection() == Qt::RightToLeft;
  if (isMirrored) content = QRectF(chip.rect()).adjusted(kPaddingBesideIcon, 0, -kPadding, 0);
  look.text.draw(painter, {content, isMirrored ? TextAnchor::right : TextAnchor::left}, chip.text(),
                 kSmallControlType, look[ink]);
  if (icon.isEmpty()) return;
  const double x = isMirrored ? content.left() : content.right() - kIcon;
  look.icons.draw(painter, {x, (chip.height() - kIcon) / 2.0}, icon, kIcon, look[Token::secondary]);
}

}  // namespace

/// The button of the menu with the chips that have no room.
class MoreChip final : public QPushButton {
 public:
  using QPushButton::QPushButton;

  /// The texts of those that are set.
  void setChosen(const QStringList& texts) {
    setAccessibleDescription(texts.join(QStringLiteral(", ")));
    update();
  }

  [[nodiscard]] QSize sizeHint() const override { return chipSize(*this, icon()); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    paintChip(*this, icon(), accessibleDescription().isEmpty() ? Token::secondary : Token::text);
  }

 private:
  static QString icon() { return QStringLiteral("chevron-down"); }
};

Chip::Chip(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QCheckBox::toggled, this, &QWidget::updateGeometry);
}

QString Chip::icon() const { return isChecked() ? QStringLiteral("x") : QString(); }

QSize Chip::sizeHint() const { return chipSize(*this, icon()); }

bool Chip::hitButton(const QPoint& point) const { return rect().contains(point); }

void Chip::keyPressEvent(QKeyEvent* event) {
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  switch (event->key()) {
    case Qt::Key_Left: Q_EMIT stepped(isMirrored ? 1 : -1); return;
    case Qt::Key_Right: Q_EMIT stepped(isMirrored ? -1 : 1); return;
    case Qt::Key_Return:
    case Qt::Key_Enter: click(); return;
    default: QCheckBox::keyPressEvent(event);
  }
}

void Chip::paintEvent(QPaintEvent* /*event*/) {
  paintChip(*this, icon(), isChecked() ? Token::text : Token::secondary);
}

ChipBar::ChipBar(const QString& name, const RowTable& table)
    : choices_(table.chips),
      countTexts_(table.count),
      menu_(new QMenu(this)),
      count_(new TextLabel(kFactType.tabular(), Token::tertiary, TextAnchor::right, this)) {
  setAccessibleName(tr("Filters of %1").arg(name));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  for (const ChipChoice& choice : choices_) {
    auto* chip = new Chip(rowsText(choice.text), this);
    // Not "clicked": a screen reader ticks without a click.
    connect(chip, &Chip::toggled, this, &ChipBar::tell);
    connect(chip, &Chip::stepped, this, [this, chip](int by) { step(chip, by); });
    chips_.push_back(chip);
  }
  connect(menu_, &QMenu::aboutToShow, this, &ChipBar::fillMenu);
  // After the chips: the tab key goes in the order in which they were made.
  more_ = new MoreChip(tr("More"), this);
  clear_ = new QPushButton(tr("Clear"), this);
  more_->setMenu(menu_);
  more_->setAttribute(Qt::WA_Hover);
  more_->setAccessibleName(tr("More filters"));
  setButtonKind(*clear_, ButtonKind::flat);
  clear_->setAccessibleName(tr("Clear filters"));
  connect(clear_, &QAbstractButton::clicked, this, &ChipBar::clear);
}

/// Before what follows them, which is the order of the tab key.
std::vector<Chip*> ChipBar::makeChips() {
  std::vector<Chip*> chips;
  for (const ChipChoice& choice : choices_) {
    auto* chip = new Chip(rowsText(choice.text), this);
    connect(chip, &Chip::clicked, this, &ChipBar::tell);
    connect(chip, &Chip::stepped, this, [this, chip](int by) { step(chip, by); });
    chips.push_back(chip);
  }
  return chips;
}

QSize ChipBar::sizeHint() const { return {2 * kMargin, grown(*this, kBarHeight)}; }
QSize ChipBar::minimumSizeHint() const { return sizeHint(); }

std::vector<std::string> ChipBar::chosen() const {
  std::vector<std::string> ids;
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    if (chips_[i]->isChecked()) ids.emplace_back(choices_[i].id);
  }
  return ids;
}

void ChipBar::setChosen(const std::vector<std::string>& ids) {
  const QScopedValueRollback quiet(isTold_, false);
  for (std::size_t i = 0; i < chips_.size(); ++i)
    chips_[i]->setChecked(std::ranges::find(ids, choices_[i].id) != ids.end());
  arrange();
}

void ChipBar::setCount(int shown, int all) {
  const QString most = QLocale().toString(all);
  QString text = tr("%1 of %2").arg(QLocale().toString(shown), most);
  if (shown == all)
    text = all == 1 ? rowsText(countTexts_.one) : rowsText(countTexts_.many).arg(most);
  if (text == count_->text()) return;
  count_->setText(text);
  arrange();
}

void ChipBar::tell() {
  if (!isTold_) return;
  arrange();
  Q_EMIT chosenChanged(chosen());
}

void ChipBar::clear() {
  {
    const QScopedValueRollback quiet(isTold_, false);
    for (Chip* chip : chips_) chip->setChecked(false);
  }
  if (!chips_.empty() && clear_->hasFocus()) chips_.front()->setFocus();
  tell();
}

std::size_t ChipBar::fitting(int width) const {
  int used = 0;
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    used += chips_[i]->sizeHint().width() + (i == 0 ? 0 : kGap);
    const bool isLast = i + 1 == chips_.size();
    const int rest = isLast ? 0 : kGap + more_->sizeHint().width();
    // The menu has to have room beside each chip but the last.
    if (used + rest > width) {
      if (used <= width && isLast) continue;
      return i;
    }
  }
  return chips_.size();
}

void ChipBar::arrange() {
  const auto isSet = [](const Chip* chip) { return chip->isChecked(); };
  const bool canClear = std::ranges::count_if(chips_, isSet) >= 2;
  const int clearWidth = canClear ? clear_->sizeHint().width() - kPadding : 0;
  const int countWidth = count_->sizeHint().width();
  const int width = this->width() - 2 * kMargin;
  int room = width;
  if (canClear) room -= kGap + clearWidth;
  // The number goes before a chip does, and the first chip before the number.
  if (countWidth > 0) room -= 2 * kGap + countWidth;
  shown_ = fitting(room);

  const int height = grown(*this, kChipHeight);
  const int top = (this->height() - height) / 2;
  int x = kMargin;
  const auto put = [&](QWidget* widget, int itsWidth) {
    widget->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), QRect(x, top, itsWidth, height)));
    x += itsWidth + kGap;
  };
  for (std::size_t i = 0; i < chips_.size(); ++i) {
    chips_[i]->setVisible(i < shown_);
    if (i < shown_) put(chips_[i], chips_[i]->sizeHint().width());
  }
  const auto hidden = std::span(chips_).subspan(shown_);
  more_->setVisible(!hidden.empty());
  QStringList chosen;
  for (const Chip* chip : hidden)
    if (isSet(chip)) chosen << chip->text();
  more_->setChosen(chosen);
  if (!hidden.empty()) put(more_, more_->sizeHint().width());
  clear_->setVisible(canClear);
  if (canClear) put(clear_, clearWidth);
  const int countLeft = this->width() - kMargin - countWidth;
  count_->setVisible(countLeft >= x);
  count_->setGeometry(
      QStyle::visualRect(layoutDirection(), rect(), QRect(countLeft, top, countWidth, height)));
}

void ChipBar::fillMenu() {
  menu_->clear();
  for (std::size_t i = shown_; i < chips_.size(); ++i) {
    Chip* chip = chips_[i];
    QAction* action = menu_->addAction(chip->text());
    action->setCheckable(true);
    action->setChecked(chip->isChecked());
    connect(action, &QAction::toggled, chip, &Chip::click);
  }
}

void ChipBar::step(QWidget* from, int by) {
  std::vector<QWidget*> reached(chips_.begin(),
                                chips_.begin() + static_cast<std::ptrdiff_t>(shown_));
  if (!more_->isHidden()) reached.push_back(more_);
  const auto here = std::ranges::find(reached, from);
  const auto next = (here - reached.begin()) + by;
  if (next >= 0 && next < static_cast<std::ptrdiff_t>(reached.size()))
    reached[static_cast<std::size_t>(next)]->setFocus(by < 0 ? Qt::BacktabFocusReason
                                                             : Qt::TabFocusReason);
}

void ChipBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void ChipBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  const bool isOtherSize = event->type() == QEvent::FontChange ||
                           event->type() == QEvent::StyleChange ||
                           event->type() == QEvent::LayoutDirectionChange;
  if (!isOtherSize || chips_.empty()) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet
