// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Turns the wheel over the watchlist of a library: scroll_bench LIBRARY. Prints what the event
// loop's thread works for a step, from the wheel's event until its rows are painted, in
// milliseconds of processor time, and the longest that one took on the wall's clock; by that clock
// also the longest that a typed letter or another order takes, and what all rows in sight take to
// paint.

#include <fmt/format.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QWheelEvent>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <stdexcept>
#include <vector>

#include "base/errors.h"
#include "desktop/images/image_store.h"
#include "desktop/look/quillet_style.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "net/run_task.h"
#include "system/settings_file.h"

namespace quillet {
namespace {

using Wall = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int kSteps = 600;
constexpr QSize kSize(620, 700);  // of a list that stands beside a page
constexpr int kNotch = 120;       // as wheels tell of one

/// Nobody answers: rows show tiles in the place of pictures.
class DeadHttpClient final : public HttpClient {
 public:
  Task<HttpResponse> get(HttpRequest request, StopToken /*stop*/) override {
    throw NetworkError(NetworkError::Kind::notConnected, request.url);
    co_return HttpResponse{};
  }
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

void turnWheel(QWidget& viewport) {
  const QPointF at(viewport.width() / 2.0, viewport.height() / 2.0);
  QWheelEvent event(at, viewport.mapToGlobal(at), QPoint(), QPoint(0, -kNotch), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&viewport, &event);
  QCoreApplication::processEvents();
}

/// Of the calling thread, in milliseconds.
double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

struct StepTimes {
  std::vector<double> worked;  ///< in the order of their length
  double longest = 0;          ///< with what else the machine did
};

StepTimes stepTimes(QAbstractItemView& rows) {
  StepTimes times;
  const PaintCount painted(*rows.viewport());
  for (int step = 0; step < kSteps; ++step) {
    const auto begun = Wall::now();
    const double before = processorTime();
    turnWheel(*rows.viewport());
    times.worked.push_back(processorTime() - before);
    times.longest = std::max(times.longest, Milliseconds(Wall::now() - begun).count());
  }
  if (painted.count < kSteps) throw std::runtime_error("not every step was painted");
  std::ranges::sort(times.worked);
  return times;
}

double timeOf(const auto& act) {
  const auto begun = Wall::now();
  act();
  QCoreApplication::processEvents();
  return Milliseconds(Wall::now() - begun).count();
}

/// The longest of the letters of a word that many names have, and of one that none has.
double longestLetter(Section& section) {
  double longest = 0;
  for (const QString& word : {QStringLiteral("editor"), QStringLiteral("zzz")}) {
    for (qsizetype letters = 1; letters <= word.size(); ++letters) {
      const RowView view{word.left(letters), {}, {}};
      longest = std::max(longest, timeOf([&] { section.setRowView(view); }));
    }
  }
  return std::max(longest, timeOf([&] { section.setRowView({}); }));
}

double longestSorting(Section& section) {
  double longest = 0;
  for (const SortChoice& sort : section.sorts()) {
    const RowView view{{}, {}, std::string(sort.id)};
    longest = std::max(longest, timeOf([&] { section.setRowView(view); }));
  }
  return longest;
}

/// The median.
double repaintTime(QWidget& viewport) {
  constexpr int kTimes = 101;
  std::vector<double> times;
  for (int i = 0; i < kTimes; ++i) times.push_back(timeOf([&] { viewport.repaint(); }));
  std::ranges::sort(times);
  return times[kTimes / 2];
}

void waitForRows(const QAbstractItemView& rows) {
  while (rows.model()->rowCount() == 0)
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  QCoreApplication::processEvents();
}

/// Nobody is there to be asked.
class NoPrompts final : public Prompts {
 public:
  void openLink(const std::string& /*address*/) override {}
  void chooseSaveFile(const FileQuestion& /*question*/, const QObject* /*context*/,
                      FileAnswer /*take*/) override {}
  void chooseFolder(const FileQuestion& /*question*/, const QObject* /*context*/,
                    FileAnswer /*take*/) override {}
};

void run(const char* file) {
  const auto store = runTask(DataStore::open(file));
  LibraryGateway library;
  library.use(*store);
  DeadHttpClient http;
  SystemClock clock;
  ImageStore images(http, clock, {});
  StoreGateway noStore;
  RecordShelf records(clock, {});
  IniSettingsFile noFile({});
  LiveSettings settings(noFile);
  StateFile state({});
  NoPrompts prompts;
  EditHistory edits(library);
  const auto section = makeWatchlist({library,
                                      edits,
                                      noStore,
                                      records,
                                      images,
                                      clock,
                                      settings,
                                      state,
                                      prompts,
                                      [] { return "us"; },
                                      localTimeZone(),
                                      {}});
  QWidget& view = *section->view();
  view.resize(kSize);
  view.show();
  section->show({});
  auto* rows = view.findChild<QAbstractItemView*>();
  if (rows == nullptr) throw std::runtime_error("the section has no list");
  waitForRows(*rows);
  const StepTimes times = stepTimes(*rows);
  const int count = rows->model()->rowCount();
  fmt::print(
      "{{\"rows\":{},\"p50\":{:.2f},\"p99\":{:.2f},\"max\":{:.2f},\"longest\":{:.1f},\"letter\":{:."
      "1f},"
      "\"sorting\":{:.1f},\"repaint\":{:.2f}}}\n",
      count, times.worked[kSteps / 2], times.worked[kSteps * 99 / 100], times.worked.back(),
      times.longest, longestLetter(*section), longestSorting(*section),
      repaintTime(*rows->viewport()));
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(new quillet::QuilletStyle());
  if (argc != 2) return 2;
  try {
    quillet::run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "scroll_bench: {}\n", error.what());
    return 1;
  }
}
