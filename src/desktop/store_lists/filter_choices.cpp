// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/filter_choices.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <array>
#include <set>

#include "analysis/filter_labels.h"
#include "base/versions.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("FilterPanel", text); }

constexpr std::array kRatings{3.0, 4.0, 4.5};
constexpr std::array<std::int64_t, 4> kRatingCounts{10, 100, 1'000, 10'000};
constexpr std::array<std::int64_t, 5> kReleaseMonths{1, 6, 12, 24, 60};
constexpr std::array kPurchases{
    PurchaseFilter::buyOutright,       PurchaseFilter::noSubscription,
    PurchaseFilter::noInAppPurchases,  PurchaseFilter::hasSubscription,
    PurchaseFilter::hasInAppPurchases, PurchaseFilter::subscriptionOnly,
};
constexpr std::array<const char*, 7> kMacSystems{"26", "15", "14", "13", "12", "11", "10.15"};
constexpr std::array<const char*, 6> kMobileSystems{"26", "18", "17", "16", "15", "14"};

/// Which months an "updated" filter stands for; its words are those of a release.
constexpr std::array<std::pair<UpdatedFilter, std::int64_t>, 4> kUpdatedMonths{{
    {UpdatedFilter::month, 1},
    {UpdatedFilter::sixMonths, 6},
    {UpdatedFilter::year, 12},
    {UpdatedFilter::twoYears, 24},
}};

/// The words of a filter that is set alone.
QString labelOf(const AppFilters& alone) { return plainLine(setFilters(alone).front().label); }

/// Collects the choices of one filter.
class Choices {
 public:
  Choices(FilterField field, QString title, const AppFilters& now) : now_(now) {
    group_.field = field;
    group_.title = std::move(title);
  }

  template <typename Set>
  Choices& add(const QString& text, bool isChosen, Set set) {
    AppFilters filters = now_;
    set(filters);
    group_.choices.push_back({text, std::move(filters), isChosen});
    return *this;
  }
  /// For filters whose values are compared as they are.
  template <typename Value>
  Choices& add(const QString& text, Value AppFilters::* field, Value value) {
    const bool isChosen = now_.*field == value;
    return add(text, isChosen, [&](AppFilters& filters) { filters.*field = std::move(value); });
  }
  /// With the words of the filter.
  template <typename Value>
  Choices& addLabelled(Value AppFilters::* field, Value value) {
    AppFilters alone;
    alone.*field = value;
    return add(labelOf(alone), field, std::move(value));
  }

  [[nodiscard]] const AppFilters& now() const { return now_; }
  [[nodiscard]] FilterGroup take() { return std::move(group_); }

 private:
  const AppFilters& now_;
  FilterGroup group_;
};

FilterGroup prices(const AppFilters& now) {
  Choices choices(FilterField::price, tr("Price"), now);
  choices.add(tr("Any"), &AppFilters::price, PriceFilter::any);
  choices.addLabelled(&AppFilters::price, PriceFilter::free);
  return choices.addLabelled(&AppFilters::price, PriceFilter::paid).take();
}

FilterGroup purchases(const AppFilters& now) {
  Choices choices(FilterField::purchases, tr("In-app purchases"), now);
  choices.add(tr("Anything"), &AppFilters::purchases, PurchaseFilter::any);
  for (const PurchaseFilter each : kPurchases) choices.addLabelled(&AppFilters::purchases, each);
  return choices.take();
}

/// Values in their order, with the one that is set, which may be another.
template <typename Value, std::size_t N>
std::set<Value> withSet(const std::array<Value, N>& values, bool isSet, Value set) {
  std::set<Value> all(values.begin(), values.end());
  if (isSet) all.insert(set);
  return all;
}

FilterGroup ratings(const AppFilters& now) {
  Choices choices(FilterField::rating, tr("Rating"), now);
  const bool isSet = now.minRating > 0;
  choices.add(tr("Any"), !isSet, [](AppFilters& filters) { filters.minRating = 0; });
  for (const double each : withSet(kRatings, isSet, now.minRating))
    choices.addLabelled(&AppFilters::minRating, each);
  return choices.take();
}

FilterGroup ratingCounts(const AppFilters& now) {
  Choices choices(FilterField::ratingCount, tr("Ratings"), now);
  const bool isSet = now.minRatingCount >= 1;
  choices.add(tr("Any"), !isSet, [](AppFilters& filters) { filters.minRatingCount = 0; });
  for (const std::int64_t each : withSet(kRatingCounts, isSet, now.minRatingCount)) {
    const QString text = tr("%1+").arg(QLocale().toString(static_cast<qlonglong>(each)));
    choices.add(text, &AppFilters::minRatingCount, each);
  }
  return choices.take();
}

FilterGroup updates(const AppFilters& now) {
  Choices choices(FilterField::updated, tr("Updated"), now);
  choices.add(plainLine(releasedLabel({})), &AppFilters::updatedWithin, UpdatedFilter::any);
  for (const auto& [value, months] : kUpdatedMonths) {
    choices.add(plainLine(releasedLabel(ReleasedWithin{months})), &AppFilters::updatedWithin,
                value);
  }
  return choices.take();
}

/// Months from the fewest, then years from the last one.
bool isBefore(const ReleasedFilter& left, const ReleasedFilter& right) {
  if (left.index() != right.index()) return left.index() < right.index();
  if (const auto* within = std::get_if<ReleasedWithin>(&left))
    return within->months < std::get<ReleasedWithin>(right).months;
  if (const auto* before = std::get_if<ReleasedBefore>(&left))
    return before->year > std::get<ReleasedBefore>(right).year;
  return std::get<ReleasedFrom>(left).year > std::get<ReleasedFrom>(right).year;
}

FilterGroup releases(const AppFilters& now, std::int64_t thisYear) {
  constexpr std::int64_t kYears = 5;
  const std::int64_t round = thisYear - thisYear % kYears;
  std::vector<ReleasedFilter> values;
  for (const std::int64_t months : kReleaseMonths) values.emplace_back(ReleasedWithin{months});
  for (const std::int64_t year : {round - kYears, round - 2 * kYears})
    values.emplace_back(ReleasedBefore{year});
  for (const std::int64_t year : {round, round - kYears}) values.emplace_back(ReleasedFrom{year});
  if (now.released && std::ranges::find(values, *now.released) == values.end())
    values.insert(std::ranges::upper_bound(values, *now.released, isBefore), *now.released);
  using Released = std::optional<ReleasedFilter>;
  Choices choices(FilterField::released, tr("Released"), now);
  choices.add(plainLine(releasedLabel({})), &AppFilters::released, Released());
  for (const ReleasedFilter& each : values)
    choices.add(plainLine(releasedLabel(each)), &AppFilters::released, Released(each));
  return choices.take();
}

FilterGroup categories(const AppFilters& now, const std::vector<std::string>& known) {
  std::vector<std::pair<QString, std::string>> genres;
  std::set<std::string> each(known.begin(), known.end());
  if (now.genre) each.insert(*now.genre);
  for (const std::string& genre : each) genres.emplace_back(plainLine(genre), genre);
  std::ranges::sort(genres, [](const auto& left, const auto& right) {
    return QString::localeAwareCompare(left.first, right.first) < 0;
  });
  using Genre = std::optional<std::string>;
  Choices choices(FilterField::category, tr("Category"), now);
  choices.add(tr("All"), &AppFilters::genre, Genre());
  for (const auto& [text, genre] : genres) choices.add(text, &AppFilters::genre, Genre(genre));
  return choices.take();
}

FilterGroup sizes(const AppFilters& now) {
  Choices choices(FilterField::size, tr("Size"), now);
  choices.add(tr("Any"), &AppFilters::maxSize, SizeFilter::any);
  for (const SizeFilter each :
       {SizeFilter::under100MB, SizeFilter::under500MB, SizeFilter::under2GB})
    choices.addLabelled(&AppFilters::maxSize, each);
  return choices.take();
}

FilterGroup architectures(const AppFilters& now) {
  Choices choices(FilterField::architecture, tr("Architecture"), now);
  choices.add(tr("Any"), &AppFilters::architecture, ArchitectureFilter::any);
  for (const ArchitectureFilter each :
       {ArchitectureFilter::appleSilicon, ArchitectureFilter::needsRosetta})
    choices.addLabelled(&AppFilters::architecture, each);
  return choices.take();
}

std::vector<std::string> systemsOf(Platform platform) {
  if (platform == Platform::mac) return {kMacSystems.begin(), kMacSystems.end()};
  return {kMobileSystems.begin(), kMobileSystems.end()};
}

FilterGroup systems(const AppFilters& now, Platform platform) {
  std::vector<std::string> versions = systemsOf(platform);
  if (now.runsOn && std::ranges::find(versions, now.runsOn->atMost) == versions.end()) {
    const auto older = std::ranges::find_if(versions, [&](const std::string& version) {
      return compareVersions(version, now.runsOn->atMost) < 0;
    });
    versions.insert(older, now.runsOn->atMost);
  }
  using System = std::optional<OSRequirement>;
  Choices choices(FilterField::system, tr("Runs on"), now);
  choices.add(tr("Any %1").arg(systemName(platform)), &AppFilters::runsOn, System());
  for (const std::string& version : versions) {
    const QString text = systemName(platform) + u' ' + plainLine(version);
    choices.add(text, &AppFilters::runsOn, System(OSRequirement{version}));
  }
  return choices.take();
}

FilterGroup owned(const AppFilters& now) {
  Choices choices(FilterField::owned, {}, now);
  return choices.addLabelled(&AppFilters::hideOwned, true).take();
}

}  // namespace

QString systemName(Platform platform) {
  switch (platform) {
    case Platform::mac: return QStringLiteral("macOS");
    case Platform::iphone: return QStringLiteral("iOS");
    case Platform::ipad: return QStringLiteral("iPadOS");
  }
  return {};
}

std::vector<FilterGroup> filterGroups(const FilterPanelState& state) {
  const AppFilters& now = state.filters;
  std::vector<FilterGroup> groups{
      prices(now),      purchases(now), ratings(now), updates(now), releases(now, state.thisYear),
      ratingCounts(now)};
  if (state.hasCategories) groups.push_back(categories(now, state.genres));
  groups.push_back(sizes(now));
  if (state.platform == Platform::mac || now.architecture != ArchitectureFilter::any)
    groups.push_back(architectures(now));
  groups.push_back(systems(now, state.platform));
  groups.push_back(owned(now));
  return groups;
}

}  // namespace quillet
