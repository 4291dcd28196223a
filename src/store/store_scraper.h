// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "net/completion.h"
#include "net/http_client.h"
#include "store/answer_cache.h"
#include "store/records/product_page.h"
#include "store/request_context.h"

namespace quillet {

/// Reads an app's page in the store for what search and lookup leave out.
class StoreScraper {
 public:
  /// `address`: scheme, host and port of the store's web host, without a path.
  StoreScraper(HttpClient& http, Clock& clock, std::string address, AnswerCacheLimits limits);

  /// Kept: what a page tells is asked for by several parts of a window, at the same time, too,
  /// which takes one request. Throws UnreadablePage where the page's data is gone, ITunesError for
  /// an HTTP error, NetworkError for a transfer that failed.
  Task<ProductPage> page(std::int64_t trackId, std::string storefront, RequestContext context);
  /// So that it is asked for anew.
  void forget(std::int64_t trackId, std::string_view storefront);

 private:
  class Reading;

  HttpClient& http_;
  std::string address_;
  AnswerCache<std::string, ProductPage> pages_;  ///< by their paths
  /// Who waits for a page that is being read.
  std::map<std::string, std::vector<Completion>> reading_;
};

}  // namespace quillet
