// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/price_table.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/marks.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/page_price.h"
#include "desktop/page/price_drawing.h"

namespace quillet {

namespace {

// A price changes some ten times a year: more than anybody reads.
constexpr std::size_t kMostRows = 100;

constexpr int kRow = 28;
constexpr double kChangeWidth = 96;
constexpr double kOriginLeft = 104;
constexpr double kOriginGap = 12;
constexpr double kTriangle = 8;
constexpr double kGap = 4;

/// One change: its day, the price, and how far that moved. A label, so that it is read.
class ChangeRow : public QLabel {
 public:
  ChangeRow(PriceChange change, QWidget* parent) : QLabel(parent), change_(std::move(change)) {
    QStringList texts{change_.day, change_.price};
    if (!change_.change.isEmpty()) texts << change_.change;
    texts << change_.origin;
    setTextFormat(Qt::PlainText);
    setText(texts.join(QStringLiteral(", ")));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

  [[nodiscard]] QSize sizeHint() const override { return {480, kRow}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, kRow}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const QRectF line(0, 0, width(), kRow - 1);
    PixelGrid(painter).horizontal(0, width(), kRow - 1, look[Token::grid]);
    look.text.draw(painter, {line}, change_.day, kFactType.tabular(), look[Token::secondary]);
    const double price =
        look.text.draw(painter, {line.adjusted(0, 0, -kChangeWidth, 0), TextAnchor::right},
                       change_.price, kSmallControlType.tabular(), look[Token::text]);
    const double room = line.width() - kOriginLeft - price - kChangeWidth - kOriginGap;
    look.text.drawElided(painter, {QRectF(kOriginLeft, 0, std::max(0.0, room), line.height())},
                         change_.origin, kCaptionType, look[Token::tertiary]);
    paintChange(painter, look, line);
  }

 private:
  void paintChange(QPainter& painter, Look& look, const QRectF& line) const {
    if (change_.move == PriceMove::none) return;
    const bool isDown = change_.move == PriceMove::down;
    const QColor& ink = look[isDown ? Token::down : Token::up];
    const double width = look.text.draw(painter, {line, TextAnchor::right}, change_.change,
                                        kFactType.tabular(), ink);
    paintTriangle(painter,
                  {line.right() - width - kGap - kTriangle, line.center().y() - kTriangle / 2},
                  kTriangle, isDown ? Direction::down : Direction::up, ink);
  }

  PriceChange change_;
};

}  // namespace

std::vector<PriceChange> priceChanges(const std::vector<RecordedPrice>& prices,
                                      const SentenceTerms& terms) {
  std::vector<PriceChange> changes;
  const RecordedPrice* before = nullptr;
  for (const RecordedPrice& price : prices) {
    if (before != nullptr && isSamePrice(before->amount, price.amount)) continue;
    PriceChange change{dateText(*price.when, terms.now, terms.zone),
                       priceText(price.amount, price.currency.value_or(""), terms.formats)};
    if (before != nullptr) {
      change.change = percentText(before->amount, price.amount);
      change.move = moveOf(before->amount, price.amount);
    }
    change.origin = originText(price);
    changes.push_back(std::move(change));
    before = &price;
  }
  std::ranges::reverse(changes);
  if (changes.size() > kMostRows) changes.resize(kMostRows);
  return changes;
}

PriceTable::PriceTable(QWidget* parent) : QWidget(parent) {
  setAccessibleName(tr("Price changes"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
}

void PriceTable::show(const std::vector<PriceChange>& changes) {
  if (changes == changes_) return;
  changes_ = changes;
  for (QWidget* row : std::exchange(rows_, {})) delete row;
  for (const PriceChange& change : changes_) {
    rows_.push_back(new ChangeRow(change, this));
    layout()->addWidget(rows_.back());
  }
}

}  // namespace quillet
