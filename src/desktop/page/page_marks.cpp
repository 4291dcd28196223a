// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/page_marks.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

#include "analysis/maintenance_texts.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "desktop/models/watch_words.h"
#include "desktop/page/money_words.h"
#include "desktop/page/page_price.h"
#include "library/store_rows.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

using Marks = std::vector<PageMark>;

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

QString fromText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString dayText(Instant then, const MarkTerms& terms) {
  return dateText(then, terms.now, terms.zone);
}

/// A price against what it was when the app was added to the watchlist.
PageMark movedPrice(const WatchedApp& app, const PriceCell& price, const MarkTerms& terms) {
  PageMark mark{MarkKind::plain, price.text};
  const std::optional<double> before = knownPriceWhenAdded(app);
  if (!before || !price.amount || !areComparable(app.currency, price.currency)) return mark;
  const PriceMove move = moveOf(*before, *price.amount);
  if (move == PriceMove::none) return mark;
  mark.kind = move == PriceMove::down ? MarkKind::down : MarkKind::up;
  const QString was = priceText(*before, price.currency, terms.formats);
  mark.tip = tr("%1 when you added it on %2").arg(was, dayText(app.addedAt, terms));
  mark.spoken = (move == PriceMove::down ? tr("%1, down from %2 when added")
                                         : tr("%1, up from %2 when added"))
                    .arg(price.text, was);
  return mark;
}

void addPrice(Marks& marks, const PageFacts& facts, const PriceCell& price,
              const MarkTerms& terms) {
  if (!isSold(facts)) {
    const QString last = price.text.isEmpty() ? QString() : tr("Last seen at %1").arg(price.text);
    marks.push_back({MarkKind::neutral,
                     tr("No longer sold"),
                     QStringLiteral("exclamation-triangle"),
                     {},
                     last});
  } else if (price.text.isEmpty()) {
    marks.push_back({MarkKind::neutral, tr("Price unknown")});
  } else if (facts.watched && watchedPrice(*facts.watched, terms.formats).amount) {
    marks.push_back(movedPrice(*facts.watched, price, terms));
  } else {
    marks.push_back({MarkKind::plain, price.text});
  }
}

/// Of an app whose price never changed, the lowest one says nothing.
void addLow(Marks& marks, const PageFacts& facts, const PriceCell& price, const MarkTerms& terms) {
  const std::vector<RecordedPrice>& prices = facts.prices.prices;
  if (prices.empty() || changesOf(prices).count == 0 || !price.amount) return;
  if (!areComparable(prices.back().currency, price.currency)) return;
  const PriceLow low = lowOf(onLocalDays(prices, terms.zone));
  if (*price.amount < low.amount || isSamePrice(*price.amount, low.amount)) {
    if (isSold(facts)) marks.push_back({MarkKind::low, tr("At its lowest")});
    return;
  }
  const QString text =
      low.amount == 0 ? tr("Free") : tr("Low %1").arg(amountLike(price, low.amount, terms.formats));
  marks.push_back(
      {MarkKind::low,
       low.lastSeen ? tr("%1, last on %2").arg(text, dayText(*low.lastSeen, terms)) : text});
}

MarkDetails maintenanceDetails(MaintenanceLevel level, const MaintenanceThresholds& thresholds) {
  MarkDetails details{fromText(maintenanceTitle(level)),
                      {fromText(maintenanceExplanation(level, thresholds)),
                       fromText(maintenanceAdvice(level, thresholds))}};
  for (const MaintenanceLevel each : {MaintenanceLevel::active, MaintenanceLevel::slowing,
                                      MaintenanceLevel::stale, MaintenanceLevel::abandoned}) {
    details.choices.push_back({fromText(maintenanceTitle(each)),
                               fromText(maintenanceExplanation(each, thresholds)), each == level});
  }
  details.note = tr("This rating is ours, from the dates of the app's releases.");
  return details;
}

void addMaintenance(Marks& marks, const PageFacts& facts, const MarkTerms& terms) {
  if (!terms.maintenance) return;
  std::vector<VersionEntry> releases;
  if (facts.store) releases = facts.store->app.versions.value_or(releases);
  const auto newest = facts.cached ? facts.cached->currentVersionReleaseDate : std::nullopt;
  const MaintenanceLevel level =
      maintenanceHealth(releases, newest, *terms.maintenance, terms.now).level;
  if (level == MaintenanceLevel::unknown) return;
  PageMark mark{MarkKind::neutral, fromText(maintenanceTitle(level)),
                QStringLiteral("wrench-adjustable")};
  mark.tip = tr("How actively is this app maintained? Click for details.");
  mark.details = maintenanceDetails(level, *terms.maintenance);
  marks.push_back(std::move(mark));
}

void addMoney(Marks& marks, const CachedApp& app) {
  const MonetizationModel model = describeApp(recordOf(app)).monetization;
  const QString text = moneyText(model);
  if (text.isEmpty()) return;
  PageMark mark{MarkKind::neutral, text, QStringLiteral("bag-check")};
  mark.tip = fromText(badgeTitle(model).value_or(""));
  mark.details = MarkDetails{mark.tip.isEmpty() ? text : mark.tip, {moneySentence(model)}};
  marks.push_back(std::move(mark));
}

/// In its category, else in the chart of all.
void addRank(Marks& marks, const PageFacts& facts) {
  if (!facts.store || !facts.store->app.chartPosition) return;
  const ChartPosition& place = *facts.store->app.chartPosition;
  const QString chart = plainLine(place.chart);
  const QString genre = plainLine(place.genreName);
  if (chart.isEmpty() && genre.isEmpty()) return;
  const QString in = genre.isEmpty() ? chart : genre;
  marks.push_back({MarkKind::neutral,
                   tr("#%1 in %2").arg(QString::number(place.position), in),
                   QStringLiteral("trophy"),
                   {},
                   genre.isEmpty() ? QString() : chart});
}

void addBadge(Marks& marks, const CachedApp& app) {
  const QString text = plainLine(app.editorialBadge.value_or(""));
  if (!text.isEmpty()) marks.push_back({MarkKind::fresh, text, QStringLiteral("award")});
}

void addOwn(Marks& marks, const PageFacts& facts, const MarkTerms& terms) {
  if (facts.owned) marks.push_back({MarkKind::mine, tr("In My Apps"), QStringLiteral("grid")});
  if (!facts.watched) return;
  if (isMuted(*facts.watched, terms.now)) {
    marks.push_back({MarkKind::mine,
                     tr("Muted"),
                     QStringLiteral("pause-circle"),
                     {},
                     muteText(facts.watched->mutedUntil, terms.now, terms.zone)});
  }
  const std::optional<double> target = knownTargetPrice(*facts.watched);
  if (!target) return;
  const PriceCell price = pagePrice(facts, terms.formats);
  const std::string currency = facts.watched->currency.value_or("");
  const QString text = price.currency == currency ? amountLike(price, *target, terms.formats)
                                                  : priceText(*target, currency, terms.formats);
  marks.push_back({MarkKind::mine, tr("Target %1").arg(text), QStringLiteral("bullseye")});
}

void addRating(Marks& marks, const CachedApp& app, const MarkTerms& terms) {
  if (!app.rating) return;
  if (app.ratingCount == 0) {
    if (!app.ratingsUpdatedAt) return;  // a Mac app's 0 of 0, which says nothing
    marks.push_back({MarkKind::aside, tr("No ratings yet")});
    return;
  }
  const double mean = std::clamp(*app.rating, 0.0, 5.0);
  const QString text = QString::fromStdString(terms.formats.oneDecimal(mean));
  PageMark mark{MarkKind::stars, text};
  mark.spoken = tr("Rated %1 out of 5").arg(text);
  mark.ratingHalves = static_cast<int>(std::lround(mean * 2));
  if (app.ratingCount.value_or(0) > 0) {
    const QString count = QString::fromStdString(terms.formats.integer(*app.ratingCount));
    mark.text = QStringLiteral("%1 · %2").arg(text, count);
    mark.spoken = tr("Rated %1 out of 5, %2 ratings").arg(text, count);
  }
  marks.push_back(std::move(mark));
}

void addAge(Marks& marks, const PageFacts& facts, const MarkTerms& terms) {
  std::optional<Instant> read;
  if (facts.cached) read = facts.cached->updatedAt;
  if (facts.watched) read = std::max(read, facts.watched->lastCheckedAt);
  if (read) marks.push_back({MarkKind::aside, tr("Read %1").arg(agoText(*read, terms.now))});
}

}  // namespace

Marks marksOf(const PageFacts& facts, const MarkTerms& terms) {
  Marks marks;
  const PriceCell price = pagePrice(facts, terms.formats);
  addPrice(marks, facts, price, terms);
  addLow(marks, facts, price, terms);
  addMaintenance(marks, facts, terms);
  addRank(marks, facts);
  if (facts.cached) {
    addMoney(marks, *facts.cached);
    addBadge(marks, *facts.cached);
  }
  addOwn(marks, facts, terms);
  if (facts.cached) addRating(marks, *facts.cached, terms);
  addAge(marks, facts, terms);
  return marks;
}

}  // namespace quillet
