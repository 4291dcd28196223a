// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/mark_popover.h"

#include <QAccessible>
#include <QBitmap>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kWidth = 376;
constexpr int kPadding = 16;
constexpr int kCorner = 10;
constexpr int kAway = 6;  // from what it tells of
constexpr int kParagraphGap = 8;
constexpr int kPartGap = 12;
constexpr int kChoice = 24;
constexpr int kMark = 14;
constexpr int kTitleLeft = 22;
constexpr int kTextLeft = 144;

/// One of what a mark may say, with a check before that which it says.
class ChoiceLine : public QLabel {
 public:
  ChoiceLine(const MarkChoice& choice, QWidget* parent) : QLabel(parent), choice_(choice) {
    setTextFormat(Qt::PlainText);
    const QString line = QStringLiteral("%1: %2").arg(choice.title, choice.text);
    setText(choice.isThis ? tr("%1 (this app)").arg(line) : line);
  }

  [[nodiscard]] QSize sizeHint() const override {
    return {kWidth - 2 * kPadding, static_cast<int>(std::ceil(kChoice * lookOf(*this).growth()))};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    const double grown = look.growth();
    if (choice_.isThis) {
      look.icons.draw(painter, {0, (height() - kMark) / 2.0}, QStringLiteral("check2"), kMark,
                      look[Token::accentText]);
    }
    const QRectF title(kTitleLeft, 0, kTextLeft * grown - kTitleLeft, height());
    look.text.drawElided(painter, {title}, choice_.title,
                         choice_.isThis ? kSmallControlType.weighing(600) : kSmallControlType,
                         look[choice_.isThis ? Token::text : Token::secondary]);
    const QRectF text(title.right(), 0, width() - title.right(), height());
    look.text.drawElided(painter, {text}, choice_.text, kFactType, look[Token::secondary]);
  }

 private:
  MarkChoice choice_;
};

/// A hairline between two parts.
class PartLine : public QWidget {
 public:
  explicit PartLine(QWidget* parent) : QWidget(parent) { setFixedHeight(1); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PixelGrid(painter).horizontal(0, width(), 0, lookOf(*this)[Token::line]);
  }
};

QBitmap roundedMask(const QSize& size) {
  QBitmap mask(size);
  mask.fill(Qt::color0);
  QPainter painter(&mask);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::color1);
  painter.drawRoundedRect(QRect(QPoint(0, 0), size), kCorner, kCorner);
  return mask;
}

}  // namespace

MarkPopover::MarkPopover(const MarkDetails& details, QWidget* parent) : QWidget(parent, Qt::Popup) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAccessibleName(details.title);
  setAccessibleDescription(details.paragraphs.join(u' '));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kPadding, kPadding - 2, kPadding, kPadding);
  column->setSpacing(0);
  const auto add = [&](const TextLook& look, const QString& text, int above) {
    auto* part = new PageText(look, this);
    part->show(text);
    column->addSpacing(above);
    column->addWidget(part);
  };
  add({.type = kRowType, .lineHeight = 20}, details.title, 0);
  for (const QString& each : details.paragraphs)
    add({.type = kBodyType, .ink = Token::secondary}, each, kParagraphGap);
  if (!details.choices.empty()) {
    column->addSpacing(kPartGap);
    column->addWidget(new PartLine(this));
    column->addSpacing(kParagraphGap);
  }
  for (const MarkChoice& choice : details.choices) column->addWidget(new ChoiceLine(choice, this));
  if (!details.note.isEmpty())
    add({.type = kCaptionType, .ink = Token::tertiary, .lineHeight = 16}, details.note,
        kParagraphGap);
}

void MarkPopover::openBelow(const QWidget& widget) {
  const QRect on = widget.screen()->availableGeometry();
  const QSize size(kWidth, layout()->totalHeightForWidth(kWidth));
  const QRect at(widget.mapToGlobal(QPoint(0, 0)), widget.size());
  QRect place(QPoint(at.left(), at.bottom() + 1 + kAway), size);
  if (widget.layoutDirection() == Qt::RightToLeft) place.moveRight(at.right());
  if (place.bottom() > on.bottom()) place.moveBottom(at.top() - 1 - kAway);
  place.moveLeft(std::clamp(place.left(), on.left(), std::max(on.left(), on.right() - kWidth)));
  place.moveTop(std::max(place.top(), on.top()));
  setGeometry(place);
  // Without a compositor a translucent window has black corners; a mask cuts them off.
  setMask(roundedMask(size));
  // The keys come here while it is open; the focus stays where it was.
  QWidget::show();
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void MarkPopover::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  painter.fillRect(rect(), look[Token::base]);
  paintBox(painter, rect(), kCorner, look[Token::base], {look[Token::edge], 1});
}

void MarkPopover::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space: close(); return;
    default: QWidget::keyPressEvent(event);
  }
}

}  // namespace quillet
