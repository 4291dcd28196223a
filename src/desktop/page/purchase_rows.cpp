// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/purchase_rows.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "analysis/billing_period.h"
#include "analysis/purchase_cost.h"
#include "analysis/purchase_key.h"
#include "analysis/purchase_kind.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

constexpr std::array kGroups{
    QT_TRANSLATE_NOOP("Page", "Subscriptions"),
    QT_TRANSLATE_NOOP("Page", "Unlocks"),
    QT_TRANSLATE_NOOP("Page", "Extras"),
};

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

std::size_t groupOf(const InAppPurchase& purchase) {
  switch (purchaseKind(purchase)) {
    case PurchaseKind::subscription: return 0;
    case PurchaseKind::unlock: return 1;
    default: return 2;
  }
}

QString itemText(const InAppPurchase& purchase) {
  const QString name = plainLine(purchase.name);
  if (!name.isEmpty()) return name;
  const QString product = plainLine(purchase.productId);
  return product.isEmpty() ? tr("Without a name") : product;
}

QString billingOf(const InAppPurchase& purchase) {
  const auto period = billingText(purchase.recurringSubscriptionPeriod.value_or(""));
  if (period) return QString::fromStdString(*period);
  return purchase.isSubscription ? QString() : tr("once");
}

/// In the form of all other amounts, where that can be told: the store's text is in the
/// storefront's.
QString priceOf(const InAppPurchase& purchase, const LocaleFormats& formats) {
  const bool isKnown = purchase.price.value_or(0) != 0 && purchase.currency;
  return priceCell(isKnown ? std::nullopt : purchase.priceFormatted, purchase.price,
                   purchase.currency, formats)
      .text;
}

/// The price of what is billed about yearly says it already.
QString perYearOf(const InAppPurchase& purchase, const QString& price,
                  const LocaleFormats& formats) {
  const auto perYear = pricePerYear(purchase);
  if (perYear.value_or(0) <= 0) return {};
  if (!perYearText(purchase, formats)) return price;
  return QString::fromStdString(formats.currency(*perYear, purchase.currency.value_or("")));
}

/// With the store's price behind what was recorded, where that is another one and older.
std::vector<RecordedPrice> historyOf(const InAppPurchase& purchase, const PurchaseSeries& series,
                                     Instant asOf) {
  std::vector<RecordedPrice> history = series.history;
  std::erase_if(history, [](const RecordedPrice& price) { return !price.when; });
  if (!purchase.price || history.empty()) return history;
  if (!areComparable(purchase.currency, history.back().currency)) return {};
  if (asOf > *history.back().when && !isSamePrice(*purchase.price, history.back().amount))
    history.push_back({asOf, *purchase.price, history.back().currency});
  return history;
}

void addChange(PurchaseRow& row, std::vector<RecordedPrice> history) {
  if (history.empty() || changesOf(history).count == 0) return;
  const double first = history.front().amount;
  const double now = history.back().amount;
  row.move = moveOf(first, now);
  row.change = row.move == PriceMove::none ? tr("as at first") : percentText(first, now);
  if (row.change.isEmpty()) row.change = tr("was free");
  row.history = std::move(history);
}

PurchaseRow rowOf(const InAppPurchase& purchase, std::span<const PurchaseSeries> recorded,
                  const PurchaseTerms& terms) {
  PurchaseRow row{itemText(purchase), billingOf(purchase), priceOf(purchase, terms.formats)};
  row.perYear = perYearOf(purchase, row.price, terms.formats);
  const auto series = std::ranges::find(recorded, purchaseKey(purchase), &PurchaseSeries::key);
  if (series != recorded.end()) addChange(row, historyOf(purchase, *series, terms.asOf));
  return row;
}

QString spokenChange(const PurchaseRow& row) {
  if (row.move == PriceMove::none) return tr("price changed in between");
  return (row.move == PriceMove::down ? tr("down, %1 since first recorded")
                                      : tr("up, %1 since first recorded"))
      .arg(row.change);
}

}  // namespace

std::vector<PurchaseGroup> purchaseGroups(std::span<const InAppPurchase> purchases,
                                          std::span<const PurchaseSeries> recorded,
                                          const PurchaseTerms& terms) {
  std::vector<PurchaseGroup> groups;
  for (const char* title : kGroups) groups.push_back({tr(title), {}});
  for (const InAppPurchase& purchase : purchases)
    groups[groupOf(purchase)].rows.push_back(rowOf(purchase, recorded, terms));
  std::erase_if(groups, [](const PurchaseGroup& group) { return group.rows.empty(); });
  if (groups.size() == 1) groups.front().title.clear();
  return groups;
}

std::vector<InAppPurchase> lastRecorded(std::span<const PurchaseSeries> recorded) {
  std::vector<InAppPurchase> purchases;
  for (const PurchaseSeries& series : recorded) {
    InAppPurchase& purchase = purchases.emplace_back();
    purchase.productId = series.key;  // by which its record is found again
    purchase.name = series.name;
    purchase.isSubscription = series.period.has_value();
    purchase.price = series.history.back().amount;
    purchase.currency = series.history.back().currency;
    purchase.recurringSubscriptionPeriod = series.period;
  }
  return purchases;
}

QString spoken(const PurchaseRow& row) {
  QStringList texts{row.item};
  if (!row.billing.isEmpty()) texts << row.billing;
  texts << (row.price.isEmpty() ? tr("price unknown") : row.price);
  if (!row.perYear.isEmpty()) texts << tr("%1 per year").arg(row.perYear);
  if (!row.change.isEmpty()) texts << spokenChange(row);
  return texts.join(QStringLiteral(", "));
}

}  // namespace quillet
