// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

void addInterval(SettingsPage& page) {
  std::vector<NumberChoice> choices{{1, tr("1 hour")}};
  for (const std::int64_t hours : {2, 4, 6, 12, 24})
    choices.push_back({hours, tr("%1 hours").arg(hours)});
  addNumberList(page, {tr("Check prices every"), {}, tr("interval hours often")},
                kPriceCheckIntervalHours, choices,
                [](std::int64_t hours) { return tr("Every %1 hours").arg(hours); });
  page.addText(
      tr("Checks only run while Quillet is open. A shorter interval doesn't use much data — the "
         "whole watchlist refreshes in one or two requests."));
  page.addLine();
}

void addKeptAlerts(SettingsPage& page) {
  const std::vector<NumberChoice> choices{
      {0, tr("For good")}, {30, tr("30 days")}, {90, tr("90 days")}, {365, tr("A year")}};
  addNumberList(page, {tr("Keep alerts"), tr("Older ones are deleted"), tr("delete remove days")},
                kKeepAlertsDays, choices, [](std::int64_t days) { return tr("%1 days").arg(days); })
      .setLine(false);
}

}  // namespace

SettingsPage* makeWatchlistPage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("watchlist"), tr("Watchlist"), QStringLiteral("eye"),
                                world.edit);
  addInterval(*page);
  addChecks(*page, {tr("New watches alert on"), {}, tr("watch drop free version in-app")},
            {{tr("Any drop in price"), kWatchAnyDrop},
             {tr("The app becoming free"), kWatchFree},
             {tr("A new version"), kWatchNewVersion},
             {tr("In-app prices"), kWatchPurchases}});
  addSwitch(*page, {tr("Check on metered networks"), tr("Mobile data and the like"), tr("roaming")},
            kCheckOnMetered);
  addKeptAlerts(*page);
  return page;
}

}  // namespace quillet
