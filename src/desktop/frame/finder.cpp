// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/finder.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/quick_row.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kWidth = 480;
constexpr int kMostRows = 10;
constexpr int kTop = 72;
constexpr int kPadding = 12;
constexpr double kCorner = 10;

}  // namespace

Finder::Finder(const FinderTexts& texts, QWidget& window)
    : QWidget(&window), window_(window), field_(new QLineEdit(this)), list_(new QListView(this)) {
  setAccessibleName(texts.title);
  field_->setAccessibleName(texts.field);
  field_->setPlaceholderText(texts.hint);
  field_->installEventFilter(this);
  list_->setAccessibleName(texts.list);
  list_->setModel(&found_);
  list_->setItemDelegate(new QuickRowDelegate(list_));
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->viewport()->setAutoFillBackground(false);
  list_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  layout->setSpacing(8);
  layout->addWidget(field_);
  layout->addWidget(list_);
  connect(field_, &QLineEdit::textChanged, this, &Finder::searchAgain);
  connect(list_, &QListView::clicked, this, &Finder::chooseCurrent);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (isVisible() && now != nullptr && !isAncestorOf(now)) hide();
  });
  window.installEventFilter(this);
  hide();
}

void Finder::begin() {
  before_ = QApplication::focusWidget();
  field_->clear();
  searchAgain();
  raise();
  QWidget::show();
  place();
  field_->setFocus(Qt::ShortcutFocusReason);
}

void Finder::leave() {
  if (before_) before_->setFocus(Qt::OtherFocusReason);
  hide();
}

void Finder::searchAgain() {
  found_.clear();
  search(text());
  if (found_.rowCount() > 0) list_->setCurrentIndex(found_.index(0, 0));
  place();
}

void Finder::chooseCurrent() {
  const int row = list_->currentIndex().row();
  if (row >= 0) choose(row);
}

void Finder::place() {
  const int rows = std::min(kMostRows, found_.rowCount());
  list_->setVisible(rows > 0);
  const int height = 2 * kPadding + field_->sizeHint().height() +
                     (rows > 0 ? 8 + rows * QuickRowDelegate::kHeight : 0);
  const int width = std::min(kWidth, window_.width() - 2 * kPadding);
  setGeometry((window_.width() - width) / 2, kTop, width,
              std::min(height, window_.height() - kTop - kPadding));
}

/// The field keeps the focus: arrows move the choice in the list.
bool Finder::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_) {
    if (event->type() == QEvent::Resize && isVisible()) place();
    return false;
  }
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (steers(*list_, watched, *event)) return true;
  const bool leaves =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (leaves) leave();
  if (isReturn(*event)) chooseCurrent();
  return leaves || isReturn(*event);
}

void Finder::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  paintBox(painter, rect(), kCorner, look[isDark ? Token::raised : Token::base],
           {look[Token::edge]});
}

}  // namespace quillet
