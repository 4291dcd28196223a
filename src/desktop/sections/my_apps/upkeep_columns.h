// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <array>
#include <optional>

#include "base/enum_index.h"
#include "desktop/look/palette.h"
#include "desktop/models/app_row.h"

namespace quillet {

/// The columns of the board that shows how apps are cared for. One app may stand in several.
enum class UpkeepColumn { fine, slowing, stale, abandoned, rosetta, gone };
inline constexpr std::size_t kUpkeepColumns = indexOf(UpkeepColumn::gone) + 1;

[[nodiscard]] bool standsIn(const AppRow& row, UpkeepColumn column);

[[nodiscard]] QString upkeepTitle(UpkeepColumn column);
[[nodiscard]] Token upkeepColor(UpkeepColumn column);
/// Whether its cards offer to look for another app.
[[nodiscard]] bool offersReplacement(UpkeepColumn column);

/// Whether it is known among which apps another one is looked for.
[[nodiscard]] bool isReplaceable(const AppRow& row);

/// An app's name without what sellers add to it: up to the first " – " or ": ".
[[nodiscard]] QString cardName(const QString& name);
/// What the column says of the app: "13 months ago".
[[nodiscard]] QString cardText(const AppRow& row, UpkeepColumn column);

/// "1 app", "4 apps"
[[nodiscard]] QString appsText(std::size_t apps);

/// How many apps have which verdict.
struct UpkeepTally {
  std::array<int, kUpkeepColumns> apps{};
  int unknown = 0;                ///< without a verdict
  std::optional<Instant> oldest;  ///< when the store told what the verdicts go by, of the oldest
  bool operator==(const UpkeepTally&) const = default;
};

void count(UpkeepTally& tally, const AppRow& row);

}  // namespace quillet
