// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/sample_row.h"

#include <QPainter>
#include <QVBoxLayout>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/row_places.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

RowTable sampleTable() {
  RowTable table;
  table.layout.hasStars = true;
  return table;
}

AppRow sampleApp() {
  AppRow row;
  row.key.app = {1, "us"};
  row.name = u"Riverrook RSS"_s;
  row.seller = u"Hazelworks Studio B.V."_s;
  row.ratingHalves = 9;
  row.price.text = u"$9.99"_s;
  row.price.move = PriceMove::down;
  row.aside = u"−50 %"_s;
  row.marks = RowMark::dropped | RowMark::atLowest;
  return row;
}

}  // namespace

SampleRow::SampleRow(ImageStore& images)
    : shown_(rows_, sampleTable()), view_(new AppListView(tr("How a row looks"), shown_, images)) {
  rows_.setRows({sampleApp()});
  setAccessibleName(tr("How a row looks with these settings"));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  view_->setFocusPolicy(Qt::NoFocus);
  view_->setAttribute(Qt::WA_TransparentForMouseEvents);
  view_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->setAutoFillBackground(false);
  view_->viewport()->setAutoFillBackground(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(view_);
}

// Before the rows, which it shows.
SampleRow::~SampleRow() { delete view_; }

QSize SampleRow::sizeHint() const {
  return {0, rowHeight(shown_.table().layout, lookOf(*this)) + 2};
}

void SampleRow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBox(painter, rect(), 8, look[Token::raised], {look[Token::line]});
}

}  // namespace quillet
