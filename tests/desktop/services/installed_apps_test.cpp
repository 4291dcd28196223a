// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/installed_apps.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "library/library_folder.h"
#include "net/run_task.h"
#include "support/bundle_tree.h"
#include "support/event_loop.h"
#include "support/fake_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

class InstalledAppsTest : public testing::Test {
 protected:
  InstalledAppsTest() {
    gateway.use(*library);
    store.use({itunes, catalog, charts, pages, clock}, stop.token());
    writeFolders(settings, {disk()});
    QObject::connect(&apps, &InstalledApps::scanned, &apps,
                     [this](const ScanOutcome& told) { outcome = told; });
  }

  [[nodiscard]] fs::path disk() const { return folder.path() / "Applications"; }

  void put(const std::string& name, const std::string& version, bool hasReceipt) const {
    const fs::path bundle = disk() / (name + ".app");
    writeFile(bundle / "Contents/Info.plist", xmlPlist({"com." + name, name, version, "12.0", ""}));
    if (hasReceipt) writeFile(bundle / "Contents/_MASReceipt/receipt", "receipt");
  }
  void answer(const std::string& ids, const std::string& records) {
    http.answer(fmt::format("https://store.example/lookup?bundleId={}&country=us&limit=200", ids),
                200, fmt::format(R"({{"results":[{}]}})", records));
  }
  static std::string record(int trackId, const std::string& name, const std::string& version) {
    return fmt::format(R"({{"trackId":{},"bundleId":"com.{}","kind":"mac-software",)"
                       R"("trackName":"{}","version":"{}","price":4.99,"currency":"USD"}})",
                       trackId, name, name, version);
  }

  void scan(ScanCause cause = ScanCause::user) {
    apps.scan(cause);
    waitFor([this] { return !apps.isScanning(); });
  }
  /// "alpha 1 found 1.0 of 2.0", by name.
  std::vector<std::string> rows() {
    std::vector<std::string> texts;
    const FolderScans folders = apps.last().value_or(LastScan()).folders;
    for (const OwnedApp& row : runTask(library->read(ownedApps)))
      texts.push_back(fmt::format(
          "{} {} {} of {}{}", row.name, row.sourceRaw, row.installedVersion.value_or("-"),
          row.storeVersion.value_or("-"), isMissing(row, folders) ? " missing" : ""));
    return texts;
  }
  std::map<std::string, FoundAs> found() const {
    std::map<std::string, FoundAs> all;
    for (const FoundApp& each : outcome.apps) all[each.bundle.name] = each.as;
    return all;
  }

  TemporaryFolder folder;
  LibraryFolder libraryFolder;
  std::unique_ptr<DataStore> library = libraryFolder.open();
  FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 20})};
  ScriptedHttpClient http;
  MemorySettings settings;
  StopSource stop;
  ITunesClient itunes{http, clock, "https://store.example"};
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  ChartsPageScraper chartPages{http, "https://web.example"};
  ChartsService charts{itunes, chartPages, "https://store.example"};
  StoreScraper pages{http, clock, "https://web.example", {}};
  LibraryGateway gateway;
  StoreGateway store;
  StateFile state{folder.path() / "windows.json"};
  InstalledApps apps{{gateway, store, clock, settings, state, [] { return "us"; }}};
  ScanOutcome outcome;
};

TEST_F(InstalledAppsTest, TakesInWhatTheStoreInstalledAndOffersTheRest) {
  put("alpha", "1.0", true);
  put("beta", "2.0", false);
  put("gone", "1.0", true);
  put("hand", "5.0", true);
  put("hidden", "1.0", true);
  makeBundle(disk() / "Broken.app", SampleBundle::damaged, 1);
  ignoreBundle(settings, "com.Hidden");
  OwnedApp byHand{.trackId = 4, .country = "us", .platformRaw = "mac", .name = "hand"};
  byHand.sourceRaw = "manual";
  byHand.priceWhenAdded = 1;
  runTask(library->change(addOwnedApps, std::vector{byHand}));
  answer("com.alpha,com.beta,com.gone,com.hand",
         record(1, "alpha", "1.5") + "," + record(2, "beta", "2.0") + "," + record(4, "hand", "6"));
  scan();
  EXPECT_EQ(rows(), (std::vector<std::string>{"alpha scanned 1.0 of 1.5", "hand manual - of 6"}));
  EXPECT_EQ(found(), (std::map<std::string, FoundAs>{{"alpha", FoundAs::added},
                                                     {"beta", FoundAs::offered},
                                                     {"gone", FoundAs::notInStorefront},
                                                     {"hand", FoundAs::known},
                                                     {"hidden", FoundAs::ignored},
                                                     {"Broken", FoundAs::unreadable}}));
  const OwnedApp alpha = runTask(library->read(ownedAppsOf, std::vector<AppKey>{{1, "us"}})).at(0);
  EXPECT_EQ(alpha.priceWhenAdded, 4.99);
  EXPECT_GT(alpha.installedSizeBytes.value_or(0), 0) << "sizes come last, and come";
  EXPECT_EQ(alpha.installedPath, disk() / "alpha.app");
  EXPECT_EQ(http.requests().front().requestClass, RequestClass::background);
  EXPECT_EQ(apps.last()->matched, 3);
}

TEST_F(InstalledAppsTest, SaysWhatIsGoneButNotWhereTheDiskIs) {
  put("alpha", "1.0", true);
  put("beta", "1.0", true);
  const std::string both = record(1, "alpha", "1.0") + "," + record(2, "beta", "1.0");
  answer("com.alpha,com.beta", both);
  scan();
  fs::remove_all(disk() / "beta.app");
  put("alpha", "1.1", true);
  clock.advance(std::chrono::hours(1));
  http.fail("https://store.example/lookup?bundleId=com.alpha&country=us&limit=200",
            NetworkError(NetworkError::Kind::notConnected, "Not connected."));
  scan();
  const std::vector<std::string> kept{"alpha scanned 1.1 of 1.0",
                                      "beta scanned 1.0 of 1.0 missing"};
  EXPECT_EQ(rows(), kept) << "without the store, too";
  EXPECT_TRUE(outcome.failure);
  writeFile(disk() / "alpha.app/Contents/Info.plist", "no list");
  clock.advance(std::chrono::hours(1));
  scan();
  EXPECT_EQ(rows(), kept) << "what cannot be read is there";
  EXPECT_EQ(found()["alpha"], FoundAs::unreadable);
  for (const FolderState gone : {FolderState::empty, FolderState::missing}) {
    fs::remove_all(disk());
    if (gone == FolderState::empty) fs::create_directories(disk());
    clock.advance(std::chrono::hours(1));
    scan();
    EXPECT_EQ(rows(), kept);
    ASSERT_EQ(outcome.folders.size(), 1);
    EXPECT_EQ(outcome.folders.front().state, gone);
  }
}

TEST_F(InstalledAppsTest, KnowsWhichVersionTheUserSkipped) {
  put("alpha", "1.0", true);
  answer("com.alpha", record(1, "alpha", "2.0"));
  scan();
  runTask(library->change(skipUpdates, std::vector<AppKey>{{1, "us"}}, SkipUpdates::skip));
  answer("com.alpha", record(1, "alpha", "2.0"));
  scan();
  ASSERT_EQ(outcome.apps.size(), 1U);
  EXPECT_EQ(outcome.apps[0].row->skippedVersion, "2.0");
}

TEST_F(InstalledAppsTest, AddsByItselfWhatIsNewOnTheDiskAlone) {
  const std::string both = record(1, "alpha", "1.0") + "," + record(2, "beta", "1.0");
  const auto scanByItself = [&](const char* ids, const std::string& records) {
    answer(ids, records);
    scan(ScanCause::start);
    return rows();
  };
  const std::vector<std::string> beta{"beta scanned 1.0 of 1.0"};
  put("alpha", "1.0", true);
  EXPECT_EQ(scanByItself("com.alpha", both).size(), 1U);
  runTask(library->change(removeOwnedApps, std::vector<AppKey>{{1, "us"}}));
  put("beta", "1.0", true);
  EXPECT_EQ(scanByItself("com.alpha,com.beta", both), beta);
  EXPECT_EQ(found()["alpha"], FoundAs::offered);
  fs::rename(disk(), folder.path() / "away");
  scan(ScanCause::start);
  fs::rename(folder.path() / "away", disk());
  EXPECT_EQ(scanByItself("com.alpha,com.beta", both), beta) << "after the disk was away";
  fs::remove_all(disk() / "alpha.app");
  EXPECT_EQ(scanByItself("com.beta", both), beta);
  put("alpha", "1.0", true);
  EXPECT_EQ(scanByItself("com.alpha,com.beta", both).size(), 2U) << "it was installed anew";
  runTask(library->change(removeOwnedApps, std::vector<AppKey>{{1, "us"}}));
  answer("com.alpha,com.beta", both);
  scan(ScanCause::user);
  EXPECT_EQ(rows().size(), 2U) << "the user asked for it, and sees it";
}

TEST_F(InstalledAppsTest, WaitsWhereTheStoreLimitsRequestsAndKeepsTheArchitectures) {
  const fs::path bundle = disk() / "alpha.app/Contents";
  writeFile(bundle / "Info.plist", xmlPlist({"com.alpha", "alpha", "1.0", "12.0", "tool"}));
  writeFile(bundle / "_MASReceipt/receipt", "receipt");
  writeFile(bundle / "MacOS/tool", machOHead({SampleCpu::intel64}));
  http.answer("https://store.example/lookup?bundleId=com.alpha&country=us&limit=200", 403, "");
  answer("com.alpha", record(1, "alpha", "1.0"));
  apps.scan(ScanCause::user);
  waitFor([this] { return clock.waits().size() == 1; });
  clock.advance(std::chrono::seconds(20));
  waitFor([this] { return !apps.isScanning(); });
  const OwnedApp alpha = runTask(library->read(ownedAppsOf, std::vector<AppKey>{{1, "us"}})).at(0);
  EXPECT_EQ(alpha.architectures, "x86_64");
  EXPECT_EQ(alpha.isUnavailable, false);
}

TEST_F(InstalledAppsTest, WritesWhatWasReadBeforeAStop) {
  for (int i = 100; i < 350; ++i) put("app" + std::to_string(i), "1.0", true);
  std::string ids = "com.app100";
  for (int i = 101; i < 200; ++i) ids += ",com.app" + std::to_string(i);
  const std::string first =
      fmt::format("https://store.example/lookup?bundleId={}&country=us&limit=200", ids);
  http.hold(first);
  apps.scan(ScanCause::user);
  waitFor([this] { return !http.requests().empty(); });
  apps.stop();
  waitFor([this] { return !apps.isScanning(); });
  EXPECT_EQ(outcome.end, ScanEnd::stopped);
  EXPECT_TRUE(rows().empty());
  EXPECT_FALSE(outcome.failure) << "the user asked for it";
  EXPECT_FALSE(apps.last());
}

TEST_F(InstalledAppsTest, ABundleThatWasHandedInIsOffered) {
  put("alpha", "1.0", true);
  ignoreBundle(settings, "com.alpha");
  answer("com.alpha", record(1, "alpha", "1.0"));
  apps.look({disk() / "alpha.app/"});
  waitFor([this] { return !apps.isScanning(); });
  EXPECT_EQ(found(), (std::map<std::string, FoundAs>{{"alpha", FoundAs::offered}}));
  EXPECT_GT(outcome.apps.front().row->installedSizeBytes.value_or(0), 0);
  EXPECT_TRUE(rows().empty());
}

TEST_F(InstalledAppsTest, AnotherCopyThatWasHandedInChangesNothing) {
  put("alpha", "2.0", true);
  answer("com.alpha", record(1, "alpha", "2.0"));
  scan();
  const OwnedApp before = runTask(library->read(ownedApps)).at(0);
  fs::rename(disk() / "alpha.app", folder.path() / "alpha.app");
  writeFile(folder.path() / "alpha.app/Contents/Info.plist",
            xmlPlist({"com.alpha", "alpha", "1.0", "12.0", ""}));
  answer("com.alpha", record(1, "alpha", "2.0"));
  apps.look({folder.path() / "alpha.app"});
  waitFor([this] { return !apps.isScanning(); });
  EXPECT_EQ(found(), (std::map<std::string, FoundAs>{{"alpha", FoundAs::known}}));
  EXPECT_EQ(runTask(library->read(ownedApps)).at(0), before);
}

}  // namespace
}  // namespace quillet
