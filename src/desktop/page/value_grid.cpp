// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/value_grid.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <utility>

#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kColumnGap = 24;
constexpr int kNameWidth = 88;
constexpr int kLine = 18;
constexpr int kBelow = 6;
constexpr int kTwoColumns = 440;
constexpr int kValueLines = 3;

QWidget* makeCell(const NamedValue& value, QWidget* parent) {
  auto* cell = new QWidget(parent);
  auto* name = new PageText(
      {.type = kFactType, .ink = Token::tertiary, .lineHeight = kLine, .lines = 1}, cell);
  name->show(value.name);
  name->setFixedWidth(kNameWidth);
  auto* text = new PageText(
      {.type = kFactType, .lineHeight = kLine, .lines = kValueLines, .use = TextUse::copy}, cell);
  text->show(value.value);
  auto* layout = new QHBoxLayout(cell);
  layout->setContentsMargins(0, 0, 0, kBelow);
  layout->setSpacing(0);
  layout->addWidget(name, 0, Qt::AlignTop);
  layout->addWidget(text, 1, Qt::AlignTop);
  return cell;
}

}  // namespace

ValueGrid::ValueGrid(QWidget* parent) : QWidget(parent), layout_(new QGridLayout(this)) {
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setHorizontalSpacing(kColumnGap);
  layout_->setVerticalSpacing(0);
}

bool ValueGrid::show(std::vector<NamedValue> values) {
  std::erase_if(values, [](const NamedValue& each) { return each.value.isEmpty(); });
  if (values != values_) {
    for (QWidget* cell : std::exchange(cells_, {})) delete cell;
    values_ = std::move(values);
    for (const NamedValue& each : values_) cells_.push_back(makeCell(each, this));
    arrange(std::max(1, columns_));
  }
  return !values_.empty();
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

}  // namespace quillet
