// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/endpoints.h"

#include <array>

#include "base/text.h"
#include "sandbox/answers.h"

namespace quillet::sandbox {

namespace {

constexpr std::array kEndpoints{
    Endpoint{"/search", answerSearch},
    Endpoint{"/lookup", answerLookup},
    Endpoint{"/api/apps/v1/catalog/{}/apps", answerCatalogApps},
    Endpoint{"/api/apps/v1/catalog/{}/apps/{}", answerCatalogApp},
    Endpoint{"/api/apps/v1/catalog/{}/apps/{}/reviews", answerCatalogReviews},
    Endpoint{"/api/apps/v1/catalog/{}/app-bundles", answerCatalogBundles},
    Endpoint{"/api/apps/v1/editorial/{}/editorial-items", answerEditorial},
    Endpoint{"/file/quillbase-prices/v1/manifest.json", answerPriceManifest},
    Endpoint{"/file/quillbase-prices/v1/changes-{}", answerPriceFile},
    Endpoint{"/image/*", answerPicture},
    Endpoint{"/{}/app/id{}", answerProductPage},
    Endpoint{"/{}/app/{}/id{}", answerProductPage},
    Endpoint{"/{}/{}/charts/{}", answerChartPage},
    Endpoint{"/{}/rss/customerreviews/*", answerReviewFeed},
    Endpoint{"/{}/rss/{}/*", answerChartFeed},
};

/// One part of the path against one of the pattern, which has "{}" at its end or not at all.
bool fits(std::string_view pattern, std::string_view part, std::vector<std::string>& captures) {
  if (!pattern.ends_with("{}")) return pattern == part;
  pattern.remove_suffix(2);
  if (!part.starts_with(pattern) || part.size() == pattern.size()) return false;
  captures.emplace_back(part.substr(pattern.size()));
  return true;
}

}  // namespace

std::span<const Endpoint> endpoints() { return kEndpoints; }

std::optional<std::vector<std::string>> captured(std::string_view pattern, std::string_view path) {
  const auto patternParts = split(pattern, '/');
  const auto parts = split(path, '/');
  std::vector<std::string> captures;
  for (std::size_t i = 0; i < patternParts.size(); ++i) {
    if (i >= parts.size()) return std::nullopt;
    if (patternParts[i] == "*") {
      const auto start = parts[i].data() - path.data();
      captures.emplace_back(path.substr(static_cast<std::size_t>(start)));
      return captures;
    }
    if (!fits(patternParts[i], parts[i], captures)) return std::nullopt;
  }
  if (parts.size() != patternParts.size()) return std::nullopt;
  return captures;
}

Answer answerTo(const SampleStore& store, Request request) {
  for (const Endpoint& endpoint : endpoints()) {
    if (auto captures = captured(endpoint.pattern, request.path)) {
      request.captures = std::move(*captures);
      return endpoint.answer(store, request);
    }
  }
  return {
      .status = 404, .contentType = "text/html", .body = "<html><body>Not found</body></html>\n"};
}

}  // namespace quillet::sandbox
