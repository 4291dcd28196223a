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
  addOffer(empty_.button, empty_.action);
  addOffer(empty_.otherButton, empty_.otherAction);
}

void ListPlaceholder::addOffer(const char* text, const char* action) {
  if (text == nullptr) return;
  auto* button = new QPushButton(rowsText(text), this);
  connect(button, &QPushButton::clicked, this,
          [this, action] { Q_EMIT actionAsked(QString::fromUtf8(action)); });
  button->hide();
  offers_.push_back(button);
}

void ListPlaceholder::setKind(Kind kind) {
  if (std::exchange(kind_, kind) == kind) return;
  clear_->setVisible(kind == Kind::noMatch);
  for (QPushButton* each : offers_) each->setVisible(kind == Kind::empty);
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

void ListPlaceholder::placeButtons() {
  const double y = top() + kIcon + kIconGap + kLine + kLineGap + kLine + kButtonGap;
  const auto place = [&](const std::vector<QPushButton*>& buttons) {
    int room = -kBetweenButtons;
    for (const QPushButton* each : buttons) room += each->sizeHint().width() + kBetweenButtons;
    int x = (width() - room) / 2;
    for (QPushButton* each : buttons) {
      const QRect box(QPoint(x, static_cast<int>(y)), each->sizeHint());
      each->setGeometry(QStyle::visualRect(layoutDirection(), rect(), box));
      x += box.width() + kBetweenButtons;
    }
  };
  place({clear_});
  place(offers_);
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
