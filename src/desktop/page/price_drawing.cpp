// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/price_drawing.h"

#include <QCoreApplication>
#include <algorithm>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/page/page_price.h"
#include "system/currency_units.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

QString currencyText(const std::string& currency) {
  return currency.empty() ? tr("an unknown currency") : plainLine(currency);
}

QString spellText(const CurrencySpell& spell, const char* text, const SentenceTerms& terms) {
  const auto day = [&](Instant when) { return dateText(when, terms.now, terms.zone); };
  return tr(text).arg(currencyText(spell.currency), day(spell.from), day(spell.to));
}

/// When another currency took over after a price; absent where the next price is in its own.
std::optional<Instant> endOf(const RecordedPrice& price, const std::vector<CurrencySpell>& others,
                             Instant next) {
  const auto spell = std::ranges::find_if(
      others, [&](const CurrencySpell& each) { return each.from >= *price.when; });
  if (spell == others.end() || spell->from > next) return {};
  return spell->from;
}

}  // namespace

QString originText(const RecordedPrice& price) {
  return price.isImported ? tr("published price data") : tr("seen by Quillet");
}

Instant beginOf(const PriceRecord& record) {
  const Instant first = *record.prices.front().when;
  return record.others.empty() ? first : std::min(first, record.others.front().from);
}

PriceHistory priceDrawing(const PriceRecord& record, Instant from, const SentenceTerms& terms,
                          const std::shared_ptr<const LocaleFormats>& formats) {
  PriceHistory history;
  history.from = from;
  history.now = std::max(terms.now, *record.prices.back().when);
  for (std::size_t i = 0; i < record.prices.size(); ++i) {
    const RecordedPrice& price = record.prices[i];
    const bool isLast = i + 1 == record.prices.size();
    DrawnPrice step{*price.when, price.amount, record.tellsOrigins ? originText(price) : QString()};
    if (!isLast) step.until = endOf(price, record.others, *record.prices[i + 1].when);
    history.steps.push_back(std::move(step));
  }
  for (const CurrencySpell& spell : record.others)
    history.undrawn.push_back(
        {spell.from, spell.to,
         spellText(spell, QT_TRANSLATE_NOOP("Page", "In %1, %2 to %3"), terms)});
  history.low = PriceMark{lowOf(record.prices).amount, lowText(record.prices, terms)};
  const std::string currency = record.prices.back().currency.value_or("");
  history.unit = smallestAmount(currency);
  history.priceText = [formats, currency](double price) {
    return price == 0 ? QString::fromStdString(formats->wholeCurrency(0, currency))
                      : priceText(price, currency, *formats);
  };
  return history;
}

QString currencySentence(const PriceRecord& record, const SentenceTerms& terms) {
  QStringList sentences;
  for (const CurrencySpell& spell : record.others)
    sentences << spellText(
        spell,
        QT_TRANSLATE_NOOP("Page", "From %2 to %3 its price was in %1, which is not compared."),
        terms);
  return sentences.join(u' ');
}

}  // namespace quillet
