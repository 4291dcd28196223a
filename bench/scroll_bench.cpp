// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Turns the wheel over the watchlist of a library: scroll_bench LIBRARY. Prints what the event
// loop's thread works for a step, from the wheel's event until its rows are painted, in
// milliseconds of processor time, and the longest that one took on the wall's clock; by that clock
// also the longest that a typed letter or another order takes, and what all rows in sight take to
// paint.

#include <fmt/format.h>

#include <QAbstractItemView>
#include <QWheelEvent>
#include <algorithm>
#include <stdexcept>
#include <vector>

#include "bench_world.h"
#include "desktop/sections/watchlist/watchlist_section.h"

namespace quillet {
namespace {

constexpr int kSteps = 600;
constexpr QSize kSize(620, 700);  // of a list that stands beside a page
constexpr int kNotch = 120;       // as wheels tell of one

void turnWheel(QWidget& viewport) {
  const QPointF at(viewport.width() / 2.0, viewport.height() / 2.0);
  QWheelEvent event(at, viewport.mapToGlobal(at), QPoint(), QPoint(0, -kNotch), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&viewport, &event);
  QCoreApplication::processEvents();
}

struct StepTimes {
  std::vector<double> worked;  ///< in the order of their length
  double longest = 0;          ///< with what else the machine did
};

StepTimes stepTimes(QAbstractItemView& rows) {
  StepTimes times;
  const PaintCount painted(*rows.viewport());
  for (int step = 0; step < kSteps; ++step) {
    const Stopwatch watch;
    turnWheel(*rows.viewport());
    times.worked.push_back(watch.ofThread());
    times.longest = std::max(times.longest, watch.onTheWall());
  }
  if (painted.count < kSteps) throw std::runtime_error("not every step was painted");
  std::ranges::sort(times.worked);
  return times;
}

double timeOf(const auto& act) {
  const Stopwatch watch;
  act();
  QCoreApplication::processEvents();
  return watch.onTheWall();
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
  waitUntil([&] { return rows.model()->rowCount() > 0; });
  QCoreApplication::processEvents();
}

void run(const char* file) {
  DeadHttpClient http;
  BenchWorld world(file, http);
  const auto section = makeWatchlist(world.views());
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

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
