// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Reads pages and feeds that were recorded elsewhere and are no part of this project: the folder is
// named by QUILLET_RECORDED_ANSWERS.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/product_page.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

class RecordedPages : public testing::Test {
 protected:
  void SetUp() override {
    const char* named = std::getenv("QUILLET_RECORDED_ANSWERS");
    if (named == nullptr) GTEST_SKIP() << "QUILLET_RECORDED_ANSWERS names no folder";
    folder = named;
  }

  [[nodiscard]] std::string content(const char* file) const {
    const std::string text = contentOf(folder / file);
    EXPECT_FALSE(text.empty()) << file;
    return text;
  }

  std::filesystem::path folder;
};

TEST_F(RecordedPages, OfProductsAreWalked) {
  std::string page = content("product-pages/us-1546947240-2026-reduced.html");
  // Whoever recorded it wrote the script's attributes in another order than the store does.
  const std::string_view theirs = R"(id="serialized-server-data" type="application/json">)";
  const std::size_t at = page.find(theirs);
  ASSERT_NE(at, std::string::npos);
  page.replace(at, theirs.size(), R"(type="application/json" id="serialized-server-data">)");
  const EmbeddedDocument document(page);
  ASSERT_EQ(document.contents().size(), 1U);
  EXPECT_FALSE(document.contents()[0].block("shelfMapping").block("information").isEmpty());
  // They kept one shelf alone, and none that is read here.
  EXPECT_EQ(decodeProductPage(page), ProductPage{});
  const std::string old =
      content("product-pages/us-1121971067-2017-old-layout-no-serialized-data.html");
  EXPECT_THROW((void)decodeProductPage(old), UnreadablePage);
  EXPECT_TRUE(decodeChartPage(old, ChartType::topFree).empty());
}

TEST_F(RecordedPages, OfChartFeedsAreDecoded) {
  EXPECT_EQ(decodeChartFeed(
                content("rss-charts/hk-topfreeapplications-limit1-2018-entry-is-object.json")),
            std::vector<std::int64_t>{310633997});
  const auto ids =
      decodeChartFeed(content("rss-charts/us-topgrossingipadapplications-limit25-2015.json"));
  ASSERT_EQ(ids.size(), 25U);
  EXPECT_EQ(ids.front(), 667728512);
}

}  // namespace
}  // namespace quillet
