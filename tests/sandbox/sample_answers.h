// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/text.h"
#include "sandbox/endpoints.h"

namespace quillet::sandbox {

inline constexpr std::chrono::sys_days kSampleDay =
    std::chrono::year(2026) / std::chrono::November / 21;

inline const SampleStore& sampleStore() {
  static const SampleStore store({.apps = 500, .today = kSampleDay});
  return store;
}

inline SampleApp sampleApp(std::int64_t id) { return sampleStore().app(*sampleStore().withId(id)); }

/// The request for "/path?name=value&name=value"; nothing in it is encoded.
inline Request requestFor(std::string_view target) {
  const auto parts = split(target, '?');
  Request request{.path = std::string(parts.front())};
  for (const std::string_view pair : split(parts.back(), '&')) {
    const auto end = pair.find('=');
    if (end < pair.size()) request.query.emplace(pair.substr(0, end), pair.substr(end + 1));
  }
  return request;
}

/// The sample store's answer to the application, and to a browser.
inline Answer answered(std::string_view target) {
  return answerTo(sampleStore(), requestFor(target));
}
inline Answer asBrowser(std::string_view target) {
  Request request = requestFor(target);
  request.userAgent = "Mozilla/5.0 (Macintosh)";
  return answerTo(sampleStore(), std::move(request));
}

}  // namespace quillet::sandbox
