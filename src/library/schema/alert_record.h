// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "base/enum_table.h"
#include "library/schema/table.h"

namespace quillet {

enum class AlertKind { priceDrop, wentFree, targetReached, newVersion, purchaseDrop, purchaseRise };

// Stored; never change.
inline constexpr EnumTable<AlertKind, 6> kAlertKindTexts{{
    {AlertKind::priceDrop, "priceDrop"},
    {AlertKind::wentFree, "wentFree"},
    {AlertKind::targetReached, "targetReached"},
    {AlertKind::newVersion, "newVersion"},
    {AlertKind::purchaseDrop, "purchaseDrop"},
    {AlertKind::purchaseRise, "purchaseRise"},
}};
static_assert(isComplete(kAlertKindTexts, AlertKind::purchaseRise));

/// One alert raised by a price check, kept for the list of alerts.
struct AlertRecord {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string platformRaw;
  std::string appName;  ///< at the time
  std::optional<std::string> artworkUrl;
  std::string kindRaw;  ///< a text of AlertKind
  std::string oldPriceText;
  std::string newPriceText;
  std::optional<std::string> version;
  std::optional<std::string> purchaseName;
  Instant date{};
  bool isRead = false;

  friend bool operator==(const AlertRecord&, const AlertRecord&) = default;
};

template <>
inline constexpr auto kTable<AlertRecord> = Table{
    "AlertRecord", 1, KeyUse::unique, std::array<Index, 3>{Index{Index::Kind::plain, {"date"}}},
    std::tuple{attribute("trackId", &AlertRecord::trackId),
               attribute("country", &AlertRecord::country),
               attribute("platformRaw", &AlertRecord::platformRaw),
               attribute("appName", &AlertRecord::appName),
               attribute("artworkUrl", &AlertRecord::artworkUrl),
               attribute("kindRaw", &AlertRecord::kindRaw),
               attribute("oldPriceText", &AlertRecord::oldPriceText),
               attribute("newPriceText", &AlertRecord::newPriceText),
               attribute("version", &AlertRecord::version),
               attribute("purchaseName", &AlertRecord::purchaseName),
               attribute("date", &AlertRecord::date), attribute("isRead", &AlertRecord::isRead)}};

}  // namespace quillet
