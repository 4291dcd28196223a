// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_price.h"

#include <QCoreApplication>

#include "base/text.h"

namespace quillet {

namespace {

// The store allows 4,000 characters in a description.
constexpr qsizetype kLongestText = 20'000;

QString textOr(const std::optional<std::string>& text, double amount, const std::string& currency,
               const LocaleFormats& formats) {
  const QString known = plainLine(text.value_or(""));
  return known.isEmpty() ? priceText(amount, currency, formats) : known;
}

PagePrice watchedPrice(const WatchedApp& app, const LocaleFormats& formats) {
  // A price that the store did not tell is stored as 0, without a text.
  if (app.currentPrice == 0 && app.formattedPrice.value_or("").empty()) return {};
  const std::string currency = app.currency.value_or("");
  return {app.currentPrice, currency,
          textOr(app.formattedPrice, app.currentPrice, currency, formats)};
}

PagePrice cachedPrice(const CachedApp& app, const LocaleFormats& formats) {
  const std::string currency = app.currency.value_or("");
  if (!app.price) return {{}, currency, plainLine(app.formattedPrice.value_or(""))};
  return {app.price, currency, textOr(app.formattedPrice, *app.price, currency, formats)};
}

}  // namespace

QString plainLine(const std::string& text) {
  return QString::fromStdString(printable(text.substr(0, kLongestText))).simplified();
}

QString plainLines(const std::string& text) {
  return QString::fromStdString(printable(text.substr(0, kLongestText), LineFeeds::keep)).trimmed();
}

QString priceText(double amount, const std::string& currency, const LocaleFormats& formats) {
  if (amount == 0) return QCoreApplication::translate("Page", "Free");
  return QString::fromStdString(formats.currency(amount, currency));
}

PagePrice pagePrice(const PageFacts& facts, const LocaleFormats& formats) {
  PagePrice price;
  if (facts.watched) price = watchedPrice(*facts.watched, formats);
  if (price.text.isEmpty() && facts.cached) price = cachedPrice(*facts.cached, formats);
  return price;
}

}  // namespace quillet
