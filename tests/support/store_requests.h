// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

using Ids = std::vector<std::int64_t>;

/// So many IDs, one after the other.
inline Ids idsFrom(std::int64_t first, std::size_t count) {
  Ids ids(count);
  std::iota(ids.begin(), ids.end(), first);
  return ids;
}

// What the catalog is asked of several apps: what they are, or what they sell.

inline std::string facts(const Ids& ids, std::string_view options = "mac") {
  return fmt::format("https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform={}&l=en-US",
                     fmt::join(ids, ","), options);
}

inline std::string sold(const Ids& ids, std::string_view platform = "mac") {
  return facts(ids, fmt::format("{}&views=top-in-app-purchasables", platform));
}

/// Where the reviews of app 11's Mac build are asked for.
struct ReviewRequests {
  static std::string page(int offset, std::string_view country = "us") {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/{}/apps/11/reviews?platform=mac&limit=20"
        "&offset={}&l=en-US",
        country, offset);
  }
  static std::string feed(int number, std::string_view country = "us") {
    return fmt::format(
        "https://store.example/{}/rss/customerreviews/page={}/id=11/sortBy=mostRecent/json",
        country, number);
  }
};

/// The catalog's answer that says the same of each app.
inline std::string catalogOf(const Ids& ids, std::string_view said) {
  return fmt::format(R"({{"data":[{{"id":"{}",{}}}]}})",
                     fmt::join(ids, fmt::format(R"(",{}}},{{"id":")", said)), said);
}

}  // namespace quillet
