// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "store/charts_page_scraper.h"
#include "store/itunes_client.h"

namespace quillet {

/// An app and its place in a chart, from 1.
struct RankedApp {
  std::size_t rank = 0;
  ITunesApp app;
};

/// Some of a chart's places: from the place `first` (from 0), at most `count`.
struct ChartPlaces {
  std::size_t first = 0;
  std::size_t count = SIZE_MAX;
};

/// What is in a top chart now. Free and paid charts are read from the store's chart page; the
/// grossing charts, and what the page does not tell, from the store's feeds.
///
/// All operations throw ITunesError (emptyFeed for a chart that no source could give), NetworkError
/// and DecodingError.
class ChartsService {
 public:
  /// `address`: scheme, host and port of the feeds, without a path.
  ChartsService(ITunesClient& itunes, ChartsPageScraper& pages, std::string address);

  /// The track IDs in the chart's order.
  Task<std::vector<std::int64_t>> ids(ChartQuery query, RequestContext context);

  /// The same for one who can wait: where the store wants fewer requests, and no feed has the
  /// chart, this is thrown, instead of a chart that is not there.
  Task<std::vector<std::int64_t>> idsOrRefusal(ChartQuery query, RequestContext context);

  /// The records of some of a chart's places. An app that the storefront does not know is left
  /// out; the others keep their ranks.
  Task<std::vector<RankedApp>> apps(ChartQuery query, std::vector<std::int64_t> ids,
                                    ChartPlaces places, RequestContext context);

 private:
  Task<std::vector<std::int64_t>> idsOnPage(ChartQuery query, RequestContext context);
  Task<std::vector<std::int64_t>> idsInFeed(ChartQuery query, RequestContext context);

  ITunesClient& itunes_;
  ChartsPageScraper& pages_;
  std::string address_;
};

}  // namespace quillet
