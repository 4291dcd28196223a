// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFlags>
#include <QMetaType>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/chart_movement.h"
#include "analysis/maintenance_health.h"
#include "analysis/price_series.h"
#include "desktop/models/place.h"
#include "store/records/platform.h"

namespace quillet {

enum class PriceMove { none, down, up };

/// What the store asks, or what the user paid.
enum class PriceKind { asked, paid };

/// A price as a row shows it, and what it is ordered by.
struct PriceCell {
  QString text;  ///< empty where it is unknown
  PriceMove move = PriceMove::none;
  std::optional<double> amount;
  std::string currency;  ///< ISO 4217; empty where unknown
  PriceKind kind = PriceKind::asked;
  std::optional<Instant> asOf = {};  ///< until when it was so at least, where that is told

  friend bool operator==(const PriceCell&, const PriceCell&) = default;
};

/// What chips pick rows by.
enum class RowMark : std::uint32_t {
  dropped = 1U << 0U,  ///< cheaper than when it was added
  atLowest = 1U << 1U,
  hasTarget = 1U << 2U,
  isFree = 1U << 3U,
  newVersion = 1U << 4U,
  purchasesChanged = 1U << 5U,
  notSold = 1U << 6U,
  unread = 1U << 7U,
  // Of what an alert tells.
  priceAlert = 1U << 8U,
  freeAlert = 1U << 9U,
  targetAlert = 1U << 10U,
  versionAlert = 1U << 11U,
  purchaseAlert = 1U << 12U,
  // Of what the user owns.
  updateAvailable = 1U << 13U,
  needsRosetta = 1U << 14U,
  likelyAbandoned = 1U << 15U,
  notFromStore = 1U << 16U,
  // Of what a chart holds.
  isNewInChart = 1U << 17U,
  rising = 1U << 18U,
  paid = 1U << 19U,
  notOwned = 1U << 20U,
  // Of a deal.
  watched = 1U << 21U,
  // Of what the user owns: an update that is not wanted.
  updateSkipped = 1U << 22U,
  // Of what is watched: the build.
  forMac = 1U << 23U,
  forPhone = 1U << 24U,  ///< or iPad
};
Q_DECLARE_FLAGS(RowMarks, RowMark)
Q_DECLARE_OPERATORS_FOR_FLAGS(RowMarks)

/// The colour of a detail's icon; without an icon, of the detail itself.
enum class RowTone { quiet, good, bad, mine, warning };

/// How an app that the user owns is cared for, as far as it is known here.
struct AppCare {
  MaintenanceLevel level = MaintenanceLevel::unknown;
  std::optional<Instant> released;  ///< when it was last updated
  QString age;                      ///< of that: "13 months ago"
  std::optional<Instant> toldAt;    ///< when the store said so
  std::string category;             ///< as the store names it; empty where unknown
  std::optional<bool> needsRosetta;
  bool is32Bit = false;                      ///< what is installed, and nothing newer
  std::optional<std::string> minimumSystem;  ///< of macOS, and of the version in the store
  QString gone;                              ///< since when it is not sold; empty where it may be

  friend bool operator==(const AppCare&, const AppCare&) = default;
};

/// One row of any list: what it shows, and what it is ordered and picked by. All texts are plain,
/// and all but the name may be empty.
struct AppRow {
  RowKey key;
  Platform platform = Platform::mac;
  QString name;        ///< the app's, or a collection's
  QString title;       ///< shown in the place of the name
  QString seller;      //
  QString detail;      ///< shown in the place of the seller
  QString detailIcon;  ///< before it
  RowTone detailTone = RowTone::quiet;
  QString note;                         ///< the user's, on a line of its own
  std::string artwork;                  ///< the picture's address
  QString symbol;                       ///< an icon in the place of the picture
  std::vector<std::string> pictures;    ///< smaller ones at the end: what a collection holds
  QString rank;                         ///< its place in a chart, before the picture
  std::optional<PlaceChange> movement;  ///< how that differs from its place before
  PriceCell price;
  QString aside;    ///< small, below the price
  QString was;      ///< before the price, in low rows and in columns alone
  QString lowText;  ///< how far the price is above its lowest; empty where it is not, or unknown
  QString badge;    ///< before the price, in a pill: what is to be noticed
  QString time;     ///< at the end
  QString day;      ///< under which it is listed
  std::optional<int> ratingHalves;  ///< 0 to 10
  QString ratingCount;              ///< beside the stars: how many rated
  RowMarks marks;

  std::optional<Instant> added;    ///< for an alert raised, for a view seen
  std::optional<Instant> checked;  //
  std::optional<double> changePercent;
  std::optional<double> toTarget;  ///< what is missing to the target, as a share of it
  std::optional<std::int64_t> bytes;
  std::optional<AppCare> care;  ///< of what the user owns
  QString folded;  ///< what typed text is looked for in, letter case folded; ordered by name by it

  friend bool operator==(const AppRow&, const AppRow&) = default;
};

/// A row of which more is to be known once all rows are shown.
struct LateRow {
  AppKey app;
  std::optional<Instant> added;
};

/// What is known of it then.
struct LateFacts {
  AppKey app;
  std::optional<RecordedPrice> lowest;  ///< and when it was seen last; of a price that changed
  std::int64_t purchasesChanged = 0;
  std::optional<RecordedPrice> then;  ///< the price when the row was added
};

/// The whole row for somebody who hears it: "Name, price, …", in this order everywhere.
[[nodiscard]] QString sentenceOf(const AppRow& row);

/// What `folded` is made of: any of the texts, in an order that begins with the name.
[[nodiscard]] QString foldedText(std::initializer_list<QString> texts);

}  // namespace quillet

Q_DECLARE_METATYPE(const quillet::AppRow*)
