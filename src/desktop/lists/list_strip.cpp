// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_strip.h"

#include <QDateTime>
#include <QLocale>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <chrono>
#include <cmath>

#include "desktop/look/button_look.h"
#include "desktop/look/entrance.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

constexpr int kHeight = 36;
constexpr int kMargin = 16;
constexpr int kMarginBesideButton = 8;
constexpr int kIcon = 14;
constexpr int kGap = 8;
constexpr int kButtonHeight = 28;
constexpr int kSecond = 1000;  // ms
constexpr int kMinute = 60 * kSecond;
constexpr TypeStyle kStripType{12.5, 400, 0, Digits::tabular};

}  // namespace

QString textOf(StripAction action) {
  switch (action) {
    case StripAction::refresh: return ListStrip::tr("Refresh");
    case StripAction::stop: return ListStrip::tr("Stop");
    case StripAction::goOn: return ListStrip::tr("Go On");
    case StripAction::tryAgain: return ListStrip::tr("Try Again");
    case StripAction::settings: return ListStrip::tr("Settings…");
    case StripAction::none: break;
  }
  return {};
}

int paceOf(const ListState& state) {
  if (std::holds_alternative<Stale>(state)) return kMinute;
  const bool counts =
      std::holds_alternative<BudgetWait>(state) || std::holds_alternative<Throttled>(state);
  return counts ? kSecond : 0;
}

ListStrip::ListStrip(Clock& clock)
    : clock_(clock),
      button_(new QPushButton(this)),
      details_(new QPushButton(tr("Details"), this)),
      entrance_(new Entrance(*this)) {
  connect(entrance_, &QVariantAnimation::valueChanged, this, &ListStrip::enter);
  connect(entrance_, &QVariantAnimation::finished, this, &ListStrip::enter);
  setFixedHeight(kHeight);
  for (QPushButton* button : {button_, details_}) setButtonKind(*button, ButtonKind::flat);
  connect(details_, &QPushButton::clicked, this, &ListStrip::tellDetails);
  connect(button_, &QPushButton::clicked, this, [this] { Q_EMIT acted(action_); });
  hide();
}

QSize ListStrip::sizeHint() const { return {2 * kMargin, kHeight}; }

void ListStrip::setState(const ListState& state) {
  state_ = state;
  since_ = clock_.now();
  const auto strip = stripOf(state_, clock_.now());
  // Once, when it begins: what is only painted goes on counting unheard.
  setAccessibleName(strip ? strip->text : QString());
  action_ = strip ? strip->action : StripAction::none;
  button_->setText(textOf(action_));
  button_->setVisible(action_ != StripAction::none);
  details_->setVisible(strip && !strip->details.isEmpty());
  if (strip && isHidden()) entrance_->begin();
  placeButtons();
  setVisible(strip.has_value());
  keepPace();
  update();
}

/// How far its contents still are above their place.
int ListStrip::above() const { return static_cast<int>(entrance_->left() * kHeight); }

void ListStrip::enter() {
  placeButtons();
  update();
}

void ListStrip::placeButtons() {
  end_ = width() - kMarginBesideButton;
  for (QPushButton* button : {details_, button_}) {
    if (button->isHidden()) continue;
    const int its = button->sizeHint().width();
    end_ -= its;
    const QRect place(end_, (kHeight - kButtonHeight) / 2 - above(), its, kButtonHeight);
    button->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  }
}

/// The whole sentence, which the strip may have cut, and more.
void ListStrip::tellDetails() {
  const auto strip = stripOf(state_, clock_.now());
  if (!strip) return;
  auto* box =
      new QMessageBox(QMessageBox::NoIcon, tr("Details"), strip->text, QMessageBox::Close, this);
  const auto when = QDateTime::fromSecsSinceEpoch(
      std::chrono::floor<std::chrono::seconds>(since_.time_since_epoch()).count());
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(tr("%1 What was read before stays as it is.\n\n%2")
                              .arg(strip->details, QLocale().toString(when, QLocale::LongFormat)));
  box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

void ListStrip::paintEvent(QPaintEvent* /*event*/) {
  const auto strip = stripOf(state_, clock_.now());
  if (!strip) return;
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isWarning = strip->tone == StripTone::warning;
  painter.fillRect(rect(), look[isWarning ? Token::lowTint : Token::neutralTint]);
  painter.translate(0, -above());
  Token mark = isWarning ? Token::low : Token::secondary;
  if (strip->isError) mark = Token::up;
  const auto at = [&](const QRectF& place) {
    if (layoutDirection() == Qt::LeftToRight) return place;
    return QRectF(width() - place.right(), place.top(), place.width(), place.height());
  };
  const QRectF icon(kMargin, (kHeight - kIcon) / 2.0, kIcon, kIcon);
  look.icons.draw(
      painter, at(icon).topLeft(),
      QString::fromLatin1(strip->icon.data(), static_cast<qsizetype>(strip->icon.size())), kIcon,
      look[mark]);
  QRectF text(kMargin + kIcon + kGap, 0, 0, kHeight);
  text.setRight(end_ - (button_->isHidden() ? kMargin - kMarginBesideButton : kMarginBesideButton));
  look.text.drawElided(
      painter,
      {at(text), layoutDirection() == Qt::LeftToRight ? TextAnchor::left : TextAnchor::right},
      strip->text, kStripType, look[isWarning ? Token::low : Token::text]);
}

void ListStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeButtons();
}

void ListStrip::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  keepPace();
}

void ListStrip::keepPace() {
  const int pace = paceOf(state_);
  pace > 0 && isVisible() ? pace_.start(pace, this) : pace_.stop();
}

void ListStrip::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  pace_.stop();
}

void ListStrip::timerEvent(QTimerEvent* /*event*/) { update(); }

}  // namespace quillet
