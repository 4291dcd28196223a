// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/dispatcher.h"
#include "cli/online/command_runner.h"
#include "cli/online/progress_line.h"
#include "support/collected_streams.h"
#include "support/fake_clock.h"
#include "support/flattened.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"
#include "support/store_requests.h"
#include "support/words.h"

namespace quillet {

/// Whole command lines against scripted services: storefront us, an American locale, UTC.
class CommandLineTest : public testing::Test {
 protected:
  /// What search and lookup answer, of records as JSON.
  static std::string answer(const std::vector<std::string_view>& apps) {
    return fmt::format(R"({{"resultCount":{},"results":[{}]}})", apps.size(), fmt::join(apps, ","));
  }

  static std::string lookup(std::string_view id, std::string_view country = "us") {
    return fmt::format("https://store.example/lookup?id={}&country={}", id, country);
  }
  static std::string enrichment(int id, std::string_view platform,
                                std::string_view country = "us") {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/{}/apps/{}?platform={}&extend=versionHistory"
        "&include=reviews,top-in-apps,related-editorial-items&limit%5Breviews%5D=10&l=en-US",
        country, id, platform);
  }

  void answerLookup(std::string_view id, const std::vector<std::string_view>& apps,
                    std::string_view country = "us") {
    http.answer(lookup(id, country), 200, answer(apps));
  }

  /// Lets `function` run when the clock has moved so far.
  static Task<> callAfter(Clock* clock, std::chrono::milliseconds delay,
                          std::function<void()> function) {
    co_await clock->sleepFor(delay, StopToken{});
    function();
  }

  /// Runs a command line on streams of its own; returns its status.
  int run(const Words& words) {
    io.out = {};
    io.err = {};
    const Dispatch decision =
        dispatch(words, [] { return std::string("us"); }, programVersion(), io.streams());
    if (const auto* status = std::get_if<ExitStatus>(&decision)) return static_cast<int>(*status);
    ProgressLine progress(clock, io.streams(), progressWidth,
                          [this] { return itunes.budgetWait(); });
    const CommandServices services{itunes,
                                   catalog,
                                   prices,
                                   clock,
                                   formats,
                                   [](Instant) { return std::chrono::seconds(0); },
                                   [this] { return ownedTrackIds(); },
                                   charts,
                                   pages,
                                   [this](const auto& query) { return recordedChart(query); },
                                   maintenance,
                                   Progress(progress)};
    Task<ExitStatus> command =
        runCommand(std::get<CommandInvocation>(decision), services, progress.streams());
    return static_cast<int>(runVirtual(clock, showProgress(&progress, std::move(command))));
  }

  /// What a command line prints, or says on standard error; it must end with `status`.
  std::string printed(const Words& words, int status = 0) {
    EXPECT_EQ(run(words), status) << fmt::format("{}: ", fmt::join(words, " ")) << io.err.content;
    return io.out.content;
  }
  std::string said(const Words& words, int status) {
    printed(words, status);
    return io.err.content;
  }
  /// What a command line prints with --json, flattened.
  std::string json(Words words, int status = 0) {
    words.emplace_back("--json");
    return flattened(printed(words, status));
  }
  /// Whether the last command line printed it.
  [[nodiscard]] testing::AssertionResult says(std::string_view text) const {
    return testing::AssertionResult(io.out.content.find(text) != std::string::npos)
           << "'" << text << "' in:\n"
           << io.out.content;
  }

  /// What the library holds; a test that needs none to be there lets it throw.
  std::function<TrackIds()> ownedTrackIds = [] { return TrackIds{}; };
  RecordedChartReader recordedChart = [](const auto&) { return std::optional<RecordedChart>(); };
  MaintenanceThresholds maintenance;
  std::size_t progressWidth = 0;
  CollectedStreams io;
  FakeClock clock;
  ScriptedHttpClient http;
  ITunesClient itunes{http, clock, "https://store.example"};
  PriceSeedClient prices{http, "https://prices.example"};
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  ChartsPageScraper chartPages{http, "https://web.example"};
  ChartsService charts{itunes, chartPages, "https://store.example"};
  // Each command is a process of its own.
  StoreScraper pages{http, clock, "https://web.example", {.bound = 0}};
  LocaleFormats formats{UserLocale{"en_US", "en_US", "en_US", "en_US"}};
};

}  // namespace quillet
