// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/text.h"
#include "cli/dispatcher.h"
#include "cli/online/command_runner.h"
#include "support/collected_streams.h"
#include "support/hand_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {

/// Whole command lines against scripted services: storefront us, an American locale, UTC.
class CommandLineTest : public testing::Test {
 protected:
  /// What search and lookup answer, of records as JSON.
  static std::string answer(const std::vector<std::string_view>& apps) {
    return fmt::format(R"({{"resultCount":{},"results":[{}]}})", apps.size(), fmt::join(apps, ","));
  }

  /// Without line feeds and what indents the lines after them.
  static std::string flattened(std::string_view json) {
    std::string flat;
    for (const std::string_view line : split(json, '\n')) flat += trimmed(line);
    return flat;
  }

  /// Runs a command line on streams of its own; returns its status.
  int run(const std::vector<std::string>& words) {
    io.out = {};
    io.err = {};
    const Dispatch decision =
        dispatch(words, [] { return std::string("us"); }, programVersion(), io.streams());
    if (const auto* status = std::get_if<ExitStatus>(&decision)) return static_cast<int>(*status);
    const CommandServices services{itunes,
                                   catalog,
                                   prices,
                                   clock,
                                   formats,
                                   [](Instant) { return std::chrono::seconds(0); },
                                   [this] { return ownedTrackIds(); }};
    return static_cast<int>(runVirtual(
        clock, runCommand(std::get<CommandInvocation>(decision), services, io.streams())));
  }

  /// What the library holds; a test that needs none to be there lets it throw.
  std::function<TrackIds()> ownedTrackIds = [] { return TrackIds{}; };
  CollectedStreams io;
  HandClock clock;
  ScriptedHttpClient http;
  ITunesClient itunes{http, clock, "https://store.example"};
  PriceDataClient prices{http, "https://prices.example"};
  CatalogClient catalog{http, clock, "https://web.example", [] { return 0.5; }, {}};
  LocaleFormats formats{UserLocale{"en_US", "en_US", "en_US", "en_US"}};
};

}  // namespace quillet
