// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/purchase_table.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "desktop/page/wrapped_text.h"

namespace quillet {

namespace {

constexpr std::size_t kFoldedRows = 8;
constexpr TypeStyle kHeadType{11.5, 500};
constexpr TypeStyle kItemType = kControlType;
constexpr TypeStyle kFigureType = kBodyType.tabular();
constexpr TypeStyle kPerYearType = kFigureType.weighing(600);
constexpr TypeStyle kChangeType = kFactType.tabular();
constexpr double kLine = 18;
constexpr double kAround = 6;
constexpr double kHeadLine = 16;
constexpr double kGap = 20;
constexpr double kNarrowGap = 14;
constexpr double kWide = 480;
constexpr double kPerYearWidth = 76;  // of a wide table, at least
constexpr double kChangeWidth = 52;
constexpr double kBillingAt = 0.34;  // of a wide table
constexpr double kTriangle = 7;
constexpr double kTriangleGap = 4;
constexpr int kItemLines = 2;
constexpr int kGroupAbove = 10;

const QString kNothing = QStringLiteral("—");

}  // namespace

/// What the columns of one table are made for: the widest of each.
struct PurchaseTable::Columns {
  PurchaseRow head;
  double item = 0;
  double billing = 0;
  double price = 0;
  double perYear = 0;
  double change = 0;
  bool hasPerYear = false;
  bool hasChange = false;
};

namespace {

using Columns = PurchaseTable::Columns;

double changeWidth(Look& look, const PurchaseRow& row) {
  const double width = look.text.width(row.change, kChangeType);
  return row.move == PriceMove::none ? width : width + kTriangle + kTriangleGap;
}

Columns columnsFor(Look& look, const std::vector<PurchaseGroup>& groups, PurchaseRow head) {
  Columns columns;
  const auto width = [&](const QString& text, const TypeStyle& type) {
    return std::ceil(look.text.width(text, type));
  };
  columns.billing = width(head.billing, kHeadType);
  columns.price = width(head.price, kHeadType);
  columns.perYear = width(head.perYear, kHeadType);
  columns.change = width(head.change, kHeadType);
  columns.head = std::move(head);
  for (const PurchaseGroup& group : groups) {
    for (const PurchaseRow& row : group.rows) {
      columns.item = std::max(columns.item, width(row.item, kItemType));
      columns.billing = std::max(columns.billing, width(row.billing, kBodyType));
      columns.price = std::max(columns.price, width(row.price, kFigureType));
      columns.perYear = std::max(columns.perYear, width(row.perYear, kPerYearType));
      columns.change = std::max(columns.change, std::ceil(changeWidth(look, row)));
      columns.hasPerYear |= !row.perYear.isEmpty();
      columns.hasChange |= !row.change.isEmpty();
    }
  }
  return columns;
}

/// Where they stand in a row of some width. Without a width a column is left out.
struct Places {
  QRectF item, billing, price, perYear, change;
  bool isNarrow = false;  ///< the billing stands below the item
};

Places placesOf(const Columns& columns, double width) {
  Places places;
  places.isNarrow = width < kWide;
  const double gap = places.isNarrow ? kNarrowGap : kGap;
  double right = width;
  const auto take = [&](double column) {
    const QRectF place(right - column, 0, column, 0);
    right -= column + gap;
    return place;
  };
  if (!places.isNarrow) {
    places.change = take(std::max(columns.change, kChangeWidth));
    places.perYear = take(std::max(columns.perYear, kPerYearWidth));
  } else {
    if (columns.hasChange) places.change = take(columns.change);
    if (columns.hasPerYear) places.perYear = take(columns.perYear);
  }
  places.price = take(columns.price);
  right = std::max(right, 0.0);
  if (places.isNarrow) {
    places.item = QRectF(0, 0, right, 0);
    return places;
  }
  const double usual = std::max(columns.item + gap, width * kBillingAt);
  const double left = std::max(0.0, std::min(usual, right - columns.billing));
  places.billing = QRectF(left, 0, right - left, 0);
  places.item = QRectF(0, 0, std::max(0.0, left - gap), 0);
  return places;
}

/// Draws one row. A table's rows share their columns.
struct RowPainter {
  std::shared_ptr<const Columns> columns;
  PurchaseRow row;
  PurchaseTable::RowEnds ends = PurchaseTable::RowEnds::nothing;  ///< below a group is no line

  [[nodiscard]] WrappedText item(Look& look, const Places& places) const {
    return {
        row.item, {kItemType, kLine, kItemLines}, static_cast<int>(places.item.width()), look.text};
  }

  [[nodiscard]] int height(Look& look, int width) const {
    const Places places = placesOf(*columns, width);
    const double line = kLine * look.growth();
    double text = std::max(line, item(look, places).height());
    if (places.isNarrow && !row.billing.isEmpty()) text += line;
    return static_cast<int>(std::ceil(text + 2 * kAround)) + 1;
  }

  void paint(QPainter& painter, Look& look, const QRect& rect) const {
    const Places places = placesOf(*columns, rect.width());
    const double line = kLine * look.growth();
    if (ends == PurchaseTable::RowEnds::nothing)
      PixelGrid(painter).horizontal(0, rect.width(), rect.height() - 1, look[Token::grid]);
    const auto at = [&](QRectF place, double top = kAround) {
      place.setTop(top);
      place.setHeight(line);
      return place;
    };
    const WrappedText item = this->item(look, places);
    item.paint(painter, look, {0, kAround}, look[Token::text]);
    const double top = kAround + item.height();
    const QRectF billing = places.isNarrow ? at(places.item, top) : at(places.billing);
    look.text.drawElided(painter, {billing}, row.billing, kBodyType, look[Token::secondary]);
    paintFigure(painter, look, at(places.price), row.price, kFigureType);
    if (places.perYear.width() > 0)
      paintFigure(painter, look, at(places.perYear), row.perYear, kPerYearType);
    if (places.change.width() > 0) paintChange(painter, look, at(places.change));
  }

  static void paintFigure(QPainter& painter, Look& look, const QRectF& place, const QString& text,
                          const TypeStyle& type) {
    const bool isKnown = !text.isEmpty();
    look.text.draw(painter, {place, TextAnchor::right}, isKnown ? text : kNothing,
                   isKnown ? type : kFigureType, look[isKnown ? Token::text : Token::tertiary]);
  }

  void paintChange(QPainter& painter, Look& look, const QRectF& place) const {
    if (row.change.isEmpty()) return paintFigure(painter, look, place, {}, kFigureType);
    if (row.move == PriceMove::none) {
      look.text.draw(painter, {place, TextAnchor::right}, row.change, kChangeType,
                     look[Token::tertiary]);
      return;
    }
    const bool isDown = row.move == PriceMove::down;
    const QColor& ink = look[isDown ? Token::down : Token::up];
    const double width =
        look.text.draw(painter, {place, TextAnchor::right}, row.change, kChangeType, ink);
    paintTriangle(
        painter,
        {place.right() - width - kTriangleGap - kTriangle, place.center().y() - kTriangle / 2},
        kTriangle, isDown ? Direction::down : Direction::up, ink);
  }
};

QSizePolicy rowPolicy() {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  return policy;
}

/// One purchase. A label, so that it is read.
class PurchaseLabel : public QLabel {
 public:
  PurchaseLabel(RowPainter row, QWidget* parent) : QLabel(parent), row_(std::move(row)) {
    setTextFormat(Qt::PlainText);
    setText(spoken(row_.row));
    setSizePolicy(rowPolicy());
  }

  [[nodiscard]] QSize sizeHint() const override { return {480, heightForWidth(480)}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override {
    return row_.height(lookOf(*this), width);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    row_.paint(painter, lookOf(*this), rect());
  }

 private:
  RowPainter row_;
};

/// One purchase whose price changed: it shows how.
class PurchaseButton : public QAbstractButton {
 public:
  PurchaseButton(RowPainter row, QWidget* parent) : QAbstractButton(parent), row_(std::move(row)) {
    setAccessibleName(spoken(row_.row));
    tell();
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(rowPolicy());
  }

  /// What a click does now.
  void tell() {
    const QString act =
        PurchaseTable::tr(chart == nullptr ? "Show what it has cost" : "Hide what it has cost");
    setToolTip(act);
    setAccessibleDescription(act);
  }

  QWidget* chart = nullptr;  ///< below the row, while it is shown

  [[nodiscard]] QSize sizeHint() const override { return {480, heightForWidth(480)}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override {
    return row_.height(lookOf(*this), width);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    if (underMouse()) painter.fillRect(rect(), look[Token::hover]);
    row_.paint(painter, look, rect());
  }
  void keyPressEvent(QKeyEvent* event) override {
    isReturn(*event) ? click() : QAbstractButton::keyPressEvent(event);
  }

 private:
  RowPainter row_;
};

/// What the columns are called.
class PurchaseHead : public QLabel {
 public:
  PurchaseHead(std::shared_ptr<const Columns> columns, QWidget* parent)
      : QLabel(parent), columns_(std::move(columns)) {
    const PurchaseRow& head = columns_->head;
    setTextFormat(Qt::PlainText);
    setText(QStringList{head.item, head.billing, head.price, head.perYear, head.change}.join(
        QStringLiteral(", ")));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {480, static_cast<int>(std::ceil(kHeadLine * lookOf(*this).growth() + kAround)) + 1};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const Places places = placesOf(*columns_, width());
    const PurchaseRow& head = columns_->head;
    const auto draw = [&](QRectF place, const QString& text, TextAnchor anchor) {
      if (place.width() <= 0) return;
      place.setHeight(kHeadLine * look.growth());
      look.text.draw(painter, {place, anchor}, text, kHeadType, look[Token::tertiary]);
    };
    draw(places.item, head.item, TextAnchor::left);
    draw(places.billing, head.billing, TextAnchor::left);
    draw(places.price, head.price, TextAnchor::right);
    draw(places.perYear, head.perYear, TextAnchor::right);
    draw(places.change, head.change, TextAnchor::right);
    PixelGrid(painter).horizontal(0, width(), height() - 1, look[Token::line]);
  }

 private:
  std::shared_ptr<const Columns> columns_;
};

}  // namespace

PurchaseTable::PurchaseTable(MakeChart makeChart, QWidget* parent)
    : QWidget(parent),
      makeChart_(std::move(makeChart)),
      layout_(new QVBoxLayout(this)),
      all_(new LinkButton({}, kSmallControlType, {}, this)) {
  setAccessibleName(tr("Purchases"));
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setSpacing(0);
  layout_->addSpacing(0);
  layout_->addWidget(all_, 0, Qt::AlignLeft);
  connect(all_, &QAbstractButton::clicked, this, [this] {
    isFolded_ = !isFolded_;
    build();
  });
}

void PurchaseTable::forget() {
  groups_.clear();
  isFolded_ = true;
  open_.clear();
}

void PurchaseTable::show(const std::vector<PurchaseGroup>& groups) {
  if (groups == groups_) return;
  groups_ = groups;
  build();
}

std::optional<PurchaseTable::RowName> PurchaseTable::focusedRow() const {
  const auto focused =
      std::ranges::find_if(buttons_, [](const auto& each) { return each.second->hasFocus(); });
  return focused == buttons_.end() ? std::nullopt : std::optional(focused->first);
}

void PurchaseTable::build() {
  const std::optional<RowName> focused = focusedRow();
  buttons_.clear();
  delete rows_;
  rows_ = new QWidget(this);
  auto* layout = new QVBoxLayout(rows_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  columns_ = std::make_shared<const Columns>(
      columnsFor(lookOf(*this), groups_,
                 {tr("Item"), tr("Billing"), tr("Price"), tr("Per year"), tr("Change")}));
  layout->addWidget(new PurchaseHead(columns_, rows_));
  std::size_t all = 0;
  for (const PurchaseGroup& group : groups_) all += group.rows.size();
  std::size_t left = isFolded_ ? kFoldedRows : all;
  for (const PurchaseGroup& group : groups_) {
    if (left == 0) break;
    if (!group.title.isEmpty()) addTitle(group.title);
    const std::size_t count = std::min(left, group.rows.size());
    for (std::size_t i = 0; i < count; ++i)
      addRow(group.rows[i], i + 1 == count ? RowEnds::group : RowEnds::nothing);
    left -= count;
  }
  layout_->insertWidget(0, rows_);
  rows_->show();
  all_->setText(isFolded_ ? tr("Show all %1").arg(all) : tr("Show fewer"));
  all_->setVisible(all > kFoldedRows);
  all_->updateGeometry();
  const auto row = focused ? buttons_.find(*focused) : buttons_.end();
  if (row != buttons_.end()) row->second->setFocus(Qt::OtherFocusReason);
}

void PurchaseTable::addTitle(const QString& title) {
  auto* text = new PageText({.type = kSmallControlType.weighing(600),
                             .ink = Token::secondary,
                             .lineHeight = kLine,
                             .lines = 1},
                            rows_);
  text->setContentsMargins(0, 0, 0, 0);
  text->show(title);
  auto* layout = static_cast<QVBoxLayout*>(rows_->layout());
  layout->addSpacing(kGroupAbove);
  layout->addWidget(text);
}

void PurchaseTable::addRow(const PurchaseRow& row, RowEnds ends) {
  RowPainter painter{columns_, row, ends};
  if (row.history.empty()) {
    rows_->layout()->addWidget(new PurchaseLabel(std::move(painter), rows_));
    return;
  }
  auto* button = new PurchaseButton(std::move(painter), rows_);
  rows_->layout()->addWidget(button);
  const RowName name{row.item, row.billing};
  buttons_[name] = button;
  const auto toggle = [this, button, row] {
    auto* layout = static_cast<QVBoxLayout*>(rows_->layout());
    if (QWidget* chart = std::exchange(button->chart, nullptr)) {
      delete chart;
    } else {
      button->chart = makeChart_(row, rows_);
      layout->insertWidget(layout->indexOf(button) + 1, button->chart);
      button->chart->show();
    }
    button->tell();
  };
  if (open_.contains(name)) toggle();
  connect(button, &QAbstractButton::clicked, button, [this, toggle, name] {
    if (open_.erase(name) == 0) open_.insert(name);
    toggle();
  });
}

void PurchaseTable::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  // Columns are as wide as their texts.
  if (event->type() == QEvent::FontChange && rows_ != nullptr) build();
}

}  // namespace quillet
