// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/row_parts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "library/price_series.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

// The store allows 4,000 characters in a description.
constexpr std::size_t kLongestText = 20'000;

/// Joiners and marks alone leave nothing to read.
bool isSeen(const QString& line) {
  return std::ranges::any_of(line, [](QChar letter) {
    return !letter.isSpace() && letter.category() != QChar::Other_Format;
  });
}

}  // namespace

QString plainLine(const std::string& text) {
  return QString::fromStdString(printable(text, LineFeeds::keep)).simplified();
}

QString plainLine(const std::optional<std::string>& text) { return plainLine(text.value_or("")); }

std::string beginningOf(const std::string& text, std::size_t most) {
  const auto isContinuation = [&text](std::size_t at) {
    return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
  };
  constexpr std::size_t kRestOfCharacter = 3;
  std::size_t end = std::min(most, text.size());
  while (end > 0 && end < text.size() && most - end < kRestOfCharacter && isContinuation(end))
    --end;
  return text.substr(0, end);
}

QString plainLines(const std::string& text) {
  return QString::fromStdString(printable(beginningOf(text, kLongestText), LineFeeds::keep))
      .trimmed();
}

QString shownNote(const QString& note) {
  constexpr qsizetype kShown = 1000;
  return note.size() > kShown ? note.left(kShown) + u'…' : note;
}

QString nameLine(const std::string& name) {
  const QString line = plainLine(name);
  return isSeen(line) ? line : QCoreApplication::translate("Rows", "Unnamed app");
}

QString searchLine(const std::string& name) {
  const QString line = plainLine(name);
  return isSeen(line) ? line : QCoreApplication::translate("Rows", "Unnamed search");
}

QString collectionLine(const std::string& name) {
  const QString line = plainLine(name);
  return isSeen(line) ? line : QCoreApplication::translate("Rows", "Unnamed collection");
}

QString platformText(Platform platform) {
  switch (platform) {
    case Platform::mac: return QStringLiteral("Mac");
    case Platform::iphone: return QStringLiteral("iPhone");
    case Platform::ipad: return QStringLiteral("iPad");
  }
  return {};
}

PriceCell priceCell(const std::optional<std::string>& text, std::optional<double> amount,
                    const std::optional<std::string>& currency, const LocaleFormats& formats) {
  PriceCell cell{plainLine(text), PriceMove::none, amount, currency.value_or("")};
  if (cell.text.isEmpty() && amount == 0) cell.text = QCoreApplication::translate("Rows", "Free");
  if (cell.text.isEmpty() && amount)
    cell.text = QString::fromStdString(formats.currency(*amount, cell.currency));
  return cell;
}

PriceCell recordPrice(const std::optional<std::string>& text, std::optional<double> amount,
                      const std::optional<std::string>& currency, const LocaleFormats& formats) {
  const bool isSilent = !amount && text.value_or("").empty();
  return priceCell(text, isSilent ? 0.0 : amount, currency, formats);
}

PriceCell watchedPrice(const WatchedApp& app, const LocaleFormats& formats) {
  if (lacksPrice(app)) return priceCell({}, {}, app.currency, formats);
  return priceCell(app.formattedPrice, app.currentPrice, app.currency, formats);
}

QString amountLike(const PriceCell& shown, double amount, const LocaleFormats& formats) {
  constexpr double kCent = 0.01;
  constexpr double kUngrouped = 1000;  // from here on nothing tells how figures are grouped
  static const QRegularExpression kText(
      QStringLiteral("^([^0-9]*)([0-9]{1,3})(?:([.,])([0-9]{2}))?([^0-9]*)$"));
  const auto found = kText.match(shown.text);
  const auto digits = static_cast<int>(found.captured(4).size());
  const double told = (found.captured(2) + u'.' + found.captured(4)).toDouble();
  const QString figure = QString::number(amount, 'f', digits);
  const bool isLike = found.hasMatch() && shown.amount && isSamePrice(told, *shown.amount) &&
                      amount < kUngrouped && std::abs(figure.toDouble() - amount) < kCent / 2;
  if (!isLike) return QString::fromStdString(formats.currency(amount, shown.currency));
  return found.captured(1) + QString(figure).replace(u'.', found.captured(3)) + found.captured(5);
}

PriceMove moveOf(double before, double now) {
  if (isSamePrice(before, now)) return PriceMove::none;
  return now < before ? PriceMove::down : PriceMove::up;
}

void addCached(AppRow& row, const std::optional<CachedSummary>& cached) {
  if (!cached) return;
  if (row.artwork.empty()) row.artwork = cached->artworkUrl512.value_or("");
  // Records of Mac apps say 0 of 0 ratings, which is unknown.
  if (cached->rating && cached->ratingCount.value_or(0) > 0)
    row.ratingHalves = static_cast<int>(std::lround(*cached->rating * 2));
}

std::vector<AppKey> appsOf(const std::vector<LateRow>& rows) {
  std::vector<AppKey> apps;
  apps.reserve(rows.size());
  for (const LateRow& row : rows) apps.push_back(row.app);
  return apps;
}

std::vector<LateFacts> pricesWhenAdded(SQLite::Database& database,
                                       const std::vector<LateRow>& rows) {
  std::map<AppKey, std::optional<Instant>> added;
  for (const LateRow& row : rows) added.emplace(row.app, row.added);
  std::vector<LateFacts> facts;
  for (const AppPriceSeries& series : priceSeriesOf(database, appsOf(rows))) {
    const std::optional<Instant>& when = added[series.key];
    const auto price = when ? priceAt(series.prices, *when) : std::nullopt;
    if (!price) continue;
    LateFacts each;
    each.app = series.key;
    each.then = RecordedPrice{when, *price, series.prices.back().currency};
    facts.push_back(std::move(each));
  }
  return facts;
}

void takeMove(AppRow& row, const LateFacts& facts) {
  row.price.move = PriceMove::none;
  // What was asked of the row before it was added anew says nothing any more.
  if (!row.price.amount || !facts.then || facts.then->when != row.added) return;
  if (!areComparable(facts.then->currency, row.price.currency)) return;
  row.price.move = moveOf(facts.then->amount, *row.price.amount);
}

QString percentText(double before, double now) {
  if (before <= 0) return {};
  const double percent = std::abs(now - before) / before * 100;
  // What changed did not change by nothing.
  const QString amount =
      percent < 1 ? QLocale().toString(percent, 'g', 1) : QLocale().toString(percent, 'f', 0);
  return (now < before ? QChar(u'\u2212') : QChar(u'+')) + amount + QStringLiteral("\u00a0%");
}

}  // namespace quillet
