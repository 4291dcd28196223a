// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/recent_alerts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quillet::sandbox {

namespace {

using namespace std::chrono_literals;
using std::chrono::days;

constexpr days kKept{12};

/// An alert of an app in the US storefront that was raised so long ago.
struct Recent {
  std::int64_t trackId;
  AlertKind kind;
  std::chrono::minutes ago;
  bool isRead = true;
};

constexpr std::array kRecent{
    Recent{1487712056, AlertKind::priceDrop, 48min},
    Recent{1398805512, AlertKind::targetReached, 48min, false},
    Recent{1392000715, AlertKind::newVersion, 80min, false},
    Recent{1611200458, AlertKind::wentFree, 18h, false},
    Recent{1499011386, AlertKind::purchaseRise, 22h},
    Recent{1499011386, AlertKind::purchaseDrop, 22h},
    Recent{1388120064, AlertKind::priceDrop, 51h},
    Recent{1440987612, AlertKind::priceDrop, 73h},
};

int centsOf(const PricePoint& point) { return static_cast<int>(std::lround(point.price * 100)); }

/// The last change of the price, where it was one for the better.
void hearOfPrice(Watch& watch, AlertKind kind, Instant when) {
  if (watch.points.size() < 2) return;
  const PricePoint& before = watch.points[watch.points.size() - 2];
  PricePoint& last = watch.points.back();
  if (last.price >= before.price) return;
  std::erase_if(watch.alerts, [&](const AlertRecord& alert) { return alert.date == last.date; });
  last.date = when;
  WatchedApp& row = watch.row;
  row.alertOnAnyDrop = row.alertOnAnyDrop || kind == AlertKind::priceDrop;
  row.alertOnFree = row.alertOnFree || kind == AlertKind::wentFree;
  if (kind == AlertKind::targetReached) row.targetPrice = last.price;
  row.lastNotifiedPrice = last.price;
  raiseAlert(watch, kind, when, {centsOf(before), centsOf(last)});
}

void hearOfVersion(Watch& watch, Instant when) {
  std::erase_if(watch.alerts, [](const AlertRecord& alert) { return alert.version.has_value(); });
  watch.row.alertOnNewVersion = true;
  raiseAlert(watch, AlertKind::newVersion, when, {});
  watch.alerts.back().version = watch.row.lastKnownVersion;
  watch.alerts.back().oldPriceText = watch.alerts.back().newPriceText = "";
}

/// Of those in-app prices that changed so, the last one.
void hearOfPurchase(Watch& watch, AlertKind kind, Instant when) {
  AlertRecord* last = nullptr;
  for (AlertRecord& alert : watch.alerts) {
    if (alert.kindRaw == textOf(kAlertKindTexts, kind) && (!last || alert.date > last->date))
      last = &alert;
  }
  if (!last) return;
  for (PurchasePricePoint& point : watch.purchases) {
    if (point.name == last->purchaseName && point.date == last->date) point.date = when;
  }
  last->date = when;
}

void hear(Watch& watch, AlertKind kind, Instant when) {
  switch (kind) {
    case AlertKind::newVersion: return hearOfVersion(watch, when);
    case AlertKind::purchaseDrop:
    case AlertKind::purchaseRise: return hearOfPurchase(watch, kind, when);
    case AlertKind::priceDrop:
    case AlertKind::wentFree:
    case AlertKind::targetReached: break;
  }
  hearOfPrice(watch, kind, when);
}

}  // namespace

void tellOfRecentOnes(Watch& watch, Instant now) {
  for (const Recent& recent : kRecent) {
    if (recent.trackId != watch.row.trackId || watch.app.storefront != Storefront::us) continue;
    const Instant when = now - recent.ago;
    hear(watch, recent.kind, when);
    for (AlertRecord& alert : watch.alerts) {
      if (alert.date == when) alert.isRead = recent.isRead;
    }
  }
  std::erase_if(watch.alerts, [&](const AlertRecord& alert) { return alert.date < now - kKept; });
}

}  // namespace quillet::sandbox
