// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/storefront_rows.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>
#include <tuple>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/page_price.h"
#include "system/country_names.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

/// A price, and how it stands against the storefront's own low.
struct Standing {
  const ComparedStorefront* storefront = nullptr;
  PriceCell price;
  FigureCell against;
  QString low;            ///< what is told of it
  std::size_t place = 0;  ///< among all
};

/// A free app is at its lowest wherever it is sold. Nothing is said across currencies.
void addLow(Standing& standing, const AppPriceSeries& series, const StorefrontTerms& terms) {
  const ComparedStorefront& storefront = *standing.storefront;
  const std::string currency = series.prices.back().currency.value_or("");
  if (!standing.price.amount || !areComparable(storefront.currency, currency)) return;
  const PriceLow low = lowOf(onLocalDays(series.prices, terms.zone));
  const double now = *standing.price.amount;
  if (now < low.amount || isSamePrice(now, low.amount)) {
    standing.against = {tr("at its lowest"), Token::low, FigureMark::low};
    return;
  }
  const QString percent = percentText(low.amount, now);
  standing.against = {percent.isEmpty() ? tr("was free") : percent, Token::secondary};
  standing.low = tr("lowest %1, last on %2")
                     .arg(priceText(low.amount, currency, terms.formats),
                          dateText(low.lastSeen.value_or(terms.now), terms.now, terms.zone));
}

Standing standingOf(const ComparedStorefront& storefront,
                    const std::vector<AppPriceSeries>& recorded, const StorefrontTerms& terms) {
  Standing standing{
      &storefront,
      recordPrice(storefront.text, storefront.price, storefront.currency, terms.formats),
      {QStringLiteral("—"), Token::tertiary},
      {}};
  const auto series = std::ranges::find(recorded, storefront.country,
                                        [](const auto& each) { return each.key.country; });
  if (series != recorded.end() && !series->prices.empty()) addLow(standing, *series, terms);
  return standing;
}

/// By currency in the order in which they come, the cheapest of each first.
void arrange(std::vector<Standing>& standings) {
  std::map<std::string, std::size_t> currencies;
  for (std::size_t i = 0; i < standings.size(); ++i) {
    standings[i].place = i;
    currencies.try_emplace(standings[i].storefront->currency.value_or(""), i);
  }
  std::ranges::sort(standings, {}, [&](const Standing& each) {
    const std::size_t currency = currencies.at(each.storefront->currency.value_or(""));
    return std::tuple(currency, each.price.amount.value_or(0), each.place);
  });
}

bool isOneRow(const Standing& left, const Standing& right) {
  return left.storefront->currency == right.storefront->currency &&
         left.price.amount == right.price.amount && left.against == right.against &&
         left.low == right.low;
}

/// Of those whose price and currency are known, which others cost more than.
bool isCheapest(const Standing& standing, const std::vector<Standing>& all) {
  const auto& currency = standing.storefront->currency;
  if (!standing.price.amount || currency.value_or("").empty()) return false;
  bool isDearer = false;
  for (const Standing& each : all) {
    if (each.storefront->currency != currency || !each.price.amount) continue;
    if (*each.price.amount < *standing.price.amount) return false;
    isDearer |= *each.price.amount > *standing.price.amount;
  }
  return isDearer;
}

QString currencyText(const ComparedStorefront& storefront) {
  const std::string currency = storefront.currency.value_or("");
  return currency.empty() ? QString() : plainLine(moneyName(currency, "en"));
}

FigureRow rowOf(const Standing& standing, const QStringList& countries, bool isCheapest) {
  const QString currency = currencyText(*standing.storefront);
  const QString where = countries.join(QStringLiteral(", "));
  QStringList spoken{where, currency, standing.price.text, standing.against.text, standing.low};
  if (isCheapest) spoken << tr("the cheapest in this currency");
  spoken.removeAll(QString());
  spoken.removeAll(QStringLiteral("—"));
  return {{{currency.isEmpty() ? where : where + QStringLiteral(" · ") + currency},
           {standing.price.text},
           standing.against},
          spoken.join(QStringLiteral(", ")),
          standing.low};
}

FigureRow unsoldRow(const QStringList& countries) {
  const QString where = countries.join(QStringLiteral(", "));
  return {{{where, Token::secondary},
           {tr("not sold"), Token::tertiary},
           {QStringLiteral("—"), Token::tertiary}},
          tr("%1, not sold").arg(where),
          {}};
}

}  // namespace

std::vector<FigureRow> storefrontRows(const std::vector<ComparedStorefront>& storefronts,
                                      const std::vector<AppPriceSeries>& recorded,
                                      const StorefrontTerms& terms) {
  std::vector<Standing> standings;
  QStringList unsold;
  for (const ComparedStorefront& each : storefronts) {
    if (each.isSold) {
      standings.push_back(standingOf(each, recorded, terms));
    } else {
      unsold << QString::fromStdString(each.country);
    }
  }
  arrange(standings);
  std::vector<FigureRow> rows;
  for (std::size_t i = 0; i < standings.size();) {
    QStringList countries;
    const Standing& first = standings[i];
    for (; i < standings.size() && isOneRow(first, standings[i]); ++i)
      countries << QString::fromStdString(standings[i].storefront->country);
    rows.push_back(rowOf(first, countries, isCheapest(first, standings)));
  }
  if (!unsold.isEmpty()) rows.push_back(unsoldRow(unsold));
  return rows;
}

}  // namespace quillet
