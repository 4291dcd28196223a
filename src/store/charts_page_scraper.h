// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "net/http_client.h"
#include "store/chart_query.h"
#include "store/request_context.h"

namespace quillet {

/// Reads the store's chart pages, which know the free and the paid charts.
class ChartsPageScraper {
 public:
  /// `address`: scheme, host and port of the store's web host, without a path.
  ChartsPageScraper(HttpClient& http, std::string address);

  /// The track IDs in the chart's order; empty where the page could not be read. Throws ITunesError
  /// where the store wants fewer requests, and NetworkError where no answer came at all.
  Task<std::vector<std::int64_t>> chartIds(ChartQuery query, RequestContext context);

  /// The page itself, for decodeChartPage(): it holds both charts, so that `query.chart` does not
  /// matter. Empty where the store gives none; throws NetworkError as chartIds().
  Task<std::string> page(ChartQuery query, RequestContext context);

 private:
  Task<HttpResponse> answer(ChartQuery query, RequestContext context);

  HttpClient& http_;
  std::string address_;
};

}  // namespace quillet
