// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What every list gives away of its rows, to the clipboard and to whom they are dragged.

#include <QAbstractItemView>
#include <QMimeData>
#include <QWidget>

#include "desktop/models/app_drag.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/sections/alerts/alerts_section.h"
#include "desktop/sections/charts/charts_section.h"
#include "desktop/sections/collections/collections_section.h"
#include "desktop/sections/compare/compare_section.h"
#include "desktop/sections/deals/deals_section.h"
#include "desktop/sections/history/history_section.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/search/search_section.h"
#include "desktop/sections/search_fixture.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "library/alerts.h"
#include "library/cached_apps.h"
#include "library/collections.h"
#include "library/deals.h"
#include "library/owned_apps.h"
#include "library/watched_apps.h"

namespace quillet {
namespace {

/// Which list holds what is dragged.
enum class Drags { list, board, nothing };

struct ListCase {
  const char* name;
  std::unique_ptr<Section> (*make)(const ViewWorld&);
  Place place;
  Drags drags = Drags::list;
};

/// One app in each list.
class TakingAlong : public SearchTest {
 protected:
  TakingAlong() {
    http.apps = macApps(2);
    http.chart = {1};
    runTask(library->change(watchApps, std::vector{named(watched(1))}));
    OwnedApp onBoard = owned(1, "App 1");
    onBoard.architectures = "x86_64";
    runTask(library->change(addOwnedApps, std::vector{onBoard}));
    runTask(library->change(recordView, cached(1, "App 1"), clock.now()));
    AlertRecord alert{.trackId = 1, .country = "us", .appName = "App 1", .kindRaw = "free"};
    runTask(library->change(addAlerts, std::vector{alert}));
    runTask(library->change([](WriteTransaction& transaction) {
      const RowId writing = addCollection(transaction, {.name = "Writing", .symbolName = "star"});
      CollectionEntry kept = entry(1);
      kept.name = "App 1";
      addEntries(transaction, writing, {kept});
      keepDeals(transaction, {{.trackId = 1,
                               .country = "us",
                               .name = "App 1",
                               .kind = "mac-software",
                               .currency = "USD",
                               .wasPrice = 9,
                               .nowPrice = 4,
                               .percentOff = 50,
                               .changedOn = dayAndSecond(1),
                               .lowestPrice = 4,
                               .edition = "2026-11-20T00:00:00Z"}});
      return writing;
    }));
    for (const std::int64_t id : {1, 2}) (void)world.compared.add({{id, "us"}});
  }
  void TearDown() override {
    section.reset();
    end();
    while (clock.advanceToNextDeadline()) handlePendingEvents();
  }

  static WatchedApp named(WatchedApp app) {
    app.name = "App 1";
    return app;
  }
  void visit(const ListCase& list) {
    section = list.make(world);
    section->view()->resize(900, 600);
    section->view()->show();
    section->show(list.place);
    if (list.drags == Drags::board) section->perform("show-upkeep");
    for (int i = 0; i < 5; ++i) settle();
    section->choose(section->rows() == nullptr || section->rows()->rowCount() == 0
                        ? RowKey{{1, "us"}, 0}
                        : section->rows()->at(0).key);
    settle();
  }
  /// What the selected rows of the list, or of the board's, are as they are dragged.
  std::unique_ptr<QMimeData> dragged() {
    for (QAbstractItemView* view : section->view()->findChildren<QAbstractItemView*>()) {
      const bool gives = view->isVisible() && view->dragEnabled() && view->selectionModel() &&
                         view->selectionModel()->hasSelection();
      if (gives)
        return std::unique_ptr<QMimeData>(
            view->model()->mimeData(view->selectionModel()->selectedIndexes()));
    }
    return nullptr;
  }

  ViewWorld world = parts.world();
  std::unique_ptr<Section> section;
};

TEST_F(TakingAlong, EveryListGivesTheNameAndTheLink) {
  StoreQuery chart;
  chart.chart = ShownChart();
  const ListCase cases[] = {
      {"search", makeSearch, {.section = SectionId::search, .what = searchFor("app")}},
      {"charts", makeCharts, {.section = SectionId::charts, .what = chart}},
      {"deals", makeDeals, {.section = SectionId::deals}},
      {"watchlist", makeWatchlist, {.section = SectionId::watchlist}},
      {"alerts", makeAlerts, {.section = SectionId::alerts}},
      {"collection", makeCollections, {.section = SectionId::collections, .what = RowId(1)}},
      {"my apps", makeMyApps, {.section = SectionId::myApps}},
      {"upkeep", makeMyApps, {.section = SectionId::myApps}, Drags::board},
      {"history", makeHistory, {.section = SectionId::history}},
      {"compare", makeCompare, {.section = SectionId::compare}, Drags::nothing},
  };
  for (const ListCase& list : cases) {
    SCOPED_TRACE(list.name);
    visit(list);
    const std::vector<NamedKey> taken = section->named();
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken.front().app, (AppKey{1, "us"}));
    EXPECT_EQ(taken.front().name, QStringLiteral("App 1"));
    const std::unique_ptr<QMimeData> data = dragged();
    EXPECT_EQ(data != nullptr, list.drags != Drags::nothing);
    if (data == nullptr) continue;
    EXPECT_EQ(data->text(), appLinks(taken)->text());
    EXPECT_EQ(data->urls(), appLinks(taken)->urls());
    EXPECT_EQ(appsIn(*data).size(), 1U) << "for our own lists, too";
  }
}

}  // namespace
}  // namespace quillet
