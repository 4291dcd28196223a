// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/charts_page_scraper.h"

#include <fmt/format.h>

#include "store/records/app_genre.h"
#include "store/records/chart_answers.h"
#include "store/records/itunes_error.h"
#include "store/store_page_request.h"

namespace quillet {

ChartsPageScraper::ChartsPageScraper(HttpClient& http, std::string address)
    : http_(http), address_(std::move(address)) {}

Task<std::vector<std::int64_t>> ChartsPageScraper::chartIds(ChartQuery query,
                                                            RequestContext context) {
  const ChartType chart = query.chart;
  const HttpResponse response = co_await answer(std::move(query), std::move(context));
  if (isSuccess(response.status)) co_return decodeChartPage(response.body, chart);
  const auto error = [&] { return ITunesError::httpStatus(response.status, response.body); };
  if (error().isRefusal()) throw error();
  co_return {};
}

Task<std::string> ChartsPageScraper::page(ChartQuery query, RequestContext context) {
  HttpResponse response = co_await answer(std::move(query), std::move(context));
  if (!isSuccess(response.status)) co_return {};
  co_return std::move(response.body);
}

Task<HttpResponse> ChartsPageScraper::answer(ChartQuery query, RequestContext context) {
  HttpRequest request =
      storePageRequest(address_, fmt::format("/{}/{}/charts/{}", query.storefront,
                                             textOf(kPlatformWords, query.platform),
                                             query.genreId.value_or(kAllGenresId)));
  request.requestClass = context.requestClass;
  HttpResponse response = co_await http_.get(std::move(request), std::move(context.stop));
  co_return response;
}

}  // namespace quillet
