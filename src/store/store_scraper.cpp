// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/store_scraper.h"

#include <fmt/format.h>

#include "store/records/itunes_error.h"
#include "store/store_page_request.h"

namespace quillet {

StoreScraper::StoreScraper(HttpClient& http, std::string address)
    : http_(http), address_(std::move(address)) {}

Task<ProductPage> StoreScraper::page(std::int64_t trackId, std::string storefront,
                                     RequestContext context) {
  HttpRequest request =
      storePageRequest(address_, fmt::format("/{}/app/id{}", storefront, trackId));
  request.requestClass = context.requestClass;
  const HttpResponse response = co_await http_.get(std::move(request), std::move(context.stop));
  if (!isSuccess(response.status)) throw ITunesError::httpStatus(response.status);
  co_return decodeProductPage(response.body);
}

}  // namespace quillet
