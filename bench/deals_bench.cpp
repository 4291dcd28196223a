// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Shows the deals of a library: deals_bench LIBRARY. Prints how many there are, what it takes from
// the question until the first rows are painted, in milliseconds by the clock, and that over what
// sqlite3 takes for the same question, as the median of rounds in which both take turns.

#include <fmt/format.h>

#include <QAbstractItemView>
#include <QProcess>
#include <stdexcept>
#include <vector>

#include "bench_world.h"
#include "desktop/lists/app_list_view.h"
#include "desktop/sections/deals/deals_section.h"

namespace quillet {
namespace {

constexpr int kRounds = 21;
constexpr QSize kSize(1050, 700);  // all columns of rows

/// What the section asks the library for: the first piece, how many there are, and of how many.
QString questionOf(int drop) {
  const QString matching = QStringLiteral(
                               "WHERE ZCOUNTRY = 'us' AND ZPERCENTOFF >= %1 - 0.05 AND "
                               "(ZWASPRICE - ZNOWPRICE) * 100 >= (%1 - 1e-9) * ZWASPRICE")
                               .arg(drop);
  return QStringLiteral(
             "SELECT * FROM ZDEAL %1 ORDER BY ZPERCENTOFF DESC, ZCHANGEDON DESC, ZNAME COLLATE "
             "NOCASE, ZTRACKID LIMIT 2000; SELECT count(*) FROM ZDEAL %1; "
             "SELECT count(*) FROM ZDEAL WHERE ZCOUNTRY = 'us'")
      .arg(matching);
}

double shellTime(const char* file, int drop) {
  QProcess shell;
  shell.setStandardOutputFile(QProcess::nullDevice());
  const Stopwatch watch;
  shell.start(QStringLiteral("sqlite3"),
              {QStringLiteral("-readonly"), QString::fromUtf8(file), questionOf(drop)});
  if (!shell.waitForFinished() || shell.exitCode() != 0)
    throw std::runtime_error("sqlite3 did not answer");
  return watch.onTheWall();
}

Place dealsFrom(int drop) {
  Place place;
  place.section = SectionId::deals;
  place.what = DealPlace{.country = {}, .platform = {}, .minimumDrop = static_cast<double>(drop)};
  return place;
}

/// Another drop each time, so that all is asked anew.
double paintTime(Section& section, QAbstractItemView& rows, int drop) {
  bool isReset = false;
  const auto connection = QObject::connect(rows.model(), &QAbstractItemModel::modelReset, &section,
                                           [&isReset] { isReset = true; });
  const Stopwatch watch;
  section.show(dealsFrom(drop));
  waitUntil([&] { return isReset && rows.isVisible(); });
  const PaintCount painted(*rows.viewport());
  rows.viewport()->update();
  waitUntil([&] { return painted.count > 0; });
  const double time = watch.onTheWall();
  QObject::disconnect(connection);
  return time;
}

void run(const char* file) {
  DeadHttpClient http;
  BenchWorld world(file, http);
  const auto section = makeDeals(world.views());
  QWidget& view = *section->view();
  view.resize(kSize);
  view.show();
  section->show(dealsFrom(0));
  auto* rows = view.findChild<AppListView*>();
  if (rows == nullptr) throw std::runtime_error("the section has no list");
  waitUntil([&] { return rows->model()->rowCount() > 0; });
  QCoreApplication::processEvents();
  std::vector<double> times;
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    const int drop = 1 + round % 3;
    times.push_back(paintTime(*section, *rows, drop));
    ratios.push_back(times.back() / shellTime(file, drop));
  }
  fmt::print("{{\"rows\":{},\"painted\":{:.1f},\"toShell\":{:.2f}}}\n", rows->model()->rowCount(),
             percentile(times, 50), percentile(ratios, 50));
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
