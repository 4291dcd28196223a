// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/chosen_app.h"

#include "base/errors.h"
#include "library/cached_apps.h"
#include "library/owned_apps.h"
#include "net/worker.h"

namespace quillet {

namespace {

/// Of a record of the store or a kept one.
template <typename Record>
ChosenApp::Facts factsOf(const Record& record, Platform platform) {
  ChosenApp::Facts facts;
  facts.platform = platform;
  facts.website = record.sellerUrl.value_or("");
  if (record.artistId.value_or(0) != 0)
    facts.developer = Developer{*record.artistId, record.sellerName.value_or("")};
  return facts;
}

ChosenApp::Facts readKept(SQLite::Database& database, const AppKey& app) {
  const std::vector<CachedApp> kept = cachedAppsOf(database, {app});
  if (kept.empty()) return {};
  const bool isMac = kept.front().kind == "mac-software";
  return factsOf(kept.front(), isMac ? Platform::mac : Platform::iphone);
}

std::filesystem::path readPath(SQLite::Database& database, const AppKey& app) {
  const std::vector<OwnedApp> owned = ownedAppsOf(database, {app});
  return owned.empty() ? std::string() : owned.front().installedPath.value_or("");
}

}  // namespace

ChosenApp::ChosenApp(LibraryGateway& library, RecordShelf& records)
    : library_(library), records_(records) {
  connect(&library, &LibraryGateway::changed, this, [this](const LibraryChanges& changes) {
    if (app_ && changes.cachedApps.contains(*app_)) want();
    if (app_ && changes.ownedApps.contains(*app_)) wantCopy();
  });
}

void ChosenApp::show(const std::optional<AppKey>& app) {
  if (app == app_) return;
  app_ = app;
  facts_ = {};
  copy_.clear();
  if (!app_) return;
  want();
  wantCopy();
}

void ChosenApp::wantCopy() { detach(readCopy(this, *app_), "An app's installed copy"); }

/// The disk may be slow, or gone.
Task<> ChosenApp::readCopy(QPointer<ChosenApp> chosen, AppKey app) {
  std::filesystem::path path = co_await chosen->library_.read(readPath, app);
  if (!path.empty()) {
    path = co_await onWorker([path] {
      std::error_code ignored;
      return std::filesystem::exists(path, ignored) ? path : std::filesystem::path();
    });
  }
  if (!chosen || chosen->app_ != app || chosen->copy_ == path) co_return;
  chosen->copy_ = std::move(path);
  Q_EMIT chosen->changed();
}

/// One reading at a time: of apps that are passed by while it lasts, only the last is read.
void ChosenApp::want() {
  if (const std::optional<ShelvedRecord> shelved = records_.find(*app_)) {
    facts_ = factsOf(shelved->app, shelved->platform);
    Q_EMIT changed();
    return;
  }
  isStale_ = isReading_;
  if (!isReading_) detach(read(this, *app_), "An app's developer");
}

Task<> ChosenApp::read(QPointer<ChosenApp> chosen, AppKey app) {
  chosen->isReading_ = true;
  Facts facts;
  try {
    facts = co_await chosen->library_.read(readKept, app);
  } catch (const DatabaseError&) {
    facts = {};
  }
  if (!chosen) co_return;
  chosen->isReading_ = false;
  if (chosen->app_ == app) {
    chosen->facts_ = std::move(facts);
    Q_EMIT chosen->changed();
  }
  if (chosen && chosen->app_ && std::exchange(chosen->isStale_, false)) chosen->want();
}

}  // namespace quillet
