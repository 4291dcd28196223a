// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet::sandbox {

/// Whether an answer tells of the newest versions, or of the ones before, as a cache that was
/// forgotten does.
enum class Freshness { fresh, stale };

/// One GET, taken apart and decoded.
struct Request {
  std::string path;
  std::multimap<std::string, std::string> query;
  Freshness freshness = Freshness::fresh;
  std::string userAgent;              ///< what the client calls itself
  std::string pictureHost;            ///< where addresses of pictures lead; empty: nowhere
  std::vector<std::string> captures;  ///< what stood for the pattern's {}, in order

  /// Whether the client calls itself as desktop browsers do.
  [[nodiscard]] bool isFromBrowser() const { return userAgent.starts_with("Mozilla/"); }

  /// The query item's value; empty when it is missing.
  [[nodiscard]] std::string item(const std::string& name) const;
};

/// What goes back.
struct Answer {
  int status = 200;
  std::string contentType = "text/javascript; charset=utf-8";
  std::string body;
  std::vector<std::pair<std::string, std::string>> headers;
};

}  // namespace quillet::sandbox
