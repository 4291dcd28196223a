// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_foot.h"

#include <QLocale>
#include <QPainter>
#include <QStyle>
#include <cmath>

#include "analysis/price_totals.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/sections/my_apps/upkeep_columns.h"

namespace quillet {

namespace {

constexpr int kHeight = 40;
constexpr int kLine = 17;
constexpr int kInset = 24;
constexpr int kGap = 16;
constexpr TypeStyle kType = kFactType.tabular();

}  // namespace

QString paidText(const QAbstractItemModel& rows, const LocaleFormats& formats) {
  std::vector<KnownPrice> prices;
  for (int i = 0; i < rows.rowCount(); ++i) {
    const PriceCell& price = rows.index(i, 0).data(RowRole).value<const AppRow*>()->price;
    if (price.amount == 0.0) continue;
    const bool isKnown = price.amount && !price.currency.empty();
    prices.emplace_back(price.amount, isKnown ? std::optional(price.currency) : std::nullopt);
  }
  const PriceTotals totals = priceTotals(prices);
  if (totals.sums.empty() && totals.unknown == 0) return {};
  if (totals.sums.empty())
    return MyAppsFoot::tr("What was paid is unknown of %1.").arg(appsText(totals.unknown));
  QStringList sums;
  std::size_t apps = 0;
  for (const CurrencyTotal& each : totals.sums) {
    sums << QString::fromStdString(formats.currency(each.amount, each.currency));
    apps += each.apps;
  }
  const QString last = sums.takeLast();
  const QString all =
      sums.isEmpty()
          ? last
          : MyAppsFoot::tr("%1 and %2", "amounts").arg(sums.join(QStringLiteral(", ")), last);
  if (totals.unknown == 0) return MyAppsFoot::tr("Paid %1 for %2.").arg(all, appsText(apps));
  return MyAppsFoot::tr("Paid %1 for %2, %3 unknown.")
      .arg(all, appsText(apps), QLocale().toString(totals.unknown));
}

MyAppsFoot::MyAppsFoot()
    : paid_(new TextLabel(kType, Token::secondary, TextAnchor::left, this)),
      scan_(new TextLabel(kType, Token::tertiary, TextAnchor::right, this)) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  hide();
}

void MyAppsFoot::showPaid(const QString& text) {
  if (text == paid_->text()) return;
  paid_->setText(text);
  setVisible(!text.isEmpty() || !scan_->text().isEmpty());
  arrange();
}

void MyAppsFoot::showScan(const QString& text) {
  if (text == scan_->text()) return;
  scan_->setText(text);
  setVisible(!text.isEmpty() || !paid_->text().isEmpty());
  arrange();
}

QSize MyAppsFoot::sizeHint() const {
  const double more = kLine * (lookOf(*this).growth() - 1);
  return {2 * kInset, kHeight + static_cast<int>(std::ceil(more))};
}

QSize MyAppsFoot::minimumSizeHint() const { return sizeHint(); }

void MyAppsFoot::arrange() {
  const int room = width() - 2 * kInset;
  const int paid = std::min(room, paid_->sizeHint().width());
  const int scan = scan_->sizeHint().width();
  const auto put = [this](QWidget* widget, int left, int wide) {
    widget->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), {left, 1, wide, height() - 1}));
  };
  put(paid_, kInset, paid);
  put(scan_, width() - kInset - scan, scan);
  scan_->setVisible(paid + kGap + scan <= room);
}

void MyAppsFoot::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  PixelGrid(painter).horizontal(0, width(), 0, lookOf(*this)[Token::line]);
}

void MyAppsFoot::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void MyAppsFoot::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event)) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet
