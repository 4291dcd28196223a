// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_answers.h"

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/json_parts.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostIds = 50;
constexpr const char* kContentType = "application/json";

std::optional<RecordKind> platformOf(const Request& request) {
  const std::string word = request.item("platform");
  if (word == "mac") return RecordKind::mac;
  if (word == "ipad" || word == "iphone") return RecordKind::ios;
  return std::nullopt;
}

}  // namespace

std::optional<Answer> catalogRefusal(const Request& request) {
  if (!request.isFromBrowser()) return Answer{.status = 429, .contentType = "text/html"};
  if (!storefrontOf(std::string_view(request.captures.front())))
    return catalogError(404, "Storefront Not Found", "No storefront has this name");
  if (!platformOf(request))
    return catalogError(400, "Invalid Parameter Value", "The parameter 'platform' is needed");
  return std::nullopt;
}

RecordView catalogView(const Request& request) {
  return {.kind = *platformOf(request),
          .storefront = *storefrontOf(std::string_view(request.captures.front())),
          .freshness = request.freshness,
          .pictureHost = request.pictureHost};
}

Answer catalogError(int status, std::string_view title, std::string_view detail) {
  JsonWriter json;
  writeObject(json, [&] {
    writeList(json, "errors", [&] {
      writeObject(json, [&] {
        json.member("code", fmt::format("{}00", status));
        json.member("detail", detail);
        json.member("status", std::to_string(status));
        json.member("title", title);
      });
    });
  });
  return {.status = status, .contentType = kContentType, .body = json.take()};
}

std::optional<std::vector<std::string>> catalogIds(const Request& request) {
  const std::string text = request.item("ids");
  std::vector<std::string> ids;
  for (const std::string_view piece : split(text, ',')) {
    if (!piece.empty()) ids.emplace_back(piece);
  }
  if (ids.empty() || ids.size() > kMostIds) return std::nullopt;
  return ids;
}

Answer wrongIds() {
  return catalogError(400, "Invalid Parameter Value",
                      fmt::format("The parameter 'ids' takes 1 to {} IDs", kMostIds));
}

std::vector<SampleApp> catalogApps(const SampleStore& store, const std::vector<std::string>& ids,
                                   Storefront storefront) {
  std::vector<SampleApp> apps;
  for (const std::string& text : ids) {
    const auto id = parseWhole(text);
    const auto number = id ? store.withId(*id) : std::nullopt;
    if (!number) continue;
    SampleApp app = store.app(*number);
    if (app.isSoldIn(storefront)) apps.push_back(std::move(app));
  }
  return apps;
}

ResourceList::ResourceList() {
  json_.beginObject();
  json_.key("data");
  json_.beginArray();
}

Answer ResourceList::take(std::string_view next) {
  json_.endArray();
  if (!next.empty()) json_.member("next", next);
  json_.endObject();
  return {.contentType = kContentType, .body = json_.take()};
}

}  // namespace quillet::sandbox
