// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/price_sentence.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <array>

#include "desktop/models/time_words.h"
#include "desktop/page/page_price.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

/// A time in which the price was at its lowest.
struct Spell {
  Instant begin;
  std::optional<Instant> end;  ///< absent while it lasts
};

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

QString counted(std::int64_t count, const char* one, const char* many) {
  return count == 1 ? tr(one) : tr(many).arg(QLocale().toString(count));
}

std::int64_t rounded(std::chrono::milliseconds time, std::chrono::milliseconds unit) {
  return std::max<std::int64_t>(1, (time + unit / 2) / unit);
}

/// "9 days", "6 weeks", "11 months", "3 years".
QString lengthText(std::chrono::milliseconds time) {
  constexpr std::chrono::milliseconds kDay = 24h;
  constexpr std::chrono::milliseconds kWeek = 7 * kDay;
  constexpr std::chrono::milliseconds kMonth = 30 * kDay + 10h;
  constexpr std::chrono::milliseconds kYear = 365 * kDay + 6h;
  if (rounded(time, kDay) < 14) return counted(rounded(time, kDay), "1 day", "%1 days");
  if (time < 9 * kWeek) return counted(rounded(time, kWeek), "1 week", "%1 weeks");
  if (rounded(time, kMonth) < 24) return counted(rounded(time, kMonth), "1 month", "%1 months");
  return counted(rounded(time, kYear), "1 year", "%1 years");
}

QString changesText(std::size_t count) {
  constexpr std::array<const char*, 13> kWords{
      "",
      QT_TRANSLATE_NOOP("Page", "One change"),
      QT_TRANSLATE_NOOP("Page", "Two changes"),
      QT_TRANSLATE_NOOP("Page", "Three changes"),
      QT_TRANSLATE_NOOP("Page", "Four changes"),
      QT_TRANSLATE_NOOP("Page", "Five changes"),
      QT_TRANSLATE_NOOP("Page", "Six changes"),
      QT_TRANSLATE_NOOP("Page", "Seven changes"),
      QT_TRANSLATE_NOOP("Page", "Eight changes"),
      QT_TRANSLATE_NOOP("Page", "Nine changes"),
      QT_TRANSLATE_NOOP("Page", "Ten changes"),
      QT_TRANSLATE_NOOP("Page", "Eleven changes"),
      QT_TRANSLATE_NOOP("Page", "Twelve changes"),
  };
  if (count < kWords.size()) return tr(kWords.at(count));
  return tr("%1 changes").arg(QLocale().toString(static_cast<qulonglong>(count)));
}

std::vector<Spell> lowSpells(const std::vector<RecordedPrice>& prices) {
  const double low = lowOf(prices).amount;
  std::vector<Spell> spells;
  bool isLow = false;
  for (const RecordedPrice& price : prices) {
    const bool wasLow = std::exchange(isLow, isSamePrice(price.amount, low));
    if (isLow && !wasLow) spells.push_back({*price.when, {}});
    if (wasLow && !isLow) spells.back().end = price.when;
  }
  return spells;
}

/// How long those took that are over, the shortest first.
std::vector<std::chrono::milliseconds> lengthsOf(const std::vector<Spell>& spells) {
  std::vector<std::chrono::milliseconds> lengths;
  for (const Spell& spell : spells)
    if (spell.end) lengths.push_back(*spell.end - spell.begin);
  std::ranges::sort(lengths);
  return lengths;
}

QString onceText(const Spell& spell, const SentenceTerms& terms) {
  if (spell.end) return tr("once, for %1").arg(lengthText(*spell.end - spell.begin));
  return tr("since %1").arg(dateText(spell.begin, terms.now, terms.zone));
}

QString timesText(const std::vector<Spell>& spells, const SentenceTerms& terms) {
  const auto lengths = lengthsOf(spells);
  if (spells.size() == 1) return onceText(spells.front(), terms);
  if (spells.size() == 2) {
    return (lengths.size() == 1 ? tr("twice, the first time for %1")
                                : tr("twice, the longer time for %1"))
        .arg(lengthText(lengths.back()));
  }
  return tr("%1 times, usually for %2")
      .arg(QLocale().toString(static_cast<qulonglong>(spells.size())),
           lengthText(lengths[lengths.size() / 2]));
}

QString historyText(const std::vector<RecordedPrice>& prices, const SentenceTerms& terms) {
  const auto span = terms.now - *prices.front().when;
  const std::size_t changes = changesOf(prices).count;
  if (changes == 0 && span < 24h) return tr("Recorded since today.");
  if (changes == 0) return tr("Unchanged for %1.").arg(lengthText(span));
  const QString times = timesText(lowSpells(prices), terms);
  return (lowOf(prices).amount == 0 ? tr("%1 in %2; free %3.") : tr("%1 in %2; at its lowest %3."))
      .arg(changesText(changes), lengthText(span), times);
}

QString lastText(const RecordedPrice& price, const SentenceTerms& terms) {
  if (price.amount == 0) return terms.isSold ? tr("Now free.") : tr("Last it was free.");
  return (terms.isSold ? tr("Now %1.") : tr("Last it was %1."))
      .arg(priceText(price.amount, price.currency.value_or(""), terms.formats));
}

}  // namespace

std::vector<RecordedPrice> pricesSince(const std::vector<RecordedPrice>& prices, Instant from) {
  std::vector<RecordedPrice> since;
  for (const RecordedPrice& price : prices) {
    if (!price.when) continue;
    // What another price follows before `from` is over by then.
    if (*price.when <= from) since.clear();
    since.push_back(price);
    since.back().when = std::max(*price.when, from);
  }
  return since;
}

QString priceSentence(const std::vector<RecordedPrice>& prices, const SentenceTerms& terms) {
  if (prices.empty()) return {};
  return lastText(prices.back(), terms) + QLatin1Char(' ') + historyText(prices, terms);
}

QString lowText(const std::vector<RecordedPrice>& prices, const SentenceTerms& terms) {
  const PriceLow low = lowOf(prices);
  const QString price =
      low.amount == 0
          ? tr("Free")
          : tr("Lowest %1")
                .arg(priceText(low.amount, prices.back().currency.value_or(""), terms.formats));
  const Spell latest = lowSpells(prices).back();
  const auto day = [&](Instant when) { return dateText(when, terms.now, terms.zone); };
  if (const auto since = lowSinceLastRise(prices, terms.now)) {
    return tr("%1, last on %2; since the last rise %3, %4")
        .arg(price, day(*low.lastSeen),
             priceText(since->amount, prices.back().currency.value_or(""), terms.formats),
             day(*since->lastSeen));
  }
  if (latest.end || !terms.isSold) return tr("%1, last on %2").arg(price, day(*low.lastSeen));
  if (day(latest.begin) == day(terms.now)) return tr("%1, reached today").arg(price);
  return tr("%1, from %2 to today").arg(price, day(latest.begin));
}

}  // namespace quillet
