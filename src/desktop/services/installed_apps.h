// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/services/found_app.h"
#include "desktop/services/library_gateway.h"
#include "desktop/services/scan_folders.h"
#include "desktop/services/store_gateway.h"

namespace quillet {

/// Why a scan runs.
enum class ScanCause {
  user,   ///< it was asked for, and its result is to be shown
  start,  ///< by itself
  drop,   ///< single bundles that were handed in; nothing is added before the user says so
};

/// What came of a scan.
struct ScanOutcome {
  ScanCause cause = ScanCause::user;
  Instant at{};
  ScanEnd end = ScanEnd::complete;
  std::vector<ScannedFolder> folders;
  std::vector<FoundApp> apps;  ///< each bundle
  std::size_t matched = 0;     ///< of these, with an app of the store
  std::exception_ptr failure;  ///< why the store was not asked for the rest, or nothing was written
  bool isWritten = true;       ///< all that was to be written
};

/// How far a scan has come.
struct ScanStand {
  ScanStep step = ScanStep::reading;
  std::size_t done = 0;
  std::size_t total = 0;
  std::size_t matched = 0;

  friend bool operator==(const ScanStand&, const ScanStand&) = default;
};

/// Reads bundles, and tells whoever follows; runs on a worker.
using BundleSource = std::function<ScanResult(const ScanWatch&)>;

/// What it works with. All of it outlives the service.
struct InstalledAppsWorld {
  LibraryGateway& library;
  StoreGateway& store;
  Clock& clock;
  WritableSettings& settings;
  StateFile& state;
  std::function<std::string()> storefront;  ///< the user's, two letters in lower case
};

/// Keeps My Apps by what is installed: reads the folders on a worker, asks the store a hundred
/// bundles at a time as they are read, and writes each hundred as one transaction. One scan at a
/// time. An object of the event-loop thread.
class InstalledApps : public QObject {
  Q_OBJECT

 public:
  explicit InstalledApps(InstalledAppsWorld world);
  ~InstalledApps() override;

  /// Of the folders that were chosen; nothing where there are none, or while a scan runs.
  void scan(ScanCause cause);
  /// Of these folders alone.
  void scanFolders(const FolderList& folders, ScanCause cause);
  /// Of these bundles.
  void look(const FolderList& bundles);
  /// What was read and matched by now stays.
  void stop();
  /// Returns when no scan runs any more.
  Task<> ended();

  [[nodiscard]] bool isScanning() const { return job_ != nullptr; }
  [[nodiscard]] const ScanStand& stand() const { return stand_; }
  [[nodiscard]] std::optional<LastScan> last() const { return lastScan(world_.state); }
  [[nodiscard]] bool hasFolders() const { return !chosenFolders(world_.settings).empty(); }

 Q_SIGNALS:
  /// It began, has come further, or has ended.
  void changed();
  void scanned(const quillet::ScanOutcome& outcome);

 private:
  struct Job;

  void begin(BundleSource source, ScanCause cause);
  static Task<> read(std::shared_ptr<Job> job, BundleSource source);
  static Task<> follow(QPointer<InstalledApps> apps, std::shared_ptr<Job> job);
  static Task<> match(QPointer<InstalledApps> apps, std::shared_ptr<Job> job);
  static Task<> finish(QPointer<InstalledApps> apps, std::shared_ptr<Job> job);
  void takeNews(const std::shared_ptr<Job>& job);
  [[nodiscard]] static FoundBatch nextBatch(Job& job);
  [[nodiscard]] static std::vector<InstalledCopy> measured(Job& job);
  void goOn(const std::shared_ptr<Job>& job);
  void remember(const Job& job);
  void rememberFoundBy(const Job& job);

  InstalledAppsWorld world_;
  std::shared_ptr<Job> job_;  ///< null while nothing is scanned
  ScanStand stand_;
};

/// Reads single bundles, which may lie anywhere.
[[nodiscard]] ScanResult readBundles(const FolderList& bundles, const ScanWatch& watch);

}  // namespace quillet
