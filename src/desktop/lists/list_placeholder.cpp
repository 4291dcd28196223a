// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_placeholder.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <array>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kMoment = 150ms;
constexpr double kIcon = 48;
constexpr double kIconGap = 16;
constexpr double kLine = 20;
constexpr double kLineGap = 4;
constexpr double kButtonGap = 20;
constexpr double kButtonHeight = 32;
constexpr int kBetweenButtons = 8;
constexpr double kMargin = 24;
constexpr double kRowHeight = 64;

struct GreyRow {
  double name;
  double seller;
};
constexpr std::array<GreyRow, 8> kGreyRows{
    {{150, 96}, {120, 130}, {176, 80}, {108, 112}, {162, 104}, {132, 88}, {144, 120}, {116, 92}}};

QString rowsText(const char* text) { return QCoreApplication::translate("Rows", text); }

}  // namespace

ListPlaceholder::ListPlaceholder(const QString& name, const EmptyList& empty)
    : name_(name), empty_(empty), clear_(new QPushButton(tr("Clear Filters"), this)) {
  setAccessibleName(name_);
  // Not by the tab key, but a window that becomes active leaves the focus where it is.
  setFocusPolicy(Qt::ClickFocus);
  moment_.setSingleShot(true);
  moment_.setInterval(kMoment);
  connect(&moment_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
  connect(clear_, &QPushButton::clicked, this, &ListPlaceholder::clearAsked);
  clear_->hide();
  if (empty_.button != nullptr) addOffer({empty_.button, empty_.action});
  for (const EmptyOffer& each : empty_.more) addOffer(each);
}

void ListPlaceholder::addOffer(const EmptyOffer& offer) {
  auto* button = new QPushButton(rowsText(offer.button), this);
  connect(button, &QPushButton::clicked, this,
          [this, action = QString::fromUtf8(offer.action)] { Q_EMIT actionAsked(action); });
  button->hide();
  offers_.push_back(button);
}

void ListPlaceholder::setKind(Kind kind) {
  if (std::exchange(kind_, kind) == kind) return;
  clear_->setVisible(kind == Kind::noMatch);
  for (QPushButton* offer : offers_) offer->setVisible(kind == Kind::empty);
  moment_.stop();
  if (kind == Kind::loading) moment_.start();
  const bool hasTexts = kind == Kind::empty || kind == Kind::noMatch;
  setAccessibleName(hasTexts ? rowsText(texts().line) + u' ' + rowsText(texts().sentence) : name_);
  placeButtons();
  update();
}

EmptyList ListPlaceholder::texts() const {
  if (kind_ == Kind::empty) return empty_;
  return {"search", QT_TRANSLATE_NOOP("Rows", "Nothing matches."),
          QT_TRANSLATE_NOOP("Rows", "Try other words, or fewer filters.")};
}

bool ListPlaceholder::hasButton() const {
  return !clear_->isHidden() || (!offers_.empty() && !offers_.front()->isHidden());
}

double ListPlaceholder::top() const {
  double height = kIcon + kIconGap + kLine + kLineGap + kLine;
  if (hasButton()) height += kButtonGap + kButtonHeight;
  return std::max(kMargin, (this->height() - height) / 2 - kLineGap);
}

/// Beside each other, or below each other where that is too wide.
void ListPlaceholder::placeButtons() {
  const auto y = static_cast<int>(top() + kIcon + kIconGap + kLine + kLineGap + kLine + kButtonGap);
  const QSize clear = clear_->sizeHint();
  clear_->setGeometry(QRect(QPoint((width() - clear.width()) / 2, y), clear));
  int all = -kBetweenButtons;
  for (const QPushButton* offer : offers_) all += offer->sizeHint().width() + kBetweenButtons;
  const bool isRow = all <= width() - 2 * static_cast<int>(kMargin);
  QPoint at((width() - all) / 2, y);
  for (QPushButton* offer : offers_) {
    const QSize size = offer->sizeHint();
    if (!isRow) at.setX((width() - size.width()) / 2);
    offer->setGeometry(QStyle::visualRect(layoutDirection(), rect(), QRect(at, size)));
    at += isRow ? QPoint(size.width() + kBetweenButtons, 0)
                : QPoint(0, size.height() + kBetweenButtons);
  }
}

void ListPlaceholder::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (kind_ == Kind::loading && !moment_.isActive()) paintGreyRows(painter);
  if (kind_ == Kind::empty || kind_ == Kind::noMatch) paintTexts(painter);
}

void ListPlaceholder::paintGreyRows(QPainter& painter) const {
  const QColor& grey = lookOf(*this)[Token::neutralTint];
  const auto box = [&](double x, double y, double width, double height, double radius) {
    if (layoutDirection() == Qt::RightToLeft) x = this->width() - x - width;
    paintBox(painter, QRectF(x, y, width, height), radius, grey);
  };
  double top = 0;
  for (const GreyRow& row : kGreyRows) {
    box(20, top + 10, 44, 44, 10);
    box(76, top + 18, row.name, 12, 4);
    box(76, top + 38, row.seller, 8, 4);
    box(width() - 72.0, top + 24, 56, 16, 8);
    top += kRowHeight;
  }
}

void ListPlaceholder::paintTexts(QPainter& painter) const {
  Look& look = lookOf(*this);
  const EmptyList shown = texts();
  double y = top();
  look.icons.draw(painter, {(width() - kIcon) / 2, y}, QString::fromUtf8(shown.icon), kIcon,
                  look[Token::edge]);
  y += kIcon + kIconGap;
  const auto line = [&](const char* text, const TypeStyle& style, Token color) {
    const QRectF place(kMargin, y, width() - 2 * kMargin, kLine);
    look.text.drawElided(painter, {place, TextAnchor::centre}, rowsText(text), style, look[color]);
    y += kLine + kLineGap;
  };
  line(shown.line, kBlockType, Token::text);
  line(shown.sentence, kBodyType, Token::secondary);
}

void ListPlaceholder::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeButtons();
}

}  // namespace quillet
