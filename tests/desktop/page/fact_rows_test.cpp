// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What the blocks of facts say: purchases, releases, bundles, colours of stories, links in texts.

#include <gtest/gtest.h>

#include "desktop/charts/break_even_bar.h"
#include "desktop/look/palette.h"
#include "desktop/page/bundle_rows.h"
#include "desktop/page/linked_text.h"
#include "desktop/page/purchase_rows.h"
#include "desktop/page/release_rows.h"
#include "desktop/page/story_card.h"
#include "page_moments.h"

namespace quillet {
namespace {

const Instant kNow = moment(2026, 11, 22, 12);
const LocaleFormats kFormats{UserLocale{}};

InAppPurchase sold(std::string name, std::optional<double> price,
                   std::optional<std::string> period = {}, std::string currency = "USD") {
  return {.productId = "id." + name,
          .name = std::move(name),
          .isSubscription = period.has_value(),
          .price = price,
          .currency = std::move(currency),
          .recurringSubscriptionPeriod = std::move(period)};
}

PurchaseSeries recorded(const InAppPurchase& purchase, std::vector<double> prices,
                        std::string currency = "USD") {
  PurchaseSeries series{.key = purchase.productId,
                        .name = purchase.name,
                        .period = purchase.recurringSubscriptionPeriod};
  int day = 0;
  for (const double price : prices)
    series.history.push_back(
        {moment(2026, 3, 1) + std::chrono::hours(24 * day++), price, currency});
  return series;
}

std::string textOf(const std::vector<PurchaseGroup>& groups) {
  std::string text;
  for (const PurchaseGroup& group : groups) {
    if (!group.title.isEmpty()) text += "[" + group.title.toStdString() + "] ";
    for (const PurchaseRow& row : group.rows) text += spoken(row).toStdString() + "; ";
  }
  return text;
}

struct PurchasesCase {
  std::string name;
  std::vector<InAppPurchase> purchases;
  std::vector<PurchaseSeries> recorded;
  std::string rows;
};

class PurchaseRowsTest : public testing::TestWithParam<PurchasesCase> {};

TEST_P(PurchaseRowsTest, Say) {
  const PurchasesCase& each = GetParam();
  EXPECT_EQ(textOf(purchaseGroups(each.purchases, each.recorded, {kFormats, kNow})), each.rows);
}

TEST(PurchaseRows, TakeNoPriceThatIsOlderThanTheRecord) {
  const InAppPurchase license = sold("Lifetime License", 59.99);
  const std::vector<PurchaseSeries> record{recorded(license, {59.99, 49.99})};
  const Instant before = *record.front().history.back().when - std::chrono::hours(1);
  EXPECT_EQ(textOf(purchaseGroups(std::vector{license}, record, {kFormats, before})),
            "Lifetime License, once, $59.99, down, \u221217\u00a0% since first recorded; ");
}

std::vector<PurchasesCase> purchasesCases() {
  const InAppPurchase monthly = sold("Plus", 2.99, "P1M");
  const InAppPurchase yearly = sold("Plus", 24.99, "P1Y");
  const InAppPurchase license = sold("Lifetime License", 59.99);
  InAppPurchase nameless = sold("", {});
  nameless.productId = "";
  InAppPurchase free = sold("Starter Pack", 0.0);
  return {
      {"OneKindHasNoTitle",
       {monthly, yearly},
       {},
       "Plus, per month, $2.99, $35.88 per year; Plus, per year, $24.99, $24.99 per year; "},
      {"KindsInTheirOrder",
       {sold("100 Coins", 0.99), license, monthly},
       {},
       "[Subscriptions] Plus, per month, $2.99, $35.88 per year; "
       "[Unlocks] Lifetime License, once, $59.99; [Extras] 100 Coins, once, $0.99; "},
      {"ChangedSinceFirstRecorded",
       {license},
       {recorded(license, {79.99, 49.99, 59.99})},
       "Lifetime License, once, $59.99, down, \u221225\u00a0% since first recorded; "},
      {"TodaysPriceIsNotRecordedYet",
       {license},
       {recorded(license, {49.99})},
       "Lifetime License, once, $59.99, up, +20\u00a0% since first recorded; "},
      {"CameBack",
       {license},
       {recorded(license, {59.99, 49.99, 59.99})},
       "Lifetime License, once, $59.99, price changed in between; "},
      {"WasFree",
       {license},
       {recorded(license, {0, 59.99})},
       "Lifetime License, once, $59.99, up, was free since first recorded; "},
      {"OtherCurrencyIsNotCompared",
       {license},
       {recorded(license, {79.99, 49.99}, "EUR")},
       "Lifetime License, once, $59.99; "},
      {"OfAnotherPurchase",
       {license},
       {recorded(monthly, {1.99, 2.99})},
       "Lifetime License, once, $59.99; "},
      {"NothingKnown", {nameless}, {}, "Without a name, once, price unknown; "},
      {"Free", {free}, {}, "Starter Pack, once, Free; "},
      {"OnlyRecorded",
       lastRecorded(std::vector{recorded(yearly, {19.99, 24.99})}),
       {recorded(yearly, {19.99, 24.99})},
       "Plus, per year, $24.99, $24.99 per year, up, +25\u00a0% since first recorded; "},
  };
}

INSTANTIATE_TEST_SUITE_P(All, PurchaseRowsTest, testing::ValuesIn(purchasesCases()),
                         [](const auto& each) { return each.param.name; });

PageFacts releasedOn(const std::vector<Instant>& days) {
  auto store = std::make_shared<StoreFacts>();
  store->app.versions.emplace();
  int version = static_cast<int>(days.size());
  for (const Instant day : days)
    store->app.versions->push_back({"1." + std::to_string(version--), day, {}});
  PageFacts facts;
  facts.store = std::move(store);
  return facts;
}

TEST(ReleaseRows, TellGapsAndWhichOfThemAreLong) {
  // Gaps of 10, 13, 14, 10 and 10 days: the usual one is 10, and 13 is not over 1.3 of it.
  const ReleaseHistory history = releasesOf(
      releasedOn({moment(2026, 11, 19, 0), moment(2026, 11, 9, 0), moment(2026, 10, 30, 0),
                  moment(2026, 10, 16, 0), moment(2026, 10, 3, 0), moment(2026, 9, 23, 0)}),
      {{}, kNow});
  EXPECT_EQ(usualGapText(history).toStdString(), "10 days");
  EXPECT_EQ(releaseSentence(history).toStdString(), "Last release 3 days ago.");
  const std::vector<ReleaseRow> rows = releaseRows(history);
  EXPECT_EQ(rows.front(), (ReleaseRow{QStringLiteral("1.6"), QStringLiteral("19 Nov 2026"),
                                      QStringLiteral("10 days"), QString()}));
  EXPECT_EQ(rows.back().gap, QString());
  std::string late;
  for (const ReleaseDot& dot : releaseDots(history)) late += dot.isLate ? '!' : '.';
  EXPECT_EQ(late, "...!..") << "oldest first";
}

TEST(ReleaseRows, SayWhereTheStoreCutThem) {
  std::vector<Instant> days;
  for (int day = 0; day < 25; ++day)
    days.push_back(moment(2026, 11, 21, 0) - std::chrono::hours(24 * day));
  EXPECT_EQ(releaseSentence(releasesOf(releasedOn(days), {{}, kNow})).toStdString(),
            "Last release 1 day ago. 25 returned (Apple's limit; older ones exist).");
}

TEST(ReleaseRows, BeforeTheStoreToldNameTheCurrentOne) {
  PageFacts facts;
  facts.cached = CachedApp{.version = "1.14",
                           .currentVersionReleaseDate = moment(2026, 10, 26),
                           .releaseNotes = "Calm.\nQuick."};
  const ReleaseHistory history = releasesOf(facts, {{}, kNow});
  EXPECT_EQ(releaseRows(history).size(), 1U);
  EXPECT_TRUE(releaseDots(history).empty());
  EXPECT_EQ(usualGapText(history), QString());
  facts.cached->version.reset();
  EXPECT_TRUE(releasesOf(facts, {{}, kNow}).releases.empty());
}

TEST(BundleRows, AddUpWhatIsKnownInOneCurrencyAlone) {
  const auto app = [](std::optional<double> price, std::optional<std::string> currency) {
    return StoreItem{
        1, "Inkfallow", price, {}, std::move(currency), {}, "https://img.example/1/{w}x{h}bb.{f}"};
  };
  const auto details = [&](std::vector<StoreItem> apps) {
    const StoreItem bundle{9, "Plain Words", 19.99, "$19.99", "USD", "javascript:x", {}};
    return bundleRows({{bundle, std::move(apps)}}, kFormats).front().details.toStdString();
  };
  EXPECT_EQ(details({app(9.99, "USD"), app(4.99, "USD")}), "2 apps, $14.98 one by one");
  EXPECT_EQ(details({app(9.99, "USD"), app(4.99, "EUR")}), "2 apps");
  EXPECT_EQ(details({app(9.99, {}), app(4.99, {})}), "2 apps");
  EXPECT_EQ(details({app(9.99, "USD"), app({}, "USD")}), "2 apps");
  EXPECT_EQ(details({app(0.0, "USD")}), "1 app");
  EXPECT_EQ(details({}), "");
  const BundleRow row =
      bundleRows({{{9, "", 1, {}, "USD", "javascript:x", {}}, {app(1, "USD")}}}, kFormats).front();
  EXPECT_EQ(row.link, "");
  EXPECT_EQ(row.icons.front().address, "https://img.example/1/512x512bb.png");
}

TEST(StoryCard, IsReadableOnEveryColour) {
  // Greys go through the darkest background for white and the lightest for black.
  for (int shade = 0; shade < 256; ++shade) {
    const QColor background(shade, shade, shade);
    EXPECT_GE(contrastRatio(inkOn(background), background), 4.5) << shade;
  }
  EXPECT_EQ(storyColor("0B5D66"), QColor(0x0B, 0x5D, 0x66));
  for (const char* none : {"", "fff", "0B5D6G", "-12345", "0B5D66FF"})
    EXPECT_EQ(storyColor(none), std::nullopt) << none;
}

TEST(LinkedText, FindsWebAddressesAlone) {
  const auto links = [](const char* text) {
    std::string found;
    const QString whole = QString::fromUtf8(text);
    for (const TextLink& link : webLinksIn(whole))
      found += whole.mid(link.start, link.length).toStdString() + "|";
    return found;
  };
  EXPECT_EQ(links("See https://a.example/x?y=1#z."), "https://a.example/x?y=1#z|");
  EXPECT_EQ(links("(http://a.example/x_(y)) and “https://b.example”"),
            "http://a.example/x_(y)|https://b.example|");
  EXPECT_EQ(links("https://a.example\nhttps://b.example"), "https://a.example|https://b.example|");
  for (const char* none : {"javascript:http", "xhttp://a.example", "https://", "http", "www.a.b",
                           "ftp://a.example", "mailto:http@a.example", "file:///http"})
    EXPECT_EQ(links(none), "") << none;
}

TEST(BreakEvenBar, HasRoomBehindItsTick) {
  EXPECT_EQ(yearsAround(1), 5);
  EXPECT_EQ(yearsAround(54), 5);
  EXPECT_EQ(yearsAround(55), 10);
  EXPECT_EQ(yearsAround(108), 10);
  EXPECT_EQ(yearsAround(120), 12);
}

}  // namespace
}  // namespace quillet
