// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/web_addresses.h"

#include "base/text.h"

namespace quillet::sandbox {

namespace {

constexpr std::string_view kWebHost = "https://apps.quillet-store.example";

/// "Inkfallow Pages" as addresses have it: "inkfallow-pages".
std::string slug(std::string_view name) {
  std::string text;
  for (const char c : lowerAscii(name)) {
    const bool isPlain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (isPlain) text += c;
    if (!isPlain && !text.empty() && text.back() != '-') text += '-';
  }
  while (text.ends_with('-')) text.pop_back();
  return text.empty() ? "app" : text;
}

}  // namespace

std::string webUrl(std::string_view what, std::string_view name, std::int64_t id,
                   Storefront storefront) {
  return fmt::format("{}/{}/{}/{}/id{}", kWebHost, codeOf(storefront), what, slug(name), id);
}

std::string chartUrl(std::string_view shelf, int genre, Storefront storefront) {
  return fmt::format("{}/{}/{}/charts/{}", kWebHost, codeOf(storefront), shelf, genre);
}

}  // namespace quillet::sandbox
