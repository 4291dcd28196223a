// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/setting_row.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kPadding = 8;
constexpr int kGap = 16;
constexpr int kLeast = 48;
constexpr int kLeastWithDetail = 56;
constexpr int kNarrowest = 160;
constexpr int kControl = 28;
constexpr double kControlText = 18;  // of its height
constexpr double kFoundInset = -8;

bool isBox(const QWidget& control) {
  return qobject_cast<const QComboBox*>(&control) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&control) != nullptr ||
         qobject_cast<const QPushButton*>(&control) != nullptr;
}

}  // namespace

SettingRow::SettingRow(const SettingTexts& texts, QWidget* control)
    : texts_(texts),
      title_(new PageText({.type = kControlType}, this)),
      detail_(new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 17}, this)),
      control_(control) {
  title_->show(texts.title);
  title_->setBuddy(control);
  detail_->show(texts.detail);
  control_->setParent(this);
  // One of several parts has named itself, or the part that takes the focus; a button has its text.
  const bool hasText = qobject_cast<QPushButton*>(control) != nullptr;
  if (control_->focusPolicy() != Qt::NoFocus && !hasText) control_->setAccessibleName(texts.title);
  control_->installEventFilter(this);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

bool SettingRow::matches(const QString& folded) const {
  const QString all = (texts_.title + u' ' + texts_.detail + u' ' + texts_.words).toCaseFolded();
  const QStringList words = folded.split(u' ', Qt::SkipEmptyParts);
  return std::ranges::all_of(words, [&](const QString& word) { return all.contains(word); });
}

void SettingRow::setDetail(const QString& detail) {
  texts_.detail = detail;
  detail_->show(detail);
  updateGeometry();
  place();
}

void SettingRow::setLine(bool hasLine) {
  hasLine_ = hasLine;
  update();
}

void SettingRow::setFound(bool isFound) {
  if (std::exchange(isFound_, isFound) != isFound) update();
}

QSize SettingRow::controlSize() const {
  QSize size = control_->sizeHint();
  if (!isBox(*control_)) return size;
  const double growth = lookOf(*this).growth() - 1;
  size.setHeight(kControl + static_cast<int>(std::ceil(kControlText * growth)));
  return size;
}

bool SettingRow::isStacked(int width) const {
  const double title = lookOf(*this).text.width(texts_.title, kControlType);
  return std::ceil(title) + kGap + controlSize().width() > width;
}

int SettingRow::textsHeight(int width) const {
  const int detail = detail_->text().isEmpty() ? 0 : detail_->heightForWidth(width);
  return title_->heightForWidth(width) + detail;
}

int SettingRow::heightForWidth(int width) const {
  const QSize control = controlSize();
  if (isStacked(width)) return textsHeight(width) + kPadding + control.height() + 2 * kPadding;
  const int texts = textsHeight(width - kGap - control.width());
  const int least = detail_->text().isEmpty() ? kLeast : kLeastWithDetail;
  return std::max(least, std::max(texts, control.height()) + 2 * kPadding);
}

QSize SettingRow::sizeHint() const {
  constexpr int kUsual = 374;
  return {kUsual, heightForWidth(kUsual)};
}

QSize SettingRow::minimumSizeHint() const { return {kNarrowest, kLeast}; }

void SettingRow::place() {
  const QSize control = controlSize();
  const bool stacked = isStacked(width());
  const int room = stacked ? width() : width() - kGap - control.width();
  const int titleHeight = title_->heightForWidth(room);
  const int texts = textsHeight(room);
  const int top = stacked ? kPadding : (height() - texts) / 2;
  const auto put = [this](QWidget& widget, const QRect& rect) {
    widget.setGeometry(QStyle::visualRect(layoutDirection(), this->rect(), rect));
  };
  put(*title_, {0, top, room, titleHeight});
  put(*detail_, {0, top + titleHeight, room, texts - titleHeight});
  const QPoint corner = stacked
                            ? QPoint(0, top + texts + kPadding)
                            : QPoint(width() - control.width(), (height() - control.height()) / 2);
  put(*control_, QRect(corner, QSize(std::min(control.width(), width()), control.height())));
}

void SettingRow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place();
}

/// A control asks for another room, or texts have another size.
bool SettingRow::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) {
    updateGeometry();
    place();
  }
  return handled;
}

/// A wheel over a control scrolls the page: it is not to change what it happens to pass.
bool SettingRow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel || control_->hasFocus())
    return QWidget::eventFilter(watched, event);
  event->ignore();
  return true;
}

void SettingRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  if (isFound_)
    paintBox(painter, QRectF(rect()).adjusted(kFoundInset, 2, -kFoundInset, -3), 7,
             look[Token::raised]);
  if (hasLine_) PixelGrid(painter).horizontal(0, width(), height() - 1, look[Token::grid]);
}

}  // namespace quillet
