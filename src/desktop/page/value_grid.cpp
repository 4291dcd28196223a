// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/value_grid.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kColumnGap = 24;
constexpr int kNameWidth = 88;
constexpr int kLine = 18;
constexpr int kBelow = 6;
constexpr int kTwoColumns = 440;
constexpr int kValueLines = 3;
constexpr int kAroundChosen = 3;
constexpr double kChosenCorner = 4;

QString copyText(const NamedValue& value) {
  if (!value.whole.isEmpty()) return value.whole;
  return value.link.empty() ? value.value : QString::fromStdString(value.link);
}

QString spoken(const NamedValue& value) {
  return QStringLiteral("%1, %2").arg(value.name, value.value);
}

}  // namespace

ValueGrid::ValueGrid(QWidget* parent) : QWidget(parent), layout_(new QGridLayout(this)) {
  setAccessibleName(tr("Facts"));
  setFocusPolicy(Qt::StrongFocus);
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setHorizontalSpacing(kColumnGap);
  layout_->setVerticalSpacing(0);
}

bool ValueGrid::show(std::vector<NamedValue> values) {
  std::erase_if(values, [](const NamedValue& each) { return each.value.isEmpty(); });
  if (values != values_) {
    for (QWidget* cell : std::exchange(cells_, {})) delete cell;
    names_.clear();
    values_ = std::move(values);
    chosen_ = 0;
    for (const NamedValue& each : values_) cells_.push_back(makeCell(each));
    arrange(std::max(1, columns_));
  }
  return !values_.empty();
}

QWidget* ValueGrid::makeCell(const NamedValue& value) {
  auto* cell = new QWidget(this);
  if (!value.whole.isEmpty()) cell->setToolTip(wrappedTip(value.whole));
  auto* name = new PageText(
      {.type = kFactType, .ink = Token::tertiary, .lineHeight = kLine, .lines = 1}, cell);
  name->show(value.name);
  name->setFixedWidth(nameWidth());
  names_.push_back(name);
  auto* layout = new QHBoxLayout(cell);
  layout->setContentsMargins(0, 0, 0, kBelow);
  layout->setSpacing(0);
  layout->addWidget(name, 0, Qt::AlignTop);
  if (value.link.empty()) {
    auto* text = new PageText(
        {.type = kFactType, .lineHeight = kLine, .lines = kValueLines, .use = TextUse::copy}, cell);
    text->show(value.value);
    layout->addWidget(text, 1, Qt::AlignTop);
    return cell;
  }
  auto* link = new LinkButton(value.value, kFactType, {}, cell);
  link->setAccessibleName(spoken(value));
  link->setFocusPolicy(Qt::NoFocus);  // the grid has the keys
  link->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  link->setMinimumWidth(1);
  connect(link, &QAbstractButton::clicked, this, [this, to = value.link] { Q_EMIT opens(to); });
  layout->addWidget(link, 0, Qt::AlignTop);
  layout->addStretch(1);
  return cell;
}

int ValueGrid::nameWidth() const { return grownBy(lookOf(*this), kNameWidth); }

void ValueGrid::fit() {
  const int columns = width() >= grownBy(lookOf(*this), kTwoColumns) ? 2 : 1;
  if (columns != columns_) arrange(columns);
}

void ValueGrid::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
}

void ValueGrid::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  for (PageText* name : names_) name->setFixedWidth(nameWidth());
  fit();
}

void ValueGrid::arrange(int columns) {
  columns_ = columns;
  layout_->setColumnStretch(0, 1);
  layout_->setColumnStretch(1, columns == 2 ? 1 : 0);
  int index = 0;
  for (QWidget* cell : cells_) {
    layout_->addWidget(cell, index / columns, index % columns);
    ++index;
  }
}

void ValueGrid::paintEvent(QPaintEvent* /*event*/) {
  if (!hasFocus() || chosen_ >= cells_.size()) return;
  QPainter painter(this);
  const QRect cell = cells_[chosen_]->geometry().adjusted(0, 0, 0, -kBelow);
  paintBox(painter, QRectF(cell).adjusted(-kAroundChosen, 0, kAroundChosen, 0), kChosenCorner,
           lookOf(*this)[Token::selection]);
}

void ValueGrid::choose(std::size_t index) {
  chosen_ = index;
  setAccessibleDescription(index < values_.size() ? spoken(values_[index]) : QString());
  update();
}

void ValueGrid::keyPressEvent(QKeyEvent* event) {
  if (chosen_ >= values_.size()) return QWidget::keyPressEvent(event);
  if (event->matches(QKeySequence::Copy)) return copy(chosen_);
  const auto move = [this](std::ptrdiff_t step) {
    const auto to = static_cast<std::ptrdiff_t>(chosen_) + step;
    if (to >= 0 && to < static_cast<std::ptrdiff_t>(values_.size()))
      choose(static_cast<std::size_t>(to));
  };
  switch (event->key()) {
    case Qt::Key_Left: return move(-1);
    case Qt::Key_Right: return move(1);
    case Qt::Key_Up: return move(-columns_);
    case Qt::Key_Down: return move(columns_);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!values_[chosen_].link.empty()) Q_EMIT opens(values_[chosen_].link);
      return;
    default: QWidget::keyPressEvent(event);
  }
}

/// Over a value that is not selected in part, or by the key for it.
void ValueGrid::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) {
    if (chosen_ < cells_.size())
      openMenu(chosen_, cells_[chosen_]->mapToGlobal(QPoint(nameWidth(), kLine)));
    return;
  }
  const auto at = std::ranges::find_if(
      cells_, [event](const QWidget* cell) { return cell->geometry().contains(event->pos()); });
  if (at != cells_.end())
    openMenu(static_cast<std::size_t>(at - cells_.begin()), event->globalPos());
}

void ValueGrid::openMenu(std::size_t index, const QPoint& at) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(tr("Copy %1").arg(values_[index].name), this, [this, index] { copy(index); });
  menu->popup(at);
}

void ValueGrid::copy(std::size_t index) {
  if (index >= values_.size()) return;
  QGuiApplication::clipboard()->setText(copyText(values_[index]));
  const QString said = tr("Copied");
  setAccessibleDescription(said);
  QToolTip::showText(cells_[index]->mapToGlobal(QPoint(nameWidth(), kLine)), said, this);
}

void ValueGrid::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  choose(std::min(chosen_, values_.empty() ? 0 : values_.size() - 1));
}

void ValueGrid::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  setAccessibleDescription({});
  update();
}

}  // namespace quillet
