// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <memory>
#include <type_traits>
#include <vector>

#include "base/errors.h"
#include "desktop/images/image_store.h"
#include "desktop/look/quillet_style.h"
#include "desktop/models/view_world.h"
#include "net/run_task.h"
#include "queries/query_call.h"
#include "store/charts_page_scraper.h"
#include "system/endpoints.h"
#include "system/even_random.h"
#include "system/settings_file.h"

namespace quillet {

/// Nobody is there to be asked.
class NoPrompts final : public Prompts {
 public:
  void openLink(const std::string& /*address*/) override {}
  void showInFiles(const std::filesystem::path& /*file*/) override {}
  void chooseSaveFile(const FileQuestion& /*question*/, const QObject* /*context*/,
                      FileAnswer /*take*/) override {}
  void chooseFile(const FileQuestion&, const QObject*, FileAnswer) override {}
  void chooseFolder(const FileQuestion& /*question*/, const QObject* /*context*/,
                    FileAnswer /*take*/) override {}
  void choosePrinter(const QString& /*title*/, const QObject* /*context*/,
                     PrintAnswer /*take*/) override {}
};

/// Nobody answers: rows show tiles in the place of pictures.
class DeadHttpClient final : public HttpClient {
 public:
  Task<HttpResponse> get(HttpRequest request, StopToken /*stop*/) override {
    throw NetworkError(NetworkError::Kind::notConnected, request.url);
    co_return HttpResponse{};
  }
};

/// What views that are measured stand in: a library, the application's clock, nobody's settings.
class BenchWorld {
 public:
  BenchWorld(const std::filesystem::path& file, HttpClient& http)
      : data_(runTask(DataStore::open(file))),
        records_(clock_, {{}, kShelvedRecords}),
        images_(http, clock_, {}) {
    library_.use(*data_);
  }

  [[nodiscard]] Clock& clock() { return clock_; }
  [[nodiscard]] StoreGateway& store() { return store_; }
  [[nodiscard]] ViewWorld views() {
    return {library_,
            edits_,
            store_,
            prices_,
            installed_,
            records_,
            images_,
            clock_,
            settings_,
            state_,
            compared_,
            prompts_,
            [] { return "us"; },
            localTimeZone(),
            {}};
  }

 private:
  std::unique_ptr<DataStore> data_;
  SystemClock clock_;
  LibraryGateway library_;
  EditHistory edits_{library_};
  StoreGateway store_;
  PriceData prices_;
  RecordShelf records_;
  ImageStore images_;
  IniSettingsFile noFile_{{}};
  LiveSettings settings_{noFile_};
  StateFile state_{{}};
  CompareList compared_{state_};
  InstalledApps installed_{{library_, store_, clock_, settings_, state_, [] { return "us"; }}};
  NoPrompts prompts_;
};

/// Counts how often a widget is painted.
class PaintCount final : public QObject {
 public:
  explicit PaintCount(QWidget& watched) { watched.installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return QObject::eventFilter(watched, event);
  }

  int count = 0;
};

/// Milliseconds since it was made.
class Stopwatch {
 public:
  [[nodiscard]] double onTheWall() const {
    return std::chrono::duration<double, std::milli>(Wall::now() - begun_).count();
  }
  /// Of processor time, of this thread or of all threads of the process.
  [[nodiscard]] double ofThread() const { return now(CLOCK_THREAD_CPUTIME_ID) - thread_; }
  [[nodiscard]] double ofProcess() const { return now(CLOCK_PROCESS_CPUTIME_ID) - process_; }

 private:
  using Wall = std::chrono::steady_clock;

  static double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }

  Wall::time_point begun_ = Wall::now();
  double thread_ = now(CLOCK_THREAD_CPUTIME_ID);
  double process_ = now(CLOCK_PROCESS_CPUTIME_ID);
};

/// The time that `percent` of a hundred do not exceed; 50 for the median.
inline double percentile(std::vector<double> times, std::size_t percent) {
  std::ranges::sort(times);
  return times.at(times.size() * percent / 100);
}

/// Lets the event loop run until `condition` holds.
inline void waitUntil(const auto& condition) {
  while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

inline constexpr std::size_t kNoBudget = 100'000;  // requests a minute: nobody's service is asked

/// The store's clients, as the application has them.
struct Services {
  Services(HttpClient& http, Clock& clock, const Endpoints& at)
      : itunes(http, clock, at.itunes, kNoBudget),
        catalog(http, clock, at.appStore, evenRandom(), {}),
        chartPages(http, at.appStore),
        charts(itunes, chartPages, at.itunes),
        pages(http, clock, at.appStore, {}),
        all{itunes, catalog, charts, pages, clock} {}

  ITunesClient itunes;
  CatalogClient catalog;
  ChartsPageScraper chartPages;
  ChartsService charts;
  StoreScraper pages;
  QueryServices all;
};

/// The main program of one that measures views: `run` gets its argument, or is called without one.
/// Returns the status of the program.
template <typename Run>
int measureViews(int argc, char** argv, Run run) {
  constexpr bool takesNone = std::is_invocable_v<Run>;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(new QuilletStyle());
  if (argc != (takesNone ? 1 : 2)) return 2;
  try {
    if constexpr (takesNone)
      run();
    else
      run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}: {}\n", argv[0], error.what());
    return 1;
  }
}

}  // namespace quillet
