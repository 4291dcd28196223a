// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <vector>

#include "analysis/search_command_line.h"

namespace quillet {

// The state file's; never change.
inline constexpr const char* kRecentSearchesKey = "recentSearches";

/// What was searched for, the last one first: words, platform and storefront. What cannot be read
/// is left out.
[[nodiscard]] std::vector<SearchRequest> recentSearches(const QJsonValue& kept);

/// What was searched for, the last one first, with one more: its words, platform and storefront,
/// each combination once, the oldest forgotten.
[[nodiscard]] QJsonArray withRecentSearch(const QJsonValue& kept, const SearchRequest& request);

/// The same with older ones behind them.
[[nodiscard]] QJsonArray withOlderSearches(QJsonArray searches, const QJsonValue& older);

}  // namespace quillet
