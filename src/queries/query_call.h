// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>

#include "net/clock.h"
#include "store/catalog_client.h"
#include "store/charts_service.h"
#include "store/itunes_client.h"
#include "store/store_scraper.h"

namespace quillet {

/// What a question is doing.
enum class QueryStage {
  lookup,
  search,
  chart,
  catalog,
  reviews,
  releases,
  purchases,
  storefronts,
  apps
};

/// How far it has come with it: the requests, pages or storefronts that have been read.
struct QueryProgress {
  QueryStage stage = QueryStage::lookup;
  std::size_t done = 0;
  std::size_t total = 0;  ///< 0 where it is not known, or where there is one thing to read
  std::size_t pages = 0;  ///< that have been read of lists whose length nobody knows
};

/// Who asks and until when, and whom to tell how far it has come.
struct QueryCall {
  RequestContext context = {};
  std::function<void(QueryProgress)> progress = {};  ///< empty where nobody waits

  void report(QueryProgress reached) const {
    if (progress) progress(reached);
  }
};

/// Whether an answer that is kept will do.
enum class Freshness { known, anew };

/// What questions reach the store through. All of it outlives the question.
struct QueryServices {
  ITunesClient& itunes;
  CatalogClient& catalog;
  ChartsService& charts;
  StoreScraper& pages;
  Clock& clock;
};

}  // namespace quillet
