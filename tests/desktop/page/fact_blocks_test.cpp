// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The blocks of facts on a page: how they look, what they ask the store, and what can be done.

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "desktop/charts/price_chart.h"
#include "desktop/look/quillet_style.h"
#include "desktop/page/block_table.h"
#include "desktop/support/scripted_store.h"
#include "page_fixture.h"
#include "store/records/storefronts.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

const std::string kPage = "https://web.example/us/app/id7";
const std::string kBundles =
    "https://web.example/api/apps/v1/catalog/us/"
    "app-bundles?ids=11&platform=mac&include=apps&l=en-US";
const std::string kStories =
    "https://web.example/api/apps/v1/editorial/us/editorial-items?ids=1,2&platform=mac&l=en-US";

const std::string kPageText =
    R"(<script id="serialized-server-data">{"data":{"data":{"shelfMapping":{
    "bundleParents":{"items":[{"adamId":"11"}]}}}}}</script>)";

const std::string kBundlesText = R"({"data":[{"id":"11","attributes":{"name":"Plain Words",
    "url":"https://apps.example/11","offers":[{"price":19.99,"priceFormatted":"$19.99",
    "currencyCode":"USD"}]},"relationships":{"apps":{"data":[
    {"id":"1","attributes":{"name":"Pagewren","offers":[{"price":4.99,"currencyCode":"USD"}]}},
    {"id":"2","attributes":{"name":"Stackleaf","offers":[{"price":9.99,"currencyCode":"USD"}]}},
    {"id":"3","attributes":{"name":"Inkfallow","offers":[{"price":13.99,"currencyCode":"USD"}]}},
    {"id":"4","attributes":{"name":"Calend","offers":[{"price":9.99,"currencyCode":"USD"}]}}]}}}]})";

const std::string kStoriesText = R"({"data":[
    {"id":"1","attributes":{"label":"Editors’ pick","editorialNotes":{
      "name":"Your notes as a web site","tagline":"A folder is enough."},
      "editorialArtwork":{"bgColor":"0B5D66"}}},
    {"id":"2","attributes":{"label":"Collection","editorialNotes":{"name":"Plain text, long life"},
      "editorialArtwork":{"bgColor":"F3E3C6"}}}]})";

InAppPurchase sold(std::string name, double price, std::optional<std::string> period = {}) {
  return {.productId = name + period.value_or(""),
          .name = std::move(name),
          .isSubscription = period.has_value(),
          .price = price,
          .currency = "USD",
          .recurringSubscriptionPeriod = std::move(period)};
}

std::vector<VersionEntry> releases() {
  const std::string notes =
      "Sync is more patient with slow connections.\nTables can be sorted.\nFewer questions.\n"
      "Better spoken labels.\nA quieter icon.";
  std::vector<VersionEntry> all{{"1.14", moment(2026, 10, 26, 0), notes},
                                {"1.13", moment(2026, 9, 15, 0), "Export to more formats."},
                                {"1.12", moment(2026, 8, 2, 0), {}},
                                {"1.11", moment(2026, 4, 20, 0), "Calmer."}};
  Instant day = moment(2026, 3, 1, 0);
  for (int version = 10; version > 0; --version) {
    all.push_back({"1." + std::to_string(version), day, "Mends a fault."});
    day -= std::chrono::hours(24 * (40 + version));
  }
  return all;
}

/// Everything that the blocks show.
PageFacts facts(std::int64_t trackId = 7) {
  auto store = std::make_shared<StoreFacts>();
  store->asOf = moment(2026, 11, 22, 11);
  store->app.versions = releases();
  store->app.purchases = {sold("Pagewren Plus", 2.99, "P1M"), sold("Pagewren Plus", 24.99, "P1Y"),
                          sold("Lifetime License", 59.99)};
  store->app.monetization = MonetizationModel::subscriptionOrOneTime;
  store->app.build = {.runsOnAppleSilicon = true, .runsOnIntel = true};
  store->catalog.emplace().editorialStoryIds = {"1", "2"};
  PageFacts facts{.app = {trackId, "us"}};
  facts.name = "Pagewren Markdown";
  facts.link = "https://apps.example/us/app/id7";
  facts.cached = CachedApp{.trackId = trackId,
                           .country = "us",
                           .bundleId = "example.pagewren.mac",
                           .kind = "mac-software",
                           .version = "1.14",
                           .currentVersionReleaseDate = moment(2026, 10, 26, 0),
                           .appDescription = "Shows notes. More at https://pagewren.example/help.",
                           .primaryGenreName = "Utilities",
                           .minimumOsVersion = "12.0",
                           .fileSizeBytes = 6'100'000,
                           .contentAdvisoryRating = "4+",
                           .sellerUrl = "https://www.pagewren.example/",
                           .languageCodes = {"EN", "DE", "FR"},
                           .deviceFamilies = {"mac"}};
  PurchaseSeries yearly{.key = "Pagewren PlusP1Y", .name = "Pagewren Plus"};
  yearly.history = {{moment(2026, 2, 1), 29.99, "USD"}, {moment(2026, 9, 1), 24.99, "USD"}};
  facts.purchases = {yearly};
  facts.store = std::move(store);
  return facts;
}

class FactBlocksTest : public PageTest {
 protected:
  FactBlocksTest() {
    setScheme(Scheme::light);
    parts_.store.use(scripted_.services(), stop_.token());
  }
  static void setScheme(Scheme scheme) {
    auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
    style.setPalette(Palette(scheme, Contrast::normal));
  }

  using Make = Block* (*)(const QString&, const PageWorld&);
  Block* make(Make make, const char* title) {
    return make(QString::fromUtf8(title),
                {world(), std::make_shared<const LocaleFormats>(world().locale), compared_});
  }

  StopSource stop_;
  ScriptedStore scripted_{http_, clock_};
  std::shared_ptr<StorefrontShelf> compared_ =
      std::make_shared<StorefrontShelf>(clock_, kStorefrontShelfLimits);
};

QStringList seenTexts(const QWidget& widget) {
  QStringList texts;
  for (const QLabel* label : widget.findChildren<QLabel*>())
    if (label->isVisibleTo(&widget)) texts << label->text();
  return texts;
}

template <typename Widget = QAbstractButton>
Widget* named(const QWidget& widget, const QString& name) {
  for (Widget* each : widget.findChildren<Widget*>())
    if (each->accessibleName().startsWith(name) && each->isVisibleTo(&widget)) return each;
  return nullptr;
}

enum class Chart { hidden, shown };

struct Sheet {
  std::string name;
  int width;
  Scheme scheme;
  Chart chart;
};

class FactBlocksPictureTest : public FactBlocksTest, public testing::WithParamInterface<Sheet> {};

TEST_P(FactBlocksPictureTest, LookAsTheyDid) {
  http_.answer(kPage, 200, kPageText);
  http_.answer(kBundles, 200, kBundlesText);
  http_.answer(kStories, 200, kStoriesText);
  setScheme(GetParam().scheme);
  QWidget sheet;
  sheet.setBackgroundRole(QPalette::Base);
  sheet.setAutoFillBackground(true);
  sheet.setFocusPolicy(Qt::StrongFocus);
  sheet.setFocus(Qt::MouseFocusReason);
  auto* layout = new QVBoxLayout(&sheet);
  layout->setContentsMargins(24, 8, 24, 24);
  layout->setSpacing(16);
  std::vector<Block*> blocks{
      make(makePurchasesBlock, "In-app purchases"), make(makeReleasesBlock, "Releases"),
      make(makeBundlesBlock, "In bundles"), make(makeStoriesBlock, "Stories"),
      make(makeInformationBlock, "Information")};
  for (Block* block : blocks) {
    layout->addWidget(block);
    block->setVisible(block->fill(facts()));
  }
  sheet.setVisible(true);
  for (Block* block : blocks) block->approach(Freshness::known);
  waitFor([&] { return !blocks[2]->isHidden() && !blocks[3]->isHidden(); });
  if (GetParam().chart == Chart::shown) named(sheet, u"Pagewren Plus, per year"_s)->click();
  sheet.resize(GetParam().width, layout->heightForWidth(GetParam().width));
  handlePendingEvents();
  sheet.resize(GetParam().width, layout->heightForWidth(GetParam().width));
  for (const QWidget* part : sheet.findChildren<QWidget*>()) {
    const QRect place(part->mapTo(&sheet, QPoint(0, 0)), part->size());
    if (part->isVisible())
      EXPECT_TRUE(sheet.rect().contains(place)) << part->metaObject()->className();
  }
  EXPECT_TRUE(looksLike(QString::fromStdString(GetParam().name), sheet.grab().toImage()));
}

INSTANTIATE_TEST_SUITE_P(Widths, FactBlocksPictureTest,
                         testing::Values(Sheet{"facts-592-light", 592, Scheme::light,
                                               Chart::hidden},
                                         Sheet{"facts-420-dark", 420, Scheme::dark, Chart::shown}),
                         [](const auto& each) {
                           std::string name = each.param.name;
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });

TEST_F(FactBlocksTest, AsksForBundlesWhenNearAloneAndTellsWhatFailed) {
  const std::unique_ptr<Block> block(make(makeBundlesBlock, "In bundles"));
  EXPECT_FALSE(block->fill(facts()));
  handlePendingEvents();
  EXPECT_TRUE(http_.requests().empty());

  http_.answer(kPage, 500, "");
  block->approach(Freshness::known);
  waitFor([&] { return !block->isHidden(); });
  http_.answer(kPage, 200, kPageText);
  http_.answer(kBundles, 200, kBundlesText);
  QAbstractButton* again = nullptr;
  for (auto* each : block->findChildren<QAbstractButton*>())
    if (each->text() == u"Try Again"_s) again = each;
  ASSERT_NE(again, nullptr);
  again->click();
  const QString row = u"Plain Words, 4 apps, $38.96 one by one, $19.99"_s;
  waitFor([&] { return named(*block, row) != nullptr; });
  EXPECT_FALSE(again->isVisibleTo(block.get()));
  named(*block, row)->click();
  EXPECT_EQ(prompts_.opened, std::vector<std::string>{"https://apps.example/11"});

  // Of another app nothing is known, and what is still asked for this one comes too late.
  http_.hold("https://web.example/us/app/id8");
  EXPECT_FALSE(block->fill(facts(8)));
  block->approach(Freshness::known);
  EXPECT_FALSE(block->fill(facts(9)));
  handlePendingEvents();
  EXPECT_EQ(http_.requests().back().url, "https://web.example/us/app/id8");
  EXPECT_TRUE(block->isHidden());
}

TEST_F(FactBlocksTest, WhatWaitsForTheStoreCanBeStopped) {
  const std::unique_ptr<Block> block(make(makeBundlesBlock, "In bundles"));
  EXPECT_FALSE(block->fill(facts()));
  http_.answer(kPage, 429, "");
  block->approach(Freshness::known);
  waitFor([&] { return !block->isHidden(); });
  const QStringList told = seenTexts(*block);
  EXPECT_TRUE(told.contains(u"Apple is limiting requests. Trying again in 20 s."_s));
  const auto button = [&](const QString& text) {
    const auto all = block->findChildren<QAbstractButton*>();
    const auto at = std::ranges::find(all, text, &QAbstractButton::text);
    return at == all.end() ? nullptr : *at;
  };
  clock_.advance(std::chrono::seconds(5));
  block->grab();
  EXPECT_EQ(seenTexts(*block), told) << "seconds are painted, not read out";
  ASSERT_NE(button(u"Stop"_s), nullptr);
  button(u"Stop"_s)->click();
  clock_.advance(std::chrono::seconds(60));
  handlePendingEvents();
  EXPECT_EQ(http_.requests().size(), 1);
  EXPECT_NE(button(u"Try Again"_s), nullptr);
}

TEST_F(FactBlocksTest, ComparesStorefrontsWhenToldToAndOnceADay) {
  change(addPricePoints, std::vector<PricePoint>{{0, 7, "gb", 3.99, "GBP", kNow, false}});
  for (const std::string_view country : kTrackedStorefronts) {
    const bool isBritish = country == "gb";
    const std::string record =
        fmt::format(R"({{"trackId":7,"trackName":"Pagewren","kind":"mac-software","price":4.99,)"
                    R"("formattedPrice":"{0}4.99","currency":"{1}"}})",
                    isBritish ? "£" : "$", isBritish ? "GBP" : "USD");
    const bool isSold = country != "fr" && country != "jp";
    const std::string url = fmt::format("https://store.example/lookup?id=7&country={}", country);
    if (country == "de") http_.answer(url, 403, "");
    http_.answer(url, 200, ScriptedStore::found(isSold ? record : std::string()));
  }
  const std::unique_ptr<Block> block(make(makeStorefrontsBlock, "Storefronts"));
  EXPECT_TRUE(block->fill(facts()));
  block->approach(Freshness::known);
  handlePendingEvents();
  EXPECT_TRUE(http_.requests().empty());
  auto* button = block->findChild<QPushButton*>();
  EXPECT_EQ(button->text().toStdString(), "Compare Storefronts");

  button->click();
  EXPECT_EQ(button->text().toStdString(), "Stop");
  waitFor([&] {
    return seenTexts(*block).contains(u"Apple is limiting requests. Trying again in 20 s."_s);
  });
  clock_.advance(std::chrono::seconds(20));  // of the others none is asked again
  const QString british = u"gb, British Pound, £4.99, +25\u00a0%, lowest £3.99, last on 22 Nov"_s;
  waitFor([&] { return seenTexts(*block).contains(british); });
  const QStringList told = seenTexts(*block);
  EXPECT_TRUE(told.contains(u"us, de, ca, au, it, es, nl, US Dollar, $4.99"_s))
      << told.join(u'\n').toStdString();
  EXPECT_TRUE(told.contains(u"fr, jp, not sold"_s));

  const auto asked = http_.requests().size();
  block->act();
  EXPECT_TRUE(block->fill(facts(8)));
  EXPECT_EQ(button->text().toStdString(), "Compare Storefronts");
  EXPECT_TRUE(block->fill(facts()));
  settle();
  EXPECT_EQ(seenTexts(*block), told);
  EXPECT_EQ(http_.requests().size(), asked) << "it is kept";
  clock_.advance(std::chrono::hours(24));
  EXPECT_TRUE(block->fill(facts()));
  EXPECT_EQ(button->text().toStdString(), "Compare Storefronts");
}

TEST_F(FactBlocksTest, PurchasesSayWhereTheyComeFrom) {
  const std::unique_ptr<Block> block(make(makePurchasesBlock, "In-app purchases"));
  PageFacts known = facts();
  EXPECT_TRUE(block->fill(known));
  EXPECT_TRUE(seenTexts(*block).contains(
      u"Lifetime License costs less than Pagewren Plus after 29 months."_s));
  auto* changed = named(*block, u"Pagewren Plus, per year, $24.99"_s);
  ASSERT_NE(changed, nullptr);
  EXPECT_EQ(block->findChild<PriceChart*>(), nullptr);
  changed->click();
  ASSERT_NE(block->findChild<PriceChart*>(), nullptr);
  EXPECT_EQ(block->findChild<PriceChart*>()->accessibleName(),
            u"Price history of Pagewren Plus in Pagewren Markdown"_s);
  auto more = std::make_shared<StoreFacts>(*known.store);
  more->app.purchases->push_back(sold("Tip", 0.99));
  known.store = more;
  EXPECT_TRUE(block->fill(known));
  EXPECT_NE(block->findChild<PriceChart*>(), nullptr) << "it stays open as more becomes known";
  changed = named(*block, u"Pagewren Plus, per year, $24.99"_s);
  changed->click();
  EXPECT_EQ(block->findChild<PriceChart*>(), nullptr);
  changed->click();
  known.app.trackId = 8;
  EXPECT_TRUE(block->fill(known));
  EXPECT_EQ(block->findChild<PriceChart*>(), nullptr) << "another app's";

  auto nothing = std::make_shared<StoreFacts>(*known.store);
  nothing->app.purchases->clear();
  nothing->app.monetization = MonetizationModel::free;
  known.store = nothing;
  EXPECT_TRUE(block->fill(known));
  EXPECT_EQ(seenTexts(*block), (QStringList{u"In-app purchases"_s, u"Nothing is sold inside."_s}));

  known.store.reset();
  EXPECT_TRUE(block->fill(known));
  EXPECT_TRUE(seenTexts(*block).contains(u"As last recorded, on 1 Sep."_s));
  known.purchases.clear();
  EXPECT_FALSE(block->fill(known));
  known.watched = watched(7);
  EXPECT_TRUE(block->fill(known));
  EXPECT_TRUE(seenTexts(*block).back().startsWith(u"Nothing recorded yet."_s));
}

TEST_F(FactBlocksTest, FoldsManyPurchases) {
  const std::unique_ptr<Block> block(make(makePurchasesBlock, "In-app purchases"));
  PageFacts known = facts();
  auto store = std::make_shared<StoreFacts>(*known.store);
  store->app.purchases->clear();
  for (int pack = 0; pack < 60; ++pack)
    store->app.purchases->push_back(sold("Pack " + std::to_string(pack), 0.99));
  known.store = store;
  EXPECT_TRUE(block->fill(known));
  const auto packs = [&] { return seenTexts(*block).filter(u"Pack "_s).size(); };
  EXPECT_EQ(packs(), 8);
  for (auto* each : block->findChildren<QAbstractButton*>())
    if (each->text() == u"Show all 60"_s) each->click();
  EXPECT_EQ(packs(), 60);
}

TEST_F(FactBlocksTest, ValuesAreCopiedAndLinksFollowedByKeys) {
  const std::unique_ptr<Block> block(make(makeInformationBlock, "Information"));
  block->resize(544, 400);
  ASSERT_TRUE(block->fill(facts()));
  block->setVisible(true);
  handlePendingEvents();
  auto* values = named<QWidget>(*block, u"Facts"_s);
  ASSERT_NE(values, nullptr);
  values->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(values->accessibleDescription(), u"Size, 6.1 MB"_s);
  QTest::keyClick(values, Qt::Key_Down);
  QTest::keyClick(values, Qt::Key_Right);
  EXPECT_EQ(values->accessibleDescription(), u"Languages, English and 2 more"_s);
  QTest::keyClick(values, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"English, German, French"_s);
  EXPECT_EQ(values->accessibleDescription(), u"Copied"_s);
  for (int i = 0; i < 4; ++i) QTest::keyClick(values, Qt::Key_Down);
  QTest::keyClick(values, Qt::Key_Left);
  QTest::keyClick(values, Qt::Key_Return);
  EXPECT_EQ(prompts_.opened, std::vector<std::string>{"https://www.pagewren.example/"});
  QTest::keyClick(values, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"https://www.pagewren.example/"_s);

  const std::unique_ptr<Block> description(make(makeDescriptionBlock, "Description"));
  description->resize(544, 200);
  ASSERT_TRUE(description->fill(facts()));
  description->setVisible(true);
  for (QLabel* label : description->findChildren<QLabel*>()) {
    if (label->focusPolicy() == Qt::NoFocus) continue;
    QTest::keyClick(label, Qt::Key_Right);
    QTest::keyClick(label, Qt::Key_Return);
  }
  EXPECT_EQ(prompts_.opened.back(), "https://pagewren.example/help");
}

}  // namespace
}  // namespace quillet
