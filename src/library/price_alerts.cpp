// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_alerts.h"

#include <fmt/format.h>

#include "analysis/recorded_price.h"
#include "base/text.h"
#include "library/watched_apps.h"

namespace quillet {

namespace {

/// Several purchases of one app changed at once: no single old price is told.
bool isSummary(const PriceAlertEvent& event) {
  return isPurchaseEvent(event) && event.oldPriceText.empty();
}

std::string purchaseTitle(const PriceAlertEvent& event, std::string_view fallback,
                          std::string_view what) {
  const std::string name = event.purchaseName.value_or("");
  return fmt::format("{}: {} {}", event.name, trimmed(name).empty() ? fallback : name, what);
}

}  // namespace

std::optional<PriceAlertEvent> eventOf(const AlertRecord& record) {
  const auto kind = valueOf(kAlertKindTexts, record.kindRaw);
  if (!kind) return std::nullopt;
  return PriceAlertEvent{record.trackId,      record.appName,      *kind,
                         record.oldPriceText, record.newPriceText, record.version,
                         record.purchaseName};
}

bool isPurchaseEvent(const PriceAlertEvent& event) {
  return event.kind == AlertKind::purchaseDrop || event.kind == AlertKind::purchaseRise;
}

std::string titleOf(const PriceAlertEvent& event) {
  if (isSummary(event)) return purchaseTitle(event, "In-app purchases", "changed price");
  switch (event.kind) {
    case AlertKind::priceDrop: return event.name + " dropped in price";
    case AlertKind::wentFree: return event.name + " is now free";
    case AlertKind::targetReached: return event.name + " hit your target price";
    case AlertKind::newVersion: return event.name + " was updated";
    case AlertKind::purchaseDrop: return purchaseTitle(event, "In-app purchase", "is cheaper");
    case AlertKind::purchaseRise: break;
  }
  return purchaseTitle(event, "In-app purchase", "costs more");
}

std::string bodyOf(const PriceAlertEvent& event) {
  if (isSummary(event)) return "Open Quillet to see the new prices.";
  if (event.kind == AlertKind::wentFree)
    return fmt::format("Was {} — now free.", event.oldPriceText);
  if (event.kind == AlertKind::newVersion) {
    return event.version ? fmt::format("Version {} is now available.", *event.version)
                         : "A new version is available.";
  }
  return fmt::format("{} → {}", event.oldPriceText, event.newPriceText);
}

std::string identityOf(const PriceAlertEvent& event) {
  return fmt::format("{}-{}-{}-{}", event.trackId, event.purchaseName.value_or(""),
                     event.newPriceText, textOf(kAlertKindTexts, event.kind));
}

std::optional<AlertKind> alertOfDrop(const WatchedApp& app, double price) {
  if (price > app.currentPrice || isSamePrice(price, app.currentPrice)) return std::nullopt;
  if (app.lastNotifiedPrice && isSamePrice(price, *app.lastNotifiedPrice)) return std::nullopt;
  if (price == 0 && app.alertOnFree) return AlertKind::wentFree;
  const auto target = knownTargetPrice(app);
  if (target && price <= *target) return AlertKind::targetReached;
  return app.alertOnAnyDrop ? std::optional(AlertKind::priceDrop) : std::nullopt;
}

}  // namespace quillet
