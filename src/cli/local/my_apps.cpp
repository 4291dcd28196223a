// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/my_apps.h"

#include <fmt/format.h>

#include "analysis/update_state.h"
#include "cli/local/local_statement.h"

namespace quillet {

namespace {

/// Libraries of older builds do not say what is no longer sold.
std::string queryFor(const CLILocalStore& store) {
  const bool saysWhatIsGone = hasColumn(store, "ZOWNEDAPP", "ZISUNAVAILABLE");
  return fmt::format(
      "SELECT ZTRACKID, ZNAME, ZSELLERNAME, ZBUNDLEID, ZPLATFORMRAW, ZSOURCERAW,\n"
      "       ZINSTALLEDVERSION, ZSTOREVERSION, ZINSTALLEDPATH, ZPRIMARYGENRENAME,\n"
      "       ZINSTALLEDSIZEBYTES, ZPRICEWHENADDED, ZCURRENCY, ZADDEDAT, {}\n"
      "FROM ZOWNEDAPP ORDER BY ZNAME COLLATE NOCASE",
      saysWhatIsGone ? "ZISUNAVAILABLE" : "NULL");
}

CLIOwnedApp appOf(const LocalStatement& row, std::int64_t trackId, std::string name) {
  CLIOwnedApp app;
  app.trackId = trackId;
  app.name = std::move(name);
  app.seller = row.text(2);
  app.bundleId = row.text(3);
  app.platform = row.text(4);
  app.source = row.text(5);
  app.installedVersion = row.text(6);
  app.storeVersion = row.text(7);
  app.installedPath = row.text(8);
  app.genre = row.text(9);
  app.installedSizeBytes = row.integer(10);
  app.pricePaid = row.number(11);
  app.currency = row.text(12);
  app.addedAt = row.date(13);
  app.unavailable = row.flag(14);
  app.updateAvailable = isUpdateAvailable(app.installedVersion, app.storeVersion);
  return app;
}

bool isAskedFor(const CLIOwnedApp& app, const CLIOptions& options) {
  if (options.platform && app.platform != textOf(kPlatformWords, *options.platform)) return false;
  return !options.outdatedOnly || app.updateAvailable == true;
}

void writeApp(JsonWriter& writer, const CLIOwnedApp& app) {
  writer.beginObject();
  writer.member("addedAt", app.addedAt);
  writer.member("bundleId", app.bundleId);
  writer.member("currency", app.currency);
  writer.member("genre", app.genre);
  writer.member("installedPath", app.installedPath);
  writer.member("installedSizeBytes", app.installedSizeBytes);
  writer.member("installedVersion", app.installedVersion);
  writer.member("name", app.name);
  writer.member("platform", app.platform);
  writer.member("pricePaid", app.pricePaid);
  writer.member("seller", app.seller);
  writer.member("source", app.source);
  writer.member("storeVersion", app.storeVersion);
  writer.member("trackId", app.trackId);
  writer.member("unavailable", app.unavailable);
  writer.member("updateAvailable", app.updateAvailable);
  writer.endObject();
}

}  // namespace

CLIMyApps readMyApps(const LocalCall& call) {
  refuseOperands("my-apps", call.options);
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  const std::size_t limit = call.options.limit;
  CLIMyApps apps;
  bool isCut = false;
  LocalStatement rows(store, queryFor(store));
  while (rows.next()) {
    const auto trackId = rows.integer(0);
    auto name = rows.text(1);
    if (!trackId || !name) continue;
    ++apps.total;
    if (isCut) continue;
    CLIOwnedApp app = appOf(rows, *trackId, std::move(*name));
    if (!isAskedFor(app, call.options)) continue;
    isCut = apps.items.size() == limit;
    if (!isCut) apps.items.push_back(std::move(app));
  }
  if (isCut) tellCut(call);
  return apps;
}

std::string renderMyAppsJson(const CLIMyApps& apps) { return renderListJson(apps, writeApp); }

}  // namespace quillet
