// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Previews an exported library of 10,000 apps over the library FILE, which holds some of them:
// preview_bench FILE. Prints, in milliseconds, what it takes from the choice of the file until the
// sheet with its rows is painted.

#include <fmt/format.h>

#include <QDialog>
#include <QMainWindow>

#include "bench_world.h"
#include "desktop/dialogs/import_tree.h"
#include "desktop/frame/library_files.h"
#include "desktop/frame/snackbar.h"
#include "library/library_export_json.h"
#include "library/watched_apps.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

constexpr std::int64_t kApps = 10'000;
constexpr std::int64_t kCollected = 2'000;  // of them
constexpr std::size_t kCollections = 40;
constexpr int kRounds = 20;

/// Every second app is watched already.
LibraryExport shelf(const std::vector<WatchedApp>& present) {
  LibraryExport document;
  for (std::int64_t i = 0; i < kApps - kCollected; ++i) {
    const auto at = static_cast<std::size_t>(i / 2);
    const bool isPresent = i % 2 == 0 && at < present.size();
    document.watchlist.push_back({isPresent ? present[at].trackId : 5'000'000'000 + i,
                                  "us",
                                  "mac",
                                  fmt::format("App of many {} – with a usual name", i),
                                  9.99,
                                  i % 3 == 0 ? std::optional(4.99) : std::nullopt,
                                  true,
                                  true,
                                  false,
                                  {}});
  }
  document.collections.resize(kCollections);
  for (std::int64_t i = 0; i < kCollected; ++i) {
    CollectionItem& collection = document.collections[static_cast<std::size_t>(i) % kCollections];
    collection.name = fmt::format("Collection {}", static_cast<std::size_t>(i) % kCollections);
    collection.entries.push_back(
        {6'000'000'000 + i, "us", "mac", fmt::format("Kept {}", i), "a note", {}});
  }
  return document;
}

double previewTime(LibraryFiles& files, QWidget& window, const std::filesystem::path& file) {
  const Stopwatch watch;
  files.previewImport(file);
  waitUntil([&] { return window.findChild<ImportTree*>() != nullptr; });
  auto& tree = *window.findChild<ImportTree*>();
  PaintCount painted(*tree.viewport());
  waitUntil([&] { return painted.count > 0; });
  const double time = watch.onTheWall();
  window.findChild<QDialog*>()->reject();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return time;
}

void run(const std::filesystem::path& library) {
  DeadHttpClient http;
  BenchWorld world(library, http);
  const ViewWorld views = world.views();
  const std::filesystem::path file = library.parent_path() / "shelf.json";
  replaceFile(file, libraryExportJson(shelf(runTask(views.library.read(watchedApps)))));
  QMainWindow window;
  window.show();
  Snackbar snackbar(views.clock, window);
  LibraryFiles files(views, snackbar, window);
  std::vector<double> times;
  for (int i = 0; i < kRounds; ++i) times.push_back(previewTime(files, window, file));
  fmt::print("{{\"p50\":{:.1f},\"p95\":{:.1f}}}\n", percentile(times, 50), percentile(times, 95));
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
