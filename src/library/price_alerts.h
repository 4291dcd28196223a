// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/schema/alert_record.h"
#include "library/schema/watched_app.h"

namespace quillet {

/// What a price check found that the user asked to hear of.
struct PriceAlertEvent {
  using Kind = AlertKind;

  std::int64_t trackId = 0;
  std::string name;
  Kind kind = Kind::priceDrop;
  std::string oldPriceText;  ///< empty for a new version, and for several purchases at once
  std::string newPriceText;
  std::optional<std::string> version;
  std::optional<std::string> purchaseName;

  friend bool operator==(const PriceAlertEvent&, const PriceAlertEvent&) = default;
};

/// What a kept alert tells of, in the words that it was told with. Absent where its kind is none
/// that this build knows.
[[nodiscard]] std::optional<PriceAlertEvent> eventOf(const AlertRecord& record);

/// Whether the event is about what is sold inside the app.
[[nodiscard]] bool isPurchaseEvent(const PriceAlertEvent& event);

[[nodiscard]] std::string titleOf(const PriceAlertEvent& event);
[[nodiscard]] std::string bodyOf(const PriceAlertEvent& event);

/// What two events have in common that are to replace each other where they are shown.
[[nodiscard]] std::string identityOf(const PriceAlertEvent& event);

/// The alert that a fall of the app's price from `currentPrice` to `price` raises, by what the user
/// asked for: the app being free before the target before any drop. Absent for a rise, for a price
/// that was alerted already, and where nothing was asked for. Both prices are in one currency; a
/// target in another one is none.
[[nodiscard]] std::optional<AlertKind> alertOfDrop(const WatchedApp& app, double price);

}  // namespace quillet
