// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "sandbox/endpoints.h"

namespace quillet::sandbox {

inline constexpr std::chrono::sys_days kSampleDay =
    std::chrono::year(2026) / std::chrono::November / 21;

inline const SampleStore& sampleStore() {
  static const SampleStore store({.apps = 500, .today = kSampleDay});
  return store;
}

inline SampleApp sampleApp(std::int64_t id) { return sampleStore().app(*sampleStore().withId(id)); }

/// The sample store's answer to a browser.
inline Answer asBrowser(const std::string& path, std::multimap<std::string, std::string> query = {},
                        Freshness freshness = Freshness::fresh) {
  return answerTo(sampleStore(), {.path = path,
                                  .query = std::move(query),
                                  .freshness = freshness,
                                  .userAgent = "Mozilla/5.0 (Macintosh)"});
}

}  // namespace quillet::sandbox
