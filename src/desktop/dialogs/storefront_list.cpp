// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/storefront_list.h"

#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "desktop/dialogs/storefront_row.h"
#include "desktop/look/search_field.h"
#include "desktop/look/widgets.h"
#include "desktop/models/storefronts.h"

namespace quillet {

namespace {

QStandardItem* itemOf(const Storefront& storefront) {
  auto* item = new QStandardItem(storefront.name);
  const QString code = QString::fromStdString(storefront.code);
  item->setData(code, StorefrontCodeRole);
  item->setData(storefront.currency, StorefrontCurrencyRole);
  QStringList sentence{storefront.name};
  if (!code.isEmpty()) sentence.append(code);
  if (!storefront.currency.isEmpty()) sentence.append(storefront.currency);
  item->setData(sentence.join(QStringLiteral(", ")), Qt::AccessibleTextRole);
  return item;
}

std::string codeOf(const QModelIndex& index) {
  return index.data(StorefrontCodeRole).toString().toStdString();
}

}  // namespace

StorefrontList::StorefrontList(const QString& first)
    : first_(first), field_(new SearchField(tr("Find a country or region"))), list_(new QListView) {
  list_->setAccessibleName(tr("Countries and regions"));
  list_->setModel(&shown_);
  list_->setItemDelegate(new StorefrontRowDelegate(list_));
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setUniformItemSizes(true);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->viewport()->setAutoFillBackground(false);
  list_->viewport()->setAttribute(Qt::WA_Hover);
  for (QWidget* part : {static_cast<QWidget*>(field_), static_cast<QWidget*>(list_)})
    part->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(8);
  column->addWidget(field_);
  column->addWidget(list_, 1);
  connect(field_, &QLineEdit::textChanged, this, &StorefrontList::fill);
  connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &StorefrontList::takeCurrent);
  connect(list_, &QListView::clicked, this, &StorefrontList::settled);
  fill({});
}

void StorefrontList::choose(const std::string& code) {
  chosen_ = code;
  field_->clear();
  fill({});
}

/// A row is not cut in two where the list ends.
void StorefrontList::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int room = height() - field_->sizeHint().height() - layout()->spacing();
  const int row = list_->sizeHintForRow(0);
  layout()->setContentsMargins(0, 0, 0, row > 0 && room > row ? room % row : 0);
}

void StorefrontList::takeFocus() { field_->setFocus(Qt::OtherFocusReason); }

/// Of all, the chosen one is current; of those found, the first.
void StorefrontList::fill(const QString& text) {
  const std::string chosen = chosen_;
  shown_.clear();
  if (text.isEmpty() && !first_.isEmpty()) shown_.appendRow(itemOf({{}, first_, {}}));
  int current = text.isEmpty() ? -1 : 0;
  for (const Storefront& storefront : storefrontsLike(text)) {
    if (text.isEmpty() && storefront.code == chosen) current = shown_.rowCount();
    shown_.appendRow(itemOf(storefront));
  }
  if (current < 0 && !first_.isEmpty()) current = 0;
  chosen_ = chosen;
  const QModelIndex index = shown_.index(current, 0);
  list_->setCurrentIndex(index);
  if (index.isValid())
    list_->scrollTo(index, text.isEmpty() ? QAbstractItemView::PositionAtCenter
                                          : QAbstractItemView::EnsureVisible);
}

void StorefrontList::takeCurrent(const QModelIndex& current) {
  if (current.isValid()) chosen_ = codeOf(current);
}

bool StorefrontList::eventFilter(QObject* watched, QEvent* event) {
  if (steers(*list_, watched, *event)) return true;
  if (!isReturn(*event)) return QWidget::eventFilter(watched, event);
  // Of a text that means nothing there is nothing to choose.
  if (!list_->currentIndex().isValid()) return true;
  Q_EMIT entered();
  Q_EMIT settled();
  return true;
}

}  // namespace quillet
