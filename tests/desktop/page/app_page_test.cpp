// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/app_page.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QBuffer>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <atomic>

#include "desktop/look/quillet_style.h"
#include "desktop/page/arrange_window.h"
#include "desktop/page/block_table.h"
#include "desktop/page/mark_flow.h"
#include "desktop/page/mark_popover.h"
#include "desktop/page/page_header.h"
#include "desktop/page/sticky_header.h"
#include "page_fixture.h"
#include "support/pictures.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

constexpr QPoint kPictureMiddle(72, 90);
constexpr std::int64_t kPagewren = 1230145698;

CachedApp pagewren() {
  return {.trackId = kPagewren,
          .country = "us",
          .name = "Pagewren Markdown",
          .bundleId = "example.pagewren.mac",
          .sellerName = "Inês Quintalhão",
          .kind = "mac-software",
          .price = 4.99,
          .formattedPrice = "$4.99",
          .currency = "USD",
          .rating = 4.1,
          .ratingCount = 87,
          .version = "1.14",
          .currentVersionReleaseDate = moment(2026, 10, 26),
          .appDescription =
              "Looks at a folder of Markdown files and shows them as a small web site. Editing "
              "included. Reads and writes plain files that other programs understand, keeps "
              "automatic backups that you can look into, and undoes everything, as far back as "
              "you like. No tracking, no advertisements.",
          .primaryGenreName = "Utilities",
          .minimumOsVersion = "12.0",
          .fileSizeBytes = 6'100'000,
          .contentAdvisoryRating = "4+",
          .trackViewUrl = "https://apps.example/us/app/id1230145698",
          .ratingHistogram = std::vector<std::int64_t>{3, 4, 14, 29, 37},
          .hasInAppPurchases = true,
          .hasSubscription = true,
          .hasUnlockPurchase = true,
          .editorialBadge = "Editors’ Choice",
          .tagline = "Looks at a folder of Markdown files as a small web site",
          .languageCodes = {"EN", "DE"},
          .updatedAt = moment(2026, 11, 22, 11) + 48min};
}

WatchedApp watchedPagewren() {
  WatchedApp app = watched(kPagewren);
  app.name = "Pagewren Markdown";
  app.priceWhenAdded = 9.99;
  app.currentPrice = 4.99;
  app.formattedPrice = "$4.99";
  app.currency = "USD";
  app.addedAt = moment(2026, 3, 2);
  app.targetPrice = 2.99;
  return app;
}

std::vector<PricePoint> pricesOfPagewren() {
  std::vector<PricePoint> points;
  const auto add = [&](double price, int year, unsigned month, unsigned day) {
    points.push_back({.trackId = kPagewren,
                      .country = "us",
                      .price = price,
                      .currency = "USD",
                      .date = moment(year, month, day)});
  };
  add(9.99, 2025, 11, 24);
  add(4.99, 2026, 1, 4);
  add(9.99, 2026, 1, 25);
  add(4.99, 2026, 3, 30);
  add(9.99, 2026, 4, 10);
  add(4.99, 2026, 7, 1);
  add(9.99, 2026, 7, 14);
  add(4.99, 2026, 9, 4);
  add(9.99, 2026, 9, 11);
  add(4.99, 2026, 10, 28);
  return points;
}

class AppPageTest : public PageTest {
 protected:
  AppPageTest() {
    setScheme(Scheme::light);
    change([](WriteTransaction& transaction) {
      recordView(transaction, pagewren(), kNow);
      watchApps(transaction, {watchedPagewren()});
      addPricePoints(transaction, pricesOfPagewren());
      const RowId writing = addCollection(transaction, {.name = "Writing", .symbolName = "pencil"});
      CollectionEntry noted = entry(kPagewren, "Wait for the sale in November.");
      noted.addedAt = moment(2026, 10, 3);
      addEntries(transaction, writing, {noted});
    });
  }

  static void setScheme(Scheme scheme) {
    auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
    style.setPalette(Palette(scheme, Contrast::normal));
  }

  /// A page that shows the app, in that size.
  std::unique_ptr<AppPage> shown(const AppKey& app, QSize size) {
    auto page = std::make_unique<AppPage>(world());
    page->resize(size);
    page->setVisible(true);
    page->setFocus(Qt::MouseFocusReason);
    QSignalSpy filled(page.get(), &AppPage::filled);
    page->show(app);
    waitFor([&] { return !filled.isEmpty(); });
    handlePendingEvents();
    return page;
  }
};

QStringList labelsOf(const QWidget& widget) {
  QStringList texts;
  for (const QLabel* label : widget.findChildren<QLabel*>())
    if (label->isVisible()) texts << label->text();
  return texts;
}

QAbstractButton& buttonOf(const QWidget& widget, const QString& text) {
  QAbstractButton* hidden = nullptr;
  for (QAbstractButton* button : widget.findChildren<QAbstractButton*>()) {
    if (button->text() != text) continue;
    if (button->isVisible()) return *button;
    hidden = button;
  }
  if (hidden != nullptr) return *hidden;
  throw std::invalid_argument("no such button: " + text.toStdString());
}

TEST_F(AppPageTest, ReadsAgainWhatAChangeTouched) {
  const auto page = shown({kPagewren, "us"}, {540, 900});
  QSignalSpy filled(page.get(), &AppPage::filled);
  change(watchApps, std::vector{watched(8)});
  handlePendingEvents();
  EXPECT_TRUE(filled.isEmpty());
  change(unwatchApps, std::vector{AppKey{kPagewren, "us"}});
  waitFor([&] { return !filled.isEmpty(); });
  EXPECT_FALSE(labelsOf(*page).contains(u"Target $2.99"_s));
  filled.clear();
  Q_EMIT world().library.changedElsewhere();
  waitFor([&] { return !filled.isEmpty(); });
}

TEST_F(AppPageTest, OfAppsPassedByReadsTheLastAlone) {
  std::atomic<int> reads = 0;
  const LibraryFolder folder;
  const auto store = runTask(DataStore::open(folder.file(), [&](const std::string& line) {
    if (line.find("FROM ZCACHEDAPP") != std::string::npos) ++reads;
  }));
  ViewParts own(http_, clock_, settings_);
  own.library.use(*store);
  AppPage page(own.world());
  QSignalSpy filled(&page, &AppPage::filled);
  for (std::int64_t app = 1; app <= 20; ++app) page.show(AppKey{app, "us"});
  page.show(AppKey{kPagewren, "us"});
  waitFor([&] { return !filled.isEmpty(); });
  handlePendingEvents();
  EXPECT_EQ(filled.size(), 1);
  EXPECT_EQ(reads, 2);
}

TEST_F(AppPageTest, WaitsForALibraryThatIsNotOpenYet) {
  ViewParts own(http_, clock_, settings_);
  auto gone = std::make_unique<AppPage>(own.world());
  gone->show(AppKey{kPagewren, "us"});
  AppPage page(own.world());
  page.show(AppKey{kPagewren, "us"});
  QSignalSpy filled(&page, &AppPage::filled);
  gone.reset();  // its answer comes all the same
  own.library.use(*store_);
  waitFor([&] { return !filled.isEmpty(); });
}

TEST_F(AppPageTest, DropsTheAnswerOfAnAppThatIsNoLongerChosen) {
  AppPage page(world());
  page.setVisible(true);
  QSignalSpy filled(&page, &AppPage::filled);
  page.show(AppKey{kPagewren, "us"});
  page.showSeveral({{1.5, "USD"}, {2.5, "USD"}, {}});
  handlePendingEvents();
  EXPECT_TRUE(filled.isEmpty());
  EXPECT_EQ(labelsOf(page), (QStringList{u"3 apps chosen"_s, u"$4.00 · 1 unknown"_s}));
  page.show(std::nullopt);
  EXPECT_EQ(labelsOf(page), QStringList{});
}

TEST_F(AppPageTest, SaysWhereTheLibraryCannotBeRead) {
  const auto page = shown({kPagewren, "us"}, {540, 900});
  change([](WriteTransaction& transaction) {
    transaction.database.exec("DROP TABLE ZCACHEDAPP");
    transaction.changes.cachedApps.insert({kPagewren, "us"});
  });
  waitFor([&] { return labelsOf(*page) == QStringList{u"The library cannot be read."_s}; });
}

TEST_F(AppPageTest, OpensTheAppsPageInTheStoreWhereItHasOne) {
  const auto page = shown({kPagewren, "us"}, {540, 900});
  buttonOf(*page, u"App Store"_s).click();
  EXPECT_EQ(prompts_.opened, std::vector<std::string>{"https://apps.example/us/app/id1230145698"});
  page->show(AppKey{8, "us"});
  QSignalSpy filled(page.get(), &AppPage::filled);
  waitFor([&] { return !filled.isEmpty(); });
  EXPECT_FALSE(buttonOf(*page, u"App Store"_s).isVisible());
}

TEST_F(AppPageTest, ShowsThePictureOnceItCame) {
  CachedApp app = pagewren();
  app.trackId = 9;
  app.artworkUrl512 = "https://pictures.example/9/512x512bb.png";
  change(recordView, app, kNow);
  QImage picture(128, 128, QImage::Format_RGB32);
  picture.fill(QColor(0x2F, 0xA0, 0x8C));
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  picture.save(&bytes, "PNG");
  const std::string address = "https://pictures.example/9/128x128bb.png";
  http_.answer(address, 200, bytes.data().toStdString());
  http_.hold(address);
  const auto page = shown({9, "us"}, {540, 900});
  const auto middle = [&] { return page->grab().toImage().pixelColor(kPictureMiddle); };
  EXPECT_NE(middle(), picture.pixelColor(0, 0));
  QSignalSpy arrived(&parts_.images, &ImageStore::arrived);
  waitFor([&] { return !http_.requests().empty(); });
  http_.release(address);
  waitFor([&] { return !arrived.isEmpty(); });
  EXPECT_EQ(middle(), picture.pixelColor(0, 0));
}

/// What the store tells of the app, with the query's blanks as they are sent.
const std::string kTold =
    R"({"trackId":1230145698,"trackName":"Pagewren Markdown","kind":"mac-software","price":4.99,)"
    R"("formattedPrice":"$4.99","currency":"USD","artistId":501,"sellerName":"Inês & Quintalhão",)"
    R"("sellerUrl":"https://pagewren.example","version":"1.14",)"
    R"("trackViewUrl":"https://apps.example/us/app/id1230145698",)"
    R"("currentVersionReleaseDate":"2026-10-26T09:00:00Z","description":"Looks at a folder."})";
const std::string kAdded = R"({"data":[{"id":"1230145698","attributes":{
    "userRating":{"value":4.1,"ratingCount":87,"ratingCountList":[3,4,14,29,37]},
    "editorialBadgeInfo":"Editors’ Choice",
    "editorialNotes":{"tagline":"Looks at a folder of Markdown files as a small web site"},
    "chartPositions":{"appStore":{"chart":"Top Paid Apps","genreName":"Utilities","position":2}},
    "platformAttributes":{"osx":{"versionHistory":[
      {"versionDisplay":"1.14","releaseDate":"2026-10-26","releaseNotes":"Sync is more patient."},
      {"versionDisplay":"1.13","releaseDate":"2026-09-15","releaseNotes":"Export."},
      {"versionDisplay":"1.12","releaseDate":"2026-07-20","releaseNotes":"Tables."}]}}},
    "relationships":{"top-in-apps":{"data":[
      {"id":"1","attributes":{"name":"Plus","isSubscription":true,
        "offers":[{"price":24.99,"currencyCode":"USD","recurringSubscriptionPeriod":"P1Y"}]}},
      {"id":"2","attributes":{"name":"License","isSubscription":false,
        "offers":[{"price":59.99,"currencyCode":"USD"}]}}]}}}]})";

/// A page about which the store was asked, too. Blocks that would ask for more are hidden.
class ToldAppPageTest : public AppPageTest {
 protected:
  ToldAppPageTest() {
    settings_.set(kDetailSectionLayout.key, "-screenshots,-bundles");
    openStore();
    http_.answer(ScriptedStore::lookupUrl(kPagewren), 200, ScriptedStore::found(kTold));
    http_.answer(ScriptedStore::catalogUrl(kPagewren), 200, kAdded);
    change([](WriteTransaction& transaction) {
      CachedApp old = pagewren();
      old.updatedAt = kNow - 3h;
      recordView(transaction, old, kNow);
    });
  }

  std::unique_ptr<AppPage> told(QSize size) {
    auto page = shown({kPagewren, "us"}, size);
    clock_.advance(300ms);
    settle();
    return page;
  }
};

MarkButton& markOf(const QWidget& page, const QString& name) {
  for (MarkButton* each : page.findChildren<MarkButton*>())
    if (each->accessibleName() == name) return *each;
  throw std::invalid_argument("no such mark: " + name.toStdString());
}

TEST_F(ToldAppPageTest, OpensAMarkByKeysAndKeepsItUnderThemAsItChanges) {
  const auto page = told({540, 900});
  MarkButton& mark = markOf(*page, u"Actively updated"_s);
  mark.setFocus(Qt::TabFocusReason);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
    QTest::keyClick(&mark, key);
    auto* popover = qobject_cast<MarkPopover*>(QApplication::activePopupWidget());
    ASSERT_NE(popover, nullptr);
    EXPECT_EQ(popover->accessibleName(), u"Actively updated");
    EXPECT_TRUE(labelsOf(*popover).contains(
        u"Actively updated: Updated in the last 6 months (this app)"_s));
    EXPECT_TRUE(labelsOf(*popover).contains(u"Stale: 1–2 years since an update"_s));
    if (key == Qt::Key_Return) EXPECT_TRUE(looksLike(u"mark-popover"_s, popover->grab().toImage()));
    QTest::keyClick(popover, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
  parts_.settings.write(
      {{std::string(kSlowingAfterMonths.key), "1"}, {std::string(kStaleAfterMonths.key), "2"}});
  EXPECT_EQ(mark.accessibleName(), u"Actively updated") << "within a month";
  clock_.advance(24h * 20);
  parts_.settings.write({{std::string(kSlowingAfterMonths.key), "1"}});
  EXPECT_EQ(mark.accessibleName(), u"Slowing down");
  EXPECT_EQ(page->focusWidget(), &mark);
  parts_.settings.write({{std::string(kShowMaintenanceRating.key), "false"}});
  EXPECT_THROW(markOf(*page, u"Slowing down"_s), std::invalid_argument);
}

TEST_F(ToldAppPageTest, WhatABlockHasNothingToActOnCannotBePressed) {
  settings_.set(kDetailSectionLayout.key, "reviews,-screenshots,-bundles,-stories");
  http_.hold(ScriptedStore::catalogUrl(kPagewren));
  const auto page = told({540, 900});
  const auto all = [&]() -> QAbstractButton& {
    for (auto* button : page->findChildren<QAbstractButton*>())
      if (button->text() == u"All Reviews"_s) return *button;
    throw std::invalid_argument("no reviews");
  };
  EXPECT_FALSE(all().isEnabled()) << "assistive technology reaches what is hidden";
  http_.release(ScriptedStore::catalogUrl(kPagewren));
  waitFor([&] { return all().isVisible(); });
  EXPECT_TRUE(all().isEnabled());
  page->show(AppKey{5, "us"});
  settle();
  EXPECT_FALSE(all().isEnabled());
}

TEST_F(ToldAppPageTest, LeadsToTheDeveloperAndToWhatElseCanBeDone) {
  const auto page = told({540, 900});
  QSignalSpy goes(page.get(), &AppPage::goes);
  buttonOf(*page, u"Inês && Quintalhão"_s).click();
  const auto to = goes.at(0).at(0).value<Place>();
  const auto query = std::get<StoreQuery>(to.what);
  EXPECT_EQ(query.developer, (Developer{501, "Inês & Quintalhão"}));
  EXPECT_EQ(query.request.country, "us");
  EXPECT_EQ(query.request.platform, Platform::mac);

  QMenu& menu = *page->findChild<PageHeader*>()->findChild<QToolButton*>()->menu();
  Q_EMIT menu.aboutToShow();
  QMap<QString, QAction*> entries;
  for (QAction* action : menu.actions()) entries[action->text()] = action;
  entries[u"Copy Link"_s]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            u"Pagewren Markdown\nhttps://apps.apple.com/us/app/id1230145698"_s);
  entries[u"Copy as Command"_s]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"quillet info 1230145698 --country us"_s);
  entries[u"Developer's Website"_s]->trigger();
  EXPECT_EQ(prompts_.opened.back(), "https://pagewren.example");
  entries[u"Arrange App Page…"_s]->trigger();
  EXPECT_NE(page->findChild<ArrangeWindow*>(), nullptr);
}

TEST_F(ToldAppPageTest, BlocksAskOnceSomebodyIsNearThem) {
  settings_.set(kDetailSectionLayout.key, "-screenshots,-reviews,-stories,information,bundles");
  const auto page = told({540, 300});
  EXPECT_EQ(http_.requests().size(), 2);
  http_.hold(ScriptedStore::pageUrl(kPagewren));
  QTest::keyClick(page.get(), Qt::Key_End);
  settle();
  EXPECT_EQ(http_.requests().size(), 3);
  EXPECT_EQ(http_.requests().back().url, ScriptedStore::pageUrl(kPagewren));
  page->show(std::nullopt);
}

TEST_F(ToldAppPageTest, RefreshAsksForAllAnewAndForAPageOfTheStoreOnce) {
  settings_.set(kDetailSectionLayout.key, "screenshots,bundles,-reviews,-stories");
  const std::string storePage = ScriptedStore::pageUrl(kPagewren);
  const std::string bundles =
      "https://web.example/api/apps/v1/catalog/us/"
      "app-bundles?ids=11&platform=mac&include=apps&l=en-US";
  const auto answer = [&](const char* bundle) {
    http_.answer(storePage, 200,
                 R"(<script id="serialized-server-data">{"data":{"data":{"shelfMapping":{
                   "bundleParents":{"items":[{"adamId":"11"}]}}}}}</script>)");
    http_.answer(
        bundles, 200,
        std::string(R"({"data":[{"id":"11","attributes":{"name":")") + bundle + R"("}}]})");
  };
  answer("Plain Words");
  const auto page = told({540, 900});
  const auto tells = [&](const QString& name) { return labelsOf(*page).filter(name).size() == 1; };
  waitFor([&] { return tells(u"Plain Words"_s); });
  EXPECT_EQ(http_.requests().size(), 4);
  http_.answer(ScriptedStore::lookupUrl(kPagewren), 200, ScriptedStore::found(kTold));
  http_.answer(ScriptedStore::catalogUrl(kPagewren), 200, kAdded);
  answer("Plainer Words");
  page->refresh();
  waitFor([&] { return tells(u"Plainer Words"_s); });
  EXPECT_EQ(http_.requests().size(), 8);
}

TEST_F(ToldAppPageTest, WhatIsReadStaysWhereItIsAsABlockAboveItComesLate) {
  settings_.set(kDetailSectionLayout.key,
                "-screenshots,-reviews,-stories,bundles,prices,purchases,ratings");
  http_.hold(ScriptedStore::pageUrl(kPagewren));
  const auto page = told({540, 500});
  QTest::keyClick(page.get(), Qt::Key_End);
  settle();
  ASSERT_EQ(http_.requests().back().url, ScriptedStore::pageUrl(kPagewren));
  const auto blocks = page->findChildren<Block*>();
  const auto find = [&](const QString& name) {
    return *std::ranges::find(blocks, name, &Block::accessibleName);
  };
  const Block& last = *find(u"Ratings"_s);
  const auto top = [&] { return last.mapTo(page.get(), QPoint(0, 0)).y(); };
  const int before = top();
  http_.answer(ScriptedStore::pageUrl(kPagewren), 500, "");
  http_.release(ScriptedStore::pageUrl(kPagewren));
  settle();
  ASSERT_TRUE(find(u"In bundles"_s)->isVisible());
  EXPECT_EQ(top(), before);
}

QStringList blocksOf(const AppPage& page) {
  QList<Block*> blocks = page.findChildren<Block*>();
  erase_if(blocks, [](const Block* block) { return !block->isVisible(); });
  std::ranges::sort(blocks, {},
                    [](const Block* block) { return std::pair(block->y(), block->x()); });
  QStringList titles;
  for (const Block* block : blocks) titles << block->accessibleName();
  return titles;
}

TEST_F(ToldAppPageTest, ShowsTheBlocksAsTheUserArrangedThem) {
  settings_.set(kDetailSectionLayout.key,
                "description,-screenshots,-reviews,-prices,-bundles,-stories");
  const auto page = told({540, 300});
  EXPECT_EQ(blocksOf(*page).first(), u"Description");
  EXPECT_FALSE(blocksOf(*page).contains(u"Price history"_s));
  EXPECT_LT(page->findChildren<Block*>().size(), static_cast<int>(blockTable().size()));
  settle();
  QTest::keyClick(page.get(), Qt::Key_End);
  const int scrolled = page->verticalScrollBar()->value();
  ArrangeWindow window(parts_.settings, page.get());
  auto* list = window.findChild<QListWidget*>();
  window.show();
  list->setCurrentRow(0);
  QTest::keyClick(list, Qt::Key_Down, Qt::AltModifier);
  settle();
  EXPECT_EQ(blocksOf(*page).first(), u"Storefronts");
  EXPECT_EQ(page->verticalScrollBar()->value(), scrolled);
}

TEST_F(AppPageTest, TheWindowThatArrangesKeepsWhatItDoesNotKnow) {
  settings_.set(kDetailSectionLayout.key, "screenshots,maps,prices,-charms");
  ArrangeWindow window(parts_.settings, nullptr);
  auto* list = window.findChild<QListWidget*>();
  window.show();
  EXPECT_TRUE(looksLike(u"arrange-window"_s, window.grab().toImage()));
  const auto kept = [&] {
    handlePendingEvents();
    return settings_.text(kDetailSectionLayout.key)->substr(0, 36);
  };
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_EQ(kept(), "-screenshots,maps,prices,purchases,r");
  QTest::keyClick(list, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(kept(), "prices,-screenshots,maps,purchases,r");
  EXPECT_TRUE(settings_.text(kDetailSectionLayout.key)->ends_with(",-charms"));
  settings_.refuseWrites("The settings cannot be written.");
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_EQ(kept(), "prices,-screenshots,maps,purchases,r");
  EXPECT_TRUE(labelsOf(window).contains(u"The settings cannot be written."_s));
  EXPECT_EQ(list->item(1)->checkState(), Qt::Unchecked);
}

TEST_F(AppPageTest, FoldsALongDescription) {
  CachedApp app = pagewren();
  app.trackId = 9;
  app.appDescription = std::string(600, 'w') + "\n\n\n" + std::string(600, 'v');
  change(recordView, app, kNow);
  const auto page = shown({9, "us"}, {540, 900});
  const int folded = page->widget()->height();
  buttonOf(*page, u"More"_s).click();
  handlePendingEvents();
  EXPECT_GT(page->widget()->height(), folded);
  buttonOf(*page, u"Less"_s).click();
  handlePendingEvents();
  EXPECT_EQ(page->widget()->height(), folded);
}

TEST_F(AppPageTest, KeepsNameAndPriceInSightOnceScrolled) {
  const auto page = shown({kPagewren, "us"}, {540, 400});
  const auto* sticky = page->findChild<StickyHeader*>();
  EXPECT_FALSE(sticky->isVisible());
  QTest::keyClick(page.get(), Qt::Key_End);
  EXPECT_TRUE(sticky->isVisible());
  EXPECT_TRUE(looksLike(u"page-scrolled"_s, page->grab().toImage()));
  QTest::keyClick(page.get(), Qt::Key_Home);
  EXPECT_FALSE(sticky->isVisible());

  QTest::keyClick(page.get(), Qt::Key_End);
  QSignalSpy filled(page.get(), &AppPage::filled);
  change(unwatchApps, std::vector{AppKey{kPagewren, "us"}});
  waitFor([&] { return !filled.isEmpty(); });
  EXPECT_TRUE(sticky->isVisible()) << "another reading of the same app scrolls nothing";
  page->show(AppKey{8, "us"});
  filled.clear();
  waitFor([&] { return !filled.isEmpty(); });
  EXPECT_FALSE(sticky->isVisible());
}

TEST_F(AppPageTest, ShowsItsFocusAfterKeysAlone) {
  const auto page = shown({kPagewren, "us"}, {540, 400});
  const auto edge = [&] { return page->grab().toImage().pixelColor(0, 200); };
  const QColor calm = edge();
  QTest::keyClick(page.get(), Qt::Key_Tab);
  EXPECT_EQ(edge(), calm);
  QTest::keyClick(page->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_TRUE(page->hasFocus());
  EXPECT_NE(edge(), calm);
  QTest::mouseClick(&buttonOf(*page, u"App Store"_s), Qt::LeftButton);
  page->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(edge(), calm);
}

/// All that could break a page: markup, other directions, lines, and words without an end.
CachedApp hostile() {
  const std::string endless(3000, 'W');
  const std::string text = "<h1>&amp;</h1>\n\xE2\x80\xAE\x1B[31m\xFF" + endless;
  CachedApp app = pagewren();
  app.trackId = 10;
  for (auto field : {&CachedApp::bundleId, &CachedApp::sellerName, &CachedApp::formattedPrice,
                     &CachedApp::version, &CachedApp::appDescription, &CachedApp::primaryGenreName,
                     &CachedApp::minimumOsVersion, &CachedApp::contentAdvisoryRating,
                     &CachedApp::editorialBadge, &CachedApp::tagline})
    app.*field = text;
  app.name = text;
  app.currency = "\n\n<>";
  app.rating = 1e300;
  app.ratingCount = -1;
  app.ratingHistogram = std::vector<std::int64_t>{-1, 0, 0, 0, 0};
  app.fileSizeBytes = std::numeric_limits<std::int64_t>::max();
  app.trackViewUrl = "javascript:alert(1)";
  app.artworkUrl512 = "file:///etc/passwd";
  app.languageCodes = {text, ""};
  return app;
}

TEST_F(AppPageTest, IsBrokenByNoText) {
  const std::string endless(3000, 'W');
  change([&](WriteTransaction& transaction) {
    recordView(transaction, hostile(), kNow);
    const RowId collection = addCollection(transaction, {.name = endless, .symbolName = "<b>"});
    addEntries(transaction, collection, {entry(10, endless)});
    OwnedApp app = owned(10);
    app.installedPath = "/" + endless;
    addOwnedApps(transaction, {app});
  });
  for (const QSize size : {QSize(360, 500), QSize(540, 500), QSize(900, 500)}) {
    const auto page = shown({10, "us"}, size);
    EXPECT_LE(page->widget()->width(), size.width());
    EXPECT_LT(page->widget()->height(), 5000);
    EXPECT_FALSE(buttonOf(*page, u"App Store"_s).isVisible());
    for (const QWidget* part : page->widget()->findChildren<QWidget*>()) {
      if (!part->isVisible()) continue;
      const QRect place(part->mapTo(page->widget(), QPoint(0, 0)), part->size());
      EXPECT_TRUE(QRect(0, 0, size.width(), page->widget()->height()).contains(place))
          << part->metaObject()->className() << " at " << size.width();
    }
    for (const QLabel* label : page->findChildren<QLabel*>())
      EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_FALSE(page->grab().isNull());
  }
}

TEST_F(AppPageTest, IsReadByThoseWhoDoNotSeeIt) {
  const auto page = shown({kPagewren, "us"}, {540, 900});
  const QAccessibleInterface* pane = QAccessible::queryAccessibleInterface(page.get());
  EXPECT_EQ(pane->text(QAccessible::Name), u"App page");
  EXPECT_NE(pane->role(), QAccessible::Window);
  QStringList read;
  for (QLabel* label : page->findChildren<QLabel*>()) {
    const QAccessibleInterface* each = QAccessible::queryAccessibleInterface(label);
    if (label->isVisible() && each->role() == QAccessible::StaticText)
      read << each->text(QAccessible::Name);
  }
  for (const QString& text :
       {u"Pagewren Markdown"_s, u"$4.99, down from $9.99 when added"_s, u"At its lowest"_s,
        u"Target $2.99"_s, u"Rated 4.1 out of 5, 87 ratings"_s, u"Price history"_s, u"Utilities"_s,
        u"4.1 out of 5; 87 ratings; 5 stars: 43\u00a0%, 37; 4 stars: 33\u00a0%, 29; "
        u"3 stars: 16\u00a0%, 14; 2 stars: 5\u00a0%, 4; 1 star: 3\u00a0%, 3"_s})
    EXPECT_TRUE(read.contains(text)) << text.toStdString();
}

struct PageCase {
  std::string name;
  QSize size;
  Scheme scheme;
};

class AppPagePictureTest : public ToldAppPageTest, public testing::WithParamInterface<PageCase> {};

TEST_P(AppPagePictureTest, LooksAsItDid) {
  setScheme(GetParam().scheme);
  const auto page = told(GetParam().size);
  EXPECT_TRUE(looksLike(QString::fromStdString(GetParam().name), page->grab().toImage()));
}

INSTANTIATE_TEST_SUITE_P(Sizes, AppPagePictureTest,
                         testing::Values(PageCase{"page-540-light", {540, 900}, Scheme::light},
                                         PageCase{"page-540-dark", {540, 900}, Scheme::dark},
                                         PageCase{"page-900-light", {900, 900}, Scheme::light}),
                         [](const auto& each) {
                           std::string name = each.param.name;
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace quillet
