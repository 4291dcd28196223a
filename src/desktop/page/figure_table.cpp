// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/figure_table.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr TypeStyle kHeadType = kCaptionType;
constexpr TypeStyle kTextType = kBodyType.tabular();
constexpr int kHeadHeight = 24;
constexpr int kRowHeight = 31;
constexpr double kGap = 16;
constexpr double kLeastColumn = 56;
constexpr double kUsualColumn = 88;
constexpr double kWide = 440;
constexpr double kTriangle = 7;
constexpr double kLowMark = 12;
constexpr double kMarkGap = 4;

double markWidth(FigureMark mark) {
  if (mark == FigureMark::none) return 0;
  return (mark == FigureMark::low ? kLowMark : kTriangle) + kMarkGap;
}

double cellWidth(Look& look, const FigureCell& cell) {
  return std::ceil(look.text.width(cell.text, kTextType) + markWidth(cell.mark));
}

/// How wide the texts of each column but the first are.
using Widths = std::vector<double>;

/// Where a row's cells stand.
std::vector<QRectF> placesOf(const Widths& widths, const QRectF& line) {
  std::vector<QRectF> places(widths.size() + 1);
  const double least = line.width() < kWide ? kLeastColumn : kUsualColumn;
  double right = line.right();
  for (std::size_t i = widths.size(); i > 0; --i) {
    const double width = std::max(widths[i - 1], least);
    places[i] = {right - width, line.top(), width, line.height()};
    right -= width + kGap;
  }
  places[0] = {line.left(), line.top(), std::max(0.0, right - line.left()), line.height()};
  return places;
}

void paintMark(QPainter& painter, const FigureCell& cell, double left, double middle,
               const QColor& ink) {
  if (cell.mark == FigureMark::low)
    return paintLowMark(painter, {left, middle - kLowMark * 5 / 12}, kLowMark, ink);
  paintTriangle(painter, {left, middle - kTriangle / 2}, kTriangle,
                cell.mark == FigureMark::up ? Direction::up : Direction::down, ink);
}

/// One row. A label, so that it is read.
class FigureLabel : public QLabel {
 public:
  FigureLabel(FigureRow row, std::shared_ptr<const Widths> widths, QWidget* parent)
      : QLabel(parent), row_(std::move(row)), widths_(std::move(widths)) {
    setTextFormat(Qt::PlainText);
    setText(row_.spoken);
    if (!row_.tip.isEmpty()) setToolTip(wrappedTip(row_.tip));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {480, grownBy(lookOf(*this), kRowHeight)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const auto places = placesOf(*widths_, QRectF(0, 0, width(), height() - 1));
    for (std::size_t i = 0; i < std::min(places.size(), row_.cells.size()); ++i) {
      const FigureCell& cell = row_.cells[i];
      const QColor& ink = look[cell.ink];
      if (i == 0) {
        look.text.drawElided(painter, {places[0]}, cell.text, kTextType, ink);
        continue;
      }
      const double text =
          look.text.draw(painter, {places[i], TextAnchor::right}, cell.text, kTextType, ink);
      if (cell.mark != FigureMark::none)
        paintMark(painter, cell, places[i].right() - text - markWidth(cell.mark),
                  places[i].center().y(), ink);
    }
    PixelGrid(painter).horizontal(0, width(), height() - 1, look[Token::grid]);
  }

 private:
  FigureRow row_;
  std::shared_ptr<const Widths> widths_;
};

/// What the columns are called.
class FigureHead : public QLabel {
 public:
  FigureHead(QStringList columns, std::shared_ptr<const Widths> widths, QWidget* parent)
      : QLabel(parent), columns_(std::move(columns)), widths_(std::move(widths)) {
    setTextFormat(Qt::PlainText);
    setText(columns_.join(QStringLiteral(", ")));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {480, grownBy(lookOf(*this), kHeadHeight)};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const auto places = placesOf(*widths_, QRectF(0, 0, width(), height() - 4));
    for (std::size_t i = 0; i < places.size(); ++i)
      look.text.draw(painter, {places[i], i == 0 ? TextAnchor::left : TextAnchor::right},
                     columns_[static_cast<qsizetype>(i)], kHeadType, look[Token::tertiary]);
    PixelGrid(painter).horizontal(0, width(), height() - 1, look[Token::line]);
  }

 private:
  QStringList columns_;
  std::shared_ptr<const Widths> widths_;
};

}  // namespace

FigureTable::FigureTable(const QString& name, QStringList columns, QWidget* parent)
    : QWidget(parent), columns_(std::move(columns)), layout_(new QVBoxLayout(this)) {
  setAccessibleName(name);
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setSpacing(0);
}

void FigureTable::show(const std::vector<FigureRow>& rows) {
  if (rows == rows_) return;
  rows_ = rows;
  build();
}

void FigureTable::build() {
  delete built_;
  built_ = new QWidget(this);
  auto* layout = new QVBoxLayout(built_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  Look& look = lookOf(*this);
  auto widths = std::make_shared<Widths>();
  for (qsizetype i = 1; i < columns_.size(); ++i) {
    double widest = std::ceil(look.text.width(columns_[i], kHeadType));
    for (const FigureRow& row : rows_)
      widest = std::max(widest, cellWidth(look, row.cells[static_cast<std::size_t>(i)]));
    widths->push_back(widest);
  }
  layout->addWidget(new FigureHead(columns_, widths, built_));
  for (const FigureRow& row : rows_) layout->addWidget(new FigureLabel(row, widths, built_));
  layout_->addWidget(built_);
  built_->show();
}

void FigureTable::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // Columns are as wide as their texts.
  if (event->type() == QEvent::FontChange && built_ != nullptr) build();
}

}  // namespace quillet
