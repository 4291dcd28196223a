// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "queries/query_call.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {

/// Questions against scripted services. What a question tells of its progress is collected as
/// "done/total", with the pages read where they are counted.
class QueryTest : public testing::Test {
 protected:
  /// What search and lookup answer, of records as JSON.
  static std::string answer(const std::vector<std::string_view>& apps) {
    return fmt::format(R"({{"resultCount":{},"results":[{}]}})", apps.size(), fmt::join(apps, ","));
  }
  static std::string lookup(std::string_view id, std::string_view country = "us") {
    return fmt::format("https://store.example/lookup?id={}&country={}", id, country);
  }

  QueryServices services() { return {itunes, catalog, charts, pages, clock}; }
  QueryCall call() {
    return {.context = {.stop = stop.token()}, .progress = [this](QueryProgress reached) {
              std::string count = fmt::format("{}/{}", reached.done, reached.total);
              if (reached.pages > 0) count += fmt::format(" {} pages", reached.pages);
              progress.push_back(std::move(count));
            }};
  }

  StopSource stop;
  std::vector<std::string> progress;
  FakeClock clock;
  ScriptedHttpClient http;
  ITunesClient itunes{http, clock, "https://store.example"};
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  ChartsPageScraper chartPages{http, "https://web.example"};
  ChartsService charts{itunes, chartPages, "https://store.example"};
  StoreScraper pages{http, clock, "https://web.example", {}};
};

}  // namespace quillet
