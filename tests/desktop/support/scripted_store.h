// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "queries/query_call.h"

namespace quillet {

/// The store's clients over a network and a clock of the test's, with the desktop's memory.
struct ScriptedStore {
  ScriptedStore(HttpClient& http, Clock& time)
      : clock(time),
        itunes(http, time, "https://store.example"),
        catalog(http, time, "https://web.example", [] { return 0.0; },
                {std::chrono::hours(6), 500}),
        chartPages(http, "https://web.example"),
        charts(itunes, chartPages, "https://store.example"),
        pages(http, time, "https://web.example", {std::chrono::hours(6), 100}) {}

  [[nodiscard]] QueryServices services() { return {itunes, catalog, charts, pages, clock}; }

  [[nodiscard]] static std::string lookupUrl(std::int64_t id) {
    return fmt::format("https://store.example/lookup?id={}&country=us", id);
  }
  [[nodiscard]] static std::string catalogUrl(std::int64_t id, std::string_view platform = "mac") {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/us/apps/{}?platform={}&extend=versionHistory"
        "&include=reviews,top-in-apps,related-editorial-items&limit%5Breviews%5D=10&l=en-US",
        id, platform);
  }
  /// An answer of search or lookup with these records as JSON, parted by commas.
  [[nodiscard]] static std::string found(std::string_view records) {
    return fmt::format(R"({{"results":[{}]}})", records);
  }

  Clock& clock;
  ITunesClient itunes;
  CatalogClient catalog;
  ChartsPageScraper chartPages;
  ChartsService charts;
  StoreScraper pages;
};

}  // namespace quillet
