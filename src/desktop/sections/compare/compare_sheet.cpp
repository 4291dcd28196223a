// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_sheet.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "analysis/app_build.h"
#include "analysis/maintenance_texts.h"
#include "base/numbers.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Compare", text); }

QString fromText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

CompareCell unknown() { return {QStringLiteral("—"), {}, CellLook::quiet}; }

QString amountOf(double amount, const std::string& currency, const LocaleFormats& formats) {
  return priceCell({}, amount, currency, formats).text;
}

/// Sums of fractions are a hair off.
std::string plainAmount(double amount) { return decimalText(std::round(amount * 100) / 100); }

CompareCell amountCell(std::optional<double> amount, const std::string& currency,
                       const LocaleFormats& formats) {
  if (!amount) return unknown();
  CompareCell cell{amountOf(*amount, currency, formats)};
  cell.plain = plainAmount(*amount);
  return cell;
}

QString labelOf(CompareAspect aspect, int years) {
  switch (aspect) {
    case CompareAspect::price: return tr("Price");
    case CompareAspect::sells: return tr("Sells inside");
    case CompareAspect::perYear: return tr("Per year");
    case CompareAspect::firstYear: return tr("First year");
    case CompareAspect::years: return years == 1 ? tr("1 year") : tr("%1 years").arg(years);
    case CompareAspect::rating: return tr("Rating");
    case CompareAspect::maintenance: return tr("Maintenance");
    case CompareAspect::updated: return tr("Updated");
    case CompareAspect::size: return tr("Size");
    case CompareAspect::needs: return tr("Needs");
    case CompareAspect::architecture: return tr("Architecture");
    case CompareAspect::lowest: return tr("Lowest recorded");
    case CompareAspect::toOwn: return tr("Years to own");
  }
  return {};
}

QString soldText(MonetizationModel model) {
  switch (model) {
    case MonetizationModel::paidOnce:
    case MonetizationModel::free: return tr("nothing");
    case MonetizationModel::oneTimeOnly: return tr("one-time unlock");
    case MonetizationModel::extrasOnly: return tr("extras");
    case MonetizationModel::subscriptionPresent:
    case MonetizationModel::subscriptionOnly: return tr("subscription");
    case MonetizationModel::subscriptionOrOneTime: return tr("subscription or once");
    case MonetizationModel::hasPurchases: return tr("in-app purchases");
    case MonetizationModel::unknown: break;
  }
  return {};
}

/// Makes the cells of one app.
class ColumnWriter {
 public:
  ColumnWriter(const ComparedFacts& facts, const CompareTerms& terms)
      : facts_(facts), terms_(terms), described_(describedOf(facts)) {}

  [[nodiscard]] CompareColumn column() const {
    CompareColumn column;
    column.app = facts_.key.app;
    column.name = comparedName(facts_);
    column.currency = currency();
    if (!described_) return column;
    const ITunesApp& record = described_->record;
    column.seller = plainLine(record.sellerName ? record.sellerName : record.artistName);
    column.artwork = record.artworkUrl512.value_or(record.artworkUrl100.value_or(""));
    column.link = record.trackViewUrl.value_or("");
    return column;
  }

  [[nodiscard]] CompareCell cell(CompareAspect aspect) const {
    switch (aspect) {
      case CompareAspect::price: return price();
      case CompareAspect::sells: return sells();
      case CompareAspect::perYear: return perYear();
      case CompareAspect::firstYear:
        return facts_.told ? amount(firstYearCost(*facts_.told)) : unknown();
      case CompareAspect::years: return years();
      case CompareAspect::rating: return rating();
      case CompareAspect::maintenance: return maintenance();
      case CompareAspect::updated: return updated();
      case CompareAspect::size: return size();
      case CompareAspect::needs: return needs();
      case CompareAspect::architecture: return architecture();
      case CompareAspect::lowest: return lowest();
      case CompareAspect::toOwn: return toOwn();
    }
    return unknown();
  }

  [[nodiscard]] std::string currency() const {
    return described_ ? described_->record.currency.value_or("") : std::string();
  }

 private:
  [[nodiscard]] CompareCell amount(std::optional<double> amount) const {
    return amountCell(amount, currency(), terms_.formats);
  }
  [[nodiscard]] QString amountText(double amount) const {
    return amountOf(amount, currency(), terms_.formats);
  }
  [[nodiscard]] bool isSoldKnown() const {
    return facts_.told && facts_.told->sold.check == PurchaseCheck::done;
  }

  [[nodiscard]] CompareCell price() const {
    if (!described_) return unknown();
    const ITunesApp& record = described_->record;
    const PriceCell told =
        recordPrice(record.formattedPrice, record.price, record.currency, terms_.formats);
    if (told.text.isEmpty()) return unknown();
    CompareCell cell{told.text, {}, CellLook::strong};
    if (told.amount) cell.plain = plainAmount(*told.amount);
    cell.move = moveSinceWatched(told);
    return cell;
  }

  /// Against what it was when the app was added to the watchlist, as in lists.
  [[nodiscard]] PriceMove moveSinceWatched(const PriceCell& now) const {
    if (!facts_.library || !facts_.library->watched || !now.amount) return PriceMove::none;
    const WatchedApp& watched = *facts_.library->watched;
    const std::optional<double> before = knownPriceWhenAdded(watched);
    if (!before || !areComparable(watched.currency, now.currency)) return PriceMove::none;
    return moveOf(*before, *now.amount);
  }

  [[nodiscard]] CompareCell sells() const {
    if (!facts_.told) return unknown();
    const SoldInside& sold = facts_.told->sold;
    switch (sold.check) {
      case PurchaseCheck::rateLimited:
        return {tr("unknown"), tr("Apple rate limited the purchase lookup"), CellLook::quiet};
      case PurchaseCheck::failed:
        return {tr("unknown"), tr("the purchase lookup failed"), CellLook::quiet};
      case PurchaseCheck::done: break;
    }
    const QString text = soldText(monetizationModel(sold.purchases, facts_.told->app.price));
    return text.isEmpty() ? unknown() : CompareCell{text};
  }

  [[nodiscard]] CompareCell perYear() const {
    if (!isSoldKnown()) return unknown();
    const SubscriptionCost cost = subscriptionCost(*facts_.told);
    if (cost.sold && !cost.cheapestPerYear) return {tr("unknown"), {}, CellLook::quiet};
    return amount(cost.cheapestPerYear);
  }

  [[nodiscard]] CompareCell years() const {
    if (!facts_.told) return unknown();
    const std::optional<CostOfUse> cost = costOfUse(*facts_.told, terms_.years);
    if (!cost) return unknown();
    CompareCell cell = amount(cost->total);
    cell.look = CellLook::strong;
    cell.note = noteOf(*cost);
    return cell;
  }

  /// How the sum comes about.
  [[nodiscard]] QString noteOf(const CostOfUse& cost) const {
    if (cost.unlock) {
      const QString what = QStringLiteral("%1 %2").arg(plainLine(cost.unlock->unlock.name),
                                                       amountText(*cost.unlock->unlock.price));
      const auto& months = cost.unlock->months;
      return months ? tr("%1 from month %2").arg(what).arg(*months) : what;
    }
    const SubscriptionCost subscription = subscriptionCost(*facts_.told);
    if (subscription.cheapestPerYear)
      return tr("%1 a year").arg(amountText(*subscription.cheapestPerYear));
    // What an app asks for inside is not known to be needed.
    if (facts_.told->app.insideCost && facts_.told->app.insideCost->unlock) {
      const InsideCost& inside = *facts_.told->app.insideCost;
      return tr("without its unlock, %1")
          .arg(amountOf(*inside.unlock, inside.currency, terms_.formats));
    }
    return cost.total > 0 ? tr("pay once") : QString();
  }

  [[nodiscard]] CompareCell rating() const {
    if (!described_) return unknown();
    const ITunesApp& record = described_->record;
    const std::int64_t count = record.userRatingCount.value_or(0);
    if (record.userRatingCount == 0) return {tr("no ratings"), {}, CellLook::quiet};
    if (!record.averageUserRating) return unknown();
    const double mean = std::clamp(*record.averageUserRating, 0.0, 5.0);
    CompareCell cell{QString::fromStdString(terms_.formats.oneDecimal(mean))};
    cell.ratingHalves = static_cast<int>(std::lround(mean * 2));
    cell.plain = decimalText(*record.averageUserRating);
    if (count > 0)
      cell.note = QStringLiteral("(%1)").arg(QString::fromStdString(terms_.formats.integer(count)));
    return cell;
  }

  [[nodiscard]] CompareCell maintenance() const {
    if (!described_ || !terms_.maintenance) return unknown();
    const std::vector<VersionEntry> releases =
        described_->versions.value_or(std::vector<VersionEntry>());
    const MaintenanceHealth health = maintenanceHealth(
        releases, described_->record.currentVersionReleaseDate, *terms_.maintenance, terms_.now);
    if (health.level == MaintenanceLevel::unknown) return unknown();
    CompareCell cell{fromText(maintenanceTitle(health.level))};
    cell.hasWrench = true;
    // What the last release alone says is not how many there were.
    if (!releases.empty()) cell.note = QString::fromStdString(maintenanceSummary(health));
    return cell;
  }

  [[nodiscard]] QDate dayOf(Instant when) const {
    const auto local = std::chrono::floor<std::chrono::seconds>(when + terms_.zone(when));
    return QDateTime::fromSecsSinceEpoch(local.time_since_epoch().count(), Qt::UTC).date();
  }
  [[nodiscard]] QString dayText(Instant when) const {
    return QLocale().toString(dayOf(when), QStringLiteral("d MMM yyyy"));
  }

  [[nodiscard]] CompareCell updated() const {
    if (!described_ || !described_->record.currentVersionReleaseDate) return unknown();
    const Instant when = *described_->record.currentVersionReleaseDate;
    CompareCell cell{dayText(when)};
    cell.plain = dayOf(when).toString(Qt::ISODate).toStdString();
    return cell;
  }

  [[nodiscard]] CompareCell size() const {
    const auto bytes = described_ ? sizeInBytes(described_->record) : std::nullopt;
    if (bytes.value_or(0) <= 0) return unknown();
    CompareCell cell{QString::fromStdString(terms_.formats.byteCount(*bytes))};
    cell.plain = std::to_string(*bytes);
    return cell;
  }

  [[nodiscard]] CompareCell needs() const {
    const QString version = described_ ? plainLine(described_->record.minimumOsVersion) : QString();
    if (version.isEmpty()) return unknown();
    return {(described_->platform == Platform::mac ? QStringLiteral("macOS %1")
                                                   : QStringLiteral("iOS %1"))
                .arg(version)};
  }

  [[nodiscard]] CompareCell architecture() const {
    if (!described_ || described_->platform != Platform::mac) return unknown();
    PlatformInfo build = described_->build;
    if (!build.requiresRosetta) build.requiresRosetta = described_->record.needsRosetta;
    const auto text = architectureText(build);
    return text ? CompareCell{QString::fromStdString(*text)} : unknown();
  }

  [[nodiscard]] CompareCell lowest() const {
    if (!facts_.library || facts_.library->prices.prices.empty()) return unknown();
    const std::vector<RecordedPrice> prices =
        onLocalDays(facts_.library->prices.prices, terms_.zone);
    const PriceLow low = lowOf(prices);
    const std::string lowCurrency = prices.back().currency.value_or("");
    CompareCell cell = amountCell(low.amount, lowCurrency, terms_.formats);
    // A number alone would be taken for one of the column's currency.
    if (!areComparable(lowCurrency, currency())) cell.plain.reset();
    const bool isNow = isSamePrice(prices.back().amount, low.amount);
    if (isNow) {
      cell.note = tr("now");
    } else if (low.lastSeen) {
      cell.note = dayText(*low.lastSeen);
    }
    // A price that never moved is no low.
    if (isNow && changesOf(prices).count > 0) cell.look = CellLook::low;
    return cell;
  }

  [[nodiscard]] CompareCell toOwn() const {
    if (!facts_.told || !costOfUse(*facts_.told, 1)) return unknown();
    QStringList years;
    for (int year = 1; year <= CompareList::kMostYears; ++year) {
      years << tr("%1 after %2")
                   .arg(amountText(costOfUse(*facts_.told, year)->total),
                        labelOf(CompareAspect::years, year));
    }
    return {years.join(QStringLiteral(", "))};
  }

  const ComparedFacts& facts_;
  const CompareTerms& terms_;
  std::optional<DescribedApp> described_;
};

std::vector<CompareAspect> aspectsOf(const CompareTerms& terms) {
  std::vector<CompareAspect> aspects;
  for (int i = 0; i <= static_cast<int>(CompareAspect::toOwn); ++i)
    aspects.push_back(static_cast<CompareAspect>(i));
  if (!terms.maintenance) std::erase(aspects, CompareAspect::maintenance);
  return aspects;
}

/// What the years of use cost, by currency; only those of which it is known.
using Totals = std::map<std::string, std::vector<std::pair<std::size_t, double>>>;

Totals totalsOf(const std::vector<ComparedFacts>& apps, const std::vector<CompareColumn>& columns,
                int years) {
  Totals totals;
  for (std::size_t i = 0; i < apps.size(); ++i) {
    if (!apps[i].told) continue;
    if (const auto cost = costOfUse(*apps[i].told, years))
      totals[columns[i].currency].emplace_back(i, cost->total);
  }
  return totals;
}

/// Amounts of one currency alone stand beside each other.
void markTotals(std::vector<CompareColumn>& columns, const Totals& totals, std::size_t row) {
  for (const auto& [currency, amounts] : totals) {
    double least = amounts.front().second;
    double most = least;
    for (const auto& [column, amount] : amounts) {
      least = std::min(least, amount);
      most = std::max(most, amount);
    }
    for (const auto& [column, amount] : amounts) {
      CompareCell& cell = columns[column].cells[row];
      cell.share = most > 0 ? amount / most : 0;
      // Where all cost the same none costs least; without a currency nothing is known to be one.
      cell.isLeast = !currency.empty() && isSamePrice(amount, least) && !isSamePrice(least, most);
    }
  }
}

void addCosts(CompareSheet& sheet, const std::vector<ComparedFacts>& apps, const Totals& totals,
              std::size_t row, const CompareTerms& terms) {
  if (totals.empty()) {
    sheet.costSummary = tr("What the years cost is not known.");
    return;
  }
  if (totals.size() > 1) {
    sheet.costSummary =
        tr("These apps are sold in several currencies, which are not drawn together.");
    return;
  }
  const std::string currency = totals.begin()->first;
  const auto text = [&formats = terms.formats, currency](double amount) {
    return QString::fromStdString(formats.currency(amount, currency));
  };
  sheet.costs.amountText = text;
  sheet.costs.axisText = [&formats = terms.formats, currency](double amount) {
    return QString::fromStdString(amount == std::floor(amount)
                                      ? formats.wholeCurrency(amount, currency)
                                      : formats.currency(amount, currency));
  };
  sheet.costs.years = terms.years;
  QStringList parts;
  for (const auto& [column, amount] : totals.begin()->second) {
    const CompareCell& cell = sheet.columns[column].cells[row];
    CostLine line{shortName(sheet.columns[column].name), {}, cell.isLeast};
    for (int year = 1; year <= CompareList::kMostYears; ++year)
      line.totals.push_back(costOfUse(*apps[column].told, year)->total);
    parts << tr("%1: %2").arg(line.name, text(amount));
    sheet.costs.lines.push_back(std::move(line));
  }
  sheet.costSummary =
      tr("After %1 – %2")
          .arg(labelOf(CompareAspect::years, terms.years), parts.join(QStringLiteral(", ")));
}

}  // namespace

QString lineOf(const CompareCell& cell, CompareAspect aspect) {
  QString line = cell.text;
  if (cell.isLeast) line += u' ' + tr("✓ least");
  if (cell.note.isEmpty()) return line;
  switch (aspect) {
    case CompareAspect::sells: return line + QStringLiteral(" — ") + cell.note;
    case CompareAspect::rating: return line + u' ' + cell.note;
    default: return line + QStringLiteral(", ") + cell.note;
  }
}

QString shortName(const QString& name) {
  for (const QString& mark : {QStringLiteral(" – "), QStringLiteral(" — "), QStringLiteral(" - "),
                              QStringLiteral(": ")}) {
    if (const qsizetype at = name.indexOf(mark); at > 0) return name.left(at);
  }
  return name;
}

CompareSheet sheetOf(const std::vector<ComparedFacts>& all, const CompareTerms& terms) {
  CompareSheet sheet;
  sheet.aspects = aspectsOf(terms);
  for (const CompareAspect aspect : sheet.aspects) sheet.labels << labelOf(aspect, terms.years);
  std::vector<ComparedFacts> apps;
  for (const ComparedFacts& facts : all) {
    if (facts.isMissing) {
      sheet.missing.emplace_back(facts.key.app, comparedName(facts));
      continue;
    }
    const ColumnWriter writer(facts, terms);
    CompareColumn column = writer.column();
    for (const CompareAspect aspect : sheet.aspects) column.cells.push_back(writer.cell(aspect));
    sheet.columns.push_back(std::move(column));
    apps.push_back(facts);
  }
  const auto years = std::ranges::find(sheet.aspects, CompareAspect::years);
  const auto row = static_cast<std::size_t>(years - sheet.aspects.begin());
  const Totals totals = totalsOf(apps, sheet.columns, terms.years);
  markTotals(sheet.columns, totals, row);
  addCosts(sheet, apps, totals, row, terms);
  return sheet;
}

}  // namespace quillet
