// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/settings_page.h"

#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"

namespace quillet {

namespace {

constexpr int kInset = 24;
constexpr int kTop = 20;
constexpr int kHeadGap = 8;

/// What first takes the focus within a control of several parts.
QWidget& focusOf(QWidget& control) {
  if ((control.focusPolicy() & Qt::TabFocus) != 0) return control;
  for (QWidget* part : control.findChildren<QWidget*>()) {
    if ((part->focusPolicy() & Qt::TabFocus) != 0) return *part;
  }
  return control;
}

/// As rows have it.
class Hairline : public QWidget {
 public:
  Hairline() { setFixedHeight(1); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PixelGrid(painter).horizontal(0, width(), 0, lookOf(*this)[Token::grid]);
  }
};

}  // namespace

SettingsPage::SettingsPage(const QString& id, const QString& title, const QString& icon,
                           SettingsEdit& edit)
    : id_(id),
      title_(title),
      icon_(icon),
      edit_(edit),
      reset_(new LinkButton(tr("Reset"), kSmallControlType)),
      area_(new QScrollArea) {
  setAccessibleName(title);
  auto* head = new QHBoxLayout;
  head->setContentsMargins(kInset, 0, kInset, kHeadGap);
  auto* name = new TextLabel(kSectionType, Token::text);
  name->setText(title);
  reset_->setToolTip(tr("All settings of this page as they were at first"));
  reset_->hide();
  connect(reset_, &QAbstractButton::clicked, this, &SettingsPage::reset);
  head->addWidget(name, 1);
  head->addWidget(reset_);
  auto* body = new QWidget;
  body->setBackgroundRole(QPalette::Base);
  column_ = new QVBoxLayout(body);
  column_->setContentsMargins(kInset, 0, kInset, kInset);
  column_->setSpacing(0);
  column_->addStretch(1);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidgetResizable(true);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area_->viewport()->setBackgroundRole(QPalette::Base);
  area_->setWidget(body);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, kTop, 0, 0);
  all->setSpacing(0);
  all->addLayout(head);
  all->addWidget(area_, 1);
  connect(area_->verticalScrollBar(), &QScrollBar::rangeChanged, this, &SettingsPage::keepInset);
  connect(&edit, &SettingsEdit::changed, this, &SettingsPage::refresh);
}

/// A scroll bar takes its room from the inset, so that rows end where the head ends.
void SettingsPage::keepInset() {
  const QScrollBar& bar = *area_->verticalScrollBar();
  const int rest = kInset - (bar.maximum() > 0 ? bar.sizeHint().width() : 0);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  column_->setContentsMargins(isMirrored ? rest : kInset, 0, isMirrored ? kInset : rest, kInset);
}

SettingRow& SettingsPage::add(const SettingTexts& texts, QWidget* control) {
  auto* row = new SettingRow(texts, control);
  rows_.push_back(row);
  column_->insertWidget(column_->count() - 1, row);
  return *row;
}

void SettingsPage::addText(const QString& text) {
  auto* paragraph =
      new PageText({.type = kFactType, .ink = Token::secondary, .lineHeight = 17}, this);
  paragraph->show(text);
  addBelow(paragraph, kHeadGap);
}

void SettingsPage::addLine() {
  constexpr int kAbove = 12;
  constexpr int kBelow = 8;
  addBelow(new Hairline, kAbove);
  column_->insertSpacing(column_->count() - 1, kBelow);
}

void SettingsPage::addBelow(QWidget* widget, int gap) {
  column_->insertSpacing(column_->count() - 1, gap);
  column_->insertWidget(column_->count() - 1, widget);
}

void SettingsPage::follow(std::function<void()> show) {
  show();
  shows_.push_back(std::move(show));
}

void SettingsPage::onReset(std::function<void()> reset) {
  resets_.push_back(std::move(reset));
  reset_->show();
}

void SettingsPage::owns(std::string_view key) {
  keys_.emplace(key);
  reset_->show();
}

void SettingsPage::refresh() {
  for (const auto& show : shows_) show();
}

void SettingsPage::reset() {
  edit_.attempt([this] {
    edit_.settings().forget(keys_);
    for (const auto& reset : resets_) reset();
  });
}

void SettingsPage::reveal(SettingRow& row) {
  area_->ensureWidgetVisible(&row);
  focusOf(row.control()).setFocus(Qt::ShortcutFocusReason);
}

}  // namespace quillet
