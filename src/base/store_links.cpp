// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/store_links.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "base/urls.h"

namespace quillet {

namespace {

constexpr std::string_view kDigits = "0123456789";

/// The parts of the path of a link into the App Store; empty for what is none.
std::vector<std::string_view> pathOf(std::string_view text) {
  text = trimmed(text);
  const std::size_t scheme = text.find("://");
  if (scheme != std::string_view::npos) text.remove_prefix(scheme + 3);
  const std::size_t path = text.find('/');
  const std::string host = lowerAscii(text.substr(0, path));
  if (host != "apps.apple.com" && host != "itunes.apple.com") return {};
  if (path == std::string_view::npos) return {};
  return split(text.substr(path + 1, text.find_first_of("?#") - path - 1), '/');
}

bool isCountry(std::string_view piece) {
  const auto isLetter = [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
  };
  return piece.size() == 2 && std::ranges::all_of(piece, isLetter);
}

}  // namespace

std::string appPageLink(std::int64_t trackId, std::string_view country) {
  return fmt::format("https://apps.apple.com/{}/app/id{}", percentEncoded(country), trackId);
}

std::optional<std::string> trackIdInLink(std::string_view text) {
  std::optional<std::string> found;
  for (const std::string_view piece : pathOf(text)) {
    const std::string_view id = piece.substr(std::min<std::size_t>(piece.size(), 2));
    const bool isId = piece.starts_with("id") && !id.empty() &&
                      id.find_first_not_of(kDigits) == std::string_view::npos;
    if (isId) found = id;
  }
  return found;
}

std::optional<std::string> storefrontInLink(std::string_view text) {
  const std::vector<std::string_view> path = pathOf(text);
  if (path.empty() || !isCountry(path.front())) return {};
  return lowerAscii(path.front());
}

bool isBundleId(std::string_view text) {
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  const std::vector<std::string_view> pieces = split(text, '.');
  return pieces.size() > 1 && std::ranges::all_of(pieces, [&](std::string_view piece) {
           return !piece.empty() && piece.find_first_not_of(kLetters) == std::string_view::npos;
         });
}

std::optional<std::int64_t> trackIdIn(std::string_view text) {
  text = trimmed(text);
  if (text.find_first_not_of(kDigits) != std::string_view::npos) return {};
  const auto trackId = parseWhole(text);
  return trackId > 0 ? trackId : std::nullopt;
}

}  // namespace quillet
