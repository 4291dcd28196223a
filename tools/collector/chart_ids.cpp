// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/chart_ids.h"

#include <fmt/format.h>

#include <array>

#include "base/errors.h"
#include "base/json_reader.h"
#include "base/numbers.h"

namespace quillet {

namespace {

/// By chart and platform; the store has no such feed where the name is empty. (Its feed of grossing
/// Mac apps lists iPhone apps.)
constexpr std::array<std::array<std::string_view, 3>, 3> kFeeds{{
    {"topfreemacapps", "topfreeapplications", "topfreeipadapplications"},
    {"", "toppaidapplications", "toppaidipadapplications"},
    {"", "topgrossingapplications", "topgrossingipadapplications"},
}};

std::optional<JsonObject> objectIn(const JsonObject& object, std::string_view key) {
  const auto member = jsonMember(object, key);
  if (!member || !member->is_object()) return {};
  return member->get_object().value();
}

std::optional<std::int64_t> idOf(JsonElement entry) {
  if (!entry.is_object()) return {};
  const auto id = objectIn(entry.get_object().value(), "id");
  const auto attributes = id ? objectIn(*id, "attributes") : std::nullopt;
  const auto text = attributes ? jsonMember(*attributes, "im:id") : std::nullopt;
  if (!text || !text->is_string()) return {};
  return parseWhole(text->get_string().value());
}

/// "entry" is a list, one bare object, or missing.
std::vector<std::int64_t> idsInFeed(const std::string& body) {
  const JsonDocument document(body);
  if (!document.root().is_object()) throw DecodingError("it is no object");
  const auto feed = objectIn(document.root().get_object().value(), "feed");
  if (!feed) throw DecodingError("it has no feed");
  std::vector<std::int64_t> ids;
  const auto add = [&](JsonElement entry) {
    if (const auto id = idOf(entry)) ids.push_back(*id);
  };
  const auto entries = jsonMember(*feed, "entry");
  if (entries && entries->is_array()) {
    const JsonArray list = entries->get_array().value();
    for (const JsonElement entry : list) add(entry);
  } else if (entries) {
    add(*entries);
  }
  return ids;
}

}  // namespace

Task<std::vector<std::int64_t>> chartIds(ITunesClient* itunes, std::string address, ChartType chart,
                                         Platform platform, std::string country, StopToken stop) {
  const std::string_view feed =
      kFeeds[static_cast<std::size_t>(chart)][static_cast<std::size_t>(platform)];
  if (feed.empty()) co_return std::vector<std::int64_t>();
  const std::string body =
      co_await itunes->fetch(fmt::format("{}/{}/rss/{}/limit=100/json", address, country, feed),
                             {RequestClass::interactive, stop});
  co_return idsInFeed(body);
}

}  // namespace quillet
