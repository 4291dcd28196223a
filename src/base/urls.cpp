// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/urls.h"

#include <algorithm>

namespace quillet {

namespace {

bool staysAsItIs(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '.' || c == '_' || c == '~' || c == ',';
}

}  // namespace

std::string percentEncoded(std::string_view text) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    if (staysAsItIs(c)) {
      result += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      result += {'%', kHex[byte >> 4], kHex[byte & 15]};
    }
  }
  return result;
}

std::string buildUrl(std::string_view base, std::string_view path, const QueryItems& items) {
  std::string url(base);
  url += path;
  char separator = '?';
  for (const auto& [name, value] : items) {
    url += separator;
    url += percentEncoded(name) + '=' + percentEncoded(value);
    separator = '&';
  }
  return url;
}

bool isWebAddress(std::string_view text) {
  const auto isForbidden = [](char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '"' || c == '<' || c == '>';
  };
  for (const std::string_view scheme : {"https://", "http://"}) {
    if (text.starts_with(scheme)) {
      return text.size() > scheme.size() && std::none_of(text.begin(), text.end(), isForbidden);
    }
  }
  return false;
}

bool isSecureAddress(std::string_view text) {
  constexpr std::string_view kScheme = "https://";
  if (!text.starts_with(kScheme) || !isWebAddress(text)) return false;
  const std::string_view rest = text.substr(kScheme.size());
  const std::string_view host = rest.substr(0, rest.find_first_of("/?#\\"));
  return !host.empty() && host.front() != ':' && host.find('@') == std::string_view::npos;
}

}  // namespace quillet
