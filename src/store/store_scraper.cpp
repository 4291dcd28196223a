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

/// A page that is being read. Whoever waits for it looks at the end what became of it.
class StoreScraper::Reading {
 public:
  Reading(StoreScraper& scraper, std::string path) : scraper_(scraper), path_(std::move(path)) {
    scraper_.reading_.try_emplace(path_);
  }
  ~Reading() {
    const auto ended = scraper_.reading_.extract(path_);
    for (const Completion& waiter : ended.mapped()) waiter.set();
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  StoreScraper& scraper_;
  std::string path_;
};

StoreScraper::StoreScraper(HttpClient& http, Clock& clock, std::string address,
                           AnswerCacheLimits limits)
    : http_(http), address_(std::move(address)), pages_(clock, limits) {}

Task<ProductPage> StoreScraper::page(std::int64_t trackId, std::string storefront,
                                     RequestContext context) {
  const std::string path = pathOf(trackId, storefront);
  while (reading_.contains(path)) {
    const Completion ended;
    reading_.at(path).push_back(ended);
    co_await ended;
  }
  if (auto kept = pages_.find(path)) co_return *std::move(kept);
  const Reading reading(*this, path);
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
