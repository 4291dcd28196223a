// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "base/json_writer.h"
#include "base/numbers.h"
#include "base/text.h"
#include "net/completion.h"
#include "net/http_client.h"
#include "net/network_errors.h"
#include "store/records/itunes_app_json.h"

namespace quillet {

/// A store that finds the same apps whatever it is asked for, and a catalog that says of each what
/// follows from its number. Answers come from the event loop.
class MadeStore final : public HttpClient {
 public:
  std::vector<ITunesApp> apps;      ///< that searches and lookups find
  std::vector<std::int64_t> chart;  ///< the IDs on every page of charts; none: there is no page
  std::vector<std::int64_t> feed;   ///< those in every feed of a chart
  std::vector<std::string> asked;   ///< every address, in order
  std::deque<int> failures;         ///< statuses of the next answers
  bool isHeld = false;              ///< answers are kept back until release()

  void release() {
    isHeld = false;
    for (const Completion& gate : std::exchange(held_, {})) gate.set();
  }

  [[nodiscard]] long searches() const { return asking("/search?") + asking("/lookup?"); }
  [[nodiscard]] long asking(std::string_view part) const {
    return std::ranges::count_if(
        asked, [&](const std::string& url) { return url.find(part) != std::string::npos; });
  }

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override {
    asked.push_back(request.url);
    const Completion gate;
    isHeld ? held_.push_back(gate) : gate.set();
    const StopCallback onStop(stop, [gate] { gate.set(); });
    co_await gate;
    if (stop.stopRequested()) throw cancelledError();
    HttpResponse response{200, {}};
    if (failures.empty()) {
      response.body = bodyOf(request.url);
    } else {
      response.status = failures.front();
      failures.pop_front();
    }
    co_return response;
  }

 private:
  [[nodiscard]] std::string bodyOf(const std::string& url) const {
    if (url.find("/search?") != std::string::npos || url.find("/lookup?") != std::string::npos)
      return found();
    if (url.find("/charts/") != std::string::npos) return chartPage();
    if (url.find("/rss/") != std::string::npos) return chartFeed();
    const std::string_view address = url;
    const std::size_t ids = address.find("ids=") + 4;
    std::string resources;
    for (const std::string_view id :
         split(address.substr(ids, address.find('&', ids) - ids), ',')) {
      const std::int64_t number = parseWhole(id).value();
      if (number % 11 == 0) continue;  // unknown there
      if (!resources.empty()) resources += ',';
      const bool asksPurchases = url.find("top-in-app") != std::string::npos;
      resources += fmt::format(R"({{"id":"{}",{}}})", number,
                               asksPurchases ? purchasesOf(number) : buildOf(number));
    }
    return "{\"data\":[" + resources + "]}";
  }

  [[nodiscard]] std::string found() const {
    JsonWriter writer(JsonLayout::compact);
    writer.beginObject();
    writer.list("results", apps, writeApp);
    writer.endObject();
    return writer.take();
  }

  [[nodiscard]] std::string chartPage() const {
    std::vector<std::string> items;
    for (const auto id : chart) items.push_back(fmt::format(R"({{"adamId":"{}"}})", id));
    const std::string shelves = fmt::format(R"([{{"items":[{}]}}])", fmt::join(items, ","));
    return fmt::format(
        R"(<script id="serialized-server-data">{{"data":[{{"data":{{"segments":[)"
        R"({{"chart":"top-free","shelves":{0}}},{{"chart":"top-paid","shelves":{0}}})"
        R"(]}}}}]}}</script>)",
        shelves);
  }

  [[nodiscard]] std::string chartFeed() const {
    std::vector<std::string> entries;
    for (const auto id : feed)
      entries.push_back(fmt::format(R"({{"id":{{"attributes":{{"im:id":"{}"}}}}}})", id));
    return fmt::format(R"({{"feed":{{"entry":[{}]}}}})", fmt::join(entries, ","));
  }

  static std::string purchasesOf(std::int64_t number) {
    std::vector<std::string> items;
    const auto sell = [&](bool isSubscription) {
      items.push_back(
          fmt::format(R"({{"id":"p{}","attributes":{{"name":"Pro","isSubscription":{}}}}})",
                      items.size(), isSubscription));
    };
    if (number % 3 == 1) sell(true);
    if (number % 4 == 1) sell(false);
    return fmt::format(R"("views":{{"top-in-app-purchasables":{{"data":[{}]}}}})",
                       fmt::join(items, ","));
  }

  static std::string buildOf(std::int64_t number) {
    std::string rating;
    if (number % 5 != 0)
      rating = fmt::format(R"("userRating":{{"value":{},"ratingCount":{}}},)",
                           static_cast<double>(number % 9) / 2 + 0.5, number % 7 + 1);
    return fmt::format(
        R"("attributes":{{{}"platformAttributes":{{"osx":{{"requiresRosetta":{}}}}}}})", rating,
        number % 4 == 0);
  }

  std::vector<Completion> held_;
};

}  // namespace quillet
