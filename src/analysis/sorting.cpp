// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/sorting.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quillet {

namespace {

using Positions = std::vector<std::size_t>;

enum class Direction { ascending, descending };

/// A stable sort: positions differ, so that a tie is decided by the order that was. The one of
/// libstdc++ 12 uses what clang warns of as deprecated.
template <typename Before>
void sortStably(Positions& positions, Before before) {
  std::ranges::sort(positions, [&before](std::size_t a, std::size_t b) {
    return before(a, b) || (a < b && !before(b, a));
  });
}

/// By one optional field of the record.
template <typename Key>
void sortByKey(Positions& positions, std::span<const ITunesApp> apps,
               std::optional<Key> ITunesApp::* key, Direction direction) {
  sortStably(positions, [&](std::size_t a, std::size_t b) {
    const auto& left = apps[a].*key;
    const auto& right = apps[b].*key;
    if (!left || !right) return left.has_value() && !right.has_value();
    return direction == Direction::ascending ? *left < *right : *left > *right;
  });
}

void sortByName(Positions& positions, std::span<const ITunesApp> apps, const NameOrder& nameOrder) {
  sortStably(positions, [&](std::size_t a, std::size_t b) {
    return nameOrder(apps[a].trackName, apps[b].trackName);
  });
}

}  // namespace

std::vector<std::size_t> sortedPositions(std::span<const ITunesApp> apps, SortOrder order,
                                         const NameOrder& nameOrder) {
  Positions positions(apps.size());
  std::iota(positions.begin(), positions.end(), std::size_t{0});
  switch (order) {
    case SortOrder::relevance: break;
    case SortOrder::priceAscending:
      sortByKey(positions, apps, &ITunesApp::price, Direction::ascending);
      break;
    case SortOrder::priceDescending:
      sortByKey(positions, apps, &ITunesApp::price, Direction::descending);
      break;
    case SortOrder::rating:
      sortByKey(positions, apps, &ITunesApp::averageUserRating, Direction::descending);
      break;
    case SortOrder::popularity:
      // The store publishes no measure of its own; how many people rated comes closest.
      sortByKey(positions, apps, &ITunesApp::userRatingCount, Direction::descending);
      break;
    case SortOrder::recentlyUpdated:
      sortByKey(positions, apps, &ITunesApp::currentVersionReleaseDate, Direction::descending);
      break;
    case SortOrder::newest:
      sortByKey(positions, apps, &ITunesApp::releaseDate, Direction::descending);
      break;
    case SortOrder::name: sortByName(positions, apps, nameOrder); break;
  }
  return positions;
}

void sortApps(std::vector<ITunesApp>& apps, SortOrder order, const NameOrder& nameOrder) {
  std::vector<ITunesApp> sorted;
  sorted.reserve(apps.size());
  for (const std::size_t position : sortedPositions(apps, order, nameOrder))
    sorted.push_back(std::move(apps[position]));
  apps = std::move(sorted);
}

}  // namespace quillet
