// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/store_scraper.h"

#include <fmt/format.h>

#include "store/records/itunes_error.h"
#include "store/store_page_request.h"

namespace quillet {

namespace {

std::string pathOf(std::int64_t trackId, std::string_view storefront) {
  return fmt::format("/{}/app/id{}", storefront, trackId);
}

}  // namespace

StoreScraper::StoreScraper(HttpClient& http, Clock& clock, std::string address,
                           AnswerCacheLimits limits)
    : http_(http), address_(std::move(address)), pages_(clock, limits) {}

Task<ProductPage> StoreScraper::page(std::int64_t trackId, std::string storefront,
                                     RequestContext context) {
  const std::string path = pathOf(trackId, storefront);
  if (auto kept = pages_.find(path)) co_return *std::move(kept);
  HttpRequest request = storePageRequest(address_, path);
  request.requestClass = context.requestClass;
  const HttpResponse response = co_await http_.get(std::move(request), std::move(context.stop));
  if (!isSuccess(response.status)) throw ITunesError::httpStatus(response.status);
  ProductPage page = decodeProductPage(response.body);
  pages_.keep(path, page);
  co_return page;
}

void StoreScraper::forget(std::int64_t trackId, std::string_view storefront) {
  pages_.forget(pathOf(trackId, storefront));
}

}  // namespace quillet
