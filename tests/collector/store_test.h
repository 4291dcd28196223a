// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/collect_round.h"
#include "collector/record_test.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"

namespace quillet {

using Lines = std::vector<std::string>;

/// A test with an empty record and a store.
class StoreTest : public RecordTest {
 protected:
  CollectorServices services() {
    return {*database,
            itunes,
            charts,
            clock,
            {},
            "a",
            [](const std::string&) { return false; },
            [this](const std::string& line) { said.push_back(line); },
            [this](const std::string& line) { said.push_back(warned.emplace_back(line)); }};
  }

  FakeClock clock{parseInternetDate("2026-11-01T03:00:00Z").value()};
  ScriptedHttpClient http;
  ITunesClient itunes{http, clock, "https://store.example", 1000};
  ChartsPageScraper chartPages{http, "https://web.example"};
  ChartsService charts{itunes, chartPages, "https://store.example"};
  Lines said;  ///< in their order, warnings among them
  Lines warned;
};

}  // namespace quillet
