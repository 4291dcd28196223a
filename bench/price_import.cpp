// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT
//
// Imports a storefront's published prices into a new library and says how fast:
// price_import PRICE-DATA-ADDRESS FOLDER.

#include <fmt/format.h>

#include <QCoreApplication>
#include <chrono>
#include <filesystem>

#include "library/price_seed_service.h"
#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "system/settings_file.h"

namespace {

using namespace quillet;

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void importTwice(const std::string& address, const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
  QtHttpClient http({});
  SystemClock clock;
  PriceSeedClient prices(http, address);
  const auto store = runTask(DataStore::open(folder / "default.store"));

  auto start = std::chrono::steady_clock::now();
  runTask(prices.storefront("us", StopToken{}));
  const double opening = secondsSince(start);
  double seconds[2] = {};
  std::size_t points = 0;
  for (double& each : seconds) {
    IniSettingsFile settings(folder / "settings.conf");
    PriceSeedService service(*store, prices, settings, clock);
    start = std::chrono::steady_clock::now();
    const SeedImportResult result = runTask(service.importStorefronts({"us"}, StopToken{}));
    each = secondsSince(start) - opening;
    points = std::max(points, result.pointsInserted);
    // As if the data had changed: everything is looked at once more, and nothing is new.
    std::filesystem::remove(folder / "settings.conf");
    runTask(store->change([](WriteTransaction& transaction) {
      transaction.database.exec("UPDATE ZIMPORTRECORD SET ZSTAMP = 'older'");
    }));
  }
  const auto rate = [points](double time) { return static_cast<double>(points) / time; };
  fmt::print("{{\"points\":{},\"first\":{:.0f},\"again\":{:.0f}}}\n", points, rate(seconds[0]),
             rate(seconds[1]));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 3) return 2;
  importTwice(argv[1], argv[2]);
}
