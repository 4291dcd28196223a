// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_sheet.h"

#include <gtest/gtest.h>

#include "desktop/sections/compare/comparison_document.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

Instant day(int year, unsigned month, unsigned date) {
  return std::chrono::sys_days{std::chrono::year{year} / static_cast<int>(month) /
                               static_cast<int>(date)};
}

const Instant kNow = day(2026, 11, 20);

InAppPurchase license(double price, std::string currency = "USD") {
  return {.name = "Lifetime License", .price = price, .currency = std::move(currency)};
}

InAppPurchase plan(double price, std::string currency = "USD") {
  return {.name = "Plus",
          .isSubscription = true,
          .price = price,
          .currency = std::move(currency),
          .recurringSubscriptionPeriod = "P1Y"};
}

ComparedFacts told(std::int64_t id, std::string name, double price,
                   std::vector<InAppPurchase> purchases, std::string currency = "USD") {
  ComparedFacts facts{{{id, "us"}, Platform::mac}};
  ITunesApp app{.trackId = id, .trackName = std::move(name), .kind = "mac-software"};
  app.price = price;
  app.currency = std::move(currency);
  setPurchaseFlags(app, purchases);
  facts.told = ComparedApp{app, {PurchaseCheck::done, std::move(purchases)}};
  return facts;
}

ComparedFacts unread(std::int64_t id, PurchaseCheck check) {
  ComparedFacts facts = told(id, "Unread", 1, {});
  facts.told->sold = {check, {}};
  return facts;
}

class CompareSheetTest : public testing::Test {
 protected:
  CompareSheet sheet(const std::vector<ComparedFacts>& apps, int years = 3) {
    return sheetOf(apps, {.formats = formats_,
                          .maintenance = MaintenanceThresholds(),
                          .zone = [](Instant) { return std::chrono::seconds(0); },
                          .now = kNow,
                          .years = years});
  }
  static std::string at(const CompareSheet& sheet, CompareAspect aspect, std::size_t column) {
    const auto row =
        static_cast<std::size_t>(std::ranges::find(sheet.aspects, aspect) - sheet.aspects.begin());
    return lineOf(sheet.columns[column].cells[row], aspect).toStdString();
  }

  LocaleFormats formats_{UserLocale{}};
};

TEST_F(CompareSheetTest, TellsWhatTheYearsCostAndWhichIsLeast) {
  const std::vector<ComparedFacts> apps{
      told(1, "Pagewren Markdown", 4.99, {plan(24.99), license(59.99)}),
      told(2, "Quillink – Editor", 0, {plan(39.99), license(99.99)}),
      told(3, "Draftlark: Editor", 14.99, {}), told(4, "Free Unlock", 0, {license(9.99)})};
  const CompareSheet three = sheet(apps);
  EXPECT_EQ(three.labels[4], u"3 years"_s);
  const struct {
    CompareAspect aspect;
    std::array<std::string, 4> cells;
  } rows[] = {
      {CompareAspect::price, {"$4.99", "Free", "$14.99", "Free"}},
      {CompareAspect::sells,
       {"subscription or once", "subscription or once", "nothing", "one-time unlock"}},
      {CompareAspect::perYear, {"$24.99", "$39.99", "—", "—"}},
      {CompareAspect::firstYear, {"$29.98", "$39.99", "$14.99", "Free"}},
      {CompareAspect::years,
       {"$64.98, Lifetime License $59.99 from month 29",
        "$99.99, Lifetime License $99.99 from month 31", "$14.99, pay once",
        "Free ✓ least, without its unlock, $9.99"}},
      {CompareAspect::toOwn,
       {"$29.98 after 1 year, $54.97 after 2 years, $64.98 after 3 years, $64.98 after 4 years, "
        "$64.98 after 5 years",
        "$39.99 after 1 year, $79.98 after 2 years, $99.99 after 3 years, $99.99 after 4 years, "
        "$99.99 after 5 years",
        "$14.99 after 1 year, $14.99 after 2 years, $14.99 after 3 years, $14.99 after 4 years, "
        "$14.99 after 5 years",
        "Free after 1 year, Free after 2 years, Free after 3 years, Free after 4 years, Free after "
        "5 years"}},
  };
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < apps.size(); ++i)
      EXPECT_EQ(at(three, row.aspect, i), row.cells.at(i));
  }
  EXPECT_EQ(three.costSummary,
            u"After 3 years – Pagewren Markdown: $64.98, Quillink: $99.99, Draftlark: $14.99, "
            "Free Unlock: $0.00"_s);
  EXPECT_EQ(at(sheet(apps, 1), CompareAspect::years, 0), "$29.98, $24.99 a year");
}

TEST_F(CompareSheetTest, ComparesAndDrawsNothingAcrossCurrencies) {
  const CompareSheet mixed = sheet({told(1, "A", 5, {}), told(2, "B", 3, {}, "EUR"),
                                    told(3, "C", 7, {}), told(4, "D", 1, {plan(1, "EUR")})});
  EXPECT_EQ(at(mixed, CompareAspect::years, 0), "$5.00 ✓ least, pay once");
  EXPECT_EQ(at(mixed, CompareAspect::years, 1), "€3.00, pay once") << "alone in its currency";
  EXPECT_EQ(at(mixed, CompareAspect::perYear, 3), "unknown");
  EXPECT_EQ(at(mixed, CompareAspect::years, 3), "—");
  EXPECT_TRUE(mixed.costs.lines.empty());
  EXPECT_EQ(mixed.costSummary,
            u"These apps are sold in several currencies, which are not drawn together."_s);

  const CompareSheet equal = sheet({told(1, "A", 5, {}), told(2, "B", 5, {})});
  EXPECT_EQ(at(equal, CompareAspect::years, 0), "$5.00, pay once") << "none is the least";
  EXPECT_EQ(equal.costs.lines.size(), 2U);
}

TEST_F(CompareSheetTest, SaysWhatIsUnknownAndNeverGuesses) {
  ComparedFacts nothing{{{9, "us"}, Platform::mac}};
  ComparedFacts gone{{{10, "us"}, Platform::mac}};
  gone.isMissing = true;
  const CompareSheet unknown = sheet(
      {unread(1, PurchaseCheck::rateLimited), unread(2, PurchaseCheck::failed), nothing, gone});
  EXPECT_EQ(at(unknown, CompareAspect::sells, 0),
            "unknown — Apple rate limited the purchase lookup");
  EXPECT_EQ(at(unknown, CompareAspect::sells, 1), "unknown — the purchase lookup failed");
  for (const CompareAspect aspect :
       {CompareAspect::perYear, CompareAspect::firstYear, CompareAspect::years}) {
    EXPECT_EQ(at(unknown, aspect, 0), "—");
  }
  ASSERT_EQ(unknown.columns.size(), 3U);
  EXPECT_EQ(unknown.columns[2].name, u"9"_s);
  for (const CompareAspect aspect : unknown.aspects) EXPECT_EQ(at(unknown, aspect, 2), "—");
  EXPECT_EQ(unknown.missing, (std::vector<std::pair<AppKey, QString>>{{{10, "us"}, u"10"_s}}));
}

TEST_F(CompareSheetTest, TellsOfTheBuildAndOfTheLowestRecordedPrice) {
  ComparedFacts facts = told(1, "A", 4.99, {});
  ITunesApp& app = facts.told->app;
  app.averageUserRating = 4.66;
  app.userRatingCount = 18412;
  app.currentVersionReleaseDate = day(2026, 10, 26);
  app.fileSizeBytes = "6100000";
  app.minimumOsVersion = "12.0";
  app.needsRosetta = true;
  facts.library.emplace();
  facts.library->prices.prices = {{day(2026, 1, 1), 9.99, "USD"}, {day(2026, 10, 1), 4.99, "USD"}};
  ComparedFacts dearer = told(2, "B", 9.99, {});
  dearer.library.emplace();
  dearer.library->prices.prices = {{day(2025, 1, 1), 4.99, "USD"},
                                   {day(2025, 6, 1), 4.99, "USD"},
                                   {day(2025, 12, 8), 9.99, "USD"}};
  ComparedFacts moved = told(3, "C", 9.99, {});
  moved.library.emplace();
  moved.library->prices.prices = {{day(2026, 1, 1), 19.99, "BGN"}};
  const CompareSheet known = sheet({facts, dearer, moved});
  EXPECT_EQ(at(known, CompareAspect::rating, 0), "4.7 (18,412)");
  EXPECT_EQ(at(known, CompareAspect::maintenance, 0), "Actively updated");
  EXPECT_EQ(at(known, CompareAspect::updated, 0), "26 Oct 2026");
  EXPECT_EQ(at(known, CompareAspect::size, 0), "6.1 MB");
  EXPECT_EQ(at(known, CompareAspect::needs, 0), "macOS 12.0");
  EXPECT_EQ(at(known, CompareAspect::architecture, 0), "Intel (needs Rosetta)");
  EXPECT_EQ(at(known, CompareAspect::lowest, 0), "$4.99, now");
  EXPECT_EQ(at(known, CompareAspect::lowest, 1), "$4.99, 1 Jun 2025");

  const ComparisonReport document = documentOf(known, "us", u"2026-11-20"_s);
  EXPECT_EQ(document.title, "Compared: A, B, C");
  const ComparisonRow& size = document.rows[8];
  EXPECT_EQ(size.label, "Size");
  EXPECT_EQ(size.cells[0], (ComparisonCell{"6.1 MB", "6100000"}));
  EXPECT_EQ(size.cells[1], (ComparisonCell{"—", ""})) << "nothing to count with";
  EXPECT_EQ(document.notes.back(),
            "Prices of the us storefront, compared by Quillet on 2026-11-20.");
}

TEST_F(CompareSheetTest, NeverJudgesAMacAppByTheRecordOfAnother) {
  ComparedFacts facts = told(1, "Shared", 0, {});
  ITunesApp& app = facts.told->app;
  app.kind = "software";
  app.minimumOsVersion = "16.0";
  app.fileSizeBytes = "26800000";
  app.averageUserRating = 4.7;
  app.userRatingCount = 9;
  const CompareSheet before = sheet({facts});
  for (const CompareAspect aspect :
       {CompareAspect::needs, CompareAspect::size, CompareAspect::rating}) {
    EXPECT_EQ(at(before, aspect, 0), "—");
  }
  facts.catalog = AppEnrichment{
      .versions = {{"2.0", day(2026, 11, 3), {}}},
      .platform = PlatformInfo{
          .deviceFamilies = {"mac"}, .runsOnAppleSilicon = true, .minimumMacOSVersion = "13.0"}};
  const CompareSheet known = sheet({facts});
  EXPECT_EQ(at(known, CompareAspect::needs, 0), "macOS 13.0");
  EXPECT_EQ(at(known, CompareAspect::updated, 0), "3 Nov 2026");
  EXPECT_EQ(at(known, CompareAspect::architecture, 0), "Apple silicon");
  facts.key.platform.reset();
  facts.catalog.reset();
  EXPECT_EQ(at(sheet({facts}), CompareAspect::needs, 0), "iOS 16.0") << "no list means the Mac";
}

}  // namespace
}  // namespace quillet
