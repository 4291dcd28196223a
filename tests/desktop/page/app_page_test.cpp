// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/app_page.h"

#include <QSignalSpy>

#include "desktop/look/quillet_style.h"
#include "page_fixture.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

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

  /// A page that shows the app, in that size.
  std::unique_ptr<AppPage> shown(const AppKey& app, QSize size) {
    auto page = std::make_unique<AppPage>(world(), prompts_);
    page->resize(size);
    page->setVisible(true);
    QSignalSpy filled(page.get(), &AppPage::filled);
    page->show(app);
    waitFor([&] { return !filled.isEmpty(); });
    handlePendingEvents();
    return page;
  }
};

struct PageCase {
  std::string name;
  QSize size;
  Scheme scheme;
};

class AppPagePictureTest : public AppPageTest, public testing::WithParamInterface<PageCase> {};

TEST_P(AppPagePictureTest, LooksAsItDid) {
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(GetParam().scheme, Contrast::normal));
  const auto page = shown({kPagewren, "us"}, GetParam().size);
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
