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
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/look/wrapped_tip.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kColumnGap = 24;
constexpr int kNameWidth = 88;
constexpr int kLine = 18;
constexpr int kBelow = 6;
constexpr int kTwoColumns = 440;
constexpr int kValueLines = 3;

/// One value. What has the keys' focus is the value itself where it is a link, else the whole.
class ValueCell : public QWidget {
 public:
  ValueCell(NamedValue value, ValueGrid& grid) : QWidget(&grid), value_(std::move(value)) {
    setAccessibleName(QStringLiteral("%1, %2").arg(value_.name, value_.value));
    if (!value_.whole.isEmpty()) setToolTip(wrappedTip(value_.whole));
    auto* name = new PageText(
        {.type = kFactType, .ink = Token::tertiary, .lineHeight = kLine, .lines = 1}, this);
    name->show(value_.name);
    name->setFixedWidth(kNameWidth);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, kBelow);
    layout->setSpacing(0);
    layout->addWidget(name, 0, Qt::AlignTop);
    if (value_.link.empty()) {
      layout->addWidget(makeText(), 1, Qt::AlignTop);
    } else {
      layout->addWidget(makeLink(grid), 0, Qt::AlignTop);
      layout->addStretch(1);
    }
  }

  [[nodiscard]] QWidget& stop() {
    if (link_ != nullptr) return *link_;
    return *this;
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) return copy();
    QWidget::keyPressEvent(event);
  }

  void contextMenuEvent(QContextMenuEvent* event) override {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(ValueGrid::tr("Copy %1").arg(value_.name), this, &ValueCell::copy);
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(isByKey ? mapToGlobal(QPoint(kNameWidth, kLine)) : event->globalPos());
  }

  void focusOutEvent(QFocusEvent* event) override {
    QWidget::focusOutEvent(event);
    stop().setAccessibleDescription({});
  }

 private:
  QWidget* makeText() {
    auto* text = new PageText(
        {.type = kFactType, .lineHeight = kLine, .lines = kValueLines, .use = TextUse::copy}, this);
    text->show(value_.value);
    return text;
  }

  QWidget* makeLink(ValueGrid& grid) {
    link_ = new LinkButton(value_.value, kFactType, {}, this);
    link_->setAccessibleName(accessibleName());
    link_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    link_->setMinimumWidth(1);
    QObject::connect(link_, &QAbstractButton::clicked, &grid,
                     [&grid, link = value_.link] { Q_EMIT grid.opens(link); });
    return link_;
  }

  void copy() {
    const QString text = !value_.whole.isEmpty() ? value_.whole
                         : value_.link.empty()   ? value_.value
                                                 : QString::fromStdString(value_.link);
    QGuiApplication::clipboard()->setText(text);
    const QString said = ValueGrid::tr("Copied");
    QToolTip::showText(mapToGlobal(QPoint(kNameWidth, kLine)), said, this);
    stop().setAccessibleDescription(said);
  }

  NamedValue value_;
  LinkButton* link_ = nullptr;
};

ValueCell& cellOf(QWidget* widget) { return *static_cast<ValueCell*>(widget); }

}  // namespace

ValueGrid::ValueGrid(QWidget* parent) : QWidget(parent), layout_(new QGridLayout(this)) {
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setHorizontalSpacing(kColumnGap);
  layout_->setVerticalSpacing(0);
}

bool ValueGrid::show(std::vector<NamedValue> values) {
  std::erase_if(values, [](const NamedValue& each) { return each.value.isEmpty(); });
  if (values != values_) {
    values_ = std::move(values);
    build();
  }
  return !values_.empty();
}

void ValueGrid::build() {
  for (QWidget* cell : std::exchange(cells_, {})) delete cell;
  for (const NamedValue& each : values_) {
    auto* cell = new ValueCell(each, *this);
    // One stop for the Tab key, at the value that had it last; arrows go on from there.
    cell->stop().setFocusPolicy(cells_.empty() ? Qt::StrongFocus : Qt::ClickFocus);
    cells_.push_back(cell);
  }
  arrange(std::max(1, columns_));
}

void ValueGrid::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int columns = width() >= kTwoColumns ? 2 : 1;
  if (columns != columns_) arrange(columns);
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

void ValueGrid::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left: return moveFocus(-1);
    case Qt::Key_Right: return moveFocus(1);
    case Qt::Key_Up: return moveFocus(-columns_);
    case Qt::Key_Down: return moveFocus(columns_);
    default: QWidget::keyPressEvent(event);
  }
}

void ValueGrid::moveFocus(int step) {
  const auto focused =
      std::ranges::find_if(cells_, [](QWidget* cell) { return cellOf(cell).stop().hasFocus(); });
  if (focused == cells_.end()) return;
  const auto to = (focused - cells_.begin()) + step;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(cells_.size())) return;
  cellOf(*focused).stop().setFocusPolicy(Qt::ClickFocus);
  QWidget& next = cellOf(cells_[static_cast<std::size_t>(to)]).stop();
  next.setFocusPolicy(Qt::StrongFocus);
  next.setFocus(Qt::TabFocusReason);
}

}  // namespace quillet
